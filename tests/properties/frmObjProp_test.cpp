#include "properties/sheet_window.h"

#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>

#include <functional>

using namespace quillset;
using namespace quillset::test;

namespace {

QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

/// Key presses of any character, to the control that has the focus.
void typeKeys(const QString& typed) {
    for (const QChar character : typed) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, {}, QString(character));
        QApplication::sendEvent(QApplication::focusWidget(), &press);
    }
}

void compose(const QString& committed) {
    QInputMethodEvent preedit(QStringLiteral("?"), {});
    QApplication::sendEvent(QApplication::focusWidget(), &preedit);
    QInputMethodEvent commit;
    commit.setCommitString(committed);
    QApplication::sendEvent(QApplication::focusWidget(), &commit);
}

void pasteFromMenu(LineEditor& box) {
    QTimer::singleShot(0, &box, [] {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        for (QAction* action : menu->actions()) {
            if (action->text().contains(QStringLiteral("aste")))
                action->trigger();
        }
        menu->close();
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, box.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&box, &event);
}

void drop(LineEditor& box, const QString& dropped) {
    QMimeData data;
    data.setText(dropped);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&box, &enter);
    QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&box, &event);
}

using Act = std::function<void(SheetWindow&)>;
constexpr int nameColumn = PropertyGrid::nameColumn;
constexpr int valueColumn = PropertyGrid::valueColumn;

} // namespace

class frmObjPropTest : public QObject {
    Q_OBJECT
private slots:
    void anEditNeverReachesAnotherPlacement();
    void editorLiesOverTheCell();
    void everyRoadPassesTheFilter();
    void endsOfAnEdit();
    void spinBoxIsSettledWhenItIsLeft();
    void listIsChangedByKeysAndByItsList();
    void roofTypeRebuildsTheSheet();
    void tabWalksWithTheEditorOpen();
    void keysOfTheGrid();
    void coordinateMenu();
    void editorFollowsTheScrolling();
    void layoutFollowsTheDocking();
};

void frmObjPropTest::anEditNeverReachesAnotherPlacement() {
    struct Row {
        const char* name;
        Act edit;
        std::optional<std::size_t> placement; ///< where the edited placement stands afterwards
    };
    const auto undo = [](SheetWindow& w) { // as the command does it
        w.editor.commitOpenEditor();
        w.journal.undo();
        w.list.updateXMLList();
    };
    const std::vector<Row> rows{
        {"moved up", [](auto& w) { w.list.moveUp(); }, 0},
        {"moved down", [](auto& w) { w.list.moveDown(); }, 2},
        {"object before it", [](auto& w) { w.list.addNewObject("AA", 1, 2, true); }, 2},
        {"object at the end", [](auto& w) { w.list.addNewObject("AA", 1, 2, false); }, 1},
        {"removed", [](auto& w) { w.list.removeObject(); }, std::nullopt},
        {"undone", undo, std::nullopt},
        {"given another object", [](auto& w) { w.list.UpdateObject("BB"); }, 1},
    };
    for (const Row& row : rows) {
        SheetWindow w;
        w.open("pitch");
        w.type("2.5");
        row.edit(w);
        w.editor.setNewData();
        w.elsewhere->setFocus();
        for (std::size_t i = 0; i < w.document.placementCount(); ++i)
            QVERIFY2(w.stored(i, "pitch") == (i == row.placement ? "2.5" : "0.0"), row.name);
        // The next edit goes to what the sheet shows now.
        w.clickRow("bank");
        w.type("7");
        w.press(Qt::Key_Return);
        for (std::size_t i = 0; i < w.document.placementCount(); ++i)
            QVERIFY2(w.stored(i, "bank") == (i == w.list.selectedPlacement() ? "7" : "0.0"), row.name);
    }
}

