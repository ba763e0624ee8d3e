#include "preview/texture_file.h"

#include "texture_samples.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillset {
namespace {

using namespace test;

TEST(TextureFile, readsEveryKind) {
    for (const TextureSample& sample : textureSamples())
        EXPECT_EQ(decodeTexture(sample.bytes), sample.picture) << sample.name;
}

TEST(TextureFile, refusesWhatEndsTooSoon) {
    for (const TextureSample& sample : textureSamples()) {
        if (sample.bytes.size() > 5000)
            continue; // the raw one is told by its length
        for (std::size_t length = 0; length < sample.bytes.size(); ++length) {
            const auto picture = decodeTexture(sample.bytes.substr(0, length));
            EXPECT_EQ(picture.has_value(), length >= sample.complete) << sample.name << ", " << length;
        }
    }
    EXPECT_EQ(decodeTexture(std::string(65535, 'a')), std::nullopt);
    EXPECT_EQ(decodeTexture(std::string(65537, 'a')), std::nullopt);
}

TEST(TextureFile, refusesWhatItDoesNotKnow) {
    const std::string pixels(1024, '\0');
    struct Row {
        const char* name;
        std::string bytes;
    };
    const std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
    std::string oldHeader = bitmap(2, 2, 8, 0, "", pixels);
    oldHeader[14] = 12;
    std::string pixelsInHeader = bitmap(2, 2, 24, 0, "", pixels);
    pixelsInHeader[10] = 20;
    const Row rows[] = {
        {"text", "Loading failed"},
        {"no width", bitmap(0, 2, 24, 0, "", pixels)},
        {"negative width", bitmap(-2, 2, 24, 0, "", pixels)},
        {"no height", bitmap(2, 0, 24, 0, "", pixels)},
        {"lowest height", bitmap(2, lowest, 24, 0, "", pixels)},
        {"too wide", bitmap(4097, 1, 8, 0, "", std::string(8000, '\0'))},
        {"claims more than there is", bitmap(4096, 4096, 32, 0, "", pixels)},
        {"1 bit", bitmap(2, 2, 1, 0, "", pixels)},
        {"run lengths", bitmap(2, 2, 8, 1, "", pixels)},
        {"masks with 24 bits", bitmap(2, 2, 24, 3, "", pixels)},
        {"unknown compression", bitmap(2, 2, 16, 0x32545844, "", pixels)},
        {"old header", oldHeader},
        {"pixels inside the header", pixelsInHeader},
        {"surface with a palette", surface(2, 2, 0, 8, "", pixels)},
        {"surface too high", surface(1, 4097, 0, 16, "", std::string(9000, '\0'))},
    };
    for (const Row& row : rows)
        EXPECT_EQ(decodeTexture(row.bytes), std::nullopt) << row.name;
}

TEST(TextureFile, readsTheLargestSides) {
    const auto wide =
        decodeTexture(bitmap(4096, 1, 8, 0, std::string(1024, '\x11'), std::string(4096, '\0')));
    ASSERT_TRUE(wide);
    EXPECT_EQ(wide->pixels.size(), 4096U * 3);
    const std::string blocks(std::size_t{1024} * 1024 * 8, '\0');
    const auto square = decodeTexture(surface(4096, 4096, dxt1, 0, "", blocks));
    ASSERT_TRUE(square);
    EXPECT_EQ(square->pixels.size(), std::size_t{4096} * 4096 * 3);
}

TEST(TextureFile, writesPlainBitmaps) {
    for (int width = 1; width <= 5; ++width) {
        Picture picture{width, 3, {}};
        for (int i = 0; i < width * 9; ++i)
            picture.pixels.push_back(static_cast<std::uint8_t>(i * 7));
        const std::string bytes = encodeBitmap(picture);
        EXPECT_EQ(bytes.size(), 54U + static_cast<std::size_t>((width * 3 + 3) / 4 * 4 * 3));
        EXPECT_EQ(decodeTexture(bytes), picture) << width;
    }
}

} // namespace
} // namespace quillset
