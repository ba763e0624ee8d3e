#include "catalogue/frmObjTree.h"

#include "catalogue/object_icons.h"
#include "catalogue/object_tree_model.h"
#include "catalogue_fixture.h"

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QGuiApplication>
#include <QIcon>
#include <QLineEdit>
#include <QPalette>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

#include <memory>

namespace quillset {

class ObjTreeWindowTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void showsTheTreeInItsOrder();
    void clicksAndKeysSelect();
    void theSelectionFollowsTheCatalogue();
    void keysAddWhenTheCommandIsEnabled();
    void otherKeysSearchByName();
    void aScanKeepsWhatIsOpenAndSelected();
    void modelsAppearWithoutAScan();
    void searchingHidesButNeverSelects();
    void theSearchLineObeysItsKeys();
    void theSelectedNodeIsNeverHidden();
    void aFailingResizeEndsTheProgram();
    void fitsItsWindow();
    void iconsFollowThePalette();
    void screenReadersFindTheNodes();

private:
    [[nodiscard]] QModelIndex indexOf(const char* key) const;
    [[nodiscard]] QString currentText() const;
    [[nodiscard]] QStringList visibleTexts() const;
    void click(const char* key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    [[nodiscard]] std::string selectedKey() const;

    std::unique_ptr<test::CatalogueFixture> catalogue_;
    ListState list_;
    std::unique_ptr<frmObjTree> window_;
    std::unique_ptr<QAbstractItemModelTester> tester_;
    QTreeView* view_ = nullptr;
    QLineEdit* searchLine_ = nullptr;
};

void ObjTreeWindowTest::init() {
    catalogue_ = std::make_unique<test::CatalogueFixture>();
    catalogue_->sources.documentModels = {{"M1", "house.mdl"}};
    catalogue_->rescan();
    list_ = {true, true};
    window_ = std::make_unique<frmObjTree>(catalogue_->tree, catalogue_->errors, [this] { return list_; });
    view_ = window_->findChild<QTreeView*>(QStringLiteral("ObjTree"));
    searchLine_ = window_->findChild<QLineEdit*>(QStringLiteral("txt_search"));
    QVERIFY(view_ && searchLine_);
    tester_ = std::make_unique<QAbstractItemModelTester>(view_->model());
    window_->resize(300, 600);
    window_->show();
    window_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window_.get()));
}

void ObjTreeWindowTest::cleanup() {
    tester_.reset();
    window_.reset();
    catalogue_.reset();
}

QModelIndex ObjTreeWindowTest::indexOf(const char* key) const {
    const auto* const model = qobject_cast<ObjectTreeModel*>(view_->model());
    const std::optional<NodeId> id = catalogue_->tree.nodes().find(key);
    return id ? model->indexOf(*id) : QModelIndex();
}

QString ObjTreeWindowTest::currentText() const {
    const QModelIndexList selected = view_->selectionModel()->selectedIndexes();
    return selected.size() == 1 ? selected.front().data().toString()
                                : QStringLiteral("%1 selected").arg(selected.size());
}

QStringList ObjTreeWindowTest::visibleTexts() const {
    QStringList texts;
    for (QModelIndex index = view_->model()->index(0, 0); index.isValid(); index = view_->indexBelow(index))
        texts.append(index.data().toString());
    return texts;
}

void ObjTreeWindowTest::click(const char* key, Qt::KeyboardModifiers modifiers) const {
    const QModelIndex index = indexOf(key);
    view_->scrollTo(index);
    QTest::mouseClick(view_->viewport(), Qt::LeftButton, modifiers, view_->visualRect(index).center());
}

std::string ObjTreeWindowTest::selectedKey() const {
    const std::optional<CatalogueItem> item = catalogue_->tree.selected();
    return item ? item->key : "none";
}

static QStringList texts(std::initializer_list<const char*> list) {
    QStringList result;
    for (const char* text : list)
        result.append(QString::fromUtf8(text));
    return result;
}

