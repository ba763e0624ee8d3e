#include "shell/registration_commands.h"

#include "document/placement.h"
#include "session_fixture.h"
#include "shell/document_commands.h"
#include "shell/object_commands.h"

#include <gtest/gtest.h>

using namespace quillset;

namespace {

struct RegistrationCommandsTest : testing::Test, test::SessionFixture {
    RegistrationCommandsTest() {
        start();
        documents.openFile(document("scenery.xml", 1));
    }
    /// What follows the placement that was there.
    [[nodiscard]] std::string tail() {
        const std::string all = session.document().serialise();
        const std::size_t at = all.find("</SceneryObject>") + 16;
        return all.substr(at, all.find("</FSData>") - at);
    }
    [[nodiscard]] std::string declaration(const std::string& guid, const std::string& path) const {
        return "<!--Object definition of " + path + "--><ModelData name=\"" + guid + "\" sourceFile=\"" +
               path + "\"/>";
    }
    [[nodiscard]] std::string status(const std::string& text) const { return "[14:02:11] " + text; }

    DocumentCommands documents{session};
    ObjectCommands objects{session};
    RegistrationCommands registration{session};
    const std::string guid1 = "000000010A0B0C0D0102030405060708";
    const std::string guid2 = "000000020A0B0C0D0102030405060708";
};

} // namespace

TEST_F(RegistrationCommandsTest, AModelIsDeclaredPlacedUndoneAndRemoved) {
    const std::string path = folder.file("hangar \xC3\xA9.mdl");
    dialogs.paths = {path, path};
    registration.addModel();
    EXPECT_EQ(tail(), declaration(guid1, path));
    EXPECT_EQ(session.activity().text(), status(path + " added as local MDL object"));
    EXPECT_EQ(session.configuration().mdlPath(), path);
    EXPECT_EQ(session.catalogue().selected(), (CatalogueItem{guid1, "hangar \xC3\xA9.mdl"}));

    const std::string before = tail();
    registration.addModel();
    EXPECT_EQ(tail(), before);
    EXPECT_EQ(session.activity().text(), status(path + " already in XML file"));
    EXPECT_EQ(session.journal().count(), 2U) << "deliberate: the snapshot is taken all the same";

    objects.addNewEnd();
    objects.addNewBefore();
    EXPECT_EQ(session.list().row(2).name, "hangar \xC3\xA9.mdl");
    EXPECT_EQ(session.list().rowCount(), 3);

    dialogs.answers = {Answer::no, Answer::yes};
    registration.removeModel();
    EXPECT_EQ(session.list().rowCount(), 3) << "anything but Yes ends the command";
    registration.removeModel();
    EXPECT_EQ(tail(), "");
    EXPECT_EQ(session.list().rowCount(), 1);
    EXPECT_EQ(session.list().selectedRow(), 1);
    EXPECT_EQ(session.catalogue().selected(), (CatalogueItem{"local", "MDL objects"}));
    EXPECT_EQ(session.catalogue().getObjectName(guid1), "!unknown!");

    documents.undo();
    EXPECT_EQ(session.activity().text(), status("Undo remove MDL object"));
    EXPECT_EQ(session.list().rowCount(), 3);
    EXPECT_EQ(session.list().row(2).name, "hangar \xC3\xA9.mdl");
    for (int i = 0; i < 4; ++i)
        documents.undo();
    EXPECT_EQ(session.activity().text(), status("Undo add MDL object"));
    EXPECT_EQ(tail(), "");
    EXPECT_EQ(session.catalogue().getObjectName(guid1), "!unknown!");
}

TEST_F(RegistrationCommandsTest, AFolderIsOneEditThatSurvivesSavingAndOpening) {
    const std::string second = folder.write("m/\xE6\xA9\x8B.MDL", "");
    const std::string first = folder.write("m/a & b.mdl", "");
    folder.write("m/readme.txt", "");
    dialogs.paths = {folder.file("m"), folder.file("m")};
    registration.addModelFolder();
    EXPECT_EQ(session.activity().text(), status("All MDL object in " + folder.file("m") + " added"));
    EXPECT_EQ(session.journal().count(), 1U);
    EXPECT_EQ(session.configuration().mdlPath(), "") << "deliberate: only a single model is remembered";
    registration.addModelFolder();
    EXPECT_EQ(session.catalogueSources().documentModels.size(), 2U) << "the second time nothing is new";

    documents.save();
    documents.openFile(session.document().path());
    EXPECT_EQ(session.catalogueSources().documentModels,
              (std::vector<CatalogueModel>{{guid1, first}, {guid2, second}}));
    EXPECT_EQ(session.catalogue().getObjectName(guid2), "\xE6\xA9\x8B.MDL");
}

TEST_F(RegistrationCommandsTest, OnlyTheNodesThatBelongToAModelAreRemoved) {
    documents.openFile(folder.write(
        "m.xml", "<FSData><!--keep--><Other/><!--m--><ModelData name=\"G1\" sourceFile=\"a.mdl\"/>"
                 "<!--1--><SceneryObject><LibraryObject name=\"G1\"/></SceneryObject>"
                 "<!--2--><SceneryObject><LibraryObject name=\"g1\"/></SceneryObject>"
                 "<!--3--><SceneryObject><LibraryObject name=\"G1\"/></SceneryObject>"
                 "<!--end--></FSData>"));
    session.list().click(3);
    session.catalogue().setObjTreeItem("G1");
    dialogs.answers = {Answer::yes};
    registration.removeModel();
    EXPECT_EQ(session.document().serialise(),
              "<FSData><!--keep--><Other/>"
              "<!--2--><SceneryObject><LibraryObject name=\"g1\"/></SceneryObject><!--end--></FSData>");
    EXPECT_EQ(session.list().selectedRow(), 1);
    EXPECT_EQ(session.activity().text(), status("Local MDL object a.mdl removed"));
}
