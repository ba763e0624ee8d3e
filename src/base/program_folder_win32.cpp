#include "base/paths.h"
#include "base/program_folder.h"

#include <windows.h>

namespace quillset {

std::string executableFolder() {
    std::wstring name(32768, L'\0'); // the longest path there is
    const DWORD length = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    name.resize(length);
    return toText(std::filesystem::path(name).parent_path());
}

} // namespace quillset
