#include "base/paths.h"
#include "base/registry.h"

#include <windows.h>

namespace quillset {

namespace {

std::wstring wide(std::string_view utf8) {
    return toPath(utf8).wstring();
}

// The value in one of the two views that 64-bit Windows has of the registry.
std::wstring textInView(const std::wstring& key, const std::wstring& valueName, REGSAM view) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, key.c_str(), 0, KEY_READ | view, &opened) != ERROR_SUCCESS)
        return {};
    std::wstring text;
    DWORD type = 0;
    DWORD bytes = 0;
    LSTATUS status = RegQueryValueExW(opened, valueName.c_str(), nullptr, &type, nullptr, &bytes);
    if (status == ERROR_SUCCESS && (type == REG_SZ || type == REG_EXPAND_SZ)) {
        text.resize((bytes + 1) / sizeof(wchar_t));
        bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        status = RegQueryValueExW(opened, valueName.c_str(), nullptr, nullptr,
                                  reinterpret_cast<BYTE*>(text.data()), &bytes);
        text.resize(status == ERROR_SUCCESS ? bytes / sizeof(wchar_t) : 0);
    }
    RegCloseKey(opened);
    // The stored size may or may not count a terminating zero.
    return text.substr(0, text.find(L'\0'));
}

class WindowsRegistry : public Registry {
public:
    std::string text(std::string_view key, std::string_view valueName) const override {
        for (const REGSAM view : {REGSAM{KEY_WOW64_32KEY}, REGSAM{KEY_WOW64_64KEY}}) {
            const std::wstring found = textInView(wide(key), wide(valueName), view);
            if (!found.empty())
                return toText(std::filesystem::path(found));
        }
        return {};
    }
    std::string nativePath(std::string_view windowsPath) const override { return std::string(windowsPath); }
};

} // namespace

std::unique_ptr<Registry> systemRegistry() {
    return std::make_unique<WindowsRegistry>();
}

} // namespace quillset
