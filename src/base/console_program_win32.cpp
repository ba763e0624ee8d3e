#include "base/console_program.h"

#include "base/paths.h"

#include <cstdio>
#include <windows.h>

#include <shellapi.h>

namespace quillset {

// The narrow arguments of main() hold question marks for characters that the ANSI code page lacks.
std::vector<std::string> programArguments(int, char**) {
    int count = 0;
    LPWSTR* const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; words != nullptr && i < count; ++i)
        arguments.push_back(toText(std::filesystem::path(words[i])));
    LocalFree(words);
    return arguments;
}

void writeConsole(ConsoleStream stream, std::string_view utf8) {
    const HANDLE handle = GetStdHandle(stream == ConsoleStream::error ? STD_ERROR_HANDLE : STD_OUTPUT_HANDLE);
    DWORD mode = 0;
    if (utf8.empty() || GetConsoleMode(handle, &mode) == 0) {
        std::FILE* const file = stream == ConsoleStream::error ? stderr : stdout;
        std::fwrite(utf8.data(), 1, utf8.size(), file);
        std::fflush(file);
        return;
    }
    const int size = static_cast<int>(utf8.size());
    std::wstring wide(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), static_cast<int>(wide.size()));
    WriteConsoleW(handle, wide.data(), static_cast<DWORD>(wide.size()), nullptr, nullptr);
}

} // namespace quillset
