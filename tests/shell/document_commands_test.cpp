#include "shell/document_commands.h"

#include "session_fixture.h"
#include "shell/object_commands.h"

#include <gtest/gtest.h>

using namespace quillset;

namespace {

struct DocumentCommandsTest : testing::Test, test::SessionFixture {
    DocumentCommandsTest() { start(); }

    DocumentCommands commands{session};
    ObjectCommands objects{session};
    std::vector<std::string> shown;
    Connection watch =
        commands.documentShown.connect([this](const std::string& path) { shown.push_back(path); });
};

const Message saveFirst{"Do you want to save your current XML file first?", "Quillset XML",
                        MessageButtons::yesNoCancel, MessageIcon::question};
const Message overwrite{"File already exists. Are you sure you want to overwrite it?", "Quillset XML",
                        MessageButtons::yesNo, MessageIcon::question};

} // namespace

TEST_F(DocumentCommandsTest, NewAddSaveAndOpenAgain) {
    const std::string path = folder.file("Scenery One.xml");
    dialogs.paths = {path};
    commands.newDocument();
    ASSERT_EQ(dialogs.requests.size(), 1u);
    EXPECT_EQ(dialogs.requests[0], (FileRequest{"New XML file", "XML file (*.xml)|*.xml|", "new.xml", ""}));
    EXPECT_EQ(session.activity().text(), "[14:02:11] " + path + " created");
    EXPECT_FALSE(folder.has("Scenery One.xml")) << "written by the first save only";
    EXPECT_EQ(session.configuration().xmlPath(), path);

    session.catalogue().setObjTreeItem("smoke.fx");
    objects.addNewEnd();
    EXPECT_EQ(session.activity().text(), "[14:02:11] smoke.fx added");
    commands.save();
    EXPECT_EQ(session.activity().text(), "[14:02:11] " + path + " saved");
    EXPECT_EQ(folder.read("Scenery One.xml"),
              "<FSData version=\"9.0\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
              "xsi:noNamespaceSchemaLocation=\"bglcomp.xsd\">\r\n<!--Object 1-->\r\n"
              "<SceneryObject lat=\"52.1\" lon=\"5.2\" alt=\"0M\" pitch=\"0.0\" bank=\"0.0\" heading=\"90\" "
              "altitudeIsAgl=\"TRUE\" imageComplexity=\"NORMAL\">\r\n"
              "<Effect effectName=\"smoke.fx\" effectParams=\"\"/>\r\n</SceneryObject>\r\n</FSData>\r\n");

    dialogs.answers = {Answer::no};
    dialogs.paths = {path};
    commands.open();
    EXPECT_EQ(dialogs.messages.back(), saveFirst);
    EXPECT_EQ(dialogs.requests.back(),
              (FileRequest{"Select XML file", "XML file (*.xml)|*.xml|", "", folder.path()}));
    EXPECT_EQ(session.list().rowCount(), 1);
    EXPECT_EQ(session.list().selectedRow(), 1);
    EXPECT_EQ(session.journal().count(), 0u);
    EXPECT_EQ(session.recentFiles().paths().front(), path);
    EXPECT_EQ(shown, (std::vector<std::string>{path, path}));
}

TEST_F(DocumentCommandsTest, TheSaveQuestionCanStopEverything) {
    const std::string path = document("a.xml", 2);
    commands.openFile(path);
    const std::string before = folder.read("a.xml");
    session.list().removeObject();

    dialogs.answers = {Answer::cancel, Answer::cancel, Answer::cancel};
    commands.newDocument();
    commands.open();
    commands.openRecent(0);
    EXPECT_EQ(dialogs.messages, (std::vector<Message>(3, saveFirst)));
    EXPECT_TRUE(dialogs.requests.empty());
    EXPECT_EQ(session.document().placementCount(), 1u);
    EXPECT_EQ(folder.read("a.xml"), before);

    dialogs.answers = {Answer::yes};
    commands.open(); // the dialog itself is cancelled
    EXPECT_NE(folder.read("a.xml"), before);
    EXPECT_TRUE(session.document().isOpen());
}

TEST_F(DocumentCommandsTest, NewAsksAgainAfterNoToOverwritingAndDropsTheDocumentWhenCancelled) {
    const std::string path = document("a.xml", 1);
    commands.openFile(path);
    session.configuration().setXmlPath(path);
    dialogs.answers = {Answer::no, Answer::no, Answer::no};
    dialogs.paths = {path, ""};
    commands.newDocument();
    EXPECT_EQ(dialogs.messages, (std::vector<Message>{saveFirst, overwrite, saveFirst}));
    EXPECT_EQ(dialogs.requests[0].suggestedName, folder.file("new.xml"));
    EXPECT_FALSE(session.document().isOpen());
    EXPECT_EQ(session.list().rowCount(), 0);
    EXPECT_EQ(shown.back(), "");
    EXPECT_EQ(session.configuration().xmlPath(), path) << "stays for the next dialog";
}

