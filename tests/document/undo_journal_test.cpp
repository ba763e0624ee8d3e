#include "document/undo_journal.h"

#include "document/document_fixture.h"
#include "document/new_placement.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace quillset {
namespace {

class UndoJournalTest : public ::testing::Test, protected test::DocumentFixture {};

TEST_F(UndoJournalTest, UndoesEditByEditAndSaysWhat) {
    open("<?xml version=\"1.0\"?><FSData><!--a--><SceneryObject lat=\"1\"/></FSData>");
    std::vector<std::string> states;
    std::vector<std::string> captions;
    const auto edit = [&](const std::function<void()>& act) {
        states.push_back(document.serialise());
        act();
        captions.push_back(journal.caption());
    };
    EXPECT_EQ(journal.caption(), "Undo");
    edit([&] { list.addNewObject("A", 1, 2, false); });
    edit([&] { list.setProperty(0, 0, "say \"<&\""); });
    list.moveUp(); // records nothing: undone with the edit before it
    edit([&] { list.removeObject(); });
    EXPECT_EQ(captions,
              (std::vector<std::string>{"Undo add object", "Undo change parameter", "Undo remove object"}));
    EXPECT_TRUE(folder.has("undo0000.xml") && folder.has("undo0002.xml") && !folder.has("undo0003.xml"));

    const std::string path = document.path();
    while (journal.canUndo()) {
        EXPECT_EQ(journal.undo(), captions.back());
        EXPECT_EQ(document.serialise(), states.back());
        EXPECT_EQ(document.path(), path);
        captions.pop_back();
        states.pop_back();
    }
    EXPECT_TRUE(states.empty());
    EXPECT_EQ(journal.undo(), std::nullopt);

    journal.record(UndoKind::addModel);
    EXPECT_EQ(journal.caption(), "Undo add MDL object");
    journal.reset();
    EXPECT_TRUE(folder.has("undo0002.xml"));
    journal.deleteSnapshots();
    EXPECT_FALSE(folder.has("undo0000.xml") || folder.has("undo0001.xml") || folder.has("undo0002.xml"));
}

TEST_F(UndoJournalTest, AMissingOrDamagedSnapshotLeavesAnEmptyDocument) {
    open("<FSData><SceneryObject/></FSData>");
    const std::string whole = document.serialise();
    journal.record(UndoKind::addObject);
    journal.record(UndoKind::addObject);
    folder.write("undo0001.xml", whole.substr(0, whole.size() - 3));
    std::filesystem::remove(toPath(folder.file("undo0000.xml")));
    for (const std::size_t left : {1U, 0U}) {
        EXPECT_TRUE(journal.undo());
        EXPECT_EQ(journal.count(), left);
        EXPECT_TRUE(document.isOpen());
        EXPECT_FALSE(document.hasRoot());
        EXPECT_EQ(list.rowCount(), 0);
    }
    EXPECT_FALSE(list.addNewObject("A", 1, 2, false));
    ASSERT_EQ(dialogs.messages.size(), 1U);
    EXPECT_TRUE(dialogs.messages[0].text.starts_with("Error 91 ("));
}

#ifndef _WIN32
// Counting is the same on every system, and so many files in one folder take minutes under Wine.
TEST_F(UndoJournalTest, TheStackEndsAtPosition32000) {
    document.create("new.xml");
    for (std::size_t i = 0; i < UndoJournal::maximumCount; ++i)
        journal.record(UndoKind::addObject);
    EXPECT_TRUE(folder.has("undo32000.xml"));
    const std::string before = document.serialise();
    EXPECT_FALSE(list.addNewObject("A", 1, 2, false));
    EXPECT_EQ(dialogs.messages.back().text,
              "Error 9 (Subscript out of range) in procedure addNewObject of Form frmXMLList");
    EXPECT_EQ(document.serialise(), before);
    EXPECT_EQ(journal.count(), 32001U);
}

TEST_F(UndoJournalTest, AFullDiskIsNamedAndLeavesNoHalfSnapshot) {
    open("<FSData><SceneryObject/></FSData>");
    std::filesystem::create_symlink("/dev/full", toPath(folder.file("undo0000.xml.part")));
    EXPECT_FALSE(list.removeObject());
    EXPECT_EQ(dialogs.messages.back().text, "Error 61 (Disk full: " + folder.file("undo0000.xml") +
                                                ") in procedure removeObject of Form frmXMLList");
    EXPECT_EQ(list.rowCount(), 1);
    EXPECT_FALSE(folder.has("undo0000.xml") || folder.has("undo0000.xml.part"));
    EXPECT_TRUE(list.removeObject()); // there is room again
}
#endif

TEST_F(UndoJournalTest, DeletingGoesOnAfterAFailure) {
    document.create("new.xml");
    for (int i = 0; i < 3; ++i)
        journal.record(UndoKind::addObject);
    std::filesystem::remove(toPath(folder.file("undo0000.xml")));
    folder.write("undo0000.xml/in the way", "");
    EXPECT_THROW(journal.deleteSnapshots(), RuntimeError);
    EXPECT_FALSE(folder.has("undo0001.xml") || folder.has("undo0002.xml"));
}

} // namespace
} // namespace quillset