void ObjTreeWindowTest::showsTheTreeInItsOrder() {
    QCOMPARE(visibleTexts(), texts({"Objects", "Default library objects", "Effects", "User library objects",
                                    "MDL objects", "Generic building"}));
    view_->expandAll();
    QCOMPARE(visibleTexts(),
             texts({"Objects", "Default library objects", "Barn", "Crane", "Effects", "fx_smoke.fx",
                    "User library objects", "MDL objects", "house.mdl", "Generic building",
                    "Rectangular building", "Pyramidal building", "MultiSided building"}));
    QVERIFY(indexOf("AA01").data(Qt::ToolTipRole).toString().contains(QStringLiteral("AA01")));
    QCOMPARE(selectedKey(), "none");
}

void ObjTreeWindowTest::clicksAndKeysSelect() {
    std::vector<std::string> seen;
    const Connection connection =
        catalogue_->tree.selectionChanged.connect([&] { seen.push_back(selectedKey()); });
    view_->expandAll();
    view_->setFocus();
    QCOMPARE(selectedKey(), "none"); // the keyboard's arrival alone chooses nothing
    click("AA02");
    QTest::keyClick(view_, Qt::Key_Up);
    QTest::keyClick(view_, Qt::Key_Up);
    QTest::mouseClick(view_->viewport(), Qt::LeftButton, {}, QPoint(50, view_->viewport()->height() - 5));
    QCOMPARE(currentText(), QStringLiteral("Default library objects"));
    click("generic", Qt::ControlModifier);
    QCOMPARE(currentText(), QStringLiteral("Default library objects"));
    QTest::keyClick(view_, Qt::Key_Home);
    QCOMPARE(seen, (std::vector<std::string>{"AA02", "AA01", "generic", "root"}));
    QCOMPARE(currentText(), QStringLiteral("Objects"));
}

void ObjTreeWindowTest::theSelectionFollowsTheCatalogue() {
    int changes = 0;
    const Connection connection = catalogue_->tree.selectionChanged.connect([&] { ++changes; });
    catalogue_->tree.setObjTreeItem("multisided");
    QCOMPARE(currentText(), QStringLiteral("MultiSided building"));
    QVERIFY(view_->isExpanded(indexOf("genbuild")));
    QVERIFY(view_->viewport()->rect().contains(view_->visualRect(indexOf("multisided")).center()));
    catalogue_->tree.setObjTreeItem("unknown");
    QCOMPARE(currentText(), QStringLiteral("MultiSided building"));
    catalogue_->tree.setObjTreeItem("root");
    QCOMPARE(currentText(), QStringLiteral("Objects"));
    QCOMPARE(changes, 2);
}

void ObjTreeWindowTest::keysAddWhenTheCommandIsEnabled() {
    QSignalSpy before(window_.get(), &frmObjTree::addNewBeforeWanted);
    QSignalSpy end(window_.get(), &frmObjTree::addNewEndWanted);
    view_->expandAll();
    click("rectangular");
    QTest::keyClick(view_, Qt::Key_P);
    QCOMPARE(before.size(), 1);
    QCOMPARE(end.size(), 0);
    QTest::keyClick(view_, Qt::Key_E);
    QCOMPARE(end.size(), 1);
    list_.rowSelected = false;
    QTest::keyClick(view_, Qt::Key_P);
    QTest::keyClick(view_, Qt::Key_E);
    QCOMPARE(before.size(), 1);
    QCOMPARE(end.size(), 2);
    list_.documentOpen = false;
    QTest::keyClick(view_, Qt::Key_E);
    list_ = {true, true};
    QTest::keyClick(view_, Qt::Key_P, Qt::ControlModifier);
    QTest::keyClick(view_, 'E'); // "E" is another character
    click("effects");
    QTest::keyClick(view_, Qt::Key_P);
    QTest::keyClick(view_, Qt::Key_E);
    QCOMPARE(before.size(), 1);
    QCOMPARE(end.size(), 2);
    QCOMPARE(currentText(), QStringLiteral("Effects")); // no search for "Pyramidal building"
}

void ObjTreeWindowTest::otherKeysSearchByName() {
    view_->expandAll();
    click("AA01");
    QTest::keyClick(view_, Qt::Key_C);
    QCOMPARE(selectedKey(), "AA02");
}

