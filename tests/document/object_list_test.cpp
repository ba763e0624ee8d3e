#include "document/object_list.h"

#include "document/document_fixture.h"
#include "document/undo_journal.h"

#include <gtest/gtest.h>

namespace quillset {
namespace {

class ObjectListTest : public ::testing::Test, protected test::DocumentFixture {
protected:
    static constexpr const char* three =
        "<FSData><!--one--><SceneryObject lat=\"1\" lon=\"5\"><LibraryObject name=\"A\"/></SceneryObject>"
        "<!--two--><SceneryObject lat=\"2\" lon=\"6\"><Effect effectName=\"smoke.fx\"/></SceneryObject>"
        "<!--three--><SceneryObject lat=\"3\" lon=\"7\"><GenericBuilding scale=\"1.0\"><RectangularBuilding "
        "roofType=\"FLAT\"/></GenericBuilding></SceneryObject></FSData>";
};

TEST_F(ObjectListTest, RowsShowWhatIsPlacedWhateverStandsAroundIt) {
    open("<FSData><SceneryObject/><SceneryObject><!--c--><NoFog/><LibraryObject name=\"a\"/></SceneryObject>"
         "<SceneryObject><BiasXYZ/><Windsock/></SceneryObject><SceneryObject><GenericBuilding/></"
         "SceneryObject>"
         "<Tower><SceneryObject lat=\"N43 04.6550\" lon=\"x\"><NoZTest/><Effect effectName=\"smoke.fx\"/>"
         "<SceneryObject><LibraryObject/></SceneryObject></SceneryObject></Tower>words<SceneryObject/></"
         "FSData>");
    EXPECT_EQ(rows(), (std::vector<RowTexts>{{"", "", "", ""},
                                             {"!unknown!", "", "", ""},
                                             {"Windsock", "", "", ""},
                                             {"GenericBuilding", "", "", ""},
                                             {"smoke.fx", "N43 04.6550", "x", ""},
                                             {"!unknown!", "", "", ""},
                                             {"", "", "", "words"}}));
}

TEST_F(ObjectListTest, TheSheetAndTheCatalogueFollowTheSelection) {
    open(three);
    const auto expectShown = [&](int index, const std::string& key, std::size_t properties) {
        EXPECT_EQ(list.selectedRow(), index + 1);
        EXPECT_EQ(sheet.index, index);
        EXPECT_EQ(catalogue.selected, key);
        EXPECT_EQ(sheet.rows.size(), properties);
    };
    expectShown(0, "A", 4);
    list.click(2);
    expectShown(1, "smoke.fx", 4);
    EXPECT_TRUE(list.currentXMLIsEffect() && !list.currentXMLIsLibraryObject());
    list.click(3);
    expectShown(2, "rectangular", 5);
    list.moveUp();
    expectShown(1, "rectangular", 5);
    list.click(0); // the header is never selected
    expectShown(0, "A", 4);
    list.UpdateObject("B");
    expectShown(0, "B", 4);
    EXPECT_EQ(list.row(1).name, "Tower");
    list.click(99);
    expectShown(2, "smoke.fx", 4);
}

TEST_F(ObjectListTest, CommandsAreOfferedWhereTheyMakeSense) {
    EXPECT_EQ(list.setXMLListMenuOptions(), ListCommands{});
    document.create("new.xml");
    EXPECT_EQ(list.setXMLListMenuOptions(), (ListCommands{false, false, false, false, false, true}));
    open(three);
    EXPECT_EQ(list.setXMLListMenuOptions(), (ListCommands{false, true, true, true, true, true}));
    list.click(2);
    EXPECT_EQ(list.setXMLListMenuOptions(), (ListCommands{true, true, true, true, true, true}));
    list.click(3);
    EXPECT_EQ(list.setXMLListMenuOptions(), (ListCommands{true, false, true, true, true, true}));
}

TEST_F(ObjectListTest, NothingHappensWhereThereIsNothingToEdit) {
    const auto expectIdle = [&] {
        list.XMLListClick();
        EXPECT_FALSE(list.removeObject() || list.UpdateObject("B") || list.moveUp() || list.moveDown() ||
                     list.switchRoofType() || list.setProperty(sheet.index, 0, "x"));
        EXPECT_EQ(sheet.index, -1);
        EXPECT_EQ(journal.count(), 0U);
        EXPECT_TRUE(dialogs.messages.empty());
    };
    expectIdle();
    EXPECT_FALSE(list.addNewObject("A", 1, 2, false));
    open("<FSData/>");
    EXPECT_EQ(list.selectedRow(), 0);
    expectIdle();
    document.close();
    expectIdle();
}

TEST_F(ObjectListTest, AddingSelectsTheNewRow) {
    open("<FSData/>");
    heading = 270;
    EXPECT_TRUE(list.addNewObject("A", 52.25, -5.5, true)); // before nothing: at the end
    EXPECT_TRUE(list.addNewObject("smoke.fx", 1, 2, false));
    EXPECT_EQ(list.selectedRow(), 2);
    EXPECT_TRUE(list.addNewObject("rectangular", 3, 4, true));
    EXPECT_EQ(list.selectedRow(), 2);
    EXPECT_EQ(rows(), (std::vector<RowTexts>{{"Hangar", "52.25", "-5.5", "Object 1"},
                                             {"RectangularBuilding", "3", "4", "Object 3"},
                                             {"smoke.fx", "1", "2", "Object 2"}}));
    EXPECT_EQ(sheet.index, 1);
    EXPECT_EQ(sheet.rows[static_cast<std::size_t>(row("heading"))].second, "270");

    open("<FSData><SceneryObject lat=\"1\"/><SceneryObject lat=\"2\"/></FSData>");
    list.click(2);
    list.addNewObject("A", 9, 9, true); // without comments it lands before the placement above
    EXPECT_EQ(list.selectedRow(), 1);
    EXPECT_EQ(list.row(1).latitude, "9");
}

TEST_F(ObjectListTest, RemovingNamesEverythingThatGoes) {
    open(three);
    list.click(3);
    list.removeObject();
    EXPECT_EQ(activity.text(), "[14:02:11] Object Rectangular building removed");
    EXPECT_EQ(list.selectedRow(), 2);
    catalogue.selected.clear(); // nothing selected there: the row's own name
    list.removeObject();
    EXPECT_EQ(activity.text(), "[14:02:11] Object smoke.fx removed");
    list.removeObject();
    EXPECT_EQ(list.selectedRow(), 0);
    EXPECT_EQ(sheet.index, -1);

    open("<FSData><SceneryObject><LibraryObject name=\"B\"/><SceneryObject><Beacon/></SceneryObject>"
         "</SceneryObject><SceneryObject><LibraryObject "
         "name=\"A\"/></SceneryObject><SceneryObject/></FSData>");
    list.click(3);
    list.removeObject();
    EXPECT_EQ(activity.text(), "[14:02:11] Object Hangar removed, and with it the SceneryObject before it, "
                               "objects: Tower, Beacon");
    EXPECT_EQ(list.rowCount(), 1);
    EXPECT_EQ(list.selectedRow(), 1);
}

TEST_F(ObjectListTest, AnOpenEditorWritesIntoThePlacementItShows) {
    open(three);
    for (const auto& act : std::vector<std::function<void()>>{
             [&] { list.click(2); }, [&] { list.moveDown(); }, [&] { list.UpdateObject("B"); },
             [&] { list.addNewObject("A", 0, 0, true); }}) {
        open(three);
        sheet.pending.emplace(row("lat"), "44");
        act();
        EXPECT_NE(document.serialise().find("<!--one--><SceneryObject lat=\"44\""), std::string::npos);
    }
    open(three);
    sheet.pending.emplace(row("lat"), "44");
    document.load(folder.file("scenery.xml")); // another document: too late to write anything
    EXPECT_EQ(sheet.index, -1);
    EXPECT_FALSE(sheet.pending);
}

TEST_F(ObjectListTest, SettingAPropertyKeepsTheSheetAndRefreshesTheRow) {
    open(three);
    const auto shown = sheet.rows;
    EXPECT_TRUE(list.setProperty(0, row("lat"), " 52,5 N"));
    EXPECT_TRUE(list.setProperty(2, 0, "third"));
    EXPECT_EQ(list.row(1), (RowTexts{"Hangar", " 52,5 N", "5", "one"}));
    EXPECT_EQ(list.row(3).comment, "third");
    EXPECT_EQ(sheet.rows, shown);
    EXPECT_EQ(journal.count(), 2U);
}

TEST_F(ObjectListTest, ANewDocumentLeavesTheOldRowsInViewButOutOfReach) {
    open(three);
    list.click(2);
    const auto old = rows();
    document.create("new.xml");
    journal.reset();
    EXPECT_EQ(rows(), old);
    EXPECT_EQ(sheet.index, -1);
    list.click(2);
    EXPECT_EQ(sheet.index, -1);
    EXPECT_FALSE(list.removeObject() || list.moveUp() || list.currentXMLIsEffect());

    EXPECT_TRUE(list.addNewObject("B", 8, 9, true));
    EXPECT_EQ(list.selectedRow(), 4);
    EXPECT_EQ(sheet.index, 0);
    EXPECT_EQ(list.row(4), (RowTexts{"Tower", "8", "9", "Object 1"}));
    EXPECT_EQ(list.setXMLListMenuOptions(), (ListCommands{false, false, true, true, true, true}));

    list.updateXMLList();
    EXPECT_EQ(rows(), (std::vector<RowTexts>{{"Tower", "8", "9", "Object 1"}}));
    EXPECT_EQ(list.selectedRow(), 1);
}

TEST_F(ObjectListTest, AnEditWithoutItsSnapshotDoesNotHappen) {
    open(three);
    list.click(3);
    // A folder in the place of the file that the snapshot is written to first.
    folder.write("undo0000.xml.part/x", "");
    const std::string before = document.serialise();
    const auto shown = sheet.rows;
    const std::vector<std::pair<std::string, std::function<bool()>>> edits = {
        {"addNewObject", [&] { return list.addNewObject("A", 1, 2, true); }},
        {"removeObject", [&] { return list.removeObject(); }},
        {"UpdateObject", [&] { return list.UpdateObject("B"); }},
        {"setProperty", [&] { return list.setProperty(2, 1, "9"); }},
        {"switchRoofType", [&] { return list.switchRoofType(); }},
    };
    for (const auto& [name, edit] : edits) {
        dialogs.messages.clear();
        EXPECT_FALSE(edit()) << name;
        ASSERT_EQ(dialogs.messages.size(), 1U) << name;
        EXPECT_TRUE(dialogs.messages[0].text.ends_with("in procedure " + name + " of Form frmXMLList"));
        EXPECT_EQ(document.serialise(), before) << name;
        EXPECT_EQ(list.selectedRow(), 3) << name;
        EXPECT_EQ(sheet.rows, shown) << name;
    }
    EXPECT_EQ(journal.count(), 0U);
    EXPECT_EQ(ended, 0);
}

} // namespace
} // namespace quillset
