#include "properties/sheet_layout.h"

#include <array>
#include <cmath>

namespace quillset {

namespace {

/// How far grid and label stay from the window's borders for some docking codes.
struct LayoutRow {
    int minimumHeight;
    int minimumWidth;
    int left;
    int top;
    int widthLess;
    int heightLess;
};

constexpr int labelHeight = 500;
constexpr LayoutRow floating{700, 150, 0, 0, 150, 700};
constexpr LayoutRow topOrBottom{700, 500, 400, 100, 500, 700};
constexpr LayoutRow atASide{1000, 150, 75, 400, 150, 1000};
constexpr std::array<LayoutRow, 5> rows{floating, topOrBottom, topOrBottom, atASide, atASide};

} // namespace

std::optional<SheetLayout> sheetLayout(int dockStatus, int width, int height) {
    if (dockStatus < 0 || dockStatus >= static_cast<int>(rows.size()))
        return std::nullopt;
    const LayoutRow& row = rows[static_cast<std::size_t>(dockStatus)];
    if (width < row.minimumWidth || height < row.minimumHeight)
        return std::nullopt;
    const SheetRectangle grid{row.left, row.top, width - row.widthLess, height - row.heightLess};
    return SheetLayout{grid, {row.left, row.top + grid.height, grid.width, labelHeight}};
}

ColumnWidths columnWidths(int gridWidth) {
    return {static_cast<int>(std::nearbyint(gridWidth * 2 / 5.0)),
            static_cast<int>(std::nearbyint(gridWidth * 3 / 5.0))};
}

} // namespace quillset
