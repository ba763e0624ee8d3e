#pragma once

#include <cstddef>
#include <string>

namespace quillset::bench {

/// A scenery document of that many placements, as the bytes that a save writes before the tags go on lines of
/// their own: of ten placements seven are library objects, two are generic buildings (the three kinds in
/// turn) and one is an effect; each follows its comment. The same count gives the same bytes.
[[nodiscard]] std::string sceneryOf(std::size_t placements);

} // namespace quillset::bench
