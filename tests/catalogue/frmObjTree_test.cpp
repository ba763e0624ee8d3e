#include "catalogue/frmObjTree.h"

#include "catalogue/object_tree_model.h"
#include "catalogue_fixture.h"

#include <QAbstractItemModelTester>
#include <QLineEdit>
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
    window_->resize(60, 40);
    QCOMPARE(searchLine_->width(), 60);
    QCOMPARE(view_->width(), 60);
    QVERIFY(searchLine_->geometry().bottom() <= view_->geometry().top());
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
    QTest::keyClicks(searchLine_, QStringLiteral("mdl"));
    catalogue_->tree.setObjTreeItem("rectangular"); // as the list of placements does: never hidden
    QCOMPARE(currentText(), QStringLiteral("Rectangular building"));
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

} // namespace quillset

QTEST_MAIN(quillset::ObjTreeWindowTest)
#include "frmObjTree_test.moc"
