#include "preview/texture_file.h"

#include "preview/dxt_blocks.h"
#include "preview/little_endian.h"
#include "preview/pixel_rows.h"

#include <algorithm>

namespace quillset {

namespace {

// Windows bitmap: a file header of 14 bytes, an information header of 40 or more, masks or palette, perhaps
// the simulator's own 20-byte block, the pixels. Only the offset in the file header says where those begin.
constexpr std::uint64_t fileHeaderBytes = 14;
constexpr std::uint32_t infoHeaderBytes = 40;
constexpr std::uint64_t masksOffset = fileHeaderBytes + infoHeaderBytes;
constexpr std::uint32_t compressionNone = 0;
constexpr std::uint32_t compressionMasks = 3;

constexpr std::string_view ddsMagic = "DDS ";
constexpr std::uint64_t ddsDataOffset = 128;

constexpr int rawSide = 256;

constexpr ChannelMasks masks555{0x7C00, 0x03E0, 0x001F};
constexpr ChannelMasks masks888{0xFF0000, 0x00FF00, 0x0000FF};

struct Header {
    std::uint64_t pixels = 0;
    int width = 0;
    int height = 0;
    bool topDown = false;
    int bits = 0;
    std::uint32_t compression = 0;
};

bool sidesAreSensible(std::int64_t width, std::int64_t height) {
    return width >= 1 && width <= largestTextureSide && height >= 1 && height <= largestTextureSide;
}

std::optional<Header> readBitmapHeader(const LittleEndian& file) {
    if (!file.has(0, fileHeaderBytes + infoHeaderBytes) || file.u32(fileHeaderBytes) < infoHeaderBytes)
        return std::nullopt;
    const std::int64_t width = file.i32(18);
    const std::int64_t height = file.i32(22);
    if (!sidesAreSensible(width, height < 0 ? -height : height))
        return std::nullopt;
    return Header{file.u32(10),
                  static_cast<int>(width),
                  static_cast<int>(height < 0 ? -height : height),
                  height < 0,
                  file.u16(28),
                  file.u32(30)};
}

// Entries beyond the file read as black, but only pixels that use them would show it.
Palette readPalette(const LittleEndian& file) {
    const std::uint32_t named = file.u32(46);
    const std::size_t count = named == 0 || named > 256 ? 256 : named;
    const std::uint64_t begin = fileHeaderBytes + file.u32(fileHeaderBytes);
    Palette palette{};
    for (std::size_t i = 0; i < count; ++i)
        palette[i] = {file.u8(begin + i * 4), file.u8(begin + i * 4 + 1), file.u8(begin + i * 4 + 2)};
    return palette;
}

std::optional<ChannelMasks> masksOf(const LittleEndian& file, const Header& header) {
    if (header.compression == compressionMasks && header.bits != 24)
        return ChannelMasks{file.u32(masksOffset), file.u32(masksOffset + 4), file.u32(masksOffset + 8)};
    if (header.compression != compressionNone)
        return std::nullopt;
    return header.bits == 16 ? masks555 : masks888;
}

std::optional<Picture> decodeBitmapPixels(const LittleEndian& file, const Header& header) {
    if (const std::optional<DxtKind> kind = dxtKindOf(header.compression))
        return decodeDxt(file, header.pixels, *kind, header.width, header.height);
    const std::uint64_t rowBits =
        static_cast<std::uint64_t>(header.width) * static_cast<unsigned>(header.bits);
    const PixelRows rows{header.pixels, (rowBits + 31) / 32 * 4, header.width, header.height, header.bits};
    if (header.bits == 8 && header.compression == compressionNone)
        return decodeIndexed(file, rows, readPalette(file));
    if (header.bits != 16 && header.bits != 24 && header.bits != 32)
        return std::nullopt;
    const std::optional<ChannelMasks> masks = masksOf(file, header);
    return masks ? decodeMasked(file, rows, *masks) : std::nullopt;
}

std::optional<Picture> decodeBitmap(const LittleEndian& file) {
    const std::optional<Header> header = readBitmapHeader(file);
    if (!header || header->pixels < fileHeaderBytes + infoHeaderBytes)
        return std::nullopt;
    std::optional<Picture> picture = decodeBitmapPixels(file, *header);
    if (picture && header->topDown)
        flipRows(*picture);
    return picture;
}

std::optional<Picture> decodeSurface(const LittleEndian& file) {
    if (!file.has(0, ddsDataOffset) || !sidesAreSensible(file.i32(16), file.i32(12)))
        return std::nullopt;
    const int width = file.i32(16);
    const int height = file.i32(12);
    const std::uint32_t bits = file.u32(88);
    std::optional<Picture> picture;
    if (const std::optional<DxtKind> kind = dxtKindOf(file.u32(84)))
        picture = decodeDxt(file, ddsDataOffset, *kind, width, height);
    else if (bits == 16 || bits == 24 || bits == 32)
        picture = decodeMasked(file,
                               {ddsDataOffset, static_cast<std::uint64_t>(width) * bits / 8, width, height,
                                static_cast<int>(bits)},
                               {file.u32(92), file.u32(96), file.u32(100)});
    if (picture)
        flipRows(*picture);
    return picture;
}

std::optional<Picture> decodeRaw(const LittleEndian& file) {
    Palette greys{};
    for (std::size_t i = 0; i < greys.size(); ++i)
        greys[i].fill(static_cast<std::uint8_t>(i));
    std::optional<Picture> picture = decodeIndexed(file, {0, rawSide, rawSide, rawSide, 8}, greys);
    // The row order of raw pictures has no witness; top-down is usual for pictures without a header.
    if (picture)
        flipRows(*picture);
    return picture;
}

} // namespace

std::optional<Picture> decodeTexture(std::string_view bytes) {
    const LittleEndian file(bytes);
    if (bytes.starts_with(ddsMagic))
        return decodeSurface(file);
    if (bytes.starts_with("BM"))
        return decodeBitmap(file);
    if (bytes.size() == static_cast<std::size_t>(rawSide) * rawSide)
        return decodeRaw(file);
    return std::nullopt;
}

std::string encodeBitmap(const Picture& picture) {
    const auto rowBytes = static_cast<std::size_t>(picture.width) * 3;
    const std::size_t padding = (4 - rowBytes % 4) % 4;
    const auto imageBytes =
        static_cast<std::uint32_t>((rowBytes + padding) * static_cast<std::size_t>(picture.height));
    constexpr auto headerBytes = static_cast<std::uint32_t>(masksOffset);
    std::string out = "BM";
    out.reserve(headerBytes + imageBytes);
    append32(out, headerBytes + imageBytes);
    append32(out, 0);
    append32(out, headerBytes);
    append32(out, infoHeaderBytes);
    append32(out, static_cast<std::uint32_t>(picture.width));
    append32(out, static_cast<std::uint32_t>(picture.height));
    append16(out, 1);
    append16(out, 24);
    append32(out, compressionNone);
    append32(out, imageBytes);
    out.append(16, '\0');
    for (int y = 0; y < picture.height; ++y) {
        const auto row = picture.pixels.begin() + static_cast<std::ptrdiff_t>(rowBytes) * y;
        out.append(row, row + static_cast<std::ptrdiff_t>(rowBytes));
        out.append(padding, '\0');
    }
    return out;
}

} // namespace quillset
