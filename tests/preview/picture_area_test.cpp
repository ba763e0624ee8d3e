#include "preview/picture_area.h"

#include "base/atomic_file.h"
#include "support/temporary_folder.h"

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

TEST(PictureFile, bitmapComesFirstAndLetterCaseIsFree) {
    const test::TemporaryFolder program;
    program.write("Pics/abc.jpg", "j");
    program.write("Pics/ABC.BMP", "bitmap");
    program.write("Pics/only.jpg", "jpeg");
    program.write("Pics/folder.bmp/inside", "x");
    const test::TemporaryFolder shipped;
    shipped.write("pics/only.bmp", "shipped");
    shipped.write("pics/further.bmp", "further");
    const auto contentOf = [&](std::string_view key) {
        const std::optional<std::string> file = pictureFile({program.path(), shipped.path()}, key);
        return file ? readWholeFile(*file) : "none";
    };
    EXPECT_EQ(contentOf("aBc"), "bitmap");
    EXPECT_EQ(contentOf("ONLY"), "jpeg") << "the user's own one wins";
    EXPECT_EQ(contentOf("further"), "further");
    EXPECT_EQ(contentOf("missing"), "none");
    EXPECT_EQ(contentOf("folder"), "none");
    EXPECT_EQ(contentOf(""), "none");
}

} // namespace
} // namespace quillset
