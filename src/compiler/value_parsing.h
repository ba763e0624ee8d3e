#pragma once

#include "base/coordinate_text.h"
#include "compiler/records.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillset::compiler {

/// A kind of attribute value: how its text is read, and what to tell a user who wrote something else.
template <class T>
struct ValueKind {
    std::optional<T> (*parse)(std::string_view);
    const char* allowed;
};

/// A number above 0 that a 32-bit float holds.
[[nodiscard]] std::optional<float> parseScale(std::string_view text);
/// TRUE, YES, FALSE, NO; upper case only, as the schema has it.
[[nodiscard]] std::optional<bool> parseBoolean(std::string_view text);
[[nodiscard]] std::optional<std::uint16_t> parseImageComplexity(std::string_view text);
/// A whole number from 0 to 65535.
[[nodiscard]] std::optional<std::uint16_t> parseWord(std::string_view text);
/// A number from 0 to 65535, fractions allowed.
[[nodiscard]] std::optional<double> parseSize(std::string_view text);
[[nodiscard]] std::optional<std::uint16_t> parseSides(std::string_view text);
[[nodiscard]] std::optional<BuildingShape> parseRoofType(std::string_view text);

/// An effect's text in windows-1252; nothing when it is too long or holds a control character or one that
/// windows-1252 lacks.
[[nodiscard]] std::optional<std::string> parseEffectText(std::string_view text);
/// The same for one that must not be empty.
[[nodiscard]] std::optional<std::string> parseEffectName(std::string_view text);
[[nodiscard]] std::optional<std::string> parsePath(std::string_view text);

namespace values {
inline constexpr ValueKind<double> latitude{
    parseLatitude, "a number from -90 to 90, or a text such as N43 04.6550 or S12 30.5"};
inline constexpr ValueKind<double> longitude{
    parseLongitude, "a number from -180 to 180, or a text such as W070 49.4533 or E5 12.0"};
inline constexpr ValueKind<double> altitude{
    parseAltitude, "a number that may end in M (metres) or F (feet), up to 2147483 metres up or down"};
inline constexpr ValueKind<double> angle{parseNumber, "a number of degrees"};
inline constexpr ValueKind<float> scale{parseScale, "a number above 0, at most 3.4e38"};
inline constexpr ValueKind<bool> boolean{parseBoolean, "TRUE, YES, FALSE, NO"};
inline constexpr ValueKind<std::uint16_t> imageComplexity{
    parseImageComplexity, "VERY_SPARSE, SPARSE, NORMAL, DENSE, VERY_DENSE, EXTREMELY_DENSE"};
inline constexpr ValueKind<std::uint16_t> word{parseWord, "a whole number from 0 to 65535"};
inline constexpr ValueKind<double> size{parseSize, "a number from 0 to 65535"};
inline constexpr ValueKind<std::uint16_t> sides{parseSides, "a whole number from 3 to 255"};
inline constexpr ValueKind<GuidBytes> guid{parseGuid,
                                           "32 hexadecimal digits, or {8-4-4-4-12} hexadecimal digits"};
inline constexpr ValueKind<BuildingShape> roofType{parseRoofType, "FLAT, PEAKED, RIDGE, SLANT"};
inline constexpr ValueKind<std::string> effectName{parseEffectName, "1 to 79 characters of windows-1252"};
inline constexpr ValueKind<std::string> effectParams{parseEffectText, "up to 79 characters of windows-1252"};
inline constexpr ValueKind<std::string> path{parsePath, "the path of a file"};
} // namespace values

} // namespace quillset::compiler
