#pragma once

#include <optional>

namespace quillset {

/// The sheet is laid out in twips, 1/1440 inch: 15 to a logical pixel.
inline constexpr int twipsPerLogicalPixel = 15;

struct SheetRectangle {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const SheetRectangle&) const = default;
};

/// Places of the grid and of the description below it.
struct SheetLayout {
    SheetRectangle grid;
    SheetRectangle label;

    bool operator==(const SheetLayout&) const = default;
};

/// Layout of a window of that outer size, in twips. `dockStatus` is the docking host's code: 0 floating,
/// 1 and 2 at the top and bottom, 3 and 4 at the sides. Nothing moves (no value) for any other code and for a
/// window that is too small.
[[nodiscard]] std::optional<SheetLayout> sheetLayout(int dockStatus, int width, int height);

struct ColumnWidths {
    int name = 0;
    int value = 0;

    bool operator==(const ColumnWidths&) const = default;
};

/// Two fifths and three fifths of the grid's width, each rounded to a whole number.
[[nodiscard]] ColumnWidths columnWidths(int gridWidth);

} // namespace quillset
