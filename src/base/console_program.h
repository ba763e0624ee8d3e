#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillset {

/// The words of this program's command line in UTF-8, without the program's own name.
[[nodiscard]] std::vector<std::string> programArguments(int count, char** arguments);

enum class ConsoleStream { output, error };

/// The first thing that a program for scripts does. A standard stream that the caller has closed stays so:
/// else the next file that is opened would take its place, and messages with it. A reader that has gone away
/// does not end the program in the middle of its work; writeConsole() tells.
void prepareConsole();

/// Writes UTF-8 at once: to a file or a pipe as it is, to a Windows console as characters. False when not all
/// of it was taken.
bool writeConsole(ConsoleStream stream, std::string_view utf8);

} // namespace quillset
