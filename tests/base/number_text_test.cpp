#include "base/number_text.h"

#include <gtest/gtest.h>

#include <limits>

using namespace quillset;

TEST(NumberText, PlainDecimalsWithAtMostFifteenDigits) {
    const struct {
        double value;
        const char* text;
    } rows[] = {
        {52.1, "52.1"},
        {5.2, "5.2"},
        {-0.0, "0"},
        {90, "90"},
        {-180, "-180"},
        {52.155172413793103, "52.1551724137931"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 30, "0.0333333333333333"},
        {0.000015, "0.000015"},
        {1e-15, "0.000000000000001"},
        {123456789012345678.0, "1.23456789012346E+17"},
        {999999999999999, "999999999999999"},
        {999999999999999.9, "1E+15"},
        {1e15, "1E+15"},
        {1e-16, "1E-16"},
        {100, "100"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(numberText(row.value), row.text);
}

TEST(LeadingNumber, TakesTheNumberAtTheStart) {
    const struct {
        const char* text;
        double value;
    } rows[] = {
        {"52.5", 52.5}, {"  -3.25 north", -3.25},
        {"+7", 7},      {"52,5", 52},
        {"52 30", 52},  {"N43 04.65", 0},
        {"", 0},        {"-", 0},
        {"abc", 0},     {".5", 0.5},
        {"1e3", 1000},  {"inf", 0},
        {"nan", 0},     {"0x10", 0},
        {"0M", 0},      {"12.5M", 12.5},
        {"- 5", 0},     {"--5", 0},
        {"1e-400", 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(leadingNumber(row.text), row.value) << row.text;
    EXPECT_EQ(leadingNumber("-1e400"), -std::numeric_limits<double>::max());
}
