#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillset {

/// A picture as OpenGL 1.1 takes it: three bytes a pixel (blue, green, red), rows bottom-up, no padding.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels;

    bool operator==(const Picture&) const = default;
};

inline constexpr int largestTextureSide = 4096;

/// Reads any texture form of the simulator, told apart by content, never by name:
/// - bitmaps of 8 bits with a palette, of 16 bits (565, 555, 4444 or other masks), of 24 and 32 bits, with or
///   without the simulator's 20-byte block before the pixels and smaller pictures after them;
/// - bitmaps whose pixels are DXT1, DXT3 or DXT5 blocks (bottom-up like all bitmaps);
/// - DirectDraw surfaces (DXT1, DXT3, DXT5 or masks; top-down);
/// - raw pictures of 256 x 256 palette indices, shown as greys: their palette is in another file.
/// Transparency is dropped. Nothing for anything else, for sides above 4096 and for files that end too soon.
/// Reserves memory only for a picture whose pixels are all there.
[[nodiscard]] std::optional<Picture> decodeTexture(std::string_view bytes);

/// The picture as a plain 24-bit Windows bitmap file.
[[nodiscard]] std::string encodeBitmap(const Picture& picture);

} // namespace quillset
