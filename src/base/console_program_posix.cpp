#include "base/console_program.h"

#include <cstdio>

namespace quillset {

std::vector<std::string> programArguments(int count, char** arguments) {
    if (count < 1)
        return {};
    return {arguments + 1, arguments + count};
}

void writeConsole(ConsoleStream stream, std::string_view utf8) {
    std::FILE* const file = stream == ConsoleStream::error ? stderr : stdout;
    std::fwrite(utf8.data(), 1, utf8.size(), file);
    std::fflush(file);
}

} // namespace quillset
