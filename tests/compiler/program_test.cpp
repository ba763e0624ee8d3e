// The programs themselves, as a user or the editor runs them.

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#ifndef _WIN32
#include <unistd.h>
#endif

using quillset::test::TemporaryFolder;

namespace {

const std::string good =
    "<FSData version=\"9.0\"><SceneryObject lat=\"1\" lon=\"2\"><Effect effectName=\"a.fx\"/>"
    "</SceneryObject></FSData>";
const std::string bad =
    "<FSData version=\"9.0\"><SceneryObject lat=\"91\" lon=\"2\"><Effect effectName=\"a.fx\"/>"
    "</SceneryObject></FSData>";

struct ProgramRun {
    int exitCode = 0;
    std::string output; // of both streams
};

// Runs a program of ours in `folder` with a command line that is quoted already.
ProgramRun run(const TemporaryFolder& folder, const std::string& program, const std::string& arguments,
               const std::string& before = {}) {
#ifdef _WIN32
    const std::string exe = "\"" QUILLSET_BIN "/compiler/" + program + ".exe\"";
    const std::string enter = "cd /d "; // the temporary folder may be on another drive
#else
    const std::string exe = "'" QUILLSET_BIN "/compiler/" + program + "'";
    const std::string enter = "cd ";
#endif
    const TemporaryFolder out;
    const std::string command = enter + "\"" + folder.path() + "\" && " + before + exe + " " + arguments +
                                " > \"" + out.file("log") + "\" 2>&1";
    int code = std::system(command.c_str());
#ifndef _WIN32
    code = WEXITSTATUS(code);
#endif
    std::string text = out.read("log");
    std::erase(text, '\r');
    return {code, text};
}

std::string firstLine(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

} // namespace

TEST(Bglcomp, WritesTheOutputBesideEachSource) {
    const TemporaryFolder folder;
    folder.write("a.xml", good);
    folder.write("sub folder/b.v1.XML", good);
    const ProgramRun made = run(folder, "bglcomp", "a.xml \"sub folder/b.v1.XML\"");
    EXPECT_EQ(made.exitCode, 0) << made.output;
    EXPECT_TRUE(firstLine(made.output).starts_with("Quillset scenery compiler 1.")) << made.output;
    EXPECT_TRUE(folder.has("a.bgl"));
    EXPECT_TRUE(folder.has("sub folder/b.v1.bgl"));
    const ProgramRun listing = run(folder, "bgl-list", "a.bgl");
    EXPECT_EQ(listing.exitCode, 0);
    EXPECT_NE(listing.output.find("Effect name=\"a.fx\" params=\"\""), std::string::npos) << listing.output;
    folder.write("a.bgl", "not one");
    EXPECT_EQ(run(folder, "bgl-list", "a.bgl").exitCode, 1);
}

TEST(Bglcomp, OneErrorKeepsTheOldOutputAndTheOthersAreCompiled) {
    const TemporaryFolder folder;
    folder.write("a.xml", bad);
    folder.write("a.bgl", "older");
    folder.write("b.xml", good);
    const ProgramRun made = run(folder, "bglcomp", "a.xml b.xml none.xml");
    EXPECT_EQ(made.exitCode, 1);
    EXPECT_EQ(folder.read("a.bgl"), "older");
    EXPECT_TRUE(folder.has("b.bgl"));
    EXPECT_NE(made.output.find("a.xml(1,38): error: <SceneryObject> lat=\"91\""), std::string::npos)
        << made.output;
    EXPECT_NE(made.output.find("none.xml: error: File not found"), std::string::npos) << made.output;
    folder.write("a.xml", good);
    EXPECT_EQ(run(folder, "bglcomp", "a.xml").exitCode, 0);
    EXPECT_EQ(folder.read("a.bgl").substr(0, 4), std::string("\x01\x02\x92\x19"));
}

TEST(Bglcomp, Wildcards) {
    const TemporaryFolder folder;
    for (const char* name : {"one.xml", "TWO.XML", "three.xml", "other.txt", "s/one.xml"})
        folder.write(name, good);
    EXPECT_EQ(run(folder, "bglcomp", "\"t*.xml\" \"o?e.xml\"").exitCode, 0);
    EXPECT_TRUE(folder.has("one.bgl") && folder.has("TWO.bgl") && folder.has("three.bgl"));
    EXPECT_FALSE(folder.has("other.bgl") || folder.has("s/one.bgl"));
    EXPECT_EQ(run(folder, "bglcomp", "\"s/*\"").exitCode, 0);
    EXPECT_TRUE(folder.has("s/one.bgl"));
    const ProgramRun nothing = run(folder, "bglcomp", "\"x*.xml\"");
    EXPECT_EQ(nothing.exitCode, 1);
    EXPECT_NE(nothing.output.find("x*.xml: error: no file matches"), std::string::npos) << nothing.output;
}

TEST(Bglcomp, Options) {
    const TemporaryFolder folder;
    folder.write("a.xml", "<FSData version=\"9.0\"><Airport/></FSData>");
    const auto exits = [&](const std::string& arguments) {
        return run(folder, "bglcomp", arguments).exitCode;
    };
    EXPECT_EQ(exits("--help"), 0);
    EXPECT_EQ(exits("--version"), 0);
    EXPECT_EQ(exits(""), 2);
    EXPECT_EQ(exits("--colour a.xml"), 2);
    EXPECT_EQ(exits("--target msfs a.xml"), 2);
    EXPECT_EQ(exits("--target"), 2);
    EXPECT_EQ(exits("a.xml"), 1);
    EXPECT_FALSE(folder.has("a.bgl"));
    const ProgramRun skipped = run(folder, "bglcomp", "--skip-unsupported a.xml");
    EXPECT_EQ(skipped.exitCode, 0);
    EXPECT_NE(skipped.output.find("a.xml: left out as not supported: 1 Airport"), std::string::npos);
    folder.write("-b.xml", good);
    const ProgramRun later = run(folder, "bglcomp", "--target=fsx -- -b.xml");
    EXPECT_EQ(later.exitCode, 0);
    EXPECT_TRUE(firstLine(later.output).ends_with("(target fsx)"));
    EXPECT_EQ(folder.read("-b.bgl").size(), 0x5cU + 125);
}

TEST(Bglcomp, SourcesAndOutputsThatAreNoFiles) {
    const TemporaryFolder folder;
    folder.write("a.bgl", good);
    const ProgramRun itself = run(folder, "bglcomp", "a.bgl");
    EXPECT_EQ(itself.exitCode, 1);
    EXPECT_EQ(folder.read("a.bgl"), good);
    folder.write("b.bgl/x", "");
    folder.write("b.xml", good);
    const ProgramRun taken = run(folder, "bglcomp", "b.xml");
    EXPECT_EQ(taken.exitCode, 1);
    EXPECT_NE(taken.output.find("b.xml: error: Not a file but a folder: b.bgl"), std::string::npos)
        << taken.output;
    EXPECT_EQ(run(folder, "bglcomp", "b.bgl/../b.bgl").exitCode, 1);
}

TEST(Bglcomp, NestedTooDeep) {
    const TemporaryFolder folder;
    std::string deep = "<FSData version=\"9.0\">";
    for (int i = 0; i < 1'000'000; ++i)
        deep += "<a>";
    folder.write("deep.xml", deep);
    const ProgramRun made = run(folder, "bglcomp", "--skip-unsupported deep.xml");
    EXPECT_EQ(made.exitCode, 1);
    EXPECT_NE(made.output.find("deep.xml(1,"), std::string::npos) << made.output.substr(0, 1000);
}

#ifndef _WIN32
TEST(Bglcomp, APipeIsRefusedAtOnce) {
    const TemporaryFolder folder;
    const ProgramRun made = run(folder, "bglcomp", "p.xml", "mkfifo p.xml; ");
    EXPECT_EQ(made.exitCode, 1);
    EXPECT_NE(made.output.find("p.xml: error: Not a regular file"), std::string::npos) << made.output;
    EXPECT_EQ(run(folder, "bgl-list", "p.xml").output, "p.xml: error: byte 0: this is no regular file\n");
}

TEST(Bglcomp, AFullDiskLeavesTheOldOutput) {
    const TemporaryFolder folder;
    folder.write("a.xml", "<FSData version=\"9.0\"><ModelData name=\"00000000000000000000000000000001\" "
                          "sourceFile=\"a.mdl\"/></FSData>");
    folder.write("a.mdl", "RIFFxxxxMDL9" + std::string(3'000'000, 'x'));
    folder.write("a.bgl", "older");
    // A file of at most 1,000 blocks: the write fails in the middle of the model.
    const ProgramRun made = run(folder, "bglcomp", "a.xml", "trap '' XFSZ; ulimit -f 1000; ");
    EXPECT_EQ(made.exitCode, 1) << made.output;
    EXPECT_NE(made.output.find("a.xml: error: "), std::string::npos) << made.output;
    EXPECT_EQ(folder.read("a.bgl"), "older");
    const std::filesystem::directory_iterator entries(quillset::toPath(folder.path()));
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 3); // no working copy is left
}

#endif
