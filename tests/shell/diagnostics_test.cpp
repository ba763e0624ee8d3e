#include "shell/diagnostics.h"

#include "base/paths.h"
#include "session_fixture.h"
#include "shell/document_commands.h"

#include <gtest/gtest.h>

using namespace quillset;

namespace {

const PlatformFacts facts{"6.4", "Some system", "800 x 600 at 100 %", "none", "FSUIPC failed: no simulator"};

#ifdef _WIN32
constexpr const char* compilerName = "program/bglcomp.exe";
#else
constexpr const char* compilerName = "program/bglcomp";
#endif

// Letter case does not count: Windows gives names as they were asked for.
testing::AssertionResult holds(const std::string& text, const std::string& line) {
    if (lowerCase("\n" + text).find(lowerCase("\n" + line + "\n")) != std::string::npos)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "no line \"" << line << "\" in\n" << text;
}

} // namespace

TEST(Diagnostics, SaysWhatWasFoundAndWhatWasNot) {
    test::SessionFixture run;
    run.start();
    const std::string before = diagnosticsText(run.session, facts);
    EXPECT_TRUE(holds(before, "Settings: " + run.folder.file("program/config.xml") + " (missing)"));
    EXPECT_TRUE(holds(before, "Simulator folder: " + run.folder.file("fs")));
    EXPECT_TRUE(holds(before, "Effects: " + run.folder.file("fs/Effects")));
    EXPECT_TRUE(holds(before, "FSUIPC module: not found"));
    EXPECT_TRUE(holds(before, "Simulator link: FSUIPC failed: no simulator"));
    EXPECT_TRUE(holds(before, "Manual: not found"));
    EXPECT_TRUE(holds(before, "Scenery: none open"));

    run.folder.write("fs/MODULES/FSUIPC.dll", "x");
    const std::string compiler = run.folder.write(compilerName, "x");
    std::filesystem::permissions(toPath(compiler), std::filesystem::perms::owner_all);
    run.folder.write("program/docs/index.html", "x");
    DocumentCommands(run.session).openFile(run.document("a.xml", 3));
    const std::string after = diagnosticsText(run.session, facts);
    EXPECT_TRUE(holds(after, "FSUIPC module: " + run.folder.file("fs/MODULES/FSUIPC.dll")));
    EXPECT_TRUE(holds(after, "Compiler: " + compiler));
    EXPECT_TRUE(holds(after, "Manual: " + run.folder.file("program/docs/index.html")));
    EXPECT_TRUE(holds(after, "Scenery: " + run.folder.file("a.xml") + ", placements: 3"));

    run.session.configuration().createFresh(run.folder.file("gone"));
    EXPECT_TRUE(holds(diagnosticsText(run.session, facts),
                      "Simulator folder: " + run.folder.file("gone") + " (missing)"));
}

TEST(Diagnostics, TheLogTellsOfFilesAndErrors) {
    test::SessionFixture run;
    run.start();
    DocumentCommands commands(run.session);
    const std::string path = run.document("a.xml", 2);
    commands.openFile(path);
    commands.save();
    commands.openFile(run.folder.write("bad.xml", "<FSData>"));
    commands.save(); // an empty document: refused
    const std::vector<std::string> lines = run.session.log().lastLines(10);
    const std::string expected[] = {"opened " + path + ", placements: 2", "saved " + path,
                                    run.folder.file("bad.xml") + " could not be read: ",
                                    "error: Error 91 (The document has no root element"};
    ASSERT_EQ(lines.size(), std::size(expected));
    for (std::size_t i = 0; i < lines.size(); ++i)
        EXPECT_EQ(lines[i].substr(21, expected[i].size()), expected[i]);
    EXPECT_NE(diagnosticsText(run.session, facts).find(lines.back()), std::string::npos);
}
