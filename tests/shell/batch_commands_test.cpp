#include "shell/batch_commands.h"

#include "document/scenery_document.h"
#include "geodata/point_shapefile.h"
#include "support/failing_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace quillset;

namespace {

const std::string hangar = "000000010000000000000000000000AA";
const std::string tower = "000000020000000000000000000000AA";

std::string scenery(const std::string& content) {
    return "<FSData version=\"9.0\"><SceneryObject lat=\"1\" lon=\"2\" heading=\"0\">" + content +
           "</SceneryObject></FSData>";
}
std::string object(const std::string& guid) {
    return scenery("<LibraryObject name=\"" + guid + "\"/>");
}

/// A program folder with a default library, and what the commands say.
struct BatchFixture {
    BatchFixture() {
        folder.write("program/generic.xml", "<Objects><LibraryObject><name>Hangar</name><guid>" + hangar +
                                                "</guid></LibraryObject></Objects>");
        folder.write("fs/Effects/Smoke.FX", "[x]");
    }

    int run(CommandLine::Action action, const std::vector<std::string>& operands) {
        output.clear();
        messages.clear();
        CommandLine options;
        options.action = action;
        options.operands = operands;
        options.fsPath = fsPath;
        return runBatchCommand(options, {files,
                                         *processes,
                                         {folder.file("program"), folder.file("program"), {}},
                                         [this] { return registered; },
                                         [this](ConsoleStream stream, std::string_view text) {
                                             (stream == ConsoleStream::output ? output : messages) += text;
                                             return stream == ConsoleStream::error || !outputFull;
                                         },
                                         [](const CheckReport&) { return std::string(); }});
    }
    int check(const std::string& bytes) {
        return run(CommandLine::Action::check, {folder.write("a.xml", bytes)});
    }
    void settings(const std::string& content) {
        folder.write("program/config.xml", "<Configuration>" + content + "</Configuration>");
    }

    test::TemporaryFolder folder;
    test::FailingFiles files;
    std::unique_ptr<ProcessStarter> processes = systemProcessStarter();
    std::optional<std::string> fsPath;
    std::string registered;
    bool outputFull = false;
    std::string output;
    std::string messages;
};

} // namespace

TEST(BatchCheck, SaysWhereAndWhatOnStandardOutput) {
    BatchFixture batch;
    EXPECT_EQ(
        batch.check("<FSData>\n<SceneryObject lat=\"1\" lon=\"400\">\n<LibraryObject name=\"a\tb\n\"/>\n"
                    "</SceneryObject></FSData>"),
        1);
    const std::string at = batch.folder.file("a.xml") + "(2): row 1: ";
    EXPECT_EQ(batch.output, at +
                                "coordinate: lon=\"400\": out of range; allowed: from -180 to 180, or a text "
                                "such as W070 49.4533\n" +
                                at + "unknown-object: a b : not a GUID\n");
    EXPECT_NE(batch.messages.find("2 findings"), std::string::npos) << batch.messages;
    EXPECT_EQ(batch.check(object(hangar)), 0);
    EXPECT_EQ(batch.output, "");
    EXPECT_EQ(batch.messages.find("finding"), std::string::npos) << batch.messages;
}

TEST(BatchCheck, KnowsWhatTheEditorWouldKnow) {
    const struct {
        const char* name;
        std::string settings;
        std::string document;
        bool clean;
    } rows[] = {
        {"default library", "", object(hangar), true},
        {"in another spelling", "", object("{00000001-0000-0000-0000-0000AA000000}"), true},
        {"unknown", "", object(tower), false},
        {"user library", "<UserLibrary>USER</UserLibrary>", object(tower), true},
        {"Rwy12 library", "<Rwy12Library>RWY</Rwy12Library>", object(tower), true},
        {"effect without a simulator", "", scenery("<Effect effectName=\"fog\"/>"), true},
        {"effect", "<FsPath>FS</FsPath>", scenery("<Effect effectName=\"smoke\"/>"), true},
        {"missing effect", "<FsPath>FS</FsPath>", scenery("<Effect effectName=\"fog\"/>"), false},
    };
    for (const auto& row : rows) {
        BatchFixture batch;
        std::string settings = row.settings;
        for (const auto& [word, path] :
             {std::pair{"USER", batch.folder.write("user.xml", "<x><ModelData name=\"" + tower +
                                                                   "\" sourceFile=\"t.mdl\"/></x>")},
              {"RWY", batch.folder.write("rwy.xml", "<x><obj guid=\"" + tower + "\" name=\"t\"/></x>")},
              {"FS", batch.folder.file("fs")}})
            if (const std::size_t at = settings.find(">" + std::string(word) + "<"); at != std::string::npos)
                settings.replace(at + 1, std::string(word).size(), path);
        batch.settings(settings.find("FsPath") == std::string::npos ? "<FsPath/>" + settings : settings);
        EXPECT_EQ(batch.check(row.document), row.clean ? 0 : 1) << row.name << batch.output;
    }
}

