#include "preview/texture_tables.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace quillset {
namespace {

std::string nameOf(const Surface& surface) {
    if (const auto* colour = std::get_if<PlainColour>(&surface))
        return *colour == neutralColour ? "neutral"
                                        : std::to_string(colour->red) + "," + std::to_string(colour->green) +
                                              "," + std::to_string(colour->blue);
    const TexturePlace& place = std::get<TexturePlace>(surface);
    const char* const parts[] = {"", " lower", " upper"};
    return std::string(textureFiles(place.table)[static_cast<std::size_t>(place.index)]) +
           parts[static_cast<int>(place.part)];
}

TEST(TextureTables, codesNameTheirFiles) {
    struct Row {
        TextureTable table;
        std::optional<int> code;
        const char* name;
    };
    const Row rows[] = {
        {TextureTable::wall, 0, "255,255,255"},
        {TextureTable::wall, 7, "0,0,255"},
        {TextureTable::wall, 8, "br_apt1_2.bmp lower"},
        {TextureTable::wall, 9, "br_apt1_2.bmp upper"},
        {TextureTable::wall, 85, "sky_tb_tan5_6.bmp upper"},
        {TextureTable::wall, 86, "neutral"},
        {TextureTable::window, 4, "br_apt1w.bmp"},
        {TextureTable::window, 84, "sky_w_white4.bmp"},
        {TextureTable::window, 85, "neutral"},
        {TextureTable::roof, 37, "corrugatedroof.bmp"},
        {TextureTable::roof, 38, "neutral"},
        {TextureTable::roof, -1, "neutral"},
        {TextureTable::wall, 2147483647, "neutral"},
        {TextureTable::window, std::nullopt, "neutral"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(nameOf(surfaceOf(row.table, row.code)), row.name) << row.code.value_or(-99);
}

TEST(TextureTables, everyFileIsReachedByItsCodes) {
    for (const TextureTable table : textureTables) {
        std::set<std::string> reached;
        for (int code = 0; code < 200; ++code) {
            const Surface surface = surfaceOf(table, code);
            if (std::holds_alternative<TexturePlace>(surface))
                reached.insert(nameOf(surface));
        }
        const std::size_t perFile = table == TextureTable::wall ? 2 : 1;
        EXPECT_EQ(reached.size(), textureFiles(table).size() * perFile);
    }
}

} // namespace
} // namespace quillset
