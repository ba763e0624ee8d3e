#include "build/bgl_compilation.h"

#include "base/folder_lock.h"
#include "base/runtime_error.h"
#include "build/child_path.h"
#include "support/fixed_clock.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace quillset;

namespace {

class TableSettings : public CompileSettings {
public:
    std::string xmlPath() const override { return scenery; }
    std::vector<BglPathEntry> bglPaths() const override { return entries; }
    void setBglPath(std::size_t index, const std::string& output) override {
        if (index >= entries.size())
            throw RuntimeError(ErrorNumber::objectNotSet);
        entries[index].output = output;
    }

    std::string scenery;
    std::vector<BglPathEntry> entries;
};

/// Records what the command shows, and what stood in the program folder while the log was open.
class RecordingLog : public CompileLog {
public:
    RecordingLog(const test::TemporaryFolder& folder, std::string program)
        : folder_(folder)
        , program_(std::move(program)) {}
    void runBegins(const std::string&) override { text.clear(); }
    void append(const std::string& piece) override { text += piece; }
    WaitAnswer wait() override {
        const bool ends = !endAfter.empty() && text.find(endAfter) != std::string::npos;
        return ends ? WaitAnswer::endCompiler : WaitAnswer::goOn;
    }
    void runEnds(CompileOutcome ended, const std::string& words) override {
        outcome = ended;
        verdict = words;
    }
    void showModal() override {
        ++shown;
        xml = folder_.read(program_ + "/compile.xml");
        batch = folder_.has(program_ + "/compile.bat");
    }

    std::string endAfter;
    std::string text;
    std::string xml;
    bool batch = false;
    int shown = 0;
    CompileOutcome outcome = CompileOutcome::madeNothing;
    std::string verdict;

private:
    const test::TemporaryFolder& folder_;
    std::string program_;
};

/// One editor with a compiler in a program folder of that name.
struct Bench {
    explicit Bench(const std::string& program = "program")
        : programName(program)
        , log(folder, program) {
        settings.scenery = folder.write("My.xml", "saved");
        settings.entries = {{folder.file("Other.xml"), "other.bgl"},
                            {folder.file("My.xml"), folder.file("My.bgl")}};
        folder.write("out/Out.bgl", "OLD");
        chooseAnd("print compiled scenery NEW", folder.file("out/Out.bgl"));
#ifdef _WIN32
        std::filesystem::copy_file(toPath(test::childPath), toPath(working("bglcomp.exe")));
#else
        std::filesystem::copy_file(toPath(test::childPath), toPath(working("bglcomp")));
#endif
    }

    [[nodiscard]] std::string working(const std::string& name) const {
        return folder.file(programName + "/" + name);
    }
    void chooseAnd(const std::string& compilerOrders, const std::string& chosen) {
        folder.write(programName + "/bglcomp.do", compilerOrders);
        dialogs.paths = {chosen};
    }
    void compile() {
        BglCompilation({settings, dialogs, *files, line, runner, log, folder.file(programName), {}})
            .run([this](const std::string& path) {
                writeFileAtomically(*files, path, "<FSData unsaved='1'/>");
            });
    }
    [[nodiscard]] std::vector<std::string> leftOver() const {
        std::vector<std::string> names;
        for (const std::string name : {"compile.xml", "compile.bat", "compile.bgl"})
            if (fileExists(working(name)))
                names.push_back(name);
        return names;
    }

    test::TemporaryFolder folder;
    std::string programName;
    test::ScriptedDialogs dialogs;
    TableSettings settings;
    test::FixedClock clock;
    ActivityLine line{clock};
    std::unique_ptr<FileOperations> files = systemFileOperations();
    std::unique_ptr<ProcessStarter> starter = systemProcessStarter();
    DOSOutputs runner{dialogs, *starter};
    RecordingLog log;
};

const std::vector<std::string> nothing;

} // namespace

TEST(RememberedOutput, TheLastMatchWinsFoldedWherePathsAre) {
    const std::vector<BglPathEntry> entries{
        {"C:\\A.xml", "C:\\First.BGL"}, {"c:\\b.xml", "B"}, {"c:\\a.XML", "C:\\Ä.BGL"}};
    EXPECT_EQ(rememberedOutput(entries, "C:\\a.xml").index, 2U);
    EXPECT_EQ(rememberedOutput(entries, "C:\\a.xml").output, foldedForStorage("C:\\Ä.BGL"));
    EXPECT_EQ(rememberedOutput(entries, "C:\\none.xml").index, 0U);
    EXPECT_EQ(rememberedOutput(entries, "C:\\none.xml").output, "");
}

