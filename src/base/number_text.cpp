#include "base/number_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace quillset {

namespace {

constexpr int significantDigits = 15;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Digits without trailing zeros and the power of ten of the first digit, from "d.ddde[+-]dd".
struct Decimal {
    std::string digits;
    int exponent = 0;
};

Decimal decimalOf(double magnitude) {
    std::array<char, 40> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                   std::chars_format::scientific, significantDigits - 1)
                         .ptr;
    const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    const std::size_t mark = text.find('e');
    Decimal decimal;
    for (const char c : text.substr(0, mark))
        if (isDigit(c))
            decimal.digits.push_back(c);
    while (decimal.digits.size() > 1 && decimal.digits.back() == '0')
        decimal.digits.pop_back();
    std::string_view exponent = text.substr(mark + 1);
    if (exponent.front() == '+')
        exponent.remove_prefix(1);
    std::from_chars(exponent.data(), exponent.data() + exponent.size(), decimal.exponent);
    return decimal;
}

std::string plainText(const Decimal& decimal) {
    const auto count = static_cast<int>(decimal.digits.size());
    if (decimal.exponent < 0)
        return "0." + std::string(static_cast<std::size_t>(-decimal.exponent - 1), '0') + decimal.digits;
    const int whole = decimal.exponent + 1;
    if (count <= whole)
        return decimal.digits + std::string(static_cast<std::size_t>(whole - count), '0');
    return decimal.digits.substr(0, static_cast<std::size_t>(whole)) + "." +
           decimal.digits.substr(static_cast<std::size_t>(whole));
}

std::string exponentText(const Decimal& decimal) {
    std::string text = decimal.digits.substr(0, 1);
    if (decimal.digits.size() > 1)
        text += "." + decimal.digits.substr(1);
    const int size = std::abs(decimal.exponent);
    return text + (decimal.exponent < 0 ? "E-" : "E+") + (size < 10 ? "0" : "") + std::to_string(size);
}

} // namespace

std::string numberText(double value) {
    if (std::isnan(value))
        return "NaN";
    if (std::isinf(value))
        return value < 0 ? "-Infinity" : "Infinity";
    if (value == 0)
        return "0";
    const Decimal decimal = decimalOf(std::abs(value));
    const bool plain = decimal.exponent >= -significantDigits && decimal.exponent < significantDigits;
    return (value < 0 ? "-" : "") + (plain ? plainText(decimal) : exponentText(decimal));
}

double leadingNumber(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size() && (text[at] == ' ' || text[at] == '\t' || text[at] == '\r' || text[at] == '\n'))
        ++at;
    bool negative = false;
    if (at < text.size() && (text[at] == '+' || text[at] == '-'))
        negative = text[at++] == '-';
    // from_chars would also take "inf" and "nan": only a digit or a point may begin a number here.
    if (at == text.size() || !(isDigit(text[at]) || text[at] == '.'))
        return 0;
    double value = 0;
    const auto result = std::from_chars(text.data() + at, text.data() + text.size(), value);
    if (result.ec == std::errc::invalid_argument)
        return 0;
    if (result.ec == std::errc::result_out_of_range) {
        const std::string_view number(text.data() + at,
                                      static_cast<std::size_t>(result.ptr - text.data()) - at);
        const std::size_t mark = number.find_first_of("eE");
        const bool tiny =
            mark != std::string_view::npos && mark + 1 < number.size() && number[mark + 1] == '-';
        value = tiny || number.front() == '.' ? 0 : std::numeric_limits<double>::max();
    }
    return negative && value != 0 ? -value : value;
}

} // namespace quillset
