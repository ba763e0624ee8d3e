#pragma once

#include "texture_maker/canvas.h"

#include <string_view>

namespace quillset {

/// A facade of several floors, seamless in both directions.
[[nodiscard]] Canvas paintWindowTexture(std::string_view fileName);
/// Two storeys that close a building: the lower half a ground floor with its openings, the upper half one
/// with smaller ones under a cornice. Each is seamless to the sides.
[[nodiscard]] Canvas paintWallTexture(std::string_view fileName);

} // namespace quillset
