#include "shell/geodata_commands.h"

#include "base/progress.h"
#include "geodata/point_shapefile.h"
#include "session_fixture.h"
#include "shell/command_states.h"
#include "shell/document_commands.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace quillset;

namespace {

/// The user cancels when so many steps are done.
class CountingProgress : public Progress {
public:
    void begin(const std::string&, std::size_t total) override { begun = total; }
    bool goOn(std::size_t done) override { return done < cancelAt; }
    void end() override { ++ended; }

    std::size_t begun = 0;
    std::size_t cancelAt = 1'000'000;
    int ended = 0;
};

struct GeodataCommandsTest : testing::Test, test::SessionFixture {
    GeodataCommandsTest() {
        start();
        documents.openFile(document("a.xml b.xml", 2));
        dialogs.requests.clear();
    }
    std::string points(const std::vector<test::TestShape>& shapes, const std::string& projection = {}) const {
        if (!projection.empty())
            folder.write("points.prj", projection);
        return test::TestShapefile(shapes).write(folder, "points");
    }
    std::string threePoints(const std::string& projection = {}) const {
        return points({{155000, 463000, "AA02"}, {121000, 487000, "smoke.fx"}, {0, 0, "rectangular"}},
                      projection);
    }
    void importFrom(const std::string& path) {
        dialogs.paths = {path};
        commands.importPoints();
    }
    [[nodiscard]] std::string status(const std::string& text) const { return "[14:02:11] " + text; }

    CountingProgress progress;
    DocumentCommands documents{session};
    GeodataCommands commands{session, progress};
};

} // namespace

TEST_F(GeodataCommandsTest, ExportProposesTheSceneryName) {
    commands.exportShapefile();
    ASSERT_EQ(dialogs.requests.size(), 1U);
    EXPECT_EQ(dialogs.requests[0],
              (FileRequest{"Export as SHP", "SHP file (*.shp)|*.shp|", folder.file("a.xml b.shp"), {}}));
    EXPECT_FALSE(folder.has("a.xml b.shp")) << "a cancelled dialog is no";

    dialogs.paths = {folder.file("out")};
    commands.exportShapefile();
    EXPECT_EQ(session.activity().text(), status("2 points exported to " + folder.file("out.shp") +
                                                ", 2 of them with a position or heading that is no number"));
    EXPECT_TRUE(folder.has("out.dbf") && folder.has("out.shx") && folder.has("out.prj") &&
                folder.has("out.cpg"));
}

TEST_F(GeodataCommandsTest, ExportAsksBeforeItReplacesOneOfTheFiles) {
    const Message question{"File already exists. Are you sure you want to overwrite it?", "Quillset XML",
                           MessageButtons::yesNo, MessageIcon::question};
    for (const char* const old : {"a.shp", "b.DBF"}) {
        folder.write(old, "old");
        for (const Answer answer : {Answer::no, Answer::yes}) {
            dialogs.messages.clear();
            dialogs.answers = {answer};
            dialogs.paths = {folder.file(std::string(old).substr(0, 1))};
            commands.exportShapefile();
            EXPECT_EQ(dialogs.messages, std::vector<Message>{question}) << old;
            EXPECT_EQ(folder.read(old) == "old", answer == Answer::no) << old;
        }
    }
}

TEST_F(GeodataCommandsTest, AFailedExportIsReportedAndEndsNothing) {
    dialogs.paths = {folder.file("missing/out.shp")};
    commands.exportShapefile();
    ASSERT_EQ(dialogs.messages.size(), 1U);
    EXPECT_NE(dialogs.messages[0].text.find("in procedure mExportSHP_Click of Form MDIForm1"),
              std::string::npos);
    EXPECT_EQ(ended, 0);
}

TEST_F(GeodataCommandsTest, ImportedPointsAreUndoneOneByOne) {
    importFrom(threePoints());
    EXPECT_EQ(dialogs.requests[0], (FileRequest{"Import SHP", "SHP file (*.shp)|*.shp|", {}, folder.path()}));
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(session.activity().text(), status("3 points added"));
    EXPECT_EQ(progress.begun, 3U);
    EXPECT_EQ(progress.ended, 1);
    ASSERT_EQ(session.list().rowCount(), 5);
    EXPECT_EQ(session.list().row(3), (RowTexts{"Tower", "52.1551732749981", "5.38720358836977", "Object 3"}));
    EXPECT_EQ(session.list().selectedRow(), 5);
    EXPECT_STREQ(session.document().placement(2).attribute("heading").value(), "90") << "the simulator's";
    for (int rows = 5; rows > 2; --rows) {
        EXPECT_EQ(session.list().rowCount(), rows);
        documents.undo();
    }
    EXPECT_FALSE(session.journal().canUndo());
}

