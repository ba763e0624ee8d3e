#include "preview/picture_area.h"

#include <gtest/gtest.h>

namespace quillset {
namespace {

TEST(PictureArea, followsTheDockingState) {
    struct Row {
        int state, width, height;
        std::optional<TwipRect> area;
    };
    const Row rows[] = {
        {0, 3000, 4000, TwipRect{0, 0, 2850, 3800}},
        {0, 150, 200, TwipRect{0, 0, 0, 0}},
        {0, 149, 4000, std::nullopt},
        {0, 3000, 199, std::nullopt},
        {1, 3000, 4000, TwipRect{400, 100, 2500, 3800}},
        {2, 500, 200, TwipRect{400, 100, 0, 0}},
        {2, 499, 4000, std::nullopt},
        {3, 3000, 4000, TwipRect{75, 400, 2850, 3500}},
        {4, 150, 500, TwipRect{75, 400, 0, 0}},
        {4, 3000, 499, std::nullopt},
        {5, 3000, 4000, std::nullopt},
        {-1, 3000, 4000, std::nullopt},
    };
    for (const Row& row : rows)
        EXPECT_EQ(pictureArea(row.state, row.width, row.height), row.area)
            << row.state << ": " << row.width << " x " << row.height;
}

TEST(PictureArea, squareHasTheSmallerSide) {
    EXPECT_EQ(pictureSide(300, 120), 120);
    EXPECT_EQ(pictureSide(99.6, 300), 100);
    EXPECT_EQ(pictureSide(70000, 70000), 32767);
}

} // namespace
} // namespace quillset
