#pragma once

#include <string>

namespace quillset {

/// The manual's tables of all menu commands with their keys, as Markdown, made from the program's own table.
[[nodiscard]] std::string shortcutList();

} // namespace quillset
