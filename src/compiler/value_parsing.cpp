#include "compiler/value_parsing.h"

#include "base/text_encoding.h"
#include "base/trimmed.h"
#include "base/xml_characters.h"
#include "compiler/format_choices.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace quillset::compiler {

namespace {

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

} // namespace

std::optional<float> parseScale(std::string_view text) {
    const auto number = parseNumber(text);
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
    const auto number = parseNumber(text);
    if (!number || *number < 0 || *number > format::largestWord)
        return std::nullopt;
    return number;
}

std::optional<std::uint16_t> parseSides(std::string_view text) {
    const auto number = wholeNumber(text, format::fewestSides, format::mostSides);
    return number ? std::optional(static_cast<std::uint16_t>(*number)) : std::nullopt;
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
