#include "properties/tab_walk.h"

#include <algorithm>

namespace quillset {

namespace {

bool isVisible(const GridView& view, int row) {
    return row >= view.topRow && row < view.topRow + view.visibleRows;
}

int contextTop(const GridView& view, int row, WalkDirection direction) {
    if (direction == WalkDirection::up) {
        if (row < 3)
            return 0;
        return isVisible(view, row - 2) ? view.topRow : view.topRow - 1;
    }
    const bool roomBelow = row < view.rowCount - 3 && isVisible(view, row + 2);
    return roomBelow ? view.topRow : view.topRow + 1;
}

} // namespace

int rowAfterWalk(int row, int rowCount, WalkDirection direction) {
    if (direction == WalkDirection::up)
        return std::max(row - 1, 0);
    return std::min(row + 1, rowCount - 1);
}

int topRowAfterWalk(const GridView& view, int row, WalkDirection direction) {
    const int lastTop = std::max(view.rowCount - view.visibleRows, 0);
    GridView moved = view;
    moved.topRow = std::clamp(contextTop(view, row, direction), 0, lastTop);
    if (isVisible(moved, row))
        return moved.topRow;
    const int context = std::clamp(view.visibleRows - 1, 0, 2);
    const int wanted =
        direction == WalkDirection::up ? row - context : row + context + 1 - std::max(view.visibleRows, 1);
    return std::clamp(wanted, 0, lastTop);
}

} // namespace quillset
