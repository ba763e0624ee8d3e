#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillset {

/// The words of a command line, by the quoting rules of C programs on Windows: blanks and tabs separate,
/// double quotes group, a backslash means itself except before a double quote (2n backslashes and a quote
/// give n backslashes and end or begin a group, 2n+1 give n and a literal quote). A missing closing quote
/// ends with the text.
[[nodiscard]] std::vector<std::string> splitCommandLine(std::string_view text);

/// The command line whose words are these; splitCommandLine gives them back unchanged.
[[nodiscard]] std::string commandLineText(const std::vector<std::string>& words);

} // namespace quillset
