#include "document/frmXMLList.h"

#include "document/document_fixture.h"
#include "document/local_models.h"

#include <QAbstractItemModelTester>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

namespace quillset {

class FrmXMLListTest : public QObject {
    Q_OBJECT
private slots:
    void keysMoveTheSelectionAndTheSheet();
    void pressesChooseRows();
    void onlyALowerCaseRRemoves();
    void theContextMenuIsForRows();
    void theGridFollowsEveryEdit();
    void closingIsLeftToTheShell();
    void aHugeListIsNotReadThrough();
};

namespace {

std::string placements(int count) {
    std::string file = "<FSData>";
    for (int i = 1; i <= count; ++i)
        file += "<!--c" + std::to_string(i) + "--><SceneryObject lat=\"" + std::to_string(i) +
                "\"><LibraryObject name=\"A\"/></SceneryObject>";
    return file + "</FSData>";
}

/// The window over a list of some rows, on screen and with the focus.
struct Window : test::DocumentFixture {
    explicit Window(int count) {
        open(placements(count));
        form.resize(700, 300);
        form.show();
        active = QTest::qWaitForWindowActive(&form);
        grid->setFocus();
    }
    [[nodiscard]] QPoint at(int row) const {
        return grid->visualRect(grid->model()->index(row - 1, 1)).center();
    }
    [[nodiscard]] QPoint belowRows() const { return at(list.rowCount()) + QPoint(0, 2 * grid->rowHeight(0)); }
    [[nodiscard]] int gridRow() const { return grid->currentIndex().row() + 1; }
    [[nodiscard]] int selectedGridRow() const {
        const QModelIndexList rows = grid->selectionModel()->selectedRows();
        return rows.size() == 1 ? rows[0].row() + 1 : 0;
    }
    void press(int row, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(grid->viewport(), button, keys, at(row));
    }
    void askMenu(QWidget* where, const QPoint& position,
                 QContextMenuEvent::Reason reason = QContextMenuEvent::Mouse) {
        QContextMenuEvent event(reason, position, where->mapToGlobal(position));
        QCoreApplication::sendEvent(where, &event);
    }

