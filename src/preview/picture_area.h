#pragma once

#include <optional>

namespace quillset {

/// A rectangle in twips, 1/15 of a logical pixel (1/1440 inch at 96 pixels an inch).
struct TwipRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const TwipRect&) const = default;
};

inline constexpr int twipsPerPixel = 15;

/// Where the picture area lies in a preview window of that outer size and docking state (0 floating, 1 top,
/// 2 bottom, 3 left, 4 right). Nothing when the window is too small or the state unknown: then the area stays
/// as it is.
[[nodiscard]] std::optional<TwipRect> pictureArea(int dockState, int outerWidth, int outerHeight);

/// The side of the square that pictures are stretched into: the smaller of the area's sizes.
[[nodiscard]] int pictureSide(double width, double height);

} // namespace quillset
