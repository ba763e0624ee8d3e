#pragma once

#include <string>
#include <string_view>

namespace quillset {

/// Text for files that the command interpreter reads: the ANSI code page on Windows (characters that it lacks
/// become "?"), UTF-8 elsewhere.
[[nodiscard]] std::string toConsoleCodePage(std::string_view utf8);
/// UTF-8 of bytes that are no UTF-8: from the ANSI code page on Windows; elsewhere every byte beyond ASCII is
/// shown by its number, "\xE4".
[[nodiscard]] std::string fromConsoleCodePage(std::string_view bytes);

/// Makes UTF-8 of the pieces that a console program writes, whatever its encoding and wherever a piece ends.
/// What is valid UTF-8 is taken as such, everything else as the console's code page; nothing is lost.
class ConsoleTextDecoder {
public:
    /// The text of the next piece. The beginning of a character that may go on in the next piece is held
    /// back.
    [[nodiscard]] std::string decode(std::string_view piece);
    /// What was held back, when no more pieces come.
    [[nodiscard]] std::string finish();

private:
    std::string pending_;
};

} // namespace quillset
