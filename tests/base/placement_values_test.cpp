#include "base/coordinate_text.h"
#include "base/guid_bytes.h"

#include <gtest/gtest.h>

using namespace quillset;

namespace {

template <class T>
struct Row {
    const char* text;
    std::optional<T> value;
};

} // namespace

TEST(CoordinateText, Coordinates) {
    const Row<double> latitudes[] = {
        {"52.1", 52.1},
        {" -33.25 ", -33.25},
        {"+1", 1},
        {"1e1", 10},
        {"90", 90},
        {"-90", -90},
        {"N43 04.6550", 43 + 4.6550 / 60},
        {"S43* 04.6550", -(43 + 4.6550 / 60)},
        {"N43\u00B0 04' 30\"", 43 + 4 / 60.0 + 30 / 3600.0},
        {"N43.5", 43.5},
        {"N90 0", 90},
        {"", {}},
        {"abc", {}},
        {"90.0000001", {}},
        {"N90 0.1", {}},
        {"N43 60", {}},
        {"N43.5 10", {}},
        {"N43 10.5 20", {}},
        {"N43 10 20 30", {}},
        {"N", {}},
        {"N-43", {}},
        {"n43 10", {}},
        {"E43 10", {}},
        {"52,1", {}},
        {"52.1x", {}},
        {"NaN", {}},
        {"inf", {}},
        {"0x10", {}},
        {"1e400", {}},
    };
    for (const auto& row : latitudes) {
        const auto value = parseLatitude(row.text);
        ASSERT_EQ(value.has_value(), row.value.has_value()) << row.text;
        EXPECT_NEAR(value.value_or(0), row.value.value_or(0), 1e-12) << row.text;
    }
    EXPECT_NEAR(parseLongitude("W070* 49.4533").value_or(0), -(70 + 49.4533 / 60), 1e-12);
    EXPECT_EQ(parseLongitude("-180"), -180);
    EXPECT_EQ(parseLongitude("E180"), 180);
    EXPECT_EQ(parseLongitude("180.5"), std::nullopt);
}

TEST(CoordinateText, Altitudes) {
    const Row<double> rows[] = {
        {"0M", 0},         {"12.5", 12.5},    {"-2.0M", -2}, {"2301F", 2301 * 0.3048},
        {"-100F", -30.48}, {"0.499M", 0.499}, {".5", 0.5},   {"2147483M", 2147483},
        {"2147484M", {}},  {"", {}},          {"M", {}},     {"1m", {}},
        {"1FM", {}},       {"1 M", {}},       {"1e3M", {}},  {"nanM", {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(parseAltitude(row.text), row.value) << row.text;
    EXPECT_EQ(parseNumber("-725.5"), -725.5);
}

TEST(GuidText, AllSpellingsGiveTheSameBytes) {
    constexpr GuidBytes bytes = {0xb0, 0xa0, 0x08, 0x48, 0x56, 0xfc, 0x43, 0x4d,
                                 0x91, 0x7d, 0x86, 0x20, 0xb3, 0x6e, 0x8c, 0xfc};
    for (const char* text :
         {"4808a0b04d43fc5620867d91fc8c6eb3", "4808A0B04D43FC5620867D91FC8C6EB3",
          "{4808a0b0-fc56-4d43-917d-8620b36e8cfc}", "4808A0B0-FC56-4D43-917D-8620B36E8CFC"}) {
        EXPECT_EQ(parseGuid(text), bytes) << text;
        EXPECT_EQ(comparableGuid(text), comparableGuid("4808A0B04D43FC5620867D91FC8C6EB3")) << text;
    }
    for (const char* text : {"", "4808a0b04d43fc5620867d91fc8c6eb", "4808a0b04d43fc5620867d91fc8c6eb33",
                             "4808a0b04d43fc5620867d91fc8c6ebg", "-808a0b04d43fc5620867d91fc8c6eb3",
                             "{4808a0b0-fc56-4d43-917d-8620b36e8cfc", "4808a0b0-fc564-d43-917d-8620b36e8cfc",
                             "{4808a0b0-fc56-4d43-917d-8620b36e8cfg}", " 4808a0b04d43fc5620867d91fc8c6eb3"})
        EXPECT_EQ(parseGuid(text), std::nullopt) << text;
    EXPECT_NE(comparableGuid("4808A0B04D43FC5620867D91FC8C6EB3"),
              comparableGuid("5808A0B04D43FC5620867D91FC8C6EB3"));
    EXPECT_EQ(comparableGuid("acropol"), "acropol");
}
