#include "texture_maker/texture_maker.h"

#include "preview/texture_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <set>
#include <string>

namespace quillset {
namespace {

std::size_t at(const Picture& picture, int x, int y) {
    return (static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
            static_cast<std::size_t>(x)) *
           3;
}

// How much a picture changes from each column to the next; the last entry is the step back to the first.
std::vector<int> columnSteps(const Picture& picture) {
    std::vector<int> steps;
    for (int x = 0; x < picture.width; ++x) {
        int step = 0;
        for (int y = 0; y < picture.height; ++y)
            for (std::size_t channel = 0; channel < 3; ++channel)
                step += std::abs(picture.pixels[at(picture, x, y) + channel] -
                                 picture.pixels[at(picture, (x + 1) % picture.width, y) + channel]);
        steps.push_back(step);
    }
    return steps;
}

Picture turned(const Picture& picture) {
    Picture out{picture.height, picture.width, std::vector<std::uint8_t>(picture.pixels.size())};
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            for (std::size_t channel = 0; channel < 3; ++channel)
                out.pixels[at(out, y, x) + channel] = picture.pixels[at(picture, x, y) + channel];
    return out;
}

// The step over the edge is about as large as the largest one inside: nothing breaks off where it repeats.
bool isSeamless(const Picture& picture) {
    const std::vector<int> steps = columnSteps(picture);
    return steps.back() <= *std::max_element(steps.begin(), steps.end() - 1) * 5 / 4;
}

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
            EXPECT_TRUE(isSeamless(*picture)) << name;
            EXPECT_TRUE(table == TextureTable::wall || isSeamless(turned(*picture))) << name;
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