void ObjTreeWindowTest::aScanKeepsWhatIsOpenAndSelected() {
    catalogue_->tree.setObjTreeItem("M1");
    view_->expand(indexOf("generic"));
    view_->expand(indexOf("genbuild"));
    view_->collapse(indexOf("genbuild"));
    view_->collapse(indexOf("root"));
    catalogue_->sources.documentModels = {{"M0", "first.mdl"}, {"M1", "house.mdl"}};
    catalogue_->rescan();
    QCOMPARE(visibleTexts(),
             texts({"Objects", "Default library objects", "Barn", "Crane", "Effects", "User library objects",
                    "MDL objects", "first.mdl", "house.mdl", "Generic building"}));
    QCOMPARE(currentText(), QStringLiteral("house.mdl"));
    window_->resize(300, 120);
    view_->verticalScrollBar()->setValue(3);
    catalogue_->sources.documentModels.clear();
    catalogue_->rescan();
    QCOMPARE(view_->verticalScrollBar()->value(), 3);
    QCOMPARE(currentText(), QStringLiteral("0 selected"));
    QCOMPARE(selectedKey(), "none");
}

void ObjTreeWindowTest::modelsAppearWithoutAScan() {
    QSignalSpy inserted(view_->model(), &QAbstractItemModel::rowsInserted);
    QSignalSpy reset(view_->model(), &QAbstractItemModel::modelReset);
    const std::vector<CatalogueModel> models{{"M2", "b.mdl"}, {"M3", "c.mdl"}};
    catalogue_->tree.addLocalModels(models);
    catalogue_->tree.setObjTreeItem("M3");
    QCOMPARE(inserted.size(), 1);
    QCOMPARE(reset.size(), 0);
    QCOMPARE(currentText(), QStringLiteral("c.mdl"));
    QTest::keyClicks(searchLine_, QStringLiteral("mdl"));
    catalogue_->tree.addLocalModel("M4", "d.mdl");
    QCOMPARE(visibleTexts(), texts({"Objects", "MDL objects", "house.mdl", "b.mdl", "c.mdl", "d.mdl"}));
}

void ObjTreeWindowTest::searchingHidesButNeverSelects() {
    QTest::keyClicks(searchLine_, QStringLiteral("ra"));
    QCOMPARE(visibleTexts(), texts({"Objects", "Default library objects", "Crane", "Generic building",
                                    "Pyramidal building"}));
    QCOMPARE(selectedKey(), "none");
    click("AA02");
    QCOMPARE(selectedKey(), "AA02");
    QTest::keyClicks(searchLine_, QStringLiteral("x"));
    QCOMPARE(visibleTexts(), texts({"Objects", "Default library objects", "Crane"}));
    searchLine_->clear();
    QCOMPARE(visibleTexts(), texts({"Objects", "Default library objects", "Barn", "Crane", "Effects",
                                    "User library objects", "MDL objects", "Generic building"}));
    QCOMPARE(currentText(), QStringLiteral("Crane"));
}

