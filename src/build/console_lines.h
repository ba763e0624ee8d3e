#pragma once

#include <string>
#include <string_view>

namespace quillset {

/// A change at the end of a text that shows console output: `text` is appended, or put in the place of the
/// last line.
struct ConsoleEdit {
    bool replacesLastLine = false;
    std::u32string text;

    bool operator==(const ConsoleEdit&) const = default;
};

/// Makes lines of console output: CR LF and LF end a line, CR alone returns to the line's start so that what
/// follows overwrites it (progress displays), a backspace goes one back. What has no look of its own
/// (control characters but the tab, private use) is shown by its number, "\x07": a view would show it as
/// nothing, or search all fonts of the system for it.
class ConsoleLines {
public:
    /// A longer line is broken: text views freeze on lines of megabytes.
    static constexpr std::size_t longestLine = 8192;

    /// `text` is valid UTF-8.
    [[nodiscard]] ConsoleEdit feed(std::string_view text);

private:
    void takePlainText(std::string_view& text);
    void put(char32_t character);
    void write(char32_t character);
    void endLine();
    void emitLine();

    std::u32string line_;
    std::size_t column_ = 0;
    /// Length of the line's beginning that has been handed out and not been changed since.
    std::size_t shown_ = 0;
    bool shownChanged_ = false;
    bool afterReturn_ = false;
    ConsoleEdit edit_;
    bool firstLineOfEdit_ = true;
};

} // namespace quillset
