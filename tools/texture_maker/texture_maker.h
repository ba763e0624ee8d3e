#pragma once

#include "preview/texture_tables.h"

#include <string>
#include <string_view>

namespace quillset {

/// The file of one texture of a table, fitting its name; the same bytes every time and everywhere.
[[nodiscard]] std::string makeTexture(TextureTable table, std::string_view fileName);

} // namespace quillset
