#include "texture_maker/texture_look.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace quillset {

namespace {

struct WallSeries {
    std::string_view prefix;
    WallLook look;
};

constexpr Rgb daylightGlass{96, 116, 132};
constexpr Rgb darkGlass{58, 70, 82};
constexpr Rgb blueGlass{70, 110, 158};
constexpr Rgb bronzeGlass{104, 88, 70};

// The longest prefix that fits must come first.
constexpr std::array wallSeries{
    WallSeries{"br_",
               {Masonry::brick,
                Facade::windows,
                {150, 78, 62},
                {186, 172, 158},
                {206, 198, 184},
                daylightGlass,
                8,
                8}},
    WallSeries{"fr_",
               {Masonry::plaster,
                Facade::tallWindows,
                {214, 198, 164},
                {170, 152, 122},
                {236, 228, 208},
                daylightGlass,
                8,
                8}},
    WallSeries{"gr_",
               {Masonry::ashlar,
                Facade::windows,
                {150, 150, 146},
                {108, 108, 106},
                {192, 190, 184},
                daylightGlass,
                8,
                8}},
    WallSeries{"ap_",
               {Masonry::concrete,
                Facade::balconies,
                {188, 182, 170},
                {138, 132, 124},
                {220, 216, 206},
                daylightGlass,
                4,
                8}},
    WallSeries{"gv_",
               {Masonry::ashlar,
                Facade::tallWindows,
                {206, 196, 174},
                {160, 150, 130},
                {232, 226, 208},
                darkGlass,
                8,
                4}},
    WallSeries{
        "wh_",
        {Masonry::metal, Facade::strip, {164, 168, 170}, {120, 124, 128}, {196, 198, 198}, darkGlass, 8, 4}},
    WallSeries{"air_",
               {Masonry::concrete,
                Facade::curtain,
                {214, 216, 216},
                {160, 164, 168},
                {236, 238, 238},
                blueGlass,
                8,
                4}},
    WallSeries{"ba_",
               {Masonry::plaster,
                Facade::strip,
                {202, 180, 150},
                {150, 130, 106},
                {226, 212, 190},
                bronzeGlass,
                8,
                8}},
    WallSeries{
        "black",
        {Masonry::concrete, Facade::curtain, {52, 54, 58}, {34, 36, 40}, {88, 92, 98}, {52, 62, 74}, 16, 8}},
    WallSeries{"blue",
               {Masonry::concrete,
                Facade::curtain,
                {74, 104, 140},
                {52, 74, 104},
                {148, 172, 196},
                blueGlass,
                16,
                8}},
    WallSeries{
        "dkgray",
        {Masonry::concrete, Facade::mullions, {92, 94, 98}, {64, 66, 70}, {128, 130, 134}, darkGlass, 16, 8}},
    WallSeries{"ltgray",
               {Masonry::concrete,
                Facade::strip,
                {190, 192, 194},
                {146, 148, 150},
                {218, 220, 222},
                daylightGlass,
                8,
                8}},
    WallSeries{"midgray",
               {Masonry::concrete,
                Facade::mullions,
                {140, 142, 144},
                {102, 104, 106},
                {178, 180, 182},
                daylightGlass,
                16,
                8}},
    WallSeries{"red",
               {Masonry::ashlar,
                Facade::mullions,
                {142, 74, 64},
                {102, 54, 48},
                {180, 120, 108},
                bronzeGlass,
                16,
                8}},
    WallSeries{"tan",
               {Masonry::concrete,
                Facade::strip,
                {194, 172, 138},
                {146, 126, 98},
                {220, 204, 176},
                bronzeGlass,
                8,
                8}},
    WallSeries{"white",
               {Masonry::concrete,
                Facade::mullions,
                {226, 226, 222},
                {178, 178, 174},
                {242, 242, 240},
                darkGlass,
                16,
                8}},
};

struct RoofSeries {
    std::string_view prefix;
    RoofLook look;
};

constexpr std::array roofSeries{
    RoofSeries{"roof", {RoofPattern::shingles, {112, 92, 80}}},
    RoofSeries{"flatroof", {RoofPattern::membrane, {138, 136, 130}}},
    RoofSeries{"tileroof", {RoofPattern::clayTiles, {176, 92, 62}}},
    RoofSeries{"blueroof", {RoofPattern::standingSeam, {70, 104, 150}}},
    RoofSeries{"dkgray", {RoofPattern::plain, {84, 86, 90}}},
    RoofSeries{"ltgrayroof", {RoofPattern::plain, {182, 184, 184}}},
    RoofSeries{"mdgrayroof", {RoofPattern::plain, {136, 138, 140}}},
    RoofSeries{"tanroof", {RoofPattern::plain, {182, 160, 126}}},
    RoofSeries{"lightgravelroof", {RoofPattern::gravel, {178, 172, 160}}},
    RoofSeries{"darkgravelroof", {RoofPattern::gravel, {106, 102, 98}}},
    RoofSeries{"shingleroof", {RoofPattern::shingles, {96, 96, 92}}},
    RoofSeries{"corrugatedroof", {RoofPattern::corrugated, {158, 162, 166}}},
};

int tinted(int channel, int by) {
    return std::clamp(channel + by, 0, 255);
}

// A step from one number of a series to the next: lighter or darker, warmer or cooler.
Rgb tinted(const Rgb& colour, int number) {
    const int lightness = (number * 5 % 7 - 3) * 6;
    const int warmth = (number * 3 % 5 - 2) * 5;
    return {tinted(colour.red, lightness + warmth), tinted(colour.green, lightness),
            tinted(colour.blue, lightness - warmth)};
}

std::string_view withoutSeries(std::string_view name, std::string_view series) {
    return name.starts_with(series) ? name.substr(series.size()) : name;
}

} // namespace

int numberIn(std::string_view fileName) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    const auto begin = std::find_if(fileName.begin(), fileName.end(), isDigit);
    int number = 0;
    for (auto at = begin; at != fileName.end() && isDigit(*at); ++at)
        number = number * 10 + (*at - '0');
    return begin == fileName.end() ? 1 : number;
}

std::uint32_t seedOf(std::string_view fileName) {
    std::uint32_t seed = 2166136261U;
    for (const char c : fileName)
        seed = (seed ^ static_cast<unsigned char>(c)) * 16777619U;
    return seed;
}

WallLook wallLookOf(std::string_view fileName) {
    const std::string_view name = withoutSeries(withoutSeries(fileName, "sky_tb_"), "sky_w_");
    const auto series = std::find_if(wallSeries.begin(), wallSeries.end(), [&](const WallSeries& candidate) {
        return name.starts_with(candidate.prefix);
    });
    WallLook look = series == wallSeries.end() ? WallLook() : series->look;
    // A wall file's name has the numbers of its two textures: count the files, as the windows do.
    const bool isPair = fileName.find("_tb") != std::string_view::npos || name.find("apt1_") < name.size();
    const int number = isPair ? numberIn(name) / 2 + 1 : numberIn(name);
    look.wall = tinted(look.wall, number);
    look.trim = tinted(look.trim, number + 2);
    look.glass = tinted(look.glass, number + 1);
    return look;
}

RoofLook roofLookOf(std::string_view fileName) {
    const auto series = std::find_if(roofSeries.begin(), roofSeries.end(), [&](const RoofSeries& candidate) {
        return fileName.starts_with(candidate.prefix);
    });
    RoofLook look = series == roofSeries.end() ? RoofLook() : series->look;
    look.colour = tinted(look.colour, numberIn(fileName));
    return look;
}

} // namespace quillset
