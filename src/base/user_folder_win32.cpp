#include "base/paths.h"
#include "base/user_folder.h"

#include <cstdlib>

namespace quillset {

namespace {

std::string folderFrom(const wchar_t* variable) {
    const wchar_t* const value = _wgetenv(variable);
    return value != nullptr ? toText(std::filesystem::path(value)) : std::string();
}

} // namespace

std::string homeFolder() {
    return folderFrom(L"USERPROFILE");
}

std::string userDataFolder() {
    const std::string data = folderFrom(L"APPDATA");
    return joinPath(data.empty() ? homeFolder() : data, "Quillset XML");
}

} // namespace quillset
