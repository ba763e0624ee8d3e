#include "texture_samples.h"

namespace quillset::test {

namespace {

using Colour = std::initializer_list<int>; // blue, green, red

Picture pictureOf(int width, int height, std::initializer_list<Colour> colours) {
    Picture picture{width, height, {}};
    for (const Colour& colour : colours)
        for (const int channel : colour)
            picture.pixels.push_back(static_cast<std::uint8_t>(channel));
    return picture;
}

const Colour black{0, 0, 0};
const Colour white{255, 255, 255};
const Colour red{0, 0, 255};
const Colour green{0, 255, 0};
const Colour blue{255, 0, 0};

std::string palette256(const std::string& first) {
    return first + std::string(1024 - first.size(), '\0');
}

std::vector<TextureSample> bitmapSamples() {
    const std::string fourColours = bytesOf({0, 0, 255, 0, 0, 255, 0, 0, 255, 0, 0, 0, 255, 255, 255, 0});
    const std::string indices3x2 = bytesOf({0, 1, 2, 0, 3, 3, 0, 0}); // rows padded to four bytes
    const Picture bars = pictureOf(3, 2, {red, green, blue, white, white, red});
    const Picture flipped = pictureOf(3, 2, {white, white, red, red, green, blue});
    const std::string words2x2 = le16(0xF800) + le16(0x07E0) + le16(0x001F) + le16(0xFFFF);
    const Picture square = pictureOf(2, 2, {red, green, blue, white});
    const std::string quads2x2 = bytesOf({0, 0, 255, 9, 0, 255, 0, 9, 255, 0, 0, 9, 255, 255, 255, 9});
    return {
        {"8 bits", bitmap(3, 2, 8, 0, palette256(fourColours), indices3x2), bars, 54 + 1024 + 7},
        {"8 bits, 4 colours, top-down", bitmap(3, -2, 8, 0, fourColours, indices3x2, 4), flipped,
         54 + 16 + 7},
        {"8 bits, extended, smaller pictures behind",
         bitmap(4, 2, 8, 0, palette256(fourColours) + extendedBlock(1, 2),
                bytesOf({0, 1, 2, 3, 3, 2, 1, 0}) + bytesOf({1, 2, 0, 0}) + bytesOf({3})),
         pictureOf(4, 2, {red, green, blue, white, white, blue, green, red}), 54 + 1024 + 20 + 8},
        {"565", bitmap(2, 2, 16, 3, masks(0xF800, 0x07E0, 0x001F) + extendedBlock(0, 0), words2x2), square,
         54 + 12 + 20 + 8},
        {"555",
         bitmap(2, 2, 16, 0, extendedBlock(0, 0), le16(0x7C00) + le16(0x03E0) + le16(0x801F) + le16(0xFFFF)),
         square, 54 + 20 + 8},
        {"444 with transparency",
         bitmap(2, 2, 16, 3, masks(0xF00, 0x0F0, 0x00F), le16(0xFF00) + le16(0x00F0) + le16(7) + le16(0xFFF)),
         pictureOf(2, 2, {red, green, {119, 0, 0}, white}), 54 + 12 + 8},
        {"24 bits", bitmap(1, 2, 24, 0, "", bytesOf({1, 2, 3, 0, 4, 5, 6, 0})),
         pictureOf(1, 2, {{1, 2, 3}, {4, 5, 6}}), 54 + 7},
        {"32 bits, extended", bitmap(2, 2, 32, 0, extendedBlock(0x400, 0), quads2x2), square, 54 + 20 + 16},
        {"32 bits, masks in another order",
         bitmap(2, 1, 32, 3, masks(0xFF, 0xFF00, 0xFF0000), bytesOf({1, 2, 3, 0, 4, 5, 6, 0})),
         pictureOf(2, 1, {{3, 2, 1}, {6, 5, 4}}), 54 + 12 + 8},
    };
}

// First row: both colours and the two between; then three rows of one index each.
Picture blockPicture(const Colour& third, const Colour& fourth) {
    return pictureOf(4, 4,
                     {red, blue, third, fourth, red, red, red, red, blue, blue, blue, blue, fourth, fourth,
                      fourth, fourth});
}

std::vector<TextureSample> blockSamples() {
    const std::initializer_list<int> rows{0xE4, 0x00, 0x55, 0xFF};
    const std::string fourColours = dxtBlock(0xF800, 0x001F, rows);
    const std::string threeColours = dxtBlock(0x001F, 0xF800, {0xE1, 0x55, 0x00, 0xFF});
    const std::string alpha(8, '\x5A');
    const Picture four = blockPicture({85, 0, 170}, {170, 0, 85});
    // The three-colour block begins with blue: its indices above are swapped so that the picture is alike.
    const Picture three = blockPicture({127, 0, 127}, black);
    Picture flipped = four;
    flipped.pixels.clear();
    for (std::size_t row = 4; row-- > 0;)
        flipped.pixels.insert(flipped.pixels.end(),
                              four.pixels.begin() + static_cast<std::ptrdiff_t>(row) * 12,
                              four.pixels.begin() + static_cast<std::ptrdiff_t>(row + 1) * 12);
    const std::string block = extendedBlock(0x100, 2);
    const std::string allFirst = dxtBlock(0xFFFF, 0, {0, 0, 0, 0});
    const std::string allSecond = dxtBlock(0xFFFF, 0, {0x55, 0x55, 0x55, 0x55});
    return {
        {"DXT1", bitmap(4, 4, 16, dxt1, block, fourColours), four, 74 + 8},
        {"DXT1, three colours and a hole", bitmap(4, 4, 16, dxt1, block, threeColours), three, 74 + 8},
        {"DXT3", bitmap(4, 4, 16, dxt3, block, alpha + fourColours), four, 74 + 16},
        {"DXT3 has four colours in any order",
         bitmap(4, 4, 16, dxt3, block, alpha + dxtBlock(0x001F, 0xF800, {0xB1, 0x55, 0x00, 0xAA})), four,
         74 + 16},
        {"DXT5", bitmap(4, 4, 16, dxt5, block, alpha + fourColours), four, 74 + 16},
        {"DXT1 of odd sides", bitmap(5, 1, 16, dxt1, block, allFirst + allSecond),
         pictureOf(5, 1, {white, white, white, white, black}), 74 + 16},
        {"surface, DXT1", surface(4, 4, dxt1, 0, "", fourColours), flipped, 128 + 8},
        {"surface, DXT5", surface(4, 4, dxt5, 0, "", alpha + fourColours), flipped, 128 + 16},
        {"surface, 565", surface(1, 2, 0, 16, masks(0xF800, 0x07E0, 0x001F), le16(0xF800) + le16(0x001F)),
         pictureOf(1, 2, {blue, red}), 128 + 4},
        {"surface, 24 bits", surface(1, 2, 0, 24, masks(0xFF0000, 0xFF00, 0xFF), bytesOf({1, 2, 3, 4, 5, 6})),
         pictureOf(1, 2, {{4, 5, 6}, {1, 2, 3}}), 128 + 6},
    };
}

TextureSample rawSample() {
    TextureSample sample{"raw", std::string(65536, '\x40'), {256, 256, {}}, 65536};
    sample.bytes[255] = '\x7F'; // end of the upper row
    sample.picture.pixels.assign(std::size_t{256} * 256 * 3, 0x40);
    for (std::size_t i = sample.picture.pixels.size() - 3; i < sample.picture.pixels.size(); ++i)
        sample.picture.pixels[i] = 0x7F;
    return sample;
}

} // namespace

std::vector<TextureSample> textureSamples() {
    std::vector<TextureSample> samples = bitmapSamples();
    const std::vector<TextureSample> blocks = blockSamples();
    samples.insert(samples.end(), blocks.begin(), blocks.end());
    samples.push_back(rawSample());
    return samples;
}

} // namespace quillset::test
