#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

namespace quillset {

/// The simulator's three sets of generic building textures. A wall file holds two textures, one in each half.
enum class TextureTable { wall, window, roof };

inline constexpr std::array textureTables{TextureTable::wall, TextureTable::window, TextureTable::roof};

/// The file names of a table: 39 walls, 81 windows, 34 roofs. Their order is what texture codes count by.
[[nodiscard]] std::span<const std::string_view> textureFiles(TextureTable table);

/// Which part of its file a texture is.
enum class TexturePart { whole, lowerHalf, upperHalf };

/// A texture of the tables.
struct TexturePlace {
    TextureTable table = TextureTable::wall;
    int index = 0;
    TexturePart part = TexturePart::whole;

    bool operator==(const TexturePlace&) const = default;
};

struct PlainColour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    bool operator==(const PlainColour&) const = default;
};

/// What covers a face.
using Surface = std::variant<PlainColour, TexturePlace>;

/// Stands in for a code that no table knows: other tools write codes that are newer than these tables.
inline constexpr PlainColour neutralColour{176, 176, 176};

/// The surface that a texture code of a building means: the first codes are plain colours, the rest files of
/// the table. Nothing (no readable code) and unknown codes give the neutral colour.
[[nodiscard]] Surface surfaceOf(TextureTable table, std::optional<int> code);

} // namespace quillset
