#include "build/dos_outputs.h"

#include "base/runtime_error.h"
#include "build/child_path.h"
#include "build/command_line.h"
#include "build/console_text.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace quillset;

namespace {

class Runner : public ::testing::Test {
protected:
    std::string run(std::vector<std::string> orders) {
        orders.insert(orders.begin(), test::childPath);
        pieces.clear();
        return outputs.ExecuteCommand(commandLineText(orders));
    }

    test::ScriptedDialogs dialogs;
    std::unique_ptr<ProcessStarter> starter = systemProcessStarter();
    DOSOutputs outputs{dialogs, *starter};
    std::vector<std::string> pieces;
    Connection connection =
        outputs.ReceiveOutputs.connect([this](const std::string& piece) { pieces.push_back(piece); });
};

std::string joined(const std::vector<std::string>& pieces) {
    std::string text;
    for (const std::string& piece : pieces)
        text += piece;
    return text;
}

Message critical(const std::string& text) {
    return {text, "Quillset XML", MessageButtons::ok, MessageIcon::critical};
}

/// Fails every start in one way.
class FailingStarter : public ProcessStarter {
public:
    StartResult start(const ProcessRequest&) override { return {StartOutcome::noPipe, 24, nullptr}; }
};

} // namespace

TEST_F(Runner, NothingPrintedIsOneEmptyPiece) {
    for (const char* const order : {"exit", "crash"}) {
        run({order, "3"});
        EXPECT_EQ(pieces.back(), "") << order;
    }
    EXPECT_EQ(run({"exit", "0"}), "");
    EXPECT_EQ(pieces, std::vector<std::string>{""});
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(Runner, LongOutputArrivesInOrderInShortPieces) {
    constexpr std::size_t lines = 100'000; // 3.2 MB
    const std::string text = run({"flood", std::to_string(lines)});
    ASSERT_EQ(text.size(), lines * 32);
    EXPECT_EQ(text, joined(pieces));
    EXPECT_EQ(text, outputs.Outputs());
    std::size_t wrong = 0;
    for (std::size_t i = 0; i < lines; ++i)
        wrong += text.substr(i * 32, 32).ends_with('.' + std::to_string(i) + '\n') ? 0U : 1U;
    EXPECT_EQ(wrong, 0U);
    EXPECT_TRUE(pieces.back().empty());
    pieces.pop_back();
    EXPECT_TRUE(std::all_of(pieces.begin(), pieces.end(),
                            [](const std::string& piece) { return !piece.empty() && piece.size() <= 256; }));
}

TEST_F(Runner, BothStreamsInterleaveAsWritten) {
    std::string expected;
    for (int i = 0; i < 200; ++i)
        expected += "o" + std::to_string(i) + "\ne" + std::to_string(i) + "\n";
    EXPECT_EQ(run({"both", "200"}), expected);
}

TEST_F(Runner, ArgumentsArriveAsGiven) {
    EXPECT_EQ(run({"arguments", "a b", "", "it's", "100%PATH%", "&|<>^", "back\\", "quo\"te\\\""}),
              "<a b><><it's><100%PATH%><&|<>^><back\\><quo\"te\\\">");
}

TEST_F(Runner, ReadsNoInput) {
    EXPECT_EQ(run({"input", ""}), "0");
}

TEST_F(Runner, RunsInFoldersOfEveryName) {
    const test::TemporaryFolder folder;
    for (const std::string name : {"with blank", "it's", "100%TEMP%", "a & b", "(x) ^!", "Köln Łódź 東京"}) {
        folder.write(name + "/x", "");
        outputs.surroundings.workingFolder = folder.file(name);
        const std::string answer = run({"folder", ""});
        EXPECT_EQ(fileNameOf(answer), name) << answer;
    }
    outputs.surroundings.workingFolder = folder.file("missing");
    EXPECT_EQ(run({"folder", ""}), "");
    EXPECT_EQ(dialogs.messages, std::vector{critical("File or command not found")});
}

TEST_F(Runner, EnvironmentIsExtended) {
    outputs.surroundings.environment = {{"QUILLSET_CHILD_TEST", "a=1 & 2"}};
    outputs.surroundings.foldersAfterPath = {"/last one"};
    EXPECT_EQ(run({"variable", "QUILLSET_CHILD_TEST"}), "a=1 & 2");
    const std::string path = run({"variable", "PATH"});
    EXPECT_GT(path.size(), 10U) << "the caller's is kept";
    EXPECT_TRUE(path.ends_with("/last one")) << path;
}

TEST_F(Runner, FailuresAreToldAndStartNothing) {
    EXPECT_EQ(outputs.ExecuteCommand(), "");
    EXPECT_EQ(outputs.ExecuteCommand("no-such-program-of-ours x"), "");
    EXPECT_EQ(outputs.ExecuteCommand("/no/such/folder/program"), "");
    FailingStarter noPipe;
    DOSOutputs withoutPipe(dialogs, noPipe);
    EXPECT_EQ(withoutPipe.ExecuteCommand("x"), "");
    EXPECT_EQ(dialogs.messages,
              (std::vector{critical("Command Line empty"), critical("File or command not found"),
                           critical("File or command not found"), critical("CreatePipe failed. Error: 24")}));
    EXPECT_TRUE(pieces.empty());
}

TEST_F(Runner, AHangingCompilerCanBeEnded) {
    outputs.waitObserver = [this] {
        if (!outputs.Outputs().empty())
            outputs.terminate();
    };
    EXPECT_EQ(run({"print", "Continue? (Y/N) ", "hang", ""}), "Continue? (Y/N) ");
    EXPECT_TRUE(pieces.back().empty());
    EXPECT_EQ(run({"print", "1", "nested", "hang"}), "1") << "with what it started";
}

TEST_F(Runner, AFloodingCompilerCanBeEnded) {
    outputs.waitObserver = [this] { outputs.terminate(); };
    const std::string text = run({"flood", "1000000000"});
    EXPECT_EQ(text, joined(pieces));
    EXPECT_LT(text.size(), 32'000'000'000U);
}

TEST_F(Runner, RunsAgainAndAgain) {
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(run({"print", std::to_string(i)}), std::to_string(i));
        outputs.ExecuteCommand("no-such-program-of-ours");
    }
#ifdef __linux__
    std::size_t open = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
        ++open;
    EXPECT_LT(open, 30U) << "descriptors leak";
#endif
}

TEST_F(Runner, AnObserverThatThrowsEndsTheRun) {
    const Connection thrower = outputs.ReceiveOutputs.connect(
        [](const std::string&) { throw RuntimeError(ErrorNumber::outOfMemory); });
    EXPECT_THROW(run({"print", "x", "hang", ""}), RuntimeError);
    EXPECT_EQ(outputs.ExecuteCommand("no-such-program-of-ours"), "") << "not still running";
}
