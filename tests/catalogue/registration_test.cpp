#include "catalogue/guid_text.h"
#include "catalogue/library_registration.h"
#include "catalogue/model_registration.h"
#include "catalogue_fixture.h"
#include "support/counting_guids.h"
#include "support/fixed_clock.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

namespace quillset::test {
namespace {

using Lines = std::vector<std::string>;

std::string guidNumber(std::uint32_t number) {
    return guidText(Guid{number, 0x0A0B, 0x0C0D, {1, 2, 3, 4, 5, 6, 7, 8}});
}

class RegistrationTest : public ::testing::Test, protected CatalogueFixture {
protected:
    // Settings and document as plain values; every step is written down.
    struct Settings : CatalogueConfiguration {
        explicit Settings(RegistrationTest& owner)
            : test(owner) {}
        [[nodiscard]] std::string xmlPath() const override { return test.folder.file("scenery/last.xml"); }
        [[nodiscard]] std::string modelPath() const override { return lastModel; }
        void setModelPath(const std::string& path) override {
            test.steps.push_back("folder");
            lastModel = path;
        }
        void appendLibrary(LibraryKind kind, const std::string& path) override {
            (kind == LibraryKind::user ? test.sources.userLibraries : test.sources.rwy12Libraries)
                .push_back(path);
        }
        [[nodiscard]] CatalogueSources sources() const override { return test.sources; }
        RegistrationTest& test;
        std::string lastModel;
    };
    struct Document : ModelStore {
        explicit Document(RegistrationTest& owner)
            : test(owner) {}
        void recordSnapshot(ModelEdit edit) override {
            if (!open)
                throw RuntimeError(ErrorNumber::objectNotSet);
            test.steps.push_back(edit == ModelEdit::add ? "snapshot add" : "snapshot remove");
        }
        [[nodiscard]] std::vector<CatalogueModel> models() const override {
            return test.sources.documentModels;
        }
        void add(std::span<const CatalogueModel> models) override {
            test.steps.push_back("add " + std::to_string(models.size()));
            for (const CatalogueModel& model : models)
                test.sources.documentModels.push_back(model);
        }
        std::vector<std::string> remove(const std::string& name) override {
            test.steps.push_back("remove " + name + " after " + test.activity.text());
            std::erase_if(test.sources.documentModels,
                          [&](const CatalogueModel& model) { return model.name == name; });
            return alsoRemoved;
        }
        RegistrationTest& test;
        bool open = true;
        Lines alsoRemoved;
    };

    RegistrationTest() {
        rescan();
        connections.push_back(tree.rebuilt.connect([this] { steps.push_back("rebuilt"); }));
        connections.push_back(tree.added.connect([this](const NodesAdded&) { steps.push_back("nodes"); }));
        connections.push_back(tree.selectionChanged.connect(
            [this] { steps.push_back("select " + (tree.selected() ? tree.selected()->key : "none")); }));
    }

