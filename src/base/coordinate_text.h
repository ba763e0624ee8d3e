#pragma once

#include <optional>
#include <string_view>

namespace quillset {

// Readers for the values of a placement as scenery files write them. White space around a value does not
// count; a text that holds anything else than the value is none.

/// A finite decimal number with a decimal point; an exponent may follow.
[[nodiscard]] std::optional<double> parseNumber(std::string_view text);
/// Degrees from -90 to 90, or hemisphere, degrees and minutes ("N43 04.6550", "N43* 04.6550", seconds may
/// follow).
[[nodiscard]] std::optional<double> parseLatitude(std::string_view text);
/// The same from -180 to 180 with the hemispheres E and W.
[[nodiscard]] std::optional<double> parseLongitude(std::string_view text);
/// Metres from a number that may end in M (metres) or F (feet); within what 32-bit millimetres hold.
[[nodiscard]] std::optional<double> parseAltitude(std::string_view text);

} // namespace quillset
