#include "build/console_text.h"

#include <windows.h>

namespace quillset {

namespace {

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
    return utf8.empty() ? std::string() : narrowText(wideText(utf8, CP_UTF8), CP_ACP);
}

std::string fromConsoleCodePage(std::string_view bytes) {
    return bytes.empty() ? std::string() : narrowText(wideText(bytes, CP_ACP), CP_UTF8);
}

} // namespace quillset
