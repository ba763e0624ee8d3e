#include "preview/texture_tables.h"

namespace quillset {

namespace {

// The order of the three lists is significant, the out-of-series names at their ends included.
constexpr std::array<std::string_view, 39> wallFiles{
    "br_apt1_2.bmp",         "br_apt3_4.bmp",        "br_apt5_6.bmp",        "fr_apt1_2.bmp",
    "fr_apt3_4.bmp",         "gr_apt1_2.bmp",        "gr_apt3_4.bmp",        "gr_apt5_6.bmp",
    "ap_tb1_2.bmp",          "ap_tb3_4.bmp",         "ap_tb5_6.bmp",         "gv_tb1_2.bmp",
    "gv_tb3_4.bmp",          "wh_tb1_2.bmp",         "wh_tb3_4.bmp",         "sky_tb_black1_2.bmp",
    "sky_tb_black3_4.bmp",   "sky_tb_blue1_2.bmp",   "sky_tb_blue3_4.bmp",   "sky_tb_dkgray1_2.bmp",
    "sky_tb_dkgray3_4.bmp",  "sky_tb_ltgray1_2.bmp", "sky_tb_ltgray3_4.bmp", "sky_tb_midgray1_2.bmp",
    "sky_tb_midgray3_4.bmp", "sky_tb_red1_2.bmp",    "sky_tb_red3_4.bmp",    "sky_tb_tan1_2.bmp",
    "sky_tb_tan3_4.bmp",     "sky_tb_white1_2.bmp",  "sky_tb_white3_4.bmp",  "air_tb1_2.bmp",
    "air_tb3_4.bmp",         "air_tb5_6.bmp",        "air_tb7_8.bmp",        "air_tb9_10.bmp",
    "ba_tb1_2.bmp",          "ba_tb3_4.bmp",         "sky_tb_tan5_6.bmp"};

constexpr std::array<std::string_view, 81> windowFiles{
    "br_apt1w.bmp",       "br_apt2w.bmp",       "br_apt3w.bmp",       "br_apt4w.bmp",
    "br_apt5w.bmp",       "br_apt6w.bmp",       "fr_apt1w.bmp",       "fr_apt2w.bmp",
    "fr_apt3w.bmp",       "fr_apt4w.bmp",       "gr_apt1w.bmp",       "gr_apt2w.bmp",
    "gr_apt3w.bmp",       "gr_apt4w.bmp",       "gr_apt5w.bmp",       "gr_apt6w.bmp",
    "ap_w1.bmp",          "ap_w2.bmp",          "ap_w3.bmp",          "ap_w4.bmp",
    "ap_w5.bmp",          "ap_w6.bmp",          "gv_w1.bmp",          "gv_w2.bmp",
    "gv_w3.bmp",          "wh_w1.bmp",          "wh_w2.bmp",          "wh_w3.bmp",
    "wh_w4.bmp",          "wh_w5.bmp",          "wh_w6.bmp",          "sky_w_black1.bmp",
    "sky_w_black2.bmp",   "sky_w_black3.bmp",   "sky_w_blue1.bmp",    "sky_w_blue2.bmp",
    "sky_w_blue3.bmp",    "sky_w_dkgray1.bmp",  "sky_w_dkgray2.bmp",  "sky_w_dkgray3.bmp",
    "sky_w_ltgray1.bmp",  "sky_w_ltgray2.bmp",  "sky_w_ltgray3.bmp",  "sky_w_ltgray4.bmp",
    "sky_w_midgray1.bmp", "sky_w_midgray2.bmp", "sky_w_midgray3.bmp", "sky_w_red1.bmp",
    "sky_w_red2.bmp",     "sky_w_red3.bmp",     "sky_w_tan1.bmp",     "sky_w_tan2.bmp",
    "sky_w_tan3.bmp",     "sky_w_white1.bmp",   "sky_w_white2.bmp",   "sky_w_white3.bmp",
    "air_w1.bmp",         "air_w2.bmp",         "air_w3.bmp",         "air_w4.bmp",
    "air_w5.bmp",         "air_w6.bmp",         "air_w7.bmp",         "air_w8.bmp",
    "air_w9.bmp",         "air_w10.bmp",        "ba_w1.bmp",          "ba_w2.bmp",
    "ba_w3.bmp",          "ba_w4.bmp",          "ba_w5.bmp",          "ap_w7.bmp",
    "sky_w_black4.bmp",   "sky_w_black5.bmp",   "sky_w_blue4.bmp",    "sky_w_dkgray4.bmp",
    "sky_w_midgray4.bmp", "sky_w_midgray5.bmp", "sky_w_midgray6.bmp", "sky_w_tan4.bmp",
    "sky_w_white4.bmp"};

constexpr std::array<std::string_view, 34> roofFiles{
    "roof1.bmp",           "roof2.bmp",          "roof3.bmp",       "roof4.bmp",         "roof5.bmp",
    "flatroof_1.bmp",      "flatroof_2.bmp",     "flatroof_3.bmp",  "flatroof_4.bmp",    "flatroof_5.bmp",
    "flatroof_6.bmp",      "flatroof_7.bmp",     "flatroof_8.bmp",  "tileroof_1.bmp",    "tileroof_2.bmp",
    "tileroof_3.bmp",      "tileroof_4.bmp",     "tileroof_5.bmp",  "blueroof.bmp",      "blueroof2.bmp",
    "blueroof3.bmp",       "dkgray.bmp",         "dkgrayroof.bmp",  "dkgrayroof3.bmp",   "ltgrayroof.bmp",
    "ltgrayroof2.bmp",     "mdgrayroof.bmp",     "tanroof.bmp",     "tanroof2.bmp",      "tanroof3.bmp",
    "lightgravelroof.bmp", "darkgravelroof.bmp", "shingleroof.bmp", "corrugatedroof.bmp"};

constexpr std::array<PlainColour, 4> plainColours{{{255, 255, 255}, {255, 0, 0}, {0, 255, 0}, {0, 0, 255}}};

// A wall file's name ends in the numbers of its two textures. Which half the first one is has no witness; the
// order of the words that describe them says lower.
constexpr TexturePart firstOfPair = TexturePart::lowerHalf;
constexpr TexturePart secondOfPair = TexturePart::upperHalf;

} // namespace

std::span<const std::string_view> textureFiles(TextureTable table) {
    switch (table) {
    case TextureTable::wall:
        return wallFiles;
    case TextureTable::window:
        return windowFiles;
    case TextureTable::roof:
        return roofFiles;
    }
    return {};
}

Surface surfaceOf(TextureTable table, std::optional<int> code) {
    const bool pairs = table == TextureTable::wall;
    const int perFile = pairs ? 2 : 1;
    const int plainCodes = static_cast<int>(plainColours.size()) * perFile;
    const int codes = plainCodes + static_cast<int>(textureFiles(table).size()) * perFile;
    if (!code || *code < 0 || *code >= codes)
        return neutralColour;
    if (*code < plainCodes)
        return plainColours[static_cast<std::size_t>(*code / perFile)];
    const int texture = *code - plainCodes;
    if (!pairs)
        return TexturePlace{table, texture, TexturePart::whole};
    return TexturePlace{table, texture / 2, texture % 2 == 0 ? firstOfPair : secondOfPair};
}

} // namespace quillset
