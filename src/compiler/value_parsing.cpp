#include "compiler/value_parsing.h"

#include "base/text_encoding.h"
#include "base/xml_characters.h"
#include "compiler/format_choices.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace quillset::compiler {

namespace {

constexpr double metresPerFoot = 0.3048;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
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

std::optional<double> decimalNumber(std::string_view text) {
    return numberIn(trimmed(text), std::chars_format::general);
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
        degrees = decimalNumber(text);
    }
    if (!degrees || std::abs(*degrees) > limit)
        return std::nullopt;
    return degrees;
}

template <class T, std::size_t N>
std::optional<T> wordAmong(const std::pair<std::string_view, T> (&words)[N], std::string_view text) {
    const auto found = std::find_if(std::begin(words), std::end(words),
                                    [&](const auto& word) { return word.first == text; });
    if (found == std::end(words))
        return std::nullopt;
    return found->second;
}

std::optional<std::uint32_t> wholeNumber(std::string_view text, std::uint32_t smallest,
                                         std::uint32_t largest) {
    text = trimmed(text);
    if (text.starts_with('+'))
        text.remove_prefix(1);
    std::uint32_t value = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || failure != std::errc() || end != text.data() + text.size() || value < smallest ||
        value > largest)
        return std::nullopt;
    return value;
}

// Nothing unless every character is a hexadecimal digit.
std::optional<std::uint32_t> hexadecimal(std::string_view digits) {
    std::uint32_t value = 0;
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (failure != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return value;
}

struct GuidPart {
    std::size_t digit;  // of its first digit
    std::size_t digits; // 2, 4 or 8: a number stored with its low byte first
};

constexpr GuidPart plainParts[] = {{0, 8}, {8, 8}, {16, 8}, {24, 8}};
constexpr GuidPart dashedParts[] = {{0, 8},  {9, 4},  {14, 4}, {19, 2}, {21, 2}, {24, 2},
                                    {26, 2}, {28, 2}, {30, 2}, {32, 2}, {34, 2}};

template <std::size_t N>
std::optional<GuidBytes> guidFrom(std::string_view text, const GuidPart (&parts)[N]) {
    GuidBytes bytes{};
    std::size_t next = 0;
    for (const GuidPart& part : parts) {
        const auto number = hexadecimal(text.substr(part.digit, part.digits));
        if (!number)
            return std::nullopt;
        for (std::size_t i = 0; i < part.digits / 2; ++i)
            bytes[next++] = static_cast<std::uint8_t>(*number >> (8 * i) & 0xFFU);
    }
    return bytes;
}

} // namespace

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

std::optional<double> parseAngle(std::string_view text) {
    return decimalNumber(text);
}

std::optional<float> parseScale(std::string_view text) {
    const auto number = decimalNumber(text);
    if (!number || *number > static_cast<double>(std::numeric_limits<float>::max()))
        return std::nullopt;
    const auto scale = static_cast<float>(*number);
    if (!(scale > 0))
        return std::nullopt;
    return scale;
}

std::optional<bool> parseBoolean(std::string_view text) {
    constexpr std::pair<std::string_view, bool> words[] = {
        {"TRUE", true}, {"FALSE", false}, {"YES", true}, {"NO", false}};
    return wordAmong(words, text);
}

std::optional<std::uint16_t> parseImageComplexity(std::string_view text) {
    constexpr std::pair<std::string_view, std::uint16_t> words[] = {
        {"NORMAL", 2}, {"VERY_SPARSE", 0}, {"SPARSE", 1},
        {"DENSE", 3},  {"VERY_DENSE", 4},  {"EXTREMELY_DENSE", 5}};
    return wordAmong(words, text);
}

std::optional<std::uint16_t> parseWord(std::string_view text) {
    const auto number = wholeNumber(text, 0, format::largestWord);
    return number ? std::optional(static_cast<std::uint16_t>(*number)) : std::nullopt;
}

std::optional<double> parseSize(std::string_view text) {
    const auto number = decimalNumber(text);
    if (!number || *number < 0 || *number > format::largestWord)
        return std::nullopt;
    return number;
}

std::optional<std::uint16_t> parseSides(std::string_view text) {
    const auto number = wholeNumber(text, format::fewestSides, format::mostSides);
    return number ? std::optional(static_cast<std::uint16_t>(*number)) : std::nullopt;
}

std::optional<GuidBytes> parseGuid(std::string_view text) {
    if (text.size() == 32)
        return guidFrom(text, plainParts);
    if (text.size() == 38 && text.front() == '{' && text.back() == '}')
        text = text.substr(1, 36);
    const bool dashed =
        text.size() == 36 && text[8] == '-' && text[13] == '-' && text[18] == '-' && text[23] == '-';
    return dashed ? guidFrom(text, dashedParts) : std::nullopt;
}

std::optional<BuildingShape> parseRoofType(std::string_view text) {
    constexpr std::pair<std::string_view, BuildingShape> words[] = {{"FLAT", BuildingShape::flat},
                                                                    {"PEAKED", BuildingShape::peaked},
                                                                    {"RIDGE", BuildingShape::ridge},
                                                                    {"SLANT", BuildingShape::slant}};
    return wordAmong(words, text);
}

std::optional<std::string> parseEffectText(std::string_view text) {
    std::string utf8(text);
    for (const char* at = utf8.c_str(); at != utf8.data() + utf8.size();) {
        const Utf8Character character = utf8At(at);
        const bool control = character.code < 0x20 || character.code == 0x7F;
        if (character.length == 0 || control || !fits(character.code, format::effectEncoding))
            return std::nullopt;
        at += character.length;
    }
    std::string encoded = encodeText(std::move(utf8), format::effectEncoding);
    if (encoded.size() > format::effectTextBytes)
        return std::nullopt;
    return encoded;
}

std::optional<std::string> parseEffectName(std::string_view text) {
    return text.empty() ? std::nullopt : parseEffectText(text);
}

std::optional<std::string> parsePath(std::string_view text) {
    return text.empty() ? std::nullopt : std::optional<std::string>(text);
}

} // namespace quillset::compiler
