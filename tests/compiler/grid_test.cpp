#include "compiler/crt_sort.h"
#include "compiler/grid.h"
#include "compiler/scenery_section.h"

#include <gtest/gtest.h>

using namespace quillset::compiler;

TEST(Grid, PlacesAndCells) {
    struct Row {
        double latitude;
        double longitude;
        GridPosition place;
        std::uint32_t cell; // level 11
    };
    const Row rows[] = {
        {52.1, 5.2, {0x18b17e4b, 0x06bcdf01}, 0x85a33e},
        {38.94811, -1.87493, {0x17c0009d, 0x09136da1}, 0x865d48},
        {-33.25, 151.5, {0x2c333333, 0x15e93e94}, 0x99cab6},
        {0, 0, {0x18000000, 0x10000000}, 0x8d0000},
        {90, -180, {0, 0}, 0x800000},
        {-90, 180, {0, 0x1fffffff}, 0x8aaaaa},          // the same meridian; the southernmost row
        {0, 179.9999999999, {0, 0x10000000}, 0x880000}, // rounded to 180
    };
    for (const Row& row : rows) {
        const GridPosition place = gridPosition(row.latitude, row.longitude);
        EXPECT_EQ(place, row.place) << row.latitude << ' ' << row.longitude;
        EXPECT_EQ(quadCell(11, place), row.cell) << std::hex << quadCell(11, place);
    }
    EXPECT_EQ(quadCell(0, {0x12345678, 0x12345678}), 2U);
    EXPECT_EQ(quadCell(11, {0x18b17e4b, 0x06bcdf01}) >> 4, quadCell(9, {0x18b17e4b, 0x06bcdf01}));
}

TEST(Grid, Millimetres) {
    const std::pair<double, std::int32_t> rows[] = {
        {0, 0},
        {-2.0, -2000},
        {0.499, 499},
        {0.299, 299},
        {15.999, 15999},
        {17.999, 17999},
        {1.001, 1001},
        {2301 * 0.3048, 701344},
        {-1.0009, -1000},
        {-0.0004, 0},
        {2147483.647, 2147483647},
        {-2147483.647, -2147483647},
    };
    for (const auto& [metres, stored] : rows)
        EXPECT_EQ(millimetres(metres), stored) << metres;
}

TEST(Grid, Angles) {
    const std::pair<double, std::uint16_t> rows[] = {
        {0, 0},         {90, 0x4000}, {-90, 0xC000},        {360, 0},    {450, 0x4000},
        {-450, 0xC000}, {359.999, 0}, {0.0054931640625, 1}, {-360.0, 0}, {1e9, 50972},
    };
    for (const auto& [degrees, stored] : rows)
        EXPECT_EQ(angleUnits(degrees), stored) << degrees;
}

TEST(Grid, HeaderCells) {
    const auto header = [](const std::vector<std::uint32_t>& cells) {
        std::vector<CellRecords> records;
        for (const std::uint32_t cell : cells)
            records.push_back({cell, 1, 28});
        return headerCells(records);
    };
    using Cells = std::vector<std::uint32_t>;
    EXPECT_EQ(header({}), Cells{});
    EXPECT_EQ(header({0x865d17, 0x865d1d, 0x865d48}), (Cells{0x865d1, 0x865d4}));
    Cells nine; // nine level-9 cells under three of level 8
    for (std::uint32_t i = 0; i < 9; ++i)
        nine.push_back((0x80010U + i) << 4);
    EXPECT_EQ(header(nine), (Cells{0x20004, 0x20005, 0x20006}));
    nine.pop_back();
    EXPECT_EQ(header(nine).size(), 8U);
    EXPECT_EQ(header(nine).back(), 0x80017U);
    Cells everywhere; // far apart: only the cells of level 1 are few enough
    for (std::uint32_t i = 0; i < 16; ++i)
        everywhere.push_back(0x800000 | i << 18);
    EXPECT_EQ(header(everywhere), (Cells{8, 9, 10, 11}));
}

// Orders of equal elements as they come out of the later compiler's run-time library.
TEST(CrtSort, OrderOfEqualElements) {
    const std::pair<std::vector<int>, const char*> rows[] = {
        {{}, ""},
        {{1}, "a"},
        {{1, 1, 1, 1}, "bcda"},
        {{1, 1, 1, 1, 1, 1, 1, 1}, "bcdefgha"},
        {{1, 1, 1, 1, 1, 1, 1, 1, 1}, "abcdefghi"},
        {{2, 1, 2, 1, 2, 1, 2, 1, 2, 1, 2, 1}, "lbhdfjcigeka"},
        {{3, 1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2}, "qbhnekcilforgdpmja"},
        {{2, 2, 2, 2, 1, 1, 1, 1, 1, 1, 1, 1, 1, 3, 3, 3, 3, 3}, "jlkiefghmcbadopqrn"},
    };
    for (const auto& [keys, expected] : rows) {
        std::vector<std::pair<int, char>> elements;
        for (const int key : keys)
            elements.emplace_back(key, static_cast<char>('a' + elements.size()));
        CrtSort(elements, [](const auto& element) { return element.first; }).run();
        std::string order;
        for (const auto& element : elements)
            order.push_back(element.second);
        EXPECT_EQ(order, expected);
    }
}