void frmObjPropTest::editorLiesOverTheCell() {
    SheetWindow w;
    w.selectPlacement(2);
    w.clickRow("lat", nameColumn);
    QCOMPARE(w.visibleEditors(), QStringList());
    QCOMPARE(w.description(), text("Latitude of object "));
    const std::vector<std::pair<const char*, const char*>> editors{
        {"lat", "txt_prop"}, {"imageComplexity", "cmb_prop"}, {"roofTexture", "spn_prop"}};
    for (const auto& [property, name] : editors) {
        w.clickRow(property);
        QCOMPARE(w.visibleEditors(), QStringList(text(name)));
        const QRect cell = w.grid().valueCell(w.rowOf(property));
        const QWidget& editor = w.editorWidget(name);
        QCOMPARE(editor.geometry().topLeft(), cell.topLeft());
        QCOMPARE(editor.width(), cell.width());
        QVERIFY(editor.height() <= cell.height());
        QVERIFY(w.focusedBox() == &editor || editor.isAncestorOf(w.focusedBox()));
    }
    QCOMPARE(w.description(), text("ID of texture to use on roof"));
    QCOMPARE(w.journal.count(), std::size_t{0});
}

void frmObjPropTest::everyRoadPassesTheFilter() {
    struct Row {
        const char *property, *typed, *expected;
    };
    const std::vector<Row> rows{
        {"lat", "5a2,1 -.b", "52,1 -."},
        {"alt", "-12.5 mfMF,", "-12.5MF"},
        {"comment", "a <b>\u20AC 1", "a <b>\u20AC 1"},
        {"sizeX", "4.2-x1", "421"},
        {"imageComplexity", "N1O2", "12"},
        {"roofTexture", "-1.x2", "12"},
    };
    using Road = std::function<void(SheetWindow&, LineEditor&, const QString&)>;
    const std::vector<std::pair<const char*, Road>> roads{
        {"keys", [](auto&, auto&, const QString& typed) { typeKeys(typed); }},
        {"input method", [](auto&, auto&, const QString& typed) { compose(typed); }},
        {"Ctrl+V", [](auto& w, auto&, auto&) { w.press(Qt::Key_V, Qt::ControlModifier); }},
        {"Shift+Ins", [](auto& w, auto&, auto&) { w.press(Qt::Key_Insert, Qt::ShiftModifier); }},
        {"context menu", [](auto&, auto& box, auto&) { pasteFromMenu(box); }},
        {"drop", [](auto&, auto& box, const QString& typed) { drop(box, typed); }},
    };
    for (const Row& row : rows) {
        QApplication::clipboard()->setText(text(row.typed));
        for (const auto& [name, take] : roads) {
            SheetWindow w;
            LineEditor& box = w.open(row.property);
            w.press(Qt::Key_Backspace);
            QCOMPARE(box.text(), QString());
            take(w, box, text(row.typed));
            QVERIFY2(w.editor.isEditing(), name);
            QVERIFY2(box.text() == text(row.expected),
                     qPrintable(text(row.property) + text(name) + box.text()));
        }
    }
}

