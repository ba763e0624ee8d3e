#include "build/console_text.h"

#include <windows.h>

namespace quillset {

namespace {

// The system's ANSI code page. Not CP_ACP: this program's own is UTF-8, which its manifest asks for, while
// the command interpreter and the compiler go by the system's.
UINT systemCodePage() {
    UINT page = 0;
    const int done = GetLocaleInfoW(LOCALE_SYSTEM_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                                    reinterpret_cast<wchar_t*>(&page), sizeof page / sizeof(wchar_t));
    return done != 0 && page != 0 ? page : CP_ACP;
}

std::wstring wideText(std::string_view bytes, UINT codePage) {
    const int length = static_cast<int>(bytes.size());
    std::wstring wide(
        static_cast<std::size_t>(MultiByteToWideChar(codePage, 0, bytes.data(), length, nullptr, 0)), L'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), length, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string narrowText(const std::wstring& wide, UINT codePage) {
    const int length = static_cast<int>(wide.size());
    std::string bytes(static_cast<std::size_t>(WideCharToMultiByte(codePage, 0, wide.data(), length, nullptr,
                                                                   0, nullptr, nullptr)),
                      '\0');
    WideCharToMultiByte(codePage, 0, wide.data(), length, bytes.data(), static_cast<int>(bytes.size()),
                        nullptr, nullptr);
    return bytes;
}

} // namespace

std::string toConsoleCodePage(std::string_view utf8) {
    return utf8.empty() ? std::string() : narrowText(wideText(utf8, CP_UTF8), systemCodePage());
}

std::string fromConsoleCodePage(std::string_view bytes) {
    return bytes.empty() ? std::string() : narrowText(wideText(bytes, systemCodePage()), CP_UTF8);
}

} // namespace quillset
