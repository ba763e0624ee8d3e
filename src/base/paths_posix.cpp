#include "base/paths.h"

#include <system_error>

namespace quillset {

bool fileExists(std::string_view path) {
    std::error_code failed;
    return !path.empty() && std::filesystem::exists(toPath(path), failed) && !folderExists(path);
}

bool folderExists(std::string_view path) {
    std::error_code failed;
    return !path.empty() && std::filesystem::is_directory(toPath(path), failed);
}

} // namespace quillset
