#include "build/console_lines.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <utility>

namespace quillset {

namespace {

/// Takes the first character of valid UTF-8.
char32_t takeCharacter(std::string_view& text) {
    const auto lead = static_cast<std::uint8_t>(text.front());
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t character = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length && i < text.size(); ++i)
        character = (character << 6) | (static_cast<std::uint8_t>(text[i]) & 0x3FU);
    text.remove_prefix(std::min(length, text.size()));
    return character;
}

/// Without a look of their own: control characters, private use and what Unicode keeps free of characters.
bool isShownByNumber(char32_t character) {
    const auto within = [character](char32_t first, char32_t last) {
        return character >= first && character <= last;
    };
    const bool control = (character < 0x20 && character != U'\t') || within(0x7F, 0x9F);
    const bool privateUse = within(0xE000, 0xF8FF) || character >= 0xF0000;
    const bool noCharacter = within(0xFDD0, 0xFDEF) || (character & 0xFFFE) == 0xFFFE;
    return control || privateUse || noCharacter;
}

/// "\x07", "\u{E000}".
std::string numberOf(char32_t character) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), character < 0x80 ? "\\x%02X" : "\\u{%04X}",
                  static_cast<unsigned>(character));
    return text.data();
}

} // namespace

ConsoleEdit ConsoleLines::feed(std::string_view text) {
    edit_ = {};
    firstLineOfEdit_ = true;
    while (!text.empty()) {
        takePlainText(text);
        if (!text.empty())
            put(takeCharacter(text));
    }
    emitLine();
    return std::exchange(edit_, {});
}

// Most output is plain text that goes on at a line's end: taken in one piece.
void ConsoleLines::takePlainText(std::string_view& text) {
    if (afterReturn_ || column_ != line_.size())
        return;
    const std::string_view room = text.substr(0, longestLine - column_);
    const auto end = std::find_if_not(room.begin(), room.end(), [](char c) { return c >= ' ' && c <= '~'; });
    line_.append(room.begin(), end);
    column_ = line_.size();
    text.remove_prefix(static_cast<std::size_t>(end - room.begin()));
}

void ConsoleLines::put(char32_t character) {
    const bool returned = std::exchange(afterReturn_, false);
    if (character == U'\n') {
        endLine();
        return;
    }
    if (returned) // only now is it known that the CR was none of CR LF
        column_ = 0;
    if (character == U'\r')
        afterReturn_ = true;
    else if (character == U'\b')
        column_ -= column_ > 0 ? 1 : 0;
    else if (isShownByNumber(character))
        for (const char c : numberOf(character))
            write(static_cast<char32_t>(c));
    else
        write(character);
}

void ConsoleLines::write(char32_t character) {
    if (column_ == longestLine)
        endLine();
    if (column_ == line_.size()) {
        line_ += character;
    } else {
        shownChanged_ = shownChanged_ || (column_ < shown_ && line_[column_] != character);
        line_[column_] = character;
    }
    ++column_;
}

void ConsoleLines::endLine() {
    emitLine();
    edit_.text += U'\n';
    firstLineOfEdit_ = false;
    line_.clear();
    column_ = 0;
    shown_ = 0;
}

void ConsoleLines::emitLine() {
    if (shownChanged_ && firstLineOfEdit_) {
        edit_.replacesLastLine = true;
        edit_.text += line_;
    } else {
        edit_.text.append(line_, shown_);
    }
    shown_ = line_.size();
    shownChanged_ = false;
}

} // namespace quillset
