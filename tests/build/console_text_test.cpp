#include "build/console_text.h"

#include <gtest/gtest.h>

using namespace quillset;

TEST(ConsoleText, CharactersSurviveEveryPlaceOfTheCut) {
    const std::string text = "ü€😀z\r\n";
    for (std::size_t first = 0; first <= text.size(); ++first) {
        for (std::size_t second = first; second <= text.size(); ++second) {
            ConsoleTextDecoder decoder;
            std::string decoded = decoder.decode(text.substr(0, first));
            decoded += decoder.decode(text.substr(first, second - first));
            decoded += decoder.decode(text.substr(second));
            EXPECT_EQ(decoded + decoder.finish(), text) << first << ' ' << second;
        }
    }
}

TEST(ConsoleText, PlainTextIsNeverHeldBack) {
    ConsoleTextDecoder decoder;
    EXPECT_EQ(decoder.decode("Overwrite? (Y/N) "), "Overwrite? (Y/N) ");
}

#ifndef _WIN32
TEST(ConsoleText, EveryInvalidByteShows) {
    const struct {
        std::string bytes;
        std::string text;
    } rows[] = {
        {"a\xFF\xFE!", "a\\xFF\\xFE!"},
        {"caf\xE9 au lait", "caf\\xE9 au lait"},
        {"\xC0\xAF", "\\xC0\\xAF"},
        {"\xED\xA0\x80", "\\xED\\xA0\\x80"},
        {"\xF4\x90\x80\x80", "\\xF4\\x90\\x80\\x80"},
        {"end\xE2\x82", "end\\xE2\\x82"},
        {std::string("a\0b", 3), std::string("a\0b", 3)},
    };
    for (const auto& row : rows) {
        ConsoleTextDecoder whole;
        std::string decoded = whole.decode(row.bytes);
        EXPECT_EQ(decoded + whole.finish(), row.text);
        ConsoleTextDecoder single;
        decoded.clear();
        for (const char c : row.bytes)
            decoded += single.decode({&c, 1});
        EXPECT_EQ(decoded + single.finish(), row.text) << "byte by byte";
    }
}
#else
TEST(ConsoleText, OtherBytesAreOfTheAnsiCodePage) {
    const std::string name = "Köln";
    ConsoleTextDecoder decoder;
    const std::string decoded = decoder.decode(toConsoleCodePage(name));
    EXPECT_EQ(decoded + decoder.finish(), name);
}
#endif
