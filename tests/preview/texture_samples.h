#pragma once

#include "preview/texture_file.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

namespace quillset::test {

inline std::string le16(std::uint32_t value) {
    return {static_cast<char>(value & 0xFF), static_cast<char>((value >> 8) & 0xFF)};
}
inline std::string le32(std::uint32_t value) {
    return le16(value & 0xFFFF) + le16(value >> 16);
}
inline std::string bytesOf(std::initializer_list<int> values) {
    std::string out;
    for (const int value : values)
        out.push_back(static_cast<char>(value));
    return out;
}

inline constexpr std::uint32_t dxt1 = 0x31545844;
inline constexpr std::uint32_t dxt3 = 0x33545844;
inline constexpr std::uint32_t dxt5 = 0x35545844;

/// Both headers of a bitmap; `between` is what stands between them and the pixels.
inline std::string bitmap(std::int32_t width, std::int32_t height, std::uint32_t bits,
                          std::uint32_t compression, const std::string& between, const std::string& pixels,
                          std::uint32_t colours = 0) {
    return "BM" + le32(0) + le32(0) + le32(static_cast<std::uint32_t>(54 + between.size())) + le32(40) +
           le32(static_cast<std::uint32_t>(width)) + le32(static_cast<std::uint32_t>(height)) + le16(1) +
           le16(bits) + le32(compression) + le32(0) + le32(0) + le32(0) + le32(colours) + le32(0) + between +
           pixels;
}

/// The simulator's own block before the pixels of an extended bitmap.
inline std::string extendedBlock(std::uint32_t flags, std::uint32_t levels) {
    return "FS70" + le32(20) + le32(flags) + le16(0) + le16(levels) + le32(0);
}

inline std::string masks(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    return le32(red) + le32(green) + le32(blue);
}

/// A DirectDraw surface.
inline std::string surface(std::uint32_t width, std::uint32_t height, std::uint32_t fourCharacters,
                           std::uint32_t bits, const std::string& channelMasks, const std::string& pixels) {
    std::string out = "DDS " + le32(124) + le32(0x1007) + le32(height) + le32(width);
    out.resize(76, '\0');
    out += le32(32) + le32(fourCharacters == 0 ? 0x40 : 4) + le32(fourCharacters) + le32(bits) + channelMasks;
    out.resize(128, '\0');
    return out + pixels;
}

/// One block: two colours (565) and four rows of 2-bit indices, the first row in the lowest byte.
inline std::string dxtBlock(std::uint32_t first, std::uint32_t second, std::initializer_list<int> rows) {
    return le16(first) + le16(second) + bytesOf(rows);
}

/// A file of one kind and the picture that it holds; `complete` bytes suffice to read it.
struct TextureSample {
    std::string name;
    std::string bytes;
    Picture picture;
    std::size_t complete = 0;
};

/// One small file of every kind.
[[nodiscard]] std::vector<TextureSample> textureSamples();

} // namespace quillset::test
