#include "preview/dxt_blocks.h"

#include <algorithm>
#include <array>

namespace quillset {

namespace {

using Colour = std::array<std::uint8_t, 3>; // blue, green, red

constexpr int blockSide = 4;

constexpr std::uint32_t codeOf(char last) {
    return std::uint32_t{'D'} | (std::uint32_t{'X'} << 8) | (std::uint32_t{'T'} << 16) |
           (static_cast<std::uint32_t>(last) << 24);
}

std::uint8_t widened(unsigned value, unsigned largest) {
    return static_cast<std::uint8_t>((value * 255 + largest / 2) / largest);
}

Colour colourOf(unsigned bits565) {
    return {widened(bits565 & 31, 31), widened((bits565 >> 5) & 63, 63), widened(bits565 >> 11, 31)};
}

Colour mixed(const Colour& a, unsigned parts, const Colour& b, unsigned partsOfB) {
    Colour out{};
    for (std::size_t i = 0; i < out.size(); ++i)
        out[i] = static_cast<std::uint8_t>((a[i] * parts + b[i] * partsOfB) / (parts + partsOfB));
    return out;
}

std::array<Colour, 4> paletteOf(unsigned first, unsigned second, DxtKind kind) {
    const Colour a = colourOf(first);
    const Colour b = colourOf(second);
    // Only DXT1 uses the order of the two colours to say that the block has three colours and a hole.
    if (kind == DxtKind::dxt1 && first <= second)
        return {a, b, mixed(a, 1, b, 1), Colour{}};
    return {a, b, mixed(a, 2, b, 1), mixed(a, 1, b, 2)};
}

void decodeBlock(const LittleEndian& file, std::uint64_t colours, DxtKind kind, int left, int row,
                 Picture& picture) {
    const auto palette = paletteOf(file.u16(colours), file.u16(colours + 2), kind);
    const std::uint32_t indices = file.u32(colours + 4);
    const int columns = std::min(blockSide, picture.width - left);
    const int rows = std::min(blockSide, picture.height - row);
    for (int y = 0; y < rows; ++y) {
        std::size_t out = (static_cast<std::size_t>(row + y) * static_cast<std::size_t>(picture.width) +
                           static_cast<std::size_t>(left)) *
                          3;
        for (int x = 0; x < columns; ++x) {
            const Colour& colour = palette[(indices >> (2 * (y * blockSide + x))) & 3];
            for (const std::uint8_t channel : colour)
                picture.pixels[out++] = channel;
        }
    }
}

} // namespace

std::optional<DxtKind> dxtKindOf(std::uint32_t fourCharacters) {
    switch (fourCharacters) {
    case codeOf('1'):
        return DxtKind::dxt1;
    case codeOf('3'):
        return DxtKind::dxt3;
    case codeOf('5'):
        return DxtKind::dxt5;
    default:
        return std::nullopt;
    }
}

std::optional<Picture> decodeDxt(const LittleEndian& file, std::uint64_t offset, DxtKind kind, int width,
                                 int height) {
    const std::uint64_t blockBytes = kind == DxtKind::dxt1 ? 8 : 16;
    const std::uint64_t coloursInBlock = blockBytes - 8;
    const auto across = static_cast<std::uint64_t>((width + blockSide - 1) / blockSide);
    const auto down = static_cast<std::uint64_t>((height + blockSide - 1) / blockSide);
    if (!file.has(offset, across * down * blockBytes))
        return std::nullopt;
    Picture picture{width, height, {}};
    picture.pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3);
    std::uint64_t block = offset + coloursInBlock;
    for (int row = 0; row < height; row += blockSide)
        for (int left = 0; left < width; left += blockSide, block += blockBytes)
            decodeBlock(file, block, kind, left, row, picture);
    return picture;
}

} // namespace quillset
