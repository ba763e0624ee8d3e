#include "build/console_lines.h"

#include <gtest/gtest.h>

#include <vector>

using namespace quillset;

namespace {

/// What a text view shows after the pieces, by the meaning of the edits alone.
std::u32string shown(const std::vector<std::string>& pieces) {
    ConsoleLines lines;
    std::u32string view;
    for (const std::string& piece : pieces) {
        const ConsoleEdit edit = lines.feed(piece);
        if (edit.replacesLastLine)
            view.erase(view.rfind(U'\n') + 1); // npos + 1 is the start
        view += edit.text;
    }
    return view;
}

} // namespace

TEST(ConsoleLines, ShowsWhatAConsoleWould) {
    const struct {
        std::string text;
        std::u32string shown;
    } rows[] = {
        {"one\r\ntwo\nthree", U"one\ntwo\nthree"},
        {"10%\r50%\r100%\r\ndone\r\n", U"100%\ndone\n"},
        {"long text\rshort\n", U"shorttext\n"},
        {"kept at the end\r", U"kept at the end"},
        {"a\r\r\nb", U"a\nb"},
        {"|\b/\b-\b\b\b*", U"*"},
        {"tab\tbell\a null" + std::string(1, '\0'), U"tab\tbell\\x07 null\\x00"},
        {"\x7F\xC2\x9F\xEE\x80\x80\xEF\xBF\xBE\xF4\x8F\xBF\xBF",
         U"\\x7F\\u{009F}\\u{E000}\\u{FFFE}\\u{10FFFF}"},
        {"Łódź 東京 😀\rK\n", U"Kódź 東京 😀\n"},
        {"1\n\n\n2", U"1\n\n\n2"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(shown({row.text}), row.shown) << row.text;
        for (std::size_t cut = 1; cut < row.text.size(); ++cut) {
            if ((static_cast<unsigned char>(row.text[cut]) & 0xC0) == 0x80)
                continue; // within a character
            EXPECT_EQ(shown({row.text.substr(0, cut), row.text.substr(cut)}), row.shown) << row.text << cut;
        }
    }
}

TEST(ConsoleLines, OnlyOverwrittenLinesAreReplaced) {
    ConsoleLines lines;
    EXPECT_EQ(lines.feed("ab"), (ConsoleEdit{false, U"ab"}));
    EXPECT_EQ(lines.feed("c\r"), (ConsoleEdit{false, U"c"}));
    EXPECT_EQ(lines.feed("ab"), (ConsoleEdit{false, U""})) << "the same text again changes nothing";
    EXPECT_EQ(lines.feed("X"), (ConsoleEdit{true, U"abX"}));
    EXPECT_EQ(lines.feed("\nnext"), (ConsoleEdit{false, U"\nnext"}));
}

TEST(ConsoleLines, EndlessLinesAreBroken) {
    const std::u32string view = shown({std::string(20'000, 'x')});
    EXPECT_EQ(view.size(), 20'002U);
    EXPECT_EQ(view.find(U'\n'), ConsoleLines::longestLine);
}