TEST(BatchCheck, TheSimulatorIsTheOneNamedElseTheOneOfTheSystem) {
    const std::string fog = scenery("<Effect effectName=\"fog.fx\"/>");
    BatchFixture batch;
    EXPECT_EQ(batch.check(fog), 0);
    batch.registered = batch.folder.file("fs");
    EXPECT_EQ(batch.check(fog), 1);
    batch.fsPath = batch.folder.file("other");
    batch.folder.write("other/effects/fog.fx", "[x]");
    EXPECT_EQ(batch.check(fog), 0);
    EXPECT_FALSE(batch.folder.has("program/config.xml")) << "settings are only read";
}

TEST(BatchCheck, WhatCannotBeReadIsTold) {
    const struct {
        const char* name;
        std::string bytes;
        const char* message;
    } rows[] = {
        {"damaged", "<FSData><SceneryObject></FSData>", "could not be read"},
        {"empty", "", "could not be read"},
    };
    BatchFixture batch;
    for (const auto& row : rows) {
        EXPECT_EQ(batch.check(row.bytes), 1) << row.name;
        EXPECT_NE(batch.messages.find(row.message), std::string::npos) << row.name << batch.messages;
    }
    EXPECT_EQ(batch.run(CommandLine::Action::check, {batch.folder.file("none.xml")}), 1);
    EXPECT_NE(batch.messages.find("none.xml"), std::string::npos);
    batch.settings("<UserLibrary>gone.xml</UserLibrary><FsPath/>");
    EXPECT_EQ(batch.check(object(hangar)), 0);
    EXPECT_NE(batch.messages.find("the library cannot be read, its objects count as unknown: gone.xml"),
              std::string::npos);
}

TEST(BatchCheck, AListThatCannotBeWrittenIsAFailure) {
    BatchFixture batch;
    batch.outputFull = true;
    EXPECT_EQ(batch.check(object(hangar)), 1);
    EXPECT_NE(batch.messages.find("could not be written"), std::string::npos) << batch.messages;
}

TEST(BatchFormat, WritesAsTheEditorSavesAndKeepsTheFileWhenThatFails) {
    BatchFixture batch;
    const std::string path = batch.folder.write("a.xml", "<FSData><!--x--><A b=\"1\"/></FSData>");
    batch.files = test::FailingFiles(3);
    EXPECT_EQ(batch.run(CommandLine::Action::format, {path}), 1);
    EXPECT_EQ(batch.folder.read("a.xml"), "<FSData><!--x--><A b=\"1\"/></FSData>");
    batch.files = test::FailingFiles();
    EXPECT_EQ(batch.run(CommandLine::Action::format, {path}), 0) << batch.messages;
    EXPECT_EQ(batch.folder.read("a.xml"), "<FSData>\r\n<!--x-->\r\n<A b=\"1\"/>\r\n</FSData>\r\n");
    EXPECT_EQ(batch.messages + batch.output, "");
    const int operations = batch.files.count();
    EXPECT_EQ(batch.run(CommandLine::Action::format, {path}), 0);
    EXPECT_EQ(batch.files.count(), operations) << "nothing to change, nothing written";
    batch.folder.write("a.xml", "<FSData>");
    EXPECT_EQ(batch.run(CommandLine::Action::format, {path}), 1);
    EXPECT_EQ(batch.folder.read("a.xml"), "<FSData>");
}

