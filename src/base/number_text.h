#pragma once

#include <string>
#include <string_view>

namespace quillset {

/// A number as the document holds it: plain decimals with a decimal point in every locale, at most 15
/// significant digits, no trailing zeros, never an exponent for 1e-15 <= |value| < 1e15; minus zero is "0".
/// Beyond that range, and for values that are no numbers, the shortest text with an exponent ("1E+15").
[[nodiscard]] std::string numberText(double value);

/// The number at the start of a text: leading blanks are skipped, "." is the decimal point, an exponent is
/// accepted; a text that does not start with a number gives 0. Values beyond the range of double are cut to
/// its limits.
[[nodiscard]] double leadingNumber(std::string_view text);

} // namespace quillset
