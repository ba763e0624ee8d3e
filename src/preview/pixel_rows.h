#pragma once

#include "preview/little_endian.h"
#include "preview/texture_file.h"

#include <array>
#include <cstdint>
#include <optional>

namespace quillset {

/// Which bits of a pixel hold red, green and blue.
struct ChannelMasks {
    std::uint32_t red = 0;
    std::uint32_t green = 0;
    std::uint32_t blue = 0;

    bool operator==(const ChannelMasks&) const = default;
};

/// Uncompressed pixels in a file: `bits` is 8 (palette indices), 16, 24 or 32; rows begin `stride` bytes
/// apart and come in file order.
struct PixelRows {
    std::uint64_t offset = 0;
    std::uint64_t stride = 0;
    int width = 0;
    int height = 0;
    int bits = 0;
};

using Palette = std::array<std::array<std::uint8_t, 3>, 256>; // blue, green, red

/// Nothing when the file ends before the last pixel; sides must be positive and not above the largest one.
[[nodiscard]] std::optional<Picture> decodeIndexed(const LittleEndian& file, const PixelRows& rows,
                                                   const Palette& palette);
[[nodiscard]] std::optional<Picture> decodeMasked(const LittleEndian& file, const PixelRows& rows,
                                                  const ChannelMasks& masks);

/// Turns the order of the rows round.
void flipRows(Picture& picture);

} // namespace quillset