void frmObjPropTest::endsOfAnEdit() {
    struct End {
        const char* name;
        Act act;
        bool written;
        bool open; ///< an editor is open again, on another row
    };
    const auto clickBelow = [](SheetWindow& w) {
        QWidget* const viewport = w.grid().viewport();
        QTest::mouseClick(viewport, Qt::LeftButton, {}, viewport->rect().bottomLeft() + QPoint(5, -5));
    };
    const auto closeInBackground = [](SheetWindow& w) {
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QVERIFY(w.editor.isEditing()); // going to another window ends nothing
        w.sheet->hide();
    };
    const std::vector<End> ends{
        {"Enter", [](auto& w) { w.press(Qt::Key_Return); }, true, false},
        {"Enter of the keypad", [](auto& w) { w.press(Qt::Key_Enter, Qt::KeypadModifier); }, true, false},
        {"Escape", [](auto& w) { w.press(Qt::Key_Escape); }, false, false},
        {"Tab", [](auto& w) { w.press(Qt::Key_Tab); }, true, true},
        {"click on another value", [](auto& w) { w.clickRow("lat"); }, true, true},
        {"click on another name", [](auto& w) { w.clickRow("lat", nameColumn); }, true, false},
        {"click below the rows", clickBelow, true, false},
        {"right click", [](auto& w) { w.clickRow("bank", valueColumn, Qt::RightButton); }, true, false},
        {"another control", [](auto& w) { w.elsewhere->setFocus(); }, true, false},
        {"Ctrl+Tab", [](auto& w) { w.press(Qt::Key_Tab, Qt::ControlModifier); }, true, false},
        {"another placement", [](auto& w) { w.selectPlacement(3); }, true, false},
        {"window closed", [](auto& w) { w.sheet->hide(); }, true, false},
        {"window closed in the background", closeInBackground, true, false},
        {"undocked", [](auto& w) { w.sheet->setParent(nullptr); }, true, false},
        {"refilled without a commit", [](auto& w) { w.editor.clearPropList(0); }, false, false},
        {"document closed", [](auto& w) { w.document.close(); }, false, false},
        {"new document", [](auto& w) { w.document.create("new.xml"); }, false, false},
        {"document loaded", [](auto& w) { w.document.load(w.folder.file("three.xml")); }, false, false},
    };
    for (const End& end : ends) {
        SheetWindow w;
        w.open("pitch", 1);
        w.type("2.5");
        std::size_t notifications = 0;
        const Connection watch = w.document.changed.connect([&](const DocumentChange& change) {
            notifications += change.kind == DocumentChange::Kind::changed ? 1 : 0;
        });
        end.act(w);
        QVERIFY2(w.visibleEditors().isEmpty() != end.open, end.name);
        QVERIFY2(w.editor.isEditing() == end.open, end.name);
        w.editor.setNewData();
        w.elsewhere->setFocus();
        QVERIFY2(w.journal.count() == (end.written ? 1U : 0U), end.name);
        QVERIFY2(notifications == (end.written ? 1U : 0U), end.name);
        const std::string expected = end.written ? "2.5" : "0.0";
        for (std::size_t i = 0; i < w.document.placementCount(); ++i)
            QVERIFY2(w.stored(i, "pitch") == (i == 0 ? expected : "0.0"), end.name);
        w.sheet->setParent(&w.host);
    }
}

void frmObjPropTest::spinBoxIsSettledWhenItIsLeft() {
    struct Row {
        const char* typed;
        Qt::Key key; ///< Key_unknown: the focus goes elsewhere
        const char* stored;
    };
    const std::vector<Row> rows{
        {"2", Qt::Key_Return, "3"},
        {"", Qt::Key_Tab, "3"},
        {"2", Qt::Key_Escape, "12"},
        {"1000", Qt::Key_unknown, "999"},
    };
    for (const Row& row : rows) {
        SheetWindow w;
        QCOMPARE(w.open("buildingSides", 3).selectedText(), text("12"));
        w.press(Qt::Key_Delete);
        w.type(row.typed);
        if (row.key == Qt::Key_unknown)
            w.elsewhere->setFocus();
        else
            w.press(row.key);
        QCOMPARE(w.stored(2, "buildingSides"), row.stored);
        QCOMPARE(w.cell("buildingSides"), text(row.stored));
    }
}

void frmObjPropTest::listIsChangedByKeysAndByItsList() {
    SheetWindow w;
    LineEditor& box = w.open("imageComplexity", 1);
    QCOMPARE(w.comboBox().count(), 6);
    w.press(Qt::Key_Down);
    QCOMPARE(box.text(), text("DENSE"));
    QWheelEvent wheel({5, 5}, w.comboBox().mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&w.comboBox(), &wheel);
    QCOMPARE(box.text(), text("DENSE"));
    w.elsewhere->setFocus();
    QCOMPARE(w.stored(0, "imageComplexity"), "DENSE");
    QCOMPARE(w.journal.count(), std::size_t{1});

    // The list takes the focus while it is open, without ending the edit.
    w.open("altitudeIsAgl", 1);
    w.press(Qt::Key_F4);
    QVERIFY(QApplication::activePopupWidget());
    QVERIFY(w.editor.isEditing());
    w.press(Qt::Key_Down);
    w.press(Qt::Key_Return);
    QTRY_COMPARE(box.text(), text("FALSE"));
    w.press(Qt::Key_Return);
    QCOMPARE(w.stored(0, "altitudeIsAgl"), "FALSE");
}

