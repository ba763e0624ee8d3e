#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace quillset {

struct Rgb {
    int red = 0;
    int green = 0;
    int blue = 0;
};

/// One of the colours of a canvas, with its shades.
using Material = int;

/// A rectangle in pixels; y counts upwards from the lower edge.
struct PixelRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

/// A number between 0 and 255 that looks random, always the same for the same arguments.
[[nodiscard]] int noiseAt(int x, int y, std::uint32_t seed);
/// The same, varying smoothly over `grain` pixels (a power of two), and seamless over 128 pixels.
[[nodiscard]] int smoothNoiseAt(int x, int y, int grain, std::uint32_t seed);

/// A picture of 128 x 128 pixels with up to eight materials in 32 shades each, which make up its palette.
/// Whatever is painted beyond an edge comes in again at the opposite one, so that the picture repeats
/// without a seam.
class Canvas {
public:
    static constexpr int side = 128;
    static constexpr int shades = 32;
    /// The shade that shows a material in its own colour; lower ones are darker.
    static constexpr int plain = 20;

    Canvas()
        : pixels_(std::size_t{side} * side) {}

    Material addMaterial(Rgb colour);
    void set(int x, int y, Material material, int shade);
    void fill(const PixelRect& rect, Material material, int shade = plain);
    /// Makes what is there lighter or darker without changing its material.
    void shadeBy(const PixelRect& rect, int by);

    /// The picture as the simulator stores its own: a bitmap of 8 bits with a palette, followed by smaller
    /// pictures, each half the size of the one before.
    [[nodiscard]] std::string encode() const;

private:
    [[nodiscard]] std::uint8_t& at(int x, int y);

    std::vector<std::uint8_t> pixels_;
    std::array<Rgb, 256> palette_{};
    int materials_ = 0;
};

} // namespace quillset
