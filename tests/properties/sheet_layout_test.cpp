#include "properties/sheet_layout.h"
#include "properties/tab_walk.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillset {
namespace {

TEST(SheetLayout, followsTheDockingCode) {
    struct Case {
        const char* name;
        int code, width, height;
        std::optional<SheetLayout> expected;
    };
    const SheetLayout floating{{0, 0, 2850, 4300}, {0, 4300, 2850, 500}};
    const SheetLayout topOrBottom{{400, 100, 2500, 4300}, {400, 4400, 2500, 500}};
    const SheetLayout side{{75, 400, 2850, 4000}, {75, 4400, 2850, 500}};
    const std::vector<Case> cases{
        {"floating", 0, 3000, 5000, floating},
        {"top", 1, 3000, 5000, topOrBottom},
        {"bottom", 2, 3000, 5000, topOrBottom},
        {"left", 3, 3000, 5000, side},
        {"right", 4, 3000, 5000, side},
        {"negative code", -1, 3000, 5000, std::nullopt},
        {"floating, just high and wide enough", 0, 150, 700, SheetLayout{{0, 0, 0, 0}, {0, 0, 0, 500}}},
        {"floating, too low", 0, 150, 699, std::nullopt},
        {"top, too narrow", 1, 499, 700, std::nullopt},
        {"side, too low", 3, 150, 999, std::nullopt},
        {"side, just enough", 4, 150, 1000, SheetLayout{{75, 400, 0, 0}, {75, 400, 0, 500}}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(sheetLayout(c.code, c.width, c.height), c.expected) << c.name;
}

TEST(SheetLayout, columnsFillTheGridAtEveryWidth) {
    EXPECT_EQ(columnWidths(1000), (ColumnWidths{400, 600}));
    for (int width = 0; width < 2000; ++width) {
        const ColumnWidths columns = columnWidths(width);
        ASSERT_EQ(columns.name + columns.value, width);
        ASSERT_NEAR(columns.name, width * 0.4, 0.5);
    }
}

TEST(TabWalk, keepsTwoRowsOfContext) {
    struct Case {
        const char* name;
        GridView view;
        int row;
        WalkDirection direction;
        int expected;
    };
    constexpr auto up = WalkDirection::up;
    constexpr auto down = WalkDirection::down;
    const std::vector<Case> cases{
        {"down with room below", {30, 0, 10}, 7, down, 0},
        {"down, the second row below is hidden", {30, 0, 10}, 8, down, 1},
        {"down to the fourth-last row", {30, 19, 10}, 26, down, 19},
        {"down to the third-last row scrolls although it could stay", {30, 18, 10}, 27, down, 19},
        {"down at the end of the view", {30, 20, 10}, 29, down, 20},
        {"down, everything fits", {8, 0, 10}, 6, down, 0},
        {"up with room above", {30, 5, 10}, 7, up, 5},
        {"up, the second row above is hidden", {30, 5, 10}, 6, up, 4},
        {"up to row 3", {30, 1, 10}, 3, up, 1},
        {"up to row 2 goes to the top", {30, 1, 10}, 2, up, 0},
        {"up, everything fits", {8, 0, 10}, 5, up, 0},
        {"down after scrolling far away brings the row back", {60, 40, 10}, 5, down, 0},
        {"up after scrolling far away brings the row back", {60, 0, 10}, 40, up, 38},
        {"down, scrolled to the top meanwhile", {60, 0, 10}, 40, down, 33},
    };
    for (const Case& c : cases)
        EXPECT_EQ(topRowAfterWalk(c.view, c.row, c.direction), c.expected) << c.name;
}

} // namespace
} // namespace quillset