TEST_F(GeodataCommandsTest, SkippedShapesAreNamedAtTheEnd) {
    importFrom(points({{0, 0, "", SHPT_NULL}, {1, 1, "AA01"}}));
    const std::string text = "1 point added, 1 skipped: shape 0 (no coordinates)";
    EXPECT_EQ(session.activity().text(), status(text));
    ASSERT_EQ(dialogs.messages.size(), 1U);
    EXPECT_EQ(dialogs.messages[0].text, text + ".");
}

TEST_F(GeodataCommandsTest, ACancelledImportKeepsWhatWasAdded) {
    progress.cancelAt = 2;
    importFrom(threePoints());
    EXPECT_EQ(session.activity().text(), status("2 points added; ended before the other 1"));
    EXPECT_EQ(session.list().rowCount(), 4);
    EXPECT_EQ(session.journal().count(), 2U);
}

TEST_F(GeodataCommandsTest, OtherFilesGiveTheirMessages) {
    const std::vector<test::TestShape> one{{1, 1, "A"}};
    importFrom(test::TestShapefile(one, SHPT_POINT, "guid").write(folder, "g"));
    importFrom(test::TestShapefile({{1, 1, "A", SHPT_MULTIPOINT}}, SHPT_MULTIPOINT).write(folder, "m"));
    EXPECT_EQ(
        dialogs.messages,
        (std::vector<Message>{{"The DBase file does not contain a field named DXF_LABEL containing the GUIDs",
                               "Quillset XML", MessageButtons::ok, MessageIcon::information},
                              {"This shapefile does not contain points and can thus not be read",
                               "Quillset XML", MessageButtons::ok, MessageIcon::information}}));
    dialogs.messages.clear();
    importFrom(folder.write("broken.shp", "x"));
    ASSERT_EQ(dialogs.messages.size(), 1U);
    EXPECT_NE(dialogs.messages[0].text.find("in procedure mImportSHP_Click of Form MDIForm1"),
              std::string::npos);
    EXPECT_EQ(session.list().rowCount(), 2);
    EXPECT_EQ(progress.begun, 0U);
    EXPECT_EQ(ended, 0);
}

TEST_F(GeodataCommandsTest, AnotherCoordinateSystemIsAskedAbout) {
    const std::string rd = R"(PROJCS["RD",GEOGCS["Amersfoort"],PROJECTION["Double_Stereographic"],)"
                           R"(PARAMETER["False_Easting",155000],PARAMETER["False_Northing",463000]])";
    importFrom(threePoints(rd));
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(session.list().rowCount(), 5);
    importFrom(threePoints("GEOGCS[\"GCS_WGS_1984\"]"));
    ASSERT_EQ(dialogs.messages.size(), 1U);
    EXPECT_NE(dialogs.messages[0].text.find("\"GCS_WGS_1984\""), std::string::npos);
    EXPECT_EQ(session.list().rowCount(), 5) << "answered with No";
    dialogs.answers = {Answer::yes};
    importFrom(threePoints());
    EXPECT_EQ(session.list().rowCount(), 8);
}

TEST_F(GeodataCommandsTest, AnImportThatTakesMuchDiskSpaceIsAskedAbout) {
    importFrom(points(std::vector<test::TestShape>(3000, {155000, 463000, "AA01"})));
    ASSERT_EQ(dialogs.messages.size(), 1U);
    EXPECT_NE(dialogs.messages[0].text.find("of disk space"), std::string::npos) << dialogs.messages[0].text;
    EXPECT_EQ(session.list().rowCount(), 2) << "answered with No";
    EXPECT_EQ(progress.begun, 0U);
}

TEST_F(GeodataCommandsTest, TheCommandsNeedADocument) {
    const auto enabled = [&] {
        const auto states = commandStates(session);
        return std::pair(states.at("mExportSHP"), states.at("mImportSHP"));
    };
    EXPECT_EQ(enabled(), std::pair(true, true));
    documents.openFile(folder.write("bad.xml", "<FSData>"));
    EXPECT_EQ(enabled(), std::pair(true, false)) << "nothing can be added without a root element";
    dialogs.messages.clear();
    dialogs.requests.clear();
    commands.exportShapefile();
    EXPECT_EQ(dialogs.messages.size(), 1U) << "an empty export must not replace a good one";
    dialogs.answers = {Answer::no};
    documents.close();
    EXPECT_EQ(enabled(), std::pair(false, false));
    commands.exportShapefile();
    commands.importPoints();
    EXPECT_TRUE(dialogs.requests.empty());
}