void frmObjPropTest::roofTypeRebuildsTheSheet() {
    SheetWindow w;
    w.sheet->resize(400, 300);
    w.open("roofType");
    w.grid().verticalScrollBar()->setValue(w.rowOf("roofType") - 1);
    w.press(Qt::Key_Down); // PEAKED
    w.press(Qt::Key_Tab);
    QCOMPARE(w.grid().verticalScrollBar()->value(), w.rowOf("roofType") - 1);
    QCOMPARE(w.stored(1, "sizeRoofY"), "20");
    QVERIFY(w.rowOf("sizeRoofY") > 0);
    QCOMPARE(w.grid().rowCount(), static_cast<int>(w.editor.rows().size()));
    QCOMPARE(w.journal.count(), std::size_t{2});
    QCOMPARE(w.editor.currentRow(), w.rowOf("sizeX"));
    QCOMPARE(w.visibleEditors(), QStringList(text("txt_prop")));
    // Undo brings back the reshaping, then the text.
    w.editor.commitOpenEditor();
    w.journal.undo();
    w.list.updateXMLList();
    QCOMPARE(w.stored(1, "sizeRoofY"), "(none)");
    QCOMPARE(w.cell("roofType"), text("PEAKED"));
}

void frmObjPropTest::tabWalksWithTheEditorOpen() {
    SheetWindow w;
    w.sheet->resize(400, 300);
    w.open("comment");
    const QScrollBar* const bar = w.grid().verticalScrollBar();
    const int rows = w.grid().rowCount();
    for (int row = 1; row < rows; ++row) {
        w.press(Qt::Key_Tab);
        QCOMPARE(w.editor.currentRow(), row);
        QCOMPARE(w.visibleEditors().size(), 1);
        const QByteArray editor = w.visibleEditors().first().toUtf8();
        QVERIFY(w.grid().viewport()->rect().contains(w.editorWidget(editor.constData()).geometry()));
        QVERIFY(w.grid().visibleRows() - 1 - (row - bar->value()) >= 2 || row >= rows - 3);
    }
    w.press(Qt::Key_Tab);
    QCOMPARE(w.editor.currentRow(), rows - 1);
    QCOMPARE(w.visibleEditors().size(), 1);
    for (int row = rows - 2; row >= 0; --row) {
        w.press(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(w.editor.currentRow(), row);
        QVERIFY(row - bar->value() >= 2 || bar->value() == 0);
    }
    QCOMPARE(bar->value(), 0);
    QCOMPARE(w.journal.count(), std::size_t{0}); // walking alone edits nothing
}

void frmObjPropTest::keysOfTheGrid() {
    SheetWindow w;
    w.clickRow("lat", nameColumn);
    w.type("r");
    QCOMPARE(w.stored(0, "lat"), "51.5");
    QCOMPARE(w.cell("lat"), text("51.5"));
    w.type("wRW");
    QCOMPARE(w.sent, std::vector<double>{51.5});
    QCOMPARE(w.journal.count(), std::size_t{1});
    w.press(Qt::Key_Down);
    QCOMPARE(w.description(), text("Longitude of object"));
    w.press(Qt::Key_Return);
    QCOMPARE(w.visibleEditors(), QStringList());
    w.press(Qt::Key_Tab);
    w.press(Qt::Key_Tab, Qt::ShiftModifier);
    w.press(Qt::Key_Tab);
    w.type("t"); // no search by letters
    QCOMPARE(w.editor.currentRow(), w.rowOf("alt"));
    w.press(Qt::Key_F2);
    QCOMPARE(w.visibleEditors(), QStringList(text("txt_prop")));
    w.press(Qt::Key_Up); // not the grid's while an editor is open
    QCOMPARE(w.editor.currentRow(), w.rowOf("alt"));
    w.press(Qt::Key_Escape);
    QVERIFY(w.grid().hasFocus());
    w.press(Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(w.elsewhere->hasFocus());
}

void frmObjPropTest::coordinateMenu() {
    SheetWindow w;
    const auto* const menu = w.sheet->findChild<QMenu*>(QStringLiteral("mCoordinate"));
    const std::vector<std::pair<const char*, const char*>> rows{
        {"lat", "latitude"}, {"lon", "longitude"}, {"heading", "heading"}};
    for (const auto& [name, word] : rows) {
        w.clickRow(name, valueColumn, Qt::RightButton);
        QVERIFY(menu->isVisible());
        QCOMPARE(menu->actions().at(0)->text(), QStringLiteral("Read %1 from FS").arg(text(word)));
        QCOMPARE(menu->actions().at(1)->text(), QStringLiteral("Write %1 to FS").arg(text(word)));
        menu->actions().at(0)->trigger();
        QCOMPARE(w.stored(0, name), "51.5");
        QApplication::activePopupWidget()->close();
    }
    w.clickRow("alt", valueColumn, Qt::RightButton);
    QVERIFY(!menu->isVisible());
    QCOMPARE(w.editor.currentRow(), w.rowOf("alt"));
    // By the keyboard alone.
    w.simulated = 20;
    w.clickRow("lat", nameColumn);
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, {5, 5}, w.grid().mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&w.grid(), &asked);
    QVERIFY(menu->isVisible());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    QCOMPARE(w.stored(0, "lat"), "20");
    // By key after a right click on another row: the row decides, not the last captions.
    w.clickRow("lat", nameColumn);
    w.simulated = 10;
    w.type("r");
    QCOMPARE(w.stored(0, "lat"), "10");
    QCOMPARE(w.stored(0, "heading"), "51.5");
}

void frmObjPropTest::editorFollowsTheScrolling() {
    SheetWindow w;
    w.sheet->resize(400, 250);
    for (const char* name : {"pitch", "altitudeIsAgl", "roofTexture"}) {
        w.open(name);
        const QByteArray editor = w.visibleEditors().first().toUtf8();
        w.grid().verticalScrollBar()->setValue(w.grid().verticalScrollBar()->value() + 2);
        QCOMPARE(w.editorWidget(editor.constData()).pos(), w.grid().valueCell(w.rowOf(name)).topLeft());
        QVERIFY(w.editor.isEditing());
    }
    w.clickRow("lat", nameColumn);
    w.grid().verticalScrollBar()->setValue(9);
    w.list.XMLListClick(); // the same placement again
    QApplication::processEvents();
    QCOMPARE(w.grid().verticalScrollBar()->value(), 9);
    QCOMPARE(w.grid().currentRow(), w.rowOf("lat"));
}

void frmObjPropTest::layoutFollowsTheDocking() {
    SheetWindow w;
    w.sheet->resize(300, 600); // 4500 x 9000 twips
    QCOMPARE(w.grid().geometry(), QRect(0, 0, 290, 553));
    w.dockStatus = 4;
    w.sheet->layOut();
    QCOMPARE(w.grid().geometry(), QRect(5, 27, 290, 533));
    w.dockStatus = 9;
    w.sheet->resize(500, 600);
    QCOMPARE(w.grid().geometry(), QRect(5, 27, 290, 533));
    const int shown = w.grid().viewport()->width();
    QCOMPARE(w.grid().columnWidth(nameColumn) + w.grid().columnWidth(valueColumn), shown);
}

QTEST_MAIN(frmObjPropTest)
#include "frmObjProp_test.moc"
