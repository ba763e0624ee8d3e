#pragma once

#include <string_view>

namespace quillset {

/// Two paths of one file: by name, whatever the separators and the letter case, or by what the names lead to.
[[nodiscard]] bool sameFile(std::string_view a, std::string_view b);

} // namespace quillset
