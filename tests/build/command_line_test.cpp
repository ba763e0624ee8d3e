#include "build/command_line.h"

#include <gtest/gtest.h>

using namespace quillset;

using Words = std::vector<std::string>;

TEST(CommandLine, SplitsByTheQuotingRulesOfWindowsPrograms) {
    const struct {
        const char* text;
        Words words;
    } rows[] = {
        {"bglcomp compile.xml", {"bglcomp", "compile.xml"}},
        {"  a \t b  ", {"a", "b"}},
        {"\"C:\\My Folder\\compile.bat\"", {"C:\\My Folder\\compile.bat"}},
        {"a\\b c\\\\d", {"a\\b", "c\\\\d"}},
        {R"("a b\\" c)", {"a b\\", "c"}},
        {R"(a\"b \\\"c)", {"a\"b", "\\\"c"}},
        {R"(one"two three"four)", {"onetwo threefour"}},
        {"\"\" x", {"", "x"}},
        {"\"never closed", {"never closed"}},
        {"", {}},
        {"   ", {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(splitCommandLine(row.text), row.words) << row.text;
}

TEST(CommandLine, EveryWordSurvivesTheWayThere) {
    const Words words{"/opt/it's here & there/100%/ü \"x\"",
                      "",
                      "\\",
                      "a\\",
                      "a b\\",
                      "\\\"",
                      "tab\there",
                      "^&|<>",
                      "\\\\server\\share\\"};
    EXPECT_EQ(splitCommandLine(commandLineText(words)), words);
}
