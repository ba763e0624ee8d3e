#include "texture_maker/canvas.h"

#include "preview/little_endian.h"

#include <algorithm>
#include <limits>

namespace quillset {

namespace {

constexpr int wrap = Canvas::side - 1;

int squaredDistance(const Rgb& a, const Rgb& b) {
    const int red = a.red - b.red;
    const int green = a.green - b.green;
    const int blue = a.blue - b.blue;
    return red * red + green * green + blue * blue;
}

std::uint8_t nearest(const std::array<Rgb, 256>& palette, int used, const Rgb& colour) {
    int best = 0;
    int distance = std::numeric_limits<int>::max();
    for (int i = 0; i < used; ++i) {
        const int candidate = squaredDistance(palette[static_cast<std::size_t>(i)], colour);
        if (candidate < distance) {
            distance = candidate;
            best = i;
        }
    }
    return static_cast<std::uint8_t>(best);
}

std::vector<std::uint8_t> halved(const std::vector<std::uint8_t>& pixels, std::size_t side,
                                 const std::array<Rgb, 256>& palette, int used) {
    std::vector<std::uint8_t> out;
    for (std::size_t y = 0; y < side; y += 2) {
        for (std::size_t x = 0; x < side; x += 2) {
            Rgb sum;
            for (const std::size_t i :
                 {y * side + x, y * side + x + 1, (y + 1) * side + x, (y + 1) * side + x + 1}) {
                const Rgb& colour = palette[pixels[i]];
                sum = {sum.red + colour.red, sum.green + colour.green, sum.blue + colour.blue};
            }
            out.push_back(nearest(palette, used, {sum.red / 4, sum.green / 4, sum.blue / 4}));
        }
    }
    return out;
}

std::string headers() {
    constexpr std::uint32_t headerBytes = 54;
    constexpr std::uint32_t paletteBytes = 1024;
    std::string out = "BM";
    append32(out, 0);
    append32(out, 0);
    append32(out, headerBytes + paletteBytes);
    append32(out, 40);
    append32(out, Canvas::side);
    append32(out, Canvas::side);
    append16(out, 1);
    append16(out, 8);
    append32(out, 0);
    append32(out, Canvas::side * Canvas::side);
    out.append(16, '\0');
    return out;
}

} // namespace

int noiseAt(int x, int y, std::uint32_t seed) {
    std::uint32_t value = seed;
    for (const int part : {x, y}) {
        value ^= static_cast<std::uint32_t>(part);
        value *= 0x9E3779B1U;
        value ^= value >> 15;
        value *= 0x85EBCA77U;
        value ^= value >> 13;
    }
    return static_cast<int>(value >> 24);
}

int smoothNoiseAt(int x, int y, int grain, std::uint32_t seed) {
    const int left = (x & wrap) / grain;
    const int low = (y & wrap) / grain;
    const int right = ((left + 1) * grain & wrap) / grain;
    const int high = ((low + 1) * grain & wrap) / grain;
    const int tx = (x & wrap) % grain;
    const int ty = (y & wrap) % grain;
    const int below = noiseAt(left, low, seed) * (grain - tx) + noiseAt(right, low, seed) * tx;
    const int above = noiseAt(left, high, seed) * (grain - tx) + noiseAt(right, high, seed) * tx;
    return (below * (grain - ty) + above * ty) / (grain * grain);
}

Material Canvas::addMaterial(Rgb colour) {
    const auto shaded = [](int channel, int shade) {
        return std::min(channel * (96 + 8 * shade) / 256, 255);
    };
    for (int shade = 0; shade < shades; ++shade)
        palette_[static_cast<std::size_t>(materials_ * shades + shade)] = {
            shaded(colour.red, shade), shaded(colour.green, shade), shaded(colour.blue, shade)};
    return materials_++;
}

std::uint8_t& Canvas::at(int x, int y) {
    return pixels_[static_cast<std::size_t>((y & wrap) * side + (x & wrap))];
}

void Canvas::set(int x, int y, Material material, int shade) {
    at(x, y) = static_cast<std::uint8_t>(material * shades + std::clamp(shade, 0, shades - 1));
}

void Canvas::fill(const PixelRect& rect, Material material, int shade) {
    for (int y = rect.y; y < rect.y + rect.height; ++y)
        for (int x = rect.x; x < rect.x + rect.width; ++x)
            set(x, y, material, shade);
}

void Canvas::shadeBy(const PixelRect& rect, int by) {
    for (int y = rect.y; y < rect.y + rect.height; ++y)
        for (int x = rect.x; x < rect.x + rect.width; ++x)
            set(x, y, at(x, y) / shades, at(x, y) % shades + by);
}

std::string Canvas::encode() const {
    std::string out = headers();
    for (const Rgb& colour : palette_) {
        for (const int channel : {colour.blue, colour.green, colour.red, 255})
            out.push_back(static_cast<char>(channel));
    }
    std::vector<std::uint8_t> picture = pixels_;
    for (std::size_t size = side; size >= 1; size /= 2) {
        out.append(picture.begin(), picture.end());
        if (size > 1)
            picture = halved(picture, size, palette_, materials_ * shades);
    }
    return out;
}

} // namespace quillset
