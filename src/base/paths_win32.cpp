#include "base/paths.h"
#include "base/wide_path.h"

#include <windows.h>

namespace quillset {

namespace {

// Not by the standard library: its functions refuse the form of a path that may be longer than 260
// characters.
DWORD attributesOf(std::string_view path) {
    return path.empty() ? INVALID_FILE_ATTRIBUTES : GetFileAttributesW(widePath(std::string(path)).c_str());
}

} // namespace

bool fileExists(std::string_view path) {
    const DWORD attributes = attributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool folderExists(std::string_view path) {
    const DWORD attributes = attributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

} // namespace quillset
