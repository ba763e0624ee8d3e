#include "base/console_program.h"

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace quillset {

std::vector<std::string> programArguments(int count, char** arguments) {
    if (count < 1)
        return {};
    return {arguments + 1, arguments + count};
}

void prepareConsole() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(stream, F_GETFD) < 0) // opened the wrong way round: using it must go on to fail
            (void)::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    std::signal(SIGPIPE, SIG_IGN);
}

bool writeConsole(ConsoleStream stream, std::string_view utf8) {
    std::FILE* const file = stream == ConsoleStream::error ? stderr : stdout;
    return std::fwrite(utf8.data(), 1, utf8.size(), file) == utf8.size() && std::fflush(file) == 0;
}

} // namespace quillset