TEST_F(DocumentCommandsTest, SaveAsMovesTheDocumentToTheNewPath) {
    commands.openFile(document("a.xml", 1));
    const std::string other = document("b.xml", 3);
    const std::string fresh = folder.file("C.xml");
    dialogs.answers = {Answer::no};
    dialogs.paths = {other, fresh};
    commands.saveAs();
    EXPECT_EQ(dialogs.messages, (std::vector<Message>{overwrite}));
    EXPECT_EQ(session.document().path(), fresh);
    EXPECT_EQ(session.configuration().xmlPath(), fresh);
    EXPECT_EQ(session.configuration().bglPaths().back().fileName, fresh);
    EXPECT_EQ(shown.back(), fresh);

    commands.saveAs(); // cancelled
    EXPECT_EQ(session.document().path(), fresh);

    dialogs.paths = {folder.file("missing folder/d.xml")};
    commands.saveAs();
    EXPECT_EQ(session.document().path(), fresh) << "a failed save changes nothing";
    EXPECT_NE(dialogs.messages.back().text.find("in procedure mSaveAs_Click of Form MDIForm1"),
              std::string::npos);
    EXPECT_EQ(ended, 0);
}

TEST_F(DocumentCommandsTest, ARecentFileThatIsGoneIsForgotten) {
    commands.openFile(document("a.xml", 1));
    session.recentFiles().add(folder.file("gone.xml"));
    dialogs.answers = {Answer::no};
    commands.openRecent(0);
    EXPECT_EQ(dialogs.messages.size(), 1u) << "only the save question";
    EXPECT_EQ(session.recentFiles().paths(), (std::vector<std::string>{folder.file("a.xml")}));
    commands.openRecent(7);
    EXPECT_EQ(dialogs.messages.size(), 1u) << "no such entry";
}

TEST_F(DocumentCommandsTest, TellsWhatTakesAMomentAndNoLonger) {
    std::vector<std::string> work;
    const Connection watching = commands.working.connect([&](const std::string& what) {
        work.push_back(what);
        work.push_back(std::to_string(dialogs.messages.size()) + " messages");
    });
    const std::string path = folder.file("none.xml");
    commands.openFile(path);
    commands.save();
    EXPECT_EQ(work, (std::vector<std::string>{"Opening " + path + " ...", "0 messages", "", "0 messages",
                                              "Saving " + path + " ...", "1 messages", "", "1 messages"}));
    EXPECT_EQ(dialogs.messages.size(), 2u) << "neither was possible; told when the work was over";
}

TEST_F(DocumentCommandsTest, AFileThatIsNoXmlNeverReachesTheDiskAgain) {
    const struct {
        const char* name;
        std::string bytes;
    } rows[] = {
        {"truncated", "<FSData><SceneryObject lat=\"1\""},
        {"empty", ""},
    };
    for (const auto& row : rows) {
        const std::string path = folder.write("bad.xml", row.bytes);
        dialogs.messages.clear();
        commands.openFile(path);
        ASSERT_EQ(dialogs.messages.size(), 1u) << row.name;
        EXPECT_NE(dialogs.messages[0].text.find(path + " could not be read"), std::string::npos);
        EXPECT_EQ(session.list().rowCount(), 0);
        commands.save();
        EXPECT_EQ(folder.read("bad.xml"), row.bytes) << row.name;
        EXPECT_NE(dialogs.messages.back().text.find("mSave_Click"), std::string::npos);
    }
    EXPECT_EQ(ended, 0);
}

TEST_F(DocumentCommandsTest, ClosingAsksAndAFailedSaveKeepsTheDocument) {
    commands.openFile(document("sub/a.xml", 1));
    std::filesystem::remove_all(toPath(folder.file("sub")));
    dialogs.answers = {Answer::yes, Answer::ok, Answer::no};
    commands.close();
    EXPECT_TRUE(session.document().isOpen()) << "the save failed";
    ASSERT_EQ(dialogs.messages.size(), 2u);
    EXPECT_EQ(dialogs.messages[0], (Message{"Do you want to save the currently open XML file?", "QuillsetXML",
                                            MessageButtons::yesNo, MessageIcon::question}));
    commands.close();
    EXPECT_FALSE(session.document().isOpen());
    EXPECT_EQ(session.catalogue().getObjectName("local"), "MDL objects");
    commands.close();
    EXPECT_EQ(dialogs.messages.size(), 3u) << "nothing is open any more";
}

TEST_F(DocumentCommandsTest, UndoRestoresModelsBeforeTheRowsAreNamed) {
    commands.openFile(folder.write(
        "m.xml", "<FSData><!--m--><ModelData name=\"CC01\" sourceFile=\"C:\\x\\mast.mdl\"/>"
                 "<!--1--><SceneryObject><LibraryObject name=\"CC01\"/></SceneryObject></FSData>"));
    EXPECT_EQ(session.list().row(1).name, "mast.mdl");
    session.catalogue().setObjTreeItem("AA02");
    objects.updateObject();
    EXPECT_EQ(session.list().row(1).name, "Tower");
    commands.undo();
    EXPECT_EQ(session.list().row(1).name, "mast.mdl");
    EXPECT_EQ(session.activity().text(), "[14:02:11] Undo change parameter");
    commands.undo();
    EXPECT_EQ(session.activity().text(), "[14:02:11] Undo change parameter") << "nothing left to undo";
}