TEST(BglCompilation, MakesTheChosenFile) {
    Bench bench;
    bench.compile();
    EXPECT_EQ(bench.dialogs.requests,
              (std::vector<FileRequest>{{"Generate BGL file", "BGL file (*.bgl)|*.bgl|",
                                         foldedForStorage(bench.folder.file("My.bgl")), ""}}));
    EXPECT_EQ(bench.folder.read("out/Out.bgl"), "NEW");
    EXPECT_EQ(bench.settings.entries[1].output, bench.folder.file("out/Out.bgl")) << "letter case kept";
    EXPECT_EQ(bench.settings.entries[0].output, "other.bgl");
    EXPECT_NE(bench.log.text.find("compiled"), std::string::npos);
    EXPECT_EQ(bench.log.xml, "<FSData unsaved='1'/>") << "the document as it stands, while the log is open";
    EXPECT_TRUE(bench.log.batch);
    EXPECT_EQ(bench.log.outcome, CompileOutcome::madeScenery);
    EXPECT_EQ(bench.line.text(), "[14:02:11] " + bench.folder.file("out/Out.bgl") + " created");
    EXPECT_EQ(bench.folder.read("My.xml"), "saved") << "the scenery file itself is not saved";
    EXPECT_EQ(bench.leftOver(), nothing);
}

TEST(BglCompilation, WithoutResultTheOldFileStays) {
    const struct {
        const char* orders;
        const char* verdict;
    } rows[] = {
        {"print failed exit 1",
         "The compiler failed (exit code 1) and made no scenery file; its messages say why."},
        {"exit 3", "The compiler failed (exit code 3) and made no scenery file. It printed nothing."},
        {"crash 0", "The compiler crashed (signal 6, Aborted) and made no scenery file."},
        {"print odd exit 0", "The compiler made no scenery file; its messages say why."},
        {"exit 0", "The compiler made no scenery file. It printed nothing."},
    };
    for (const auto& [orders, verdict] : rows) {
        Bench bench;
        bench.chooseAnd(orders, bench.folder.file("out/Out.bgl"));
        bench.folder.write("program/compile.bgl", "STALE");
        bench.compile();
        EXPECT_EQ(bench.folder.read("out/Out.bgl"), "OLD") << orders;
        EXPECT_EQ(bench.log.outcome, CompileOutcome::madeNothing);
#ifdef _WIN32 // there the interpreter prints the command first, and a crash is an exit code
        EXPECT_NE(bench.log.verdict.find("made no scenery file"), std::string::npos) << verdict;
#else
        EXPECT_EQ(bench.log.verdict, verdict);
#endif
        EXPECT_EQ(bench.log.shown, 1);
        EXPECT_TRUE(bench.line.text().ends_with("Out.bgl created")) << "deliberate";
        EXPECT_EQ(bench.leftOver(), nothing);
    }
}

TEST(BglCompilation, TellsHowTheCompilerEnded) {
    const struct {
        CompileRun run;
        const char* verdict;
    } rows[] = {
        {{CompileOutcome::madeScenery, ProcessEnd{}, true, {}}, "The compiler made a new scenery file."},
        {{CompileOutcome::madeScenery, ProcessEnd{2, {}}, true, {}},
         "The compiler made a new scenery file, but reported a failure (exit code 2)."},
        {{CompileOutcome::madeScenery, ProcessEnd{11, "signal 11"}, true, {}},
         "The compiler crashed (signal 11) after it had made a scenery file, which may be incomplete."},
    };
    for (const auto& row : rows)
        EXPECT_EQ(compileVerdict(row.run), row.verdict);
}

TEST(BglCompilation, AMissingCompilerIsNamed) {
    Bench bench;
    for (const char* const name : {"bglcomp", "bglcomp.exe"})
        std::filesystem::remove(toPath(bench.working(name)));
    bench.compile();
    EXPECT_EQ(bench.log.outcome, CompileOutcome::notFound);
    EXPECT_NE(bench.log.verdict.find("bglcomp was not found"), std::string::npos) << bench.log.verdict;
    EXPECT_NE(bench.log.verdict.find(bench.folder.file("program")), std::string::npos) << bench.log.verdict;
    EXPECT_EQ(bench.log.shown, 1);
    EXPECT_EQ(bench.folder.read("out/Out.bgl"), "OLD");
#ifndef _WIN32
    EXPECT_EQ(bench.dialogs.messages, (std::vector<Message>{{"File or command not found", "Quillset XML",
                                                             MessageButtons::ok, MessageIcon::critical}}));
    (void)bench.folder.write("program/BGLCOMP.EXE", "");
    bench.dialogs.paths = {bench.folder.file("out/Out.bgl")};
    bench.compile();
    EXPECT_NE(bench.log.verdict.find("BGLCOMP.EXE is a Windows program"), std::string::npos)
        << bench.log.verdict;
#endif
}

