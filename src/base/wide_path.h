#pragma once

#include <string>

namespace quillset {

/// Windows only: a path for the system's wide-character functions, absolute, and in the form that is not
/// limited to 260 characters when it is long.
[[nodiscard]] std::wstring widePath(const std::string& path);

} // namespace quillset
