#include "base/wide_path.h"

#include "base/paths.h"

namespace quillset {

std::wstring widePath(const std::string& path) {
    constexpr std::size_t longest = 240; // leaves room for the short name of a working copy
    std::error_code failed;
    std::filesystem::path absolute = std::filesystem::absolute(toPath(path), failed);
    if (failed)
        return toPath(path).wstring();
    const std::wstring wide = absolute.lexically_normal().make_preferred().wstring();
    if (wide.size() < longest || wide.starts_with(L"\\\\?\\"))
        return wide;
    return wide.starts_with(L"\\\\") ? L"\\\\?\\UNC" + wide.substr(1) : L"\\\\?\\" + wide;
}

} // namespace quillset
