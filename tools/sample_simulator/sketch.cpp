#include "sample_simulator/sketch.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillset {

namespace {

void append32(std::string& out, std::uint32_t value) {
    for (int shift = 0; shift < 32; shift += 8)
        out.push_back(static_cast<char>(value >> shift & 0xFF));
}

std::uint8_t between(std::uint8_t low, std::uint8_t high, int step, int steps) {
    return static_cast<std::uint8_t>((low * (steps - step) + high * step) / steps);
}

// On which side of the line from a to b the spot lies.
double sideOf(const Spot& a, const Spot& b, const Spot& spot) {
    return (b.x - a.x) * (spot.y - a.y) - (b.y - a.y) * (spot.x - a.x);
}

// Crossing number of the ray to the right.
bool isInside(const std::vector<Spot>& corners, const Spot& spot) {
    bool inside = false;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Spot& a = corners[i];
        const Spot& b = corners[(i + 1) % corners.size()];
        if ((a.y > spot.y) == (b.y > spot.y))
            continue;
        if ((sideOf(a, b, spot) > 0) == (b.y > a.y))
            inside = !inside;
    }
    return inside;
}

} // namespace

Sketch::Sketch(Ink below, Ink above) {
    pixels_.reserve(std::size_t{drawnSide} * drawnSide);
    for (int y = 0; y < drawnSide; ++y)
        pixels_.insert(pixels_.end(), drawnSide,
                       {between(below.red, above.red, y, drawnSide),
                        between(below.green, above.green, y, drawnSide),
                        between(below.blue, above.blue, y, drawnSide)});
}

template <class Inside>
void Sketch::paint(Spot lowerLeft, Spot upperRight, Ink ink, Inside inside) {
    const auto pixel = [](double percent) {
        return std::clamp(static_cast<int>(std::floor(percent * drawnSide / 100)), 0, drawnSide - 1);
    };
    for (int y = pixel(lowerLeft.y); y <= pixel(upperRight.y); ++y)
        for (int x = pixel(lowerLeft.x); x <= pixel(upperRight.x); ++x)
            if (inside(Spot{(x + 0.5) * 100 / drawnSide, (y + 0.5) * 100 / drawnSide}))
                pixels_[static_cast<std::size_t>(y * drawnSide + x)] = ink;
}

void Sketch::polygon(std::initializer_list<Spot> corners, Ink ink) {
    Spot low = *corners.begin();
    Spot high = low;
    for (const Spot& corner : corners) {
        low = {std::min(low.x, corner.x), std::min(low.y, corner.y)};
        high = {std::max(high.x, corner.x), std::max(high.y, corner.y)};
    }
    paint(low, high, ink,
          [path = std::vector<Spot>(corners)](const Spot& spot) { return isInside(path, spot); });
}

void Sketch::rectangle(Spot lowerLeft, Spot upperRight, Ink ink) {
    polygon({lowerLeft, {upperRight.x, lowerLeft.y}, upperRight, {lowerLeft.x, upperRight.y}}, ink);
}

void Sketch::disc(Spot centre, double radius, Ink ink) {
    paint({centre.x - radius, centre.y - radius}, {centre.x + radius, centre.y + radius}, ink,
          [&](const Spot& spot) { return std::hypot(spot.x - centre.x, spot.y - centre.y) <= radius; });
}

void Sketch::line(Spot from, Spot to, double width, Ink ink) {
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    const Spot across{-(to.y - from.y) / length * width / 2, (to.x - from.x) / length * width / 2};
    polygon({{from.x + across.x, from.y + across.y},
             {to.x + across.x, to.y + across.y},
             {to.x - across.x, to.y - across.y},
             {from.x - across.x, from.y - across.y}},
            ink);
}

Ink Sketch::averaged(int x, int y) const {
    int red = 0;
    int green = 0;
    int blue = 0;
    for (int row = y * scale; row < (y + 1) * scale; ++row) {
        for (int column = x * scale; column < (x + 1) * scale; ++column) {
            const Ink& ink = pixels_[static_cast<std::size_t>(row * drawnSide + column)];
            red += ink.red;
            green += ink.green;
            blue += ink.blue;
        }
    }
    constexpr int count = scale * scale;
    return {static_cast<std::uint8_t>(red / count), static_cast<std::uint8_t>(green / count),
            static_cast<std::uint8_t>(blue / count)};
}

std::string Sketch::bitmap() const {
    static_assert(side % 4 == 0, "rows of the file are padded to 4 bytes");
    constexpr std::uint32_t headerBytes = 54;
    constexpr std::uint32_t pixelBytes = std::uint32_t{side} * side * 3;
    std::string out = "BM";
    for (const std::uint32_t value : {headerBytes + pixelBytes, 0U, headerBytes, 40U, std::uint32_t{side},
                                      std::uint32_t{side}, 1U | 24U << 16, 0U, pixelBytes, 0U, 0U, 0U, 0U})
        append32(out, value);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const Ink ink = averaged(x, y);
            for (const std::uint8_t channel : {ink.blue, ink.green, ink.red})
                out.push_back(static_cast<char>(channel));
        }
    }
    return out;
}

} // namespace quillset
