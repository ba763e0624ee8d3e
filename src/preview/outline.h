#pragma once

#include "preview/building.h"

#include <vector>

namespace quillset {

enum class Axis { x, z };

/// One side of a footprint, from its own corner to the next one; seen from outside it runs to the right.
/// `begin` and `end` say which part of the texture's width it shows, as fractions.
struct OutlineSide {
    double east = 0.0;
    double north = 0.0;
    Axis axis = Axis::x;
    double begin = 0.0;
    double end = 1.0;
};

/// A footprint, counter-clockwise seen from above, beginning with the south side's left corner.
using Outline = std::vector<OutlineSide>;

/// The four walls over a rectangle, each in `columns` equal sides.
[[nodiscard]] Outline rectangleOutline(double sizeX, double sizeZ, int columns);
/// A polygon on the ellipse inside the rectangle, one side centred on the south.
[[nodiscard]] Outline polygonOutline(double sizeX, double sizeZ, int sides);

} // namespace quillset
