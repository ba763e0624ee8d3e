#include "base/console_program.h"

#include "base/paths.h"

#include <algorithm>
#include <windows.h>

#include <shellapi.h>

namespace quillset {

namespace {

bool isUsable(HANDLE handle) {
    return handle != nullptr && handle != INVALID_HANDLE_VALUE && GetFileType(handle) != FILE_TYPE_UNKNOWN;
}

// A program with windows gets no standard output of its own unless it is redirected to a file or a pipe. Its
// words then go to the console from which it was started.
HANDLE outputHandle(ConsoleStream stream) {
    const HANDLE given = GetStdHandle(stream == ConsoleStream::error ? STD_ERROR_HANDLE : STD_OUTPUT_HANDLE);
    if (isUsable(given))
        return given;
    AttachConsole(ATTACH_PARENT_PROCESS); // fails when it is attached already: no matter
    static const HANDLE console =
        CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                    OPEN_EXISTING, 0, nullptr);
    return console;
}

} // namespace

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

void prepareConsole() {} // handles have no numbers that could be taken, and there are no signals

bool writeConsole(ConsoleStream stream, std::string_view utf8) {
    const HANDLE handle = outputHandle(stream);
    DWORD written = 0;
    DWORD mode = 0;
    if (utf8.empty() || !isUsable(handle))
        return utf8.empty();
    if (GetConsoleMode(handle, &mode) == 0) {
        while (!utf8.empty() &&
               WriteFile(handle, utf8.data(), static_cast<DWORD>(utf8.size()), &written, nullptr) != 0 &&
               written > 0)
            utf8.remove_prefix(written);
        return utf8.empty();
    }
    const int size = static_cast<int>(utf8.size());
    std::wstring wide(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), static_cast<int>(wide.size()));
    constexpr std::size_t piece = 8000; // older consoles refuse more than 64 KB at once
    for (std::size_t at = 0; at < wide.size(); at += piece)
        if (WriteConsoleW(handle, wide.data() + at, static_cast<DWORD>(std::min(piece, wide.size() - at)),
                          &written, nullptr) == 0)
            return false;
    return true;
}

} // namespace quillset