TEST(BatchPoints, ExportNamesTheObjectsAsTheCatalogueDoes) {
    BatchFixture batch;
    const std::string shapes = batch.folder.file("out.shp");
    const std::string path = batch.folder.write("a.xml", object(hangar));
    EXPECT_EQ(batch.run(CommandLine::Action::exportShapefile, {path, shapes}), 0) << batch.messages;
    EXPECT_NE(batch.folder.read("out.dbf").find("Hangar "), std::string::npos);
    EXPECT_EQ(batch.folder.read("out.shp").size(), 100U + 28U);
    const std::string odd = batch.folder.write(
        "odd.xml",
        "<FSData><SceneryObject lat=\"x\" lon=\"2\"><Effect effectName=\"a.fx\"/></SceneryObject></FSData>");
    EXPECT_EQ(batch.run(CommandLine::Action::exportShapefile, {odd, shapes}), 1);
    EXPECT_NE(batch.messages.find("is no number: 1"), std::string::npos) << batch.messages;
    EXPECT_EQ(batch.run(CommandLine::Action::exportShapefile, {path, batch.folder.file("no/such/a.shp")}), 1);
    EXPECT_NE(batch.messages.find("such"), std::string::npos) << batch.messages;
}

TEST(BatchPoints, ImportAddsPlacementsAndWritesAnotherFile) {
    BatchFixture batch;
    const std::string path = batch.folder.write("a.xml", object(hangar));
    const std::string points =
        test::TestShapefile({{155000, 463000, tower}, {0, 0, "", SHPT_NULL}}).write(batch.folder, "points");
    const std::vector<std::string> operands{path, points, batch.folder.file("out.xml")};
    EXPECT_EQ(batch.run(CommandLine::Action::importShapefile, operands), 1) << "one shape was skipped";
    EXPECT_NE(batch.messages.find("1 point added, 1 skipped"), std::string::npos) << batch.messages;
    EXPECT_EQ(batch.folder.read("a.xml"), object(hangar));
    SceneryDocument out;
    ASSERT_TRUE(out.load(batch.folder.file("out.xml")).ok);
    ASSERT_EQ(out.placementCount(), 2U);
    EXPECT_NEAR(out.placement(1).attribute("lat").as_double(), 52.155173275, 1e-8);
    EXPECT_STREQ(out.placement(1).child("LibraryObject").attribute("name").value(), tower.c_str());

    test::TestShapefile({{155000, 463000, tower}}).write(batch.folder, "points");
    EXPECT_EQ(batch.run(CommandLine::Action::importShapefile, operands), 0) << batch.messages;
}

TEST(BatchPoints, WhatIsReadIsNeverOverwritten) {
    BatchFixture batch;
    const std::string path = batch.folder.write("a.dbf", object(hangar));
    EXPECT_EQ(batch.run(CommandLine::Action::exportShapefile, {path, batch.folder.file("a.shp")}), 1);
    EXPECT_NE(batch.messages.find("overwrite the scenery file"), std::string::npos) << batch.messages;
    EXPECT_EQ(batch.folder.read("a.dbf"), object(hangar));
    EXPECT_FALSE(batch.folder.has("a.shp"));

    const std::string points = test::TestShapefile({{155000, 463000, tower}}).write(batch.folder, "points");
    const std::string table = batch.folder.read("points.dbf");
    EXPECT_EQ(
        batch.run(CommandLine::Action::importShapefile, {path, points, batch.folder.file("points.dbf")}), 1);
    EXPECT_NE(batch.messages.find("overwrite the points"), std::string::npos) << batch.messages;
    EXPECT_EQ(batch.folder.read("points.dbf"), table);
}

TEST(BatchPoints, WhatCannotBeImportedWritesNothing) {
    BatchFixture batch;
    const std::string path = batch.folder.write("a.xml", object(hangar));
    test::TestShapefile({{155000, 463000, tower}}).write(batch.folder, "degrees");
    batch.folder.write("degrees.prj", "GEOGCS[\"GCS_WGS_1984\"]");
    const struct {
        const char* points;
        const char* message;
    } rows[] = {{"degrees.shp", "not in RD"}, {"none.shp", "none"}};
    for (const auto& row : rows) {
        EXPECT_EQ(batch.run(CommandLine::Action::importShapefile,
                            {path, batch.folder.file(row.points), batch.folder.file("out.xml")}),
                  1);
        EXPECT_NE(batch.messages.find(row.message), std::string::npos)
            << row.points << ": " << batch.messages;
        EXPECT_FALSE(batch.folder.has("out.xml")) << row.points;
    }
}
