#include "compiler/value_parsing.h"

#include <gtest/gtest.h>

using namespace quillset::compiler;

namespace {

template <class T>
struct Row {
    const char* text;
    std::optional<T> value;
};

} // namespace

TEST(ValueParsing, Numbers) {
    const Row<std::uint16_t> words[] = {
        {"0", 0},    {"65535", 65535}, {" 7 ", 7},  {"+7", 7},    {"65536", {}},       {"-1", {}},
        {"1.5", {}}, {"", {}},         {"ten", {}}, {"0x10", {}}, {"99999999999", {}},
    };
    for (const auto& row : words)
        EXPECT_EQ(parseWord(row.text), row.value) << row.text;
    const Row<double> sizes[] = {{"40.5", 40.5}, {"65535", 65535}, {"65535.1", {}}, {"-0.1", {}}, {"", {}}};
    for (const auto& row : sizes)
        EXPECT_EQ(parseSize(row.text), row.value) << row.text;
    const Row<float> scales[] = {
        {"1.0", 1.0F}, {"0.001", 0.001F}, {"1e38", 1e38F}, {"0", {}},    {"-1", {}},
        {"NaN", {}},   {"INF", {}},       {"1e400", {}},   {"1e39", {}}, {"1e-60", {}},
    };
    for (const auto& row : scales)
        EXPECT_EQ(parseScale(row.text), row.value) << row.text;
    EXPECT_EQ(parseSides("2"), std::nullopt);
    EXPECT_EQ(parseSides("256"), std::nullopt);
    EXPECT_EQ(parseSides("3"), 3);
}

TEST(ValueParsing, EffectTexts) {
    EXPECT_EQ(parseEffectText("Zürich €"), "Z\xFCrich \x80"); // one byte each in windows-1252
    EXPECT_EQ(parseEffectText("Łódź"), std::nullopt);
    EXPECT_EQ(parseEffectText("a\nb"), std::nullopt);
    EXPECT_TRUE(parseEffectName(std::string(79, 'x')).has_value());
    EXPECT_FALSE(parseEffectName(std::string(80, 'x')).has_value());
    std::string umlauts; // 158 bytes of UTF-8, 79 of windows-1252
    for (int i = 0; i < 79; ++i)
        umlauts += "ü";
    EXPECT_TRUE(parseEffectName(umlauts).has_value());
    EXPECT_EQ(parseEffectName(""), std::nullopt);
}