    Lines steps;
    FixedClock clock;
    ActivityLine activity{clock};
    CountingGuids guids;
    Settings settings{*this};
    Document document{*this};
    LibraryRegistration libraries{{dialogs, errors, activity, settings, tree}};
    ModelRegistration models{{dialogs, errors, activity, guids, settings, document, tree}};
    std::vector<Connection> connections;
};

TEST(GuidText, IsThirtyTwoUpperCaseDigitsInFieldOrder) {
    EXPECT_EQ(guidText({0x0a1b2c3d, 0x004f, 0xE, {0, 1, 0x20, 0xab, 0xcd, 0xef, 0x7f, 0xff}}),
              "0A1B2C3D004F000E000120ABCDEF7FFF");
    CountingGuids broken;
    broken.failsAt = 0;
    EXPECT_EQ(newGuidText(broken), "");
    EXPECT_NE(newGuidText(*systemGuidMaker()), newGuidText(*systemGuidMaker()));
}

TEST_F(RegistrationTest, RegistersALibraryAsOftenAsAsked) {
    const std::string user = folder.write("u.xml", R"(<a><ModelData name="U1" sourceFile="1.mdl"/></a>)");
    const std::string rwy = folder.write("r.xml", R"(<a><obj guid="R1" name="Mast"/></a>)");
    dialogs.paths = {user, rwy, ""};
    EXPECT_TRUE(libraries.addLibrary(LibraryKind::user));
    EXPECT_EQ(activity.text(), "[14:02:11] " + user + " added as user library");
    EXPECT_TRUE(libraries.addLibrary(LibraryKind::rwy12));
    EXPECT_EQ(activity.text(), "[14:02:11] " + rwy + " added as Rwy12 library");
    EXPECT_FALSE(libraries.addLibrary(LibraryKind::user));
    EXPECT_EQ(steps, (Lines{"rebuilt", "rebuilt"}));
    EXPECT_EQ(below("user"), (Lines{"u.xml=u.xml", "  U1=1.mdl", "r.xml=r.xml", "  R1=Mast"}));
    const std::string start = folder.file("scenery");
    const std::string filter = "XML file (*.xml)|*.xml|";
    EXPECT_EQ(dialogs.requests, (std::vector<FileRequest>{{"Select XML file", filter, "", start},
                                                          {"Select Rwy12 XML file", filter, "", start},
                                                          {"Select XML file", filter, "", start}}));
    dialogs.paths = {user};
    EXPECT_TRUE(libraries.addLibrary(LibraryKind::user));
    EXPECT_EQ(sources.userLibraries, (Lines{user, user}));
    EXPECT_EQ(messageTexts().size(), 1U);
    EXPECT_EQ(ended, 0);
}

TEST_F(RegistrationTest, AnUnusableLibraryStaysRegistered) {
    dialogs.paths = {folder.path()};
    EXPECT_TRUE(libraries.addLibrary(LibraryKind::rwy12));
    EXPECT_EQ(messageTexts(), (Lines{"Please select a valid user library file"}));
    EXPECT_EQ(sources.rwy12Libraries, (Lines{folder.path()}));
}

TEST_F(RegistrationTest, DeclaresOneModelInTheOrderOfTheSteps) {
    settings.lastModel = folder.path();
    const std::string path = folder.write("models/Shed.MDL", "");
    dialogs.paths = {path};
    EXPECT_TRUE(models.addModel());
    EXPECT_EQ(steps, (Lines{"snapshot add", "folder", "add 1", "nodes", "select " + guidNumber(1)}));
    EXPECT_EQ(sources.documentModels, (std::vector<CatalogueModel>{{guidNumber(1), path}}));
    EXPECT_EQ(below("local"), (Lines{guidNumber(1) + "=Shed.MDL"}));
    EXPECT_EQ(activity.text(), "[14:02:11] " + path + " added as local MDL object");
    EXPECT_EQ(settings.lastModel, path);
    EXPECT_FALSE(models.addModel());
    EXPECT_EQ(dialogs.requests,
              (std::vector<FileRequest>{
                  {"Select MDL file", "MDL file (*.mdl)|*.mdl|", "", folder.path()},
                  {"Select MDL file", "MDL file (*.mdl)|*.mdl|", "", folder.file("models")}}));
}

TEST_F(RegistrationTest, DeclaresAFolderAsOneEdit) {
    for (const char* name :
         {"m/b.mdl", "m/a.MDL", "m/known.mdl", "m/oddmdl", "m/readme.txt", "m/sub.mdl/x.mdl"})
        folder.write(name, "");
    const std::string known = joinPath(folder.file("m"), "known.mdl");
    sources.documentModels = {{"K", known}};
    dialogs.paths = {folder.file("m")};
    EXPECT_TRUE(models.addModelFolder());
    EXPECT_EQ(steps, (Lines{"snapshot add", "add 3", "nodes", "select " + guidNumber(3)}));
    EXPECT_EQ(below("local"),
              (Lines{guidNumber(1) + "=a.MDL", guidNumber(2) + "=b.mdl", guidNumber(3) + "=oddmdl"}));
    EXPECT_EQ(activity.text(), "[14:02:11] All MDL object in " + folder.file("m") + " added");
    EXPECT_EQ(settings.lastModel, "");
    EXPECT_EQ(dialogs.requests.at(0).title, "Choose a directory from the list.");
    dialogs.paths = {folder.file("m")};
    EXPECT_FALSE(models.addModelFolder());
    EXPECT_EQ(steps.back(), "snapshot add") << "deliberate: even where all are known";
}

TEST_F(RegistrationTest, ACancelledOrMissingFolderDoesNothing) {
    dialogs.paths = {"", folder.file("gone")};
    EXPECT_FALSE(models.addModelFolder());
    EXPECT_FALSE(models.addModelFolder());
    EXPECT_EQ(steps, Lines{});
    EXPECT_EQ(activity.text(), "");
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(RegistrationTest, RemovesTheSelectedModelAfterAQuestion) {
    sources.documentModels = {{"M1", R"(x\house.mdl)"}, {"M2", "b.mdl"}};
    rescan();
    tree.setObjTreeItem("M1");
    steps.clear();
    dialogs.answers = {Answer::no, Answer::yes};
    EXPECT_FALSE(models.removeModel());
    EXPECT_EQ(steps, Lines{});
    EXPECT_TRUE(models.removeModel());
    EXPECT_EQ(dialogs.messages.back(),
              (Message{"This will remove the user object and all instances placed of it, do you want to "
                       "continue?",
                       "Quillset XML warning", MessageButtons::yesNo, MessageIcon::none}));
    EXPECT_EQ(steps,
              (Lines{"snapshot remove", "remove M1 after [14:02:11] Local MDL object house.mdl removed",
                     "rebuilt", "select none", "select local"}));
    EXPECT_EQ(below("local"), (Lines{"M2=b.mdl"}));
    EXPECT_EQ(activity.text(), "[14:02:11] Local MDL object house.mdl removed");
    EXPECT_FALSE(models.removeModel()); // the group is no model
    document.alsoRemoved = {"SceneryObject", "Airport"};
    tree.setObjTreeItem("M2");
    dialogs.answers = {Answer::yes};
    EXPECT_TRUE(models.removeModel());
    EXPECT_TRUE(activity.text().ends_with("b.mdl removed, and with it SceneryObject, Airport"));
}

TEST_F(RegistrationTest, WithoutADocumentTheErrorIsReportedAndTheProgramGoesOn) {
    const auto report = [](const std::string& procedure) {
        return "Error 91 (Object variable or With block variable not set) in procedure " + procedure +
               " of Form MDIForm1";
    };
    document.open = false;
    folder.write("m/a.mdl", "");
    dialogs.paths = {"c:/a.mdl", folder.file("m")};
    EXPECT_FALSE(models.addModel());
    EXPECT_FALSE(models.addModelFolder());
    EXPECT_EQ(messageTexts(), (Lines{report("mAddMDL_Click"), report("mAddMDLFolder_Click")}));
    EXPECT_EQ(steps, Lines{});
    EXPECT_EQ(ended, 0);
}

TEST_F(RegistrationTest, WithoutAGuidNothingIsDeclared) {
    for (const char* name : {"m/a.mdl", "m/b.mdl", "m/c.mdl"})
        folder.write(name, "");
    guids.failsAt = 2;
    dialogs.paths = {folder.file("m")};
    EXPECT_FALSE(models.addModelFolder());
    EXPECT_EQ(messageTexts(), (Lines{"Error 51 (The system could not create a new GUID) in procedure "
                                     "mAddMDLFolder_Click of Form MDIForm1"}));
    guids.last = guids.failsAt;
    dialogs.paths = {"c:/a.mdl"};
    EXPECT_FALSE(models.addModel());
    EXPECT_EQ(messageTexts().size(), 2U);
    EXPECT_EQ(steps, Lines{}) << "not even a snapshot, which Undo would offer";
    EXPECT_EQ(activity.text(), "");
}

TEST_F(RegistrationTest, NamesThatTheDocumentCannotHoldAreTold) {
    dialogs.paths = {"c:/be\all.mdl"};
    EXPECT_FALSE(models.addModel());
    EXPECT_EQ(messageTexts(), (Lines{"Error 75 (A scenery file cannot hold this name: c:/be\uFFFDll.mdl) in "
                                     "procedure mAddMDL_Click of Form MDIForm1"}));
    EXPECT_EQ(steps, Lines{});
    if (std::filesystem::path::preferred_separator == '\\')
        return; // this system has no files of such names
    folder.write("m/good.mdl", "");
    for (int i = 1; i <= 7; ++i)
        folder.write("m/" + std::to_string(i) + "\xC3.mdl", "");
    dialogs.paths = {folder.file("m")};
    EXPECT_TRUE(models.addModelFolder());
    EXPECT_EQ(sources.documentModels.size(), 1U);
    EXPECT_EQ(activity.text(),
              "[14:02:11] All MDL object in " + folder.file("m") +
                  " added, but not (a scenery file cannot hold the name): 1\uFFFD.mdl, 2\uFFFD.mdl, "
                  "3\uFFFD.mdl, 4\uFFFD.mdl, 5\uFFFD.mdl and 2 more");
}

} // namespace
} // namespace quillset::test
