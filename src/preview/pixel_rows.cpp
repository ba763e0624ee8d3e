#include "preview/pixel_rows.h"

#include <algorithm>
#include <bit>

namespace quillset {

namespace {

constexpr ChannelMasks bytesInOrder{0xFF0000, 0x00FF00, 0x0000FF};

/// Takes one channel out of a pixel and widens it to 8 bits.
class Channel {
public:
    explicit Channel(std::uint32_t mask)
        : mask_(mask)
        , shift_(mask == 0 ? 0 : std::countr_zero(mask))
        , largest_(mask >> shift_) {}

    [[nodiscard]] std::uint8_t of(std::uint32_t pixel) const {
        if (largest_ == 0)
            return 0;
        const std::uint64_t value = (pixel & mask_) >> shift_;
        return static_cast<std::uint8_t>((value * 255 + largest_ / 2) / largest_);
    }

private:
    std::uint32_t mask_;
    int shift_;
    std::uint32_t largest_;
};

bool allThere(const LittleEndian& file, const PixelRows& rows) {
    const std::uint64_t rowBytes =
        (static_cast<std::uint64_t>(rows.width) * static_cast<unsigned>(rows.bits)) / 8;
    // The last row may lack its padding.
    return file.has(rows.offset, rows.stride * static_cast<std::uint64_t>(rows.height - 1) + rowBytes);
}

Picture emptyPicture(const PixelRows& rows) {
    Picture picture{rows.width, rows.height, {}};
    picture.pixels.resize(static_cast<std::size_t>(rows.width) * static_cast<std::size_t>(rows.height) * 3);
    return picture;
}

std::uint32_t pixelAt(const LittleEndian& file, std::uint64_t offset, std::uint64_t bytes) {
    if (bytes == 2)
        return file.u16(offset);
    return file.u16(offset) | (static_cast<std::uint32_t>(file.u8(offset + 2)) << 16) |
           (bytes == 4 ? static_cast<std::uint32_t>(file.u8(offset + 3)) << 24 : 0U);
}

// The temporary bitmaps of the texture loader come by here: nothing to convert.
Picture copied(const LittleEndian& file, const PixelRows& rows) {
    Picture picture = emptyPicture(rows);
    const auto rowBytes = static_cast<std::size_t>(rows.width) * 3;
    auto out = picture.pixels.begin();
    for (int y = 0; y < rows.height; ++y) {
        const std::string_view row =
            file.bytes(rows.offset + rows.stride * static_cast<std::uint64_t>(y), rowBytes);
        out = std::copy(row.begin(), row.end(), out);
    }
    return picture;
}

} // namespace

std::optional<Picture> decodeIndexed(const LittleEndian& file, const PixelRows& rows,
                                     const Palette& palette) {
    if (!allThere(file, rows))
        return std::nullopt;
    Picture picture = emptyPicture(rows);
    auto out = picture.pixels.begin();
    for (int y = 0; y < rows.height; ++y) {
        const std::string_view row = file.bytes(rows.offset + rows.stride * static_cast<std::uint64_t>(y),
                                                static_cast<std::uint64_t>(rows.width));
        for (const char index : row) {
            const auto& colour = palette[static_cast<std::uint8_t>(index)];
            out = std::copy(colour.begin(), colour.end(), out);
        }
    }
    return picture;
}

std::optional<Picture> decodeMasked(const LittleEndian& file, const PixelRows& rows,
                                    const ChannelMasks& masks) {
    if (!allThere(file, rows))
        return std::nullopt;
    if (rows.bits == 24 && masks == bytesInOrder)
        return copied(file, rows);
    const std::array<Channel, 3> channels{Channel(masks.blue), Channel(masks.green), Channel(masks.red)};
    const auto bytes = static_cast<std::uint64_t>(rows.bits / 8);
    Picture picture = emptyPicture(rows);
    auto out = picture.pixels.begin();
    for (int y = 0; y < rows.height; ++y) {
        const std::uint64_t row = rows.offset + rows.stride * static_cast<std::uint64_t>(y);
        for (int x = 0; x < rows.width; ++x) {
            const std::uint32_t pixel = pixelAt(file, row + bytes * static_cast<std::uint64_t>(x), bytes);
            for (const Channel& channel : channels)
                *out++ = channel.of(pixel);
        }
    }
    return picture;
}

void flipRows(Picture& picture) {
    const auto rowBytes = static_cast<std::ptrdiff_t>(picture.width) * 3;
    auto upper = picture.pixels.begin();
    auto lower = picture.pixels.end() - rowBytes;
    for (int y = 0; y < picture.height / 2; ++y, upper += rowBytes, lower -= rowBytes)
        std::swap_ranges(upper, upper + rowBytes, lower);
}

} // namespace quillset
