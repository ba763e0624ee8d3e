#include "base/guid_bytes.h"

#include <charconv>

namespace quillset {

namespace {

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

std::optional<GuidBytes> parseGuid(std::string_view text) {
    if (text.size() == 32)
        return guidFrom(text, plainParts);
    if (text.size() == 38 && text.front() == '{' && text.back() == '}')
        text = text.substr(1, 36);
    const bool dashed =
        text.size() == 36 && text[8] == '-' && text[13] == '-' && text[18] == '-' && text[23] == '-';
    return dashed ? guidFrom(text, dashedParts) : std::nullopt;
}

std::string comparableGuid(std::string_view text) {
    const std::optional<GuidBytes> bytes = parseGuid(text);
    if (!bytes)
        return std::string(text);
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string plain;
    for (const std::uint8_t byte : *bytes) {
        plain += digits[byte >> 4];
        plain += digits[byte & 0xF];
    }
    return plain;
}

} // namespace quillset
