#pragma once

#include "texture_maker/canvas.h"

#include <string_view>

namespace quillset {

/// A roof covering, seamless in both directions; on a slope the picture's upper edge is towards the ridge.
[[nodiscard]] Canvas paintRoofTexture(std::string_view fileName);

} // namespace quillset
