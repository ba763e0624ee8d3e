#include "catalogue/catalogue_tree.h"
#include "catalogue_fixture.h"

#include <gtest/gtest.h>

namespace quillset::test {
namespace {

using Lines = std::vector<std::string>;

class CatalogueTreeTest : public ::testing::Test, protected CatalogueFixture {
protected:
    CatalogueTreeTest() {
        sources.userLibraries = {
            folder.write("u.xml", R"(<a><ModelData name="U1" sourceFile="1.mdl"/></a>)")};
        sources.rwy12Libraries = {folder.write("r.xml", R"(<a><obj guid="R1" name="Mast"/></a>)")};
        sources.documentModels = {{"M1", "house.mdl"}};
        rescan();
    }
};

TEST_F(CatalogueTreeTest, TellsWhatTheSelectionIs) {
    struct Row {
        const char* key;
        bool building;
        bool libraryObject;
        bool effect;
        bool localModel;
    };
    const std::vector<Row> rows{
        {"root", false, false, false, false},       {"generic", false, false, false, false},
        {"AA01", false, true, false, false},        {"effects", false, false, false, false},
        {"fx_smoke.fx", false, false, true, false}, {"user", false, false, false, false},
        {"u.xml", false, false, false, false},      {"U1", false, true, false, false},
        {"R1", false, true, false, false},          {"local", false, false, false, false},
        {"M1", false, true, false, true},           {"genbuild", false, false, false, false},
        {"rectangular", true, false, false, false}, {"pyramidal", true, false, false, false},
        {"multisided", true, false, false, false},
    };
    EXPECT_FALSE(tree.selectedIsGenBuild() || tree.selectedIsLibraryObject() || tree.selectedIsEffect() ||
                 tree.selectedIsPlaceable());
    for (const Row& row : rows) {
        tree.setObjTreeItem(row.key);
        EXPECT_EQ(tree.selected()->key, row.key);
        EXPECT_EQ(tree.selectedIsGenBuild(), row.building) << row.key;
        EXPECT_EQ(tree.selectedIsLibraryObject(), row.libraryObject) << row.key;
        EXPECT_EQ(tree.selectedIsEffect(), row.effect) << row.key;
        EXPECT_EQ(tree.selectedIsLocalModel(), row.localModel) << row.key;
        EXPECT_EQ(tree.selectedIsPlaceable(), row.building || row.libraryObject || row.effect) << row.key;
    }
}

TEST_F(CatalogueTreeTest, SelectingAnUnknownKeyChangesNothing) {
    tree.setObjTreeItem("AA01");
    int changes = 0;
    const Connection connection = tree.selectionChanged.connect([&] { ++changes; });
    tree.setObjTreeItem("aa01");
    tree.setObjTreeItem("AA01");
    EXPECT_EQ(changes, 0);
    tree.setObjTreeItem("M1");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(tree.selected(), (CatalogueItem{"M1", "house.mdl"}));
}

TEST_F(CatalogueTreeTest, EnablesTheObjectsMenu) {
    struct Row {
        const char* key;
        ListState list;
        TreeMenuOptions expected;
    };
    const ListState closed{false, false};
    const ListState empty{true, false};
    const ListState row{true, true};
    // before, end, update, add model, add folder, remove model
    const std::vector<Row> rows{
        {"AA01", closed, {false, false, false, false, false, false}},
        {"AA01", empty, {false, true, false, true, true, false}},
        {"AA01", row, {true, true, true, true, true, false}},
        {"pyramidal", row, {true, true, true, true, true, false}},
        {"u.xml", row, {false, false, false, true, true, false}},
        {"genbuild", row, {false, false, false, true, true, false}},
        {"root", row, {false, false, false, true, true, false}},
        {"M1", row, {true, true, true, true, true, true}},
        {"local", row, {false, false, false, true, true, false}},
    };
    EXPECT_EQ(tree.setTreeMenuOptions(row), (TreeMenuOptions{false, false, false, true, true, false}));
    for (const Row& each : rows) {
        tree.setObjTreeItem(each.key);
        EXPECT_EQ(tree.setTreeMenuOptions(each.list), each.expected)
            << each.key << each.list.documentOpen << each.list.rowSelected;
    }
}

TEST_F(CatalogueTreeTest, AScanKeepsTheSelectionByKeyWhileTheKeyExists) {
    Lines events;
    const Connection before = tree.aboutToRebuild.connect([&] { events.push_back(tree.selected()->text); });
    const Connection after =
        tree.rebuilt.connect([&] { events.push_back(tree.selected() ? tree.selected()->text : "none"); });
    const Connection selection = tree.selectionChanged.connect([&] { events.push_back("changed"); });
    tree.select(*tree.nodes().find("M1"));
    sources.documentModels = {{"M0", "first.mdl"}, {"M1", "renamed.mdl"}};
    rescan();
    sources.documentModels.clear();
    rescan();
    EXPECT_EQ(events, (Lines{"changed", "house.mdl", "renamed.mdl", "renamed.mdl", "none", "changed"}));
    EXPECT_FALSE(tree.selected());
}

TEST_F(CatalogueTreeTest, TheOldTreeStaysWhileAMessageIsShown) {
    struct Looking : ScriptedDialogs {
        Answer ask(const Message& message) override {
            seen = tree->getObjectName("M1");
            return ScriptedDialogs::ask(message);
        }
        const CatalogueTree* tree = nullptr;
        std::string seen;
    } looking;
    CatalogueTree other(looking, errors);
    looking.tree = &other;
    other.rescanObjTree(sources);
    sources.userLibraries = {"missing"};
    sources.documentModels.clear();
    other.rescanObjTree(sources);
    EXPECT_EQ(looking.seen, "house.mdl");
    EXPECT_EQ(other.getObjectName("M1"), "!unknown!");
}

TEST_F(CatalogueTreeTest, AddsModelsWithoutAScan) {
    std::vector<std::pair<std::uint32_t, std::size_t>> events;
    const auto record = [&](const NodesAdded& rows) {
        events.emplace_back(rows.firstRow * 10 + rows.count, below("local").size());
    };
    const Connection before = tree.aboutToAdd.connect(record);
    const Connection after = tree.added.connect(record);
    tree.setObjTreeItem("M1");
    tree.addLocalModel("M2", "b.mdl");
    const std::vector<CatalogueModel> more{{"M3", "c.mdl"}, {"M4", R"(y\d.mdl)"}};
    tree.addLocalModels(more);
    EXPECT_EQ(below("local"), (Lines{"M1=house.mdl", "M2=b.mdl", "M3=c.mdl", "M4=d.mdl"}));
    EXPECT_EQ(events,
              (std::vector<std::pair<std::uint32_t, std::size_t>>{{11, 1}, {11, 2}, {22, 2}, {22, 4}}));
    EXPECT_EQ(tree.selected()->key, "M1");
}

TEST_F(CatalogueTreeTest, ATakenKeyAddsNoneOfTheModels) {
    const std::vector<std::vector<CatalogueModel>> refused{
        {{"M2", "b"}, {"AA01", "c"}}, {{"M2", "b"}, {"M2", "c"}}, {{"M1", "b"}}, {{"root", "b"}}};
    for (const std::vector<CatalogueModel>& models : refused) {
        EXPECT_THROW(tree.addLocalModels(models), RuntimeError);
        EXPECT_EQ(below("local"), (Lines{"M1=house.mdl"}));
    }
    CatalogueTree unscanned(dialogs, errors);
    EXPECT_THROW(unscanned.addLocalModel("M2", "b"), RuntimeError);
}

} // namespace
} // namespace quillset::test
