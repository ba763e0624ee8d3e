#pragma once

#include "texture_maker/canvas.h"

#include <cstdint>
#include <string_view>

namespace quillset {

enum class Masonry { brick, plaster, ashlar, concrete, metal };
enum class Facade { windows, balconies, tallWindows, strip, curtain, mullions };

/// How the walls of one family of textures look.
struct WallLook {
    Masonry masonry = Masonry::plaster;
    Facade facade = Facade::windows;
    Rgb wall;
    Rgb joint;
    Rgb trim;
    Rgb glass;
    /// Windows across and floors up in 128 pixels.
    int bays = 8;
    int floors = 8;
};

enum class RoofPattern { shingles, membrane, clayTiles, standingSeam, plain, gravel, corrugated };

struct RoofLook {
    RoofPattern pattern = RoofPattern::plain;
    Rgb colour;
};

/// The look that a wall or window texture's name asks for: its series by the letters before the number, and
/// within a series something of its own for every number.
[[nodiscard]] WallLook wallLookOf(std::string_view fileName);
[[nodiscard]] RoofLook roofLookOf(std::string_view fileName);

/// The first number in a name, 1 when there is none.
[[nodiscard]] int numberIn(std::string_view fileName);
/// A seed that differs from name to name.
[[nodiscard]] std::uint32_t seedOf(std::string_view fileName);

} // namespace quillset
