#pragma once

namespace quillset {

enum class WalkDirection { up, down };

/// The rows of the grid in view; rows count from 0.
struct GridView {
    int rowCount = 0;
    int topRow = 0;
    /// Rows that are shown whole.
    int visibleRows = 0;
};

/// Where Tab (or Shift+Tab) goes from a row; the row itself where there is no further one.
[[nodiscard]] int rowAfterWalk(int row, int rowCount, WalkDirection direction);

/// First visible row after the walk has reached `row`: two rows of context are kept in the direction of
/// travel. A row that would not be visible at all (the user had scrolled away) is brought into view.
[[nodiscard]] int topRowAfterWalk(const GridView& view, int row, WalkDirection direction);

} // namespace quillset
