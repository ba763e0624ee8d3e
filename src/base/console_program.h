#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillset {

/// The words of this program's command line in UTF-8, without the program's own name.
[[nodiscard]] std::vector<std::string> programArguments(int count, char** arguments);

enum class ConsoleStream { output, error };

/// Writes UTF-8 at once: to a file or a pipe as it is, to a Windows console as characters.
void writeConsole(ConsoleStream stream, std::string_view utf8);

} // namespace quillset
