#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

namespace quillset {

/// A colour, 8 bits a channel.
struct Ink {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
};

/// A point in percent of the picture's side, from the lower left corner.
struct Spot {
    double x = 0;
    double y = 0;
};

/// A square picture with filled shapes, without jagged edges: it is drawn larger and averaged at the end.
class Sketch {
public:
    /// Side of the finished picture in pixels.
    static constexpr int side = 192;

    /// Fills from the lower edge (first colour) to the upper edge.
    Sketch(Ink below, Ink above);

    void polygon(std::initializer_list<Spot> corners, Ink ink);
    void rectangle(Spot lowerLeft, Spot upperRight, Ink ink);
    void disc(Spot centre, double radius, Ink ink);
    /// A straight line of some width.
    void line(Spot from, Spot to, double width, Ink ink);

    /// The picture as a bitmap file of 24 bits a pixel.
    [[nodiscard]] std::string bitmap() const;

private:
    static constexpr int scale = 3;
    static constexpr int drawnSide = side * scale;

    /// Paints every drawn pixel between two spots for which `inside(spot)` holds.
    template <class Inside>
    void paint(Spot lowerLeft, Spot upperRight, Ink ink, Inside inside);
    [[nodiscard]] Ink averaged(int x, int y) const;

    std::vector<Ink> pixels_;
};

} // namespace quillset
