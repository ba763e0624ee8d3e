#include "shell/compile_command.h"

#include "session_fixture.h"

#include <gtest/gtest.h>

using namespace quillset;

namespace {

// The compilations of these tests fail before a compiler runs.
class NoLog : public CompileLog {
public:
    void runBegins(const std::string& /*commandLine*/) override { ADD_FAILURE() << "a compiler was started"; }
    void append(const std::string& /*piece*/) override {}
    WaitAnswer wait() override { return WaitAnswer::endCompiler; }
    void runEnds(CompileOutcome /*outcome*/, const std::string& /*verdict*/) override {}
    void showModal() override {}
};

} // namespace

TEST(CompileCommand, BeforeAnErrorEndsTheProgramTheDocumentIsKeptWhereItCanBeWritten) {
    const struct {
        const char* blocked; // a file in the way
        const char* kept;
    } rows[] = {{"other", "program/recovery.xml"},
                {"program/recovery.xml", "program/recovery 2.xml"},
                {"program/recovery.xml/x", "one.xml.recovery"}};
    for (const auto& row : rows) {
        test::SessionFixture run;
        run.start();
        Session& session = run.session;
        const std::string path = run.document("one.xml", 1);
        session.configuration().setXmlPath(path);
        session.configuration().ensureBglPath(path);
        ASSERT_TRUE(session.document().load(path).ok);
        session.document().changeEverything(
            [&] { session.document().root().append_attribute("unsaved").set_value("1"); });
        run.folder.write("program/compile.xml/x", "a folder in the way");
        run.folder.write(row.blocked, "x");
        run.dialogs.paths = {run.folder.file("one.bgl")};
        const auto starter = systemProcessStarter();
        NoLog log;
        CompileCommand(session, *starter, log).compile();
        EXPECT_EQ(run.ended, 1);
        ASSERT_TRUE(fileExists(run.folder.file(row.kept))) << row.kept;
        EXPECT_NE(readWholeFile(run.folder.file(row.kept)).find("unsaved=\"1\""), std::string::npos);
        EXPECT_EQ(run.dialogs.messages.back().text,
                  "Your scenery as it stands now was written to " + run.folder.file(row.kept));
    }
}