TEST(BglCompilation, ACancelledDialogDoesNothing) {
    Bench bench;
    bench.dialogs.paths = {""};
    bench.compile();
    EXPECT_EQ(bench.log.shown, 0);
    EXPECT_EQ(bench.settings.entries[1].output, bench.folder.file("My.bgl"));
    EXPECT_EQ(bench.line.text(), "");
}

TEST(BglCompilation, RefusesNamesThatWouldDestroySomething) {
    const struct {
        const char* chosen;
        const char* scenery;
    } rows[] = {
        {"My.xml", "My.xml"},
        {"MY.XML", "My.xml"},
        {"out/../My.xml", "My.xml"},
        {"program/compile.xml", "My.xml"},
        {"program/compile.bat", "My.xml"},
        {"out/Out.bgl", "program/compile.xml"},
        {"out/Out.bgl", "program/compile.bgl"},
    };
    for (const auto& row : rows) {
        Bench bench;
        bench.settings.scenery = bench.folder.write(row.scenery, "saved");
        bench.dialogs.paths = {bench.folder.file(row.chosen)};
        bench.compile();
        EXPECT_EQ(bench.dialogs.messages.size(), 1U) << row.chosen;
        EXPECT_EQ(bench.log.shown, 0) << row.chosen;
        EXPECT_EQ(bench.folder.read(row.scenery), "saved") << row.chosen;
        EXPECT_EQ(bench.settings.entries[0].output, "other.bgl");
    }
}

TEST(BglCompilation, TwoProgramsOfOneFolderDoNotMixTheirFiles) {
    Bench bench;
    bench.folder.write("program/compile.xml", "of the other one");
    {
        const auto other = tryLock(bench.working(".quillset-compile.lock"));
        bench.compile();
        EXPECT_EQ(bench.folder.read("program/compile.xml"), "of the other one");
        EXPECT_EQ(bench.folder.read("out/Out.bgl"), "OLD");
        ASSERT_EQ(bench.dialogs.messages.size(), 1U);
        EXPECT_NE(bench.dialogs.messages[0].text.find("Another compilation is running"), std::string::npos);
    }
    bench.chooseAnd("print compiled scenery NEW", bench.folder.file("out/Out.bgl"));
    bench.compile();
    EXPECT_NE(bench.folder.read("out/Out.bgl"), "OLD");
    EXPECT_FALSE(fileExists(bench.working(".quillset-compile.lock")));
}

TEST(BglCompilation, AFailedMoveLosesNeitherFile) {
    Bench bench;
    const auto target = toPath(bench.folder.file("out/Out.bgl"));
    std::filesystem::permissions(target, std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::remove);
    try {
        bench.compile();
        ADD_FAILURE() << "a write-protected file is replaced";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), static_cast<int>(ErrorNumber::permissionDenied));
        EXPECT_TRUE(std::string(error.what()).ends_with(bench.working("compile.bgl"))) << error.what();
    }
    EXPECT_EQ(bench.folder.read("out/Out.bgl"), "OLD");
    EXPECT_EQ(bench.folder.read("program/compile.bgl"), "NEW");
    EXPECT_EQ(bench.leftOver(), std::vector<std::string>{"compile.bgl"});
    std::filesystem::permissions(target, std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::add);
}

TEST(BglCompilation, FailuresOnTheWayLeaveNoWorkingFiles) {
    Bench noEntry;
    noEntry.settings.entries.clear();
    EXPECT_THROW(noEntry.compile(), RuntimeError);
    EXPECT_EQ(noEntry.leftOver(), nothing);
    Bench noFolder;
    noFolder.dialogs.paths = {noFolder.folder.file("missing/Out.bgl")};
    EXPECT_THROW(noFolder.compile(), RuntimeError);
    EXPECT_EQ(noFolder.leftOver(), std::vector<std::string>{"compile.bgl"}) << "the result is not lost";
}

TEST(BglCompilation, AnEndedCompilerReplacesNothing) {
    Bench bench;
    bench.chooseAnd("scenery HALF print Continue? hang 0", bench.folder.file("out/Out.bgl"));
    bench.log.endAfter = "Continue?";
    bench.compile();
    EXPECT_EQ(bench.log.outcome, CompileOutcome::endedByUser);
    EXPECT_EQ(bench.folder.read("out/Out.bgl"), "OLD");
    EXPECT_EQ(bench.line.text(), "[14:02:11] compilation ended");
    EXPECT_EQ(bench.leftOver(), nothing);
}