    frmXMLList form{list, errors};
    bool active = false;
    QTableView* grid = form.findChild<QTableView*>(QStringLiteral("XMLList"));
};

} // namespace

void FrmXMLListTest::keysMoveTheSelectionAndTheSheet() {
    Window window(5);
    QVERIFY(window.active);
    QCOMPARE(window.gridRow(), 1);
    const std::pair<Qt::Key, int> steps[] = {{Qt::Key_Down, 2}, {Qt::Key_End, 5},  {Qt::Key_Down, 5},
                                             {Qt::Key_Up, 4},   {Qt::Key_Home, 1}, {Qt::Key_PageDown, 5}};
    for (const auto& [key, row] : steps) {
        QTest::keyClick(window.grid, key);
        QCOMPARE(window.list.selectedRow(), row);
        QCOMPARE(window.sheet.index, row - 1);
        QCOMPARE(window.selectedGridRow(), row);
    }
}

void FrmXMLListTest::pressesChooseRows() {
    Window window(5);
    window.press(3);
    QCOMPARE(window.sheet.index, 2);
    window.catalogue.selected = "B";
    window.press(3); // the same row again leads the catalogue back
    QCOMPARE(window.catalogue.selected, std::string("A"));
    window.press(3, Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(window.selectedGridRow(), 3);
    window.press(4, Qt::RightButton);
    QCOMPARE(window.sheet.index, 3);
    QTest::mouseClick(window.grid->viewport(), Qt::LeftButton, {}, window.belowRows());
    QCOMPARE(window.list.selectedRow(), 4);
    QCOMPARE(window.selectedGridRow(), 4);
}

void FrmXMLListTest::onlyALowerCaseRRemoves() {
    Window window(3);
    window.press(2);
    QTest::keyClicks(window.grid, QStringLiteral("Rc"));
    QTest::keyClick(window.grid, 'r', Qt::ControlModifier);
    QTest::keyClick(window.grid, 'r', Qt::AltModifier);
    QCOMPARE(window.list.rowCount(), 3);
    const int fills = window.sheet.fills;
    QTest::keyClick(window.grid, 'r');
    QCOMPARE(window.list.rowCount(), 2);
    QCOMPARE(window.sheet.fills, fills + 1); // the row that the view makes current on its way is no choice
    QCOMPARE(window.selectedGridRow(), 2);
    QCOMPARE(window.grid->model()->index(1, 1).data().toString(), QStringLiteral("3"));
    QTest::keyClick(window.grid, 'r');
    QCOMPARE(window.selectedGridRow(), 1);
    QTest::keyClicks(window.grid, QStringLiteral("rr"));
    QCOMPARE(window.grid->model()->rowCount(), 0);
    QCOMPARE(window.journal.count(), std::size_t{3});
}

void FrmXMLListTest::theContextMenuIsForRows() {
    Window window(3);
    std::vector<ListCommands> asked;
    connect(&window.form, &frmXMLList::contextMenuWanted, this,
            [&](const QPoint&, const ListCommands& commands) { asked.push_back(commands); });
    window.press(3, Qt::RightButton);
    window.askMenu(window.grid->viewport(), window.at(3));
    QCOMPARE(asked.size(), std::size_t{1});
    QVERIFY(asked[0].moveUp && !asked[0].moveDown);
    window.askMenu(window.grid->viewport(), window.belowRows());
    window.askMenu(window.grid->horizontalHeader()->viewport(), QPoint(3, 3));
    QCOMPARE(asked.size(), std::size_t{1});
    window.askMenu(window.grid->viewport(), QPoint(0, 0), QContextMenuEvent::Keyboard);
    QCOMPARE(asked.size(), std::size_t{2});
    QCOMPARE(window.list.selectedRow(), 3);
}

void FrmXMLListTest::theGridFollowsEveryEdit() {
    Window window(4);
    const QAbstractItemModelTester tester(window.grid->model(),
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    const std::vector<std::function<void()>> edits = {
        [&] { window.press(2); },
        [&] { window.list.addNewObject("B", 1, 2, true); },
        [&] { window.list.addNewObject("smoke.fx", 1, 2, false); },
        [&] { window.list.moveUp(); },
        [&] { window.list.setProperty(0, 0, "other"); },
        [&] { window.list.removeObject(); },
        [&] { window.document.create("new.xml"); },
        [&] { window.list.addNewObject("B", 1, 2, false); },
        [&] { window.journal.undo(); },
        [&] { window.open(placements(3)); },
        [&] { removeLocalModel(window.document, "A"); },
        [&] { window.document.close(); },
    };
    for (const auto& edit : edits) {
        edit();
        QCOMPARE(window.grid->model()->rowCount(), window.list.rowCount());
        QCOMPARE(window.selectedGridRow(), window.list.selectedRow());
        for (int row = 1; row <= window.list.rowCount(); ++row)
            QCOMPARE(window.grid->model()->index(row - 1, 3).data().toString().toStdString(),
                     window.list.row(row).comment);
    }
    QCOMPARE(window.grid->model()->rowCount(), 0);
}

void FrmXMLListTest::closingIsLeftToTheShell() {
    Window window(1);
    const QSignalSpy wanted(&window.form, &frmXMLList::closeWanted);
    QVERIFY(!window.form.close());
    QCOMPARE(wanted.count(), 1);
    QVERIFY(window.form.isVisible());
}

void FrmXMLListTest::aHugeListIsNotReadThrough() {
    /// Counts how often a name is asked for.
    class Counting : public test::SmallCatalogue {
    public:
        [[nodiscard]] std::string getObjectName(const std::string& key) const override {
            ++asked;
            return SmallCatalogue::getObjectName(key);
        }
        mutable int asked = 0;
    } catalogue;
    test::DocumentFixture fixture;
    ObjectList list(fixture.document, fixture.journal, catalogue, fixture.activity, fixture.errors,
                    [] { return 0.0; });
    frmXMLList form(list, fixture.errors);
    form.resize(700, 300);
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    fixture.open(placements(20000));
    list.click(20000);
    list.addNewObject("A", 1, 2, true);
    form.findChild<QTableView*>()->viewport()->grab();
    QVERIFY2(catalogue.asked < 2000, qPrintable(QString::number(catalogue.asked)));
}

} // namespace quillset

QTEST_MAIN(quillset::FrmXMLListTest)
#include "frm_xml_list_test.moc"
