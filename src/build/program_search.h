#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillset {

/// What separates the folders of a PATH text.
#ifdef _WIN32
inline constexpr char pathListSeparator = ';';
#else
inline constexpr char pathListSeparator = ':';
#endif

/// The folders of a PATH text; empty parts (which would mean the current folder) are dropped.
[[nodiscard]] std::vector<std::string> pathFolders(std::string_view searchPath);

/// A file that may be executed. A name with a separator is a path and only checked; another one is looked up
/// in the folders of `searchPath`, the first hit wins.
[[nodiscard]] std::optional<std::string> findProgram(std::string_view name, std::string_view searchPath);

} // namespace quillset
