#include "base/same_file.h"

#include "base/paths.h"

#include <system_error>

namespace quillset {

bool sameFile(std::string_view a, std::string_view b) {
    const auto plain = [](std::string_view path) {
        return toText(toPath(path).lexically_normal().make_preferred());
    };
    std::error_code failed; // a missing file is no one's equal
    return sameIgnoringCase(plain(a), plain(b)) || std::filesystem::equivalent(toPath(a), toPath(b), failed);
}

} // namespace quillset