void ObjTreeWindowTest::theSearchLineObeysItsKeys() {
    view_->setFocus();
    QTest::keyClick(view_, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(searchLine_->hasFocus());
    QTest::keyClicks(searchLine_, QStringLiteral("pe")); // letters are letters here
    QCOMPARE(searchLine_->text(), QStringLiteral("pe"));
    QTest::keyClick(searchLine_, Qt::Key_Return);
    QVERIFY(searchLine_->hasFocus()); // nothing matches
    QTest::keyClick(searchLine_, Qt::Key_Escape);
    QCOMPARE(searchLine_->text(), QString());
    QVERIFY(searchLine_->hasFocus());
    QTest::keyClicks(searchLine_, QStringLiteral("multi"));
    QTest::keyClick(searchLine_, Qt::Key_Return);
    QCOMPARE(selectedKey(), "multisided");
    QVERIFY(view_->hasFocus());
    QTest::keyClick(view_, Qt::Key_F, Qt::ControlModifier);
    QTest::keyClick(searchLine_, Qt::Key_Escape);
    QTest::keyClick(searchLine_, Qt::Key_Escape);
    QVERIFY(view_->hasFocus());
    QVERIFY(view_->isExpanded(indexOf("genbuild")));
}

void ObjTreeWindowTest::theSelectedNodeIsNeverHidden() {
    QTest::keyClicks(searchLine_, QStringLiteral("barn"));
    catalogue_->tree.setObjTreeItem("M1");
    QCOMPARE(visibleTexts(),
             texts({"Objects", "Default library objects", "Barn", "MDL objects", "house.mdl"}));
    QCOMPARE(currentText(), QStringLiteral("house.mdl"));
    QCOMPARE(searchLine_->text(), QStringLiteral("barn"));
    catalogue_->rescan();
    QCOMPARE(currentText(), QStringLiteral("house.mdl"));
}

void ObjTreeWindowTest::aFailingResizeEndsTheProgram() {
    struct Failing : frmObjTree {
        using frmObjTree::frmObjTree;
        void arrange() override { throw RuntimeError(ErrorNumber::invalidCall); }
    };
    Failing window(catalogue_->tree, catalogue_->errors, [] { return ListState(); });
    QResizeEvent event(QSize(10, 10), QSize(20, 20));
    QCoreApplication::sendEvent(&window, &event);
    QCOMPARE(catalogue_->messageTexts().at(0),
             "Error 5 (Invalid procedure call or argument) in procedure Form_Resize of Form frmObjTree");
    QCOMPARE(catalogue_->dialogs.messages.size(), std::size_t{2});
    QCOMPARE(catalogue_->ended, 1);
}

void ObjTreeWindowTest::fitsItsWindow() {
    for (const QSize& size : {QSize(400, 300), QSize(60, 40), QSize(1, 1)}) {
        window_->resize(size);
        QCOMPARE(searchLine_->width(), window_->width());
        QCOMPARE(view_->width(), window_->width());
        QVERIFY(searchLine_->geometry().bottom() < view_->geometry().top() + 1);
        QVERIFY(view_->height() <= 0 || view_->geometry().bottom() <= window_->rect().bottom());
    }
    QVERIFY(catalogue_->dialogs.messages.empty());
}

void ObjTreeWindowTest::iconsFollowThePalette() {
    const QPalette original = QGuiApplication::palette();
    for (const QColor& text : {QColor(Qt::black), QColor(Qt::white)}) {
        QPalette palette = original;
        palette.setColor(QPalette::Text, text);
        QGuiApplication::setPalette(palette);
        for (int kind = 0; kind <= static_cast<int>(NodeKind::building); ++kind) {
            const QImage image = objectIcon(static_cast<NodeKind>(kind)).pixmap(64, 64).toImage();
            int linePixels = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    linePixels += image.pixelColor(x, y) == text ? 1 : 0;
            QVERIFY2(linePixels > 20, qPrintable(QString::number(kind)));
            QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
        }
    }
    QGuiApplication::setPalette(original);
}

void ObjTreeWindowTest::screenReadersFindTheNodes() {
    QAccessible::setActive(true);
    QAccessibleInterface* const tree = QAccessible::queryAccessibleInterface(view_);
    QVERIFY(tree);
    QCOMPARE(tree->text(QAccessible::Name), QStringLiteral("Object tree"));
    view_->expandAll();
    const int header = 1; // the hidden one counts
    QCOMPARE(tree->childCount(), header + 13);
    QTest::keyClicks(searchLine_, QStringLiteral("crane"));
    QCOMPARE(tree->childCount(), header + 3);
    QCOMPARE(tree->child(header + 2)->text(QAccessible::Name), QStringLiteral("Crane"));
    catalogue_->tree.setObjTreeItem("M1");
    catalogue_->rescan();
    searchLine_->clear();
    QCOMPARE(tree->child(header)->text(QAccessible::Name), QStringLiteral("Objects"));
    QAccessible::setActive(false);
}

} // namespace quillset

QTEST_MAIN(quillset::ObjTreeWindowTest)
#include "frmObjTree_test.moc"
