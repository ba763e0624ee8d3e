#include "preview/outline.h"

#include <array>
#include <cmath>
#include <numbers>

namespace quillset {

namespace {

// A polygon has one repeat count for all its walls. Whether a side or the whole round is meant has no
// witness; one texture to the round fits the smooth shading that makes a tower of many sides look turned.
constexpr bool repeatsCountTheRound = true;

} // namespace

Outline rectangleOutline(double sizeX, double sizeZ, int columns) {
    struct Wall {
        double fromX, fromZ, toX, toZ;
        Axis axis;
    };
    constexpr std::array<Wall, 4> walls{{{-0.5, -0.5, 0.5, -0.5, Axis::x},
                                         {0.5, -0.5, 0.5, 0.5, Axis::z},
                                         {0.5, 0.5, -0.5, 0.5, Axis::x},
                                         {-0.5, 0.5, -0.5, -0.5, Axis::z}}};
    Outline outline;
    for (const Wall& wall : walls) {
        for (int column = 0; column < columns; ++column) {
            const double begin = static_cast<double>(column) / columns;
            const double end = static_cast<double>(column + 1) / columns;
            outline.push_back({(wall.fromX + (wall.toX - wall.fromX) * begin) * sizeX,
                               (wall.fromZ + (wall.toZ - wall.fromZ) * begin) * sizeZ, wall.axis, begin,
                               end});
        }
    }
    return outline;
}

Outline polygonOutline(double sizeX, double sizeZ, int sides) {
    Outline outline;
    for (int side = 0; side < sides; ++side) {
        const double fromSouth = (2.0 * side - 1.0) * std::numbers::pi / sides;
        const double begin = repeatsCountTheRound ? static_cast<double>(side) / sides : 0.0;
        const double end = repeatsCountTheRound ? static_cast<double>(side + 1) / sides : 1.0;
        outline.push_back(
            {std::sin(fromSouth) * sizeX / 2, -std::cos(fromSouth) * sizeZ / 2, Axis::x, begin, end});
    }
    return outline;
}

} // namespace quillset
