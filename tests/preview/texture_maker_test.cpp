#include "texture_maker/texture_maker.h"

#include "preview/texture_file.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace quillset {
namespace {

TEST(TextureMaker, everyNameGetsATextureOfItsOwn) {
    std::set<std::string> different;
    for (const TextureTable table : textureTables) {
        for (const std::string_view name : textureFiles(table)) {
            const std::string bytes = makeTexture(table, name);
            const auto picture = decodeTexture(bytes);
            ASSERT_TRUE(picture) << name;
            EXPECT_EQ(picture->width, 128);
            EXPECT_EQ(picture->height, 128);
            const std::set<std::uint8_t> levels(picture->pixels.begin(), picture->pixels.end());
            EXPECT_GT(levels.size(), 8U) << name << " is all but plain";
            different.insert(std::string(picture->pixels.begin(), picture->pixels.end()));
        }
    }
    EXPECT_EQ(different.size(), 154U);
}

TEST(TextureMaker, smallerPicturesFollowDownToOnePixel) {
    const std::string bytes = makeTexture(TextureTable::roof, "dkgray.bmp");
    EXPECT_EQ(bytes, makeTexture(TextureTable::roof, "dkgray.bmp"));
    std::size_t pixels = 0;
    for (std::size_t side = 128; side > 0; side /= 2)
        pixels += side * side;
    EXPECT_EQ(bytes.size(), 54 + 1024 + pixels);
}

} // namespace
} // namespace quillset
