#include "preview/picture_area.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quillset {

namespace {

// What an edge takes away from the window; a window of exactly this size is still laid out.
struct Margins {
    int width;
    int height;
    int left;
    int top;
};

// The differing offsets are deliberate: the docking grip lies at the left of a window docked above or below,
// and at the top of one docked at a side.
std::optional<Margins> marginsOf(int dockState) {
    switch (dockState) {
    case 0:
        return Margins{150, 200, 0, 0};
    case 1:
    case 2:
        return Margins{500, 200, 400, 100};
    case 3:
    case 4:
        return Margins{150, 500, 75, 400};
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<TwipRect> pictureArea(int dockState, int outerWidth, int outerHeight) {
    const std::optional<Margins> margins = marginsOf(dockState);
    if (!margins || outerWidth < margins->width || outerHeight < margins->height)
        return std::nullopt;
    return TwipRect{margins->left, margins->top, outerWidth - margins->width, outerHeight - margins->height};
}

int pictureSide(double width, double height) {
    constexpr double largest = std::numeric_limits<short>::max();
    return static_cast<int>(std::lround(std::clamp(std::min(width, height), 0.0, largest)));
}

} // namespace quillset
