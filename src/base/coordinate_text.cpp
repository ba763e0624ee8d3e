#include "base/coordinate_text.h"

#include "base/trimmed.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace quillset {

namespace {

constexpr double metresPerFoot = 0.3048;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// The number that makes up the whole text. The library's reader would take "inf", "nan" and hexadecimal
// digits, and no plus sign.
std::optional<double> numberIn(std::string_view text, std::chars_format format) {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    if (text.empty() || (!isDigit(text.front()) && text.front() != '.'))
        return std::nullopt;
    double value = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value, format);
    if (failure != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return negative ? -value : value;
}

// Takes a number without sign or exponent off the front.
std::optional<double> takeFixed(std::string_view& text) {
    const std::size_t length = std::min(text.find_first_not_of("0123456789."), text.size());
    const auto number = numberIn(text.substr(0, length), std::chars_format::fixed);
    text.remove_prefix(length);
    return number;
}

// Skips what may stand between degrees, minutes and seconds: blanks and the marks of the units, of which "*"
// takes the degree sign's place in older tools.
void skipUnitMarks(std::string_view& text) {
    for (;;) {
        if (!text.empty() && std::string_view(" *'\"").find(text.front()) != std::string_view::npos)
            text.remove_prefix(1);
        else if (text.starts_with("\u00B0") || text.starts_with("\u00BA"))
            text.remove_prefix(2);
        else
            return;
    }
}

// Degrees, minutes and seconds behind the letter of the hemisphere; the last of them may have a fraction.
std::optional<double> sexagesimal(std::string_view text) {
    constexpr double parts[] = {1, 60, 3600};
    double sum = 0;
    bool whole = true;
    skipUnitMarks(text);
    for (const double part : parts) {
        const auto number = takeFixed(text);
        if (!number || !whole || (part > 1 && *number >= 60))
            return std::nullopt;
        whole = *number == std::floor(*number);
        sum += *number / part;
        skipUnitMarks(text);
        if (text.empty())
            return sum;
    }
    return std::nullopt;
}

std::optional<double> coordinate(std::string_view text, char positive, char negative, double limit) {
    text = trimmed(text);
    std::optional<double> degrees;
    if (text.starts_with(positive) || text.starts_with(negative)) {
        degrees = sexagesimal(text.substr(1));
        if (degrees && text.front() == negative)
            degrees = -*degrees;
    } else {
        degrees = parseNumber(text);
    }
    if (!degrees || std::abs(*degrees) > limit)
        return std::nullopt;
    return degrees;
}

} // namespace

std::optional<double> parseNumber(std::string_view text) {
    return numberIn(trimmed(text), std::chars_format::general);
}

std::optional<double> parseLatitude(std::string_view text) {
    return coordinate(text, 'N', 'S', 90);
}

std::optional<double> parseLongitude(std::string_view text) {
    return coordinate(text, 'E', 'W', 180);
}

std::optional<double> parseAltitude(std::string_view text) {
    text = trimmed(text);
    const bool feet = text.ends_with('F');
    if (feet || text.ends_with('M'))
        text.remove_suffix(1);
    const auto number = numberIn(text, std::chars_format::fixed);
    if (!number)
        return std::nullopt;
    const double metres = feet ? *number * metresPerFoot : *number;
    if (std::abs(metres) * 1000 > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return metres;
}

} // namespace quillset
