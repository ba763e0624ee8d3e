#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillset {

/// What the conversion window shows for a typed RD position; nothing where there is no number to show, and
/// the old text stays.
struct ConversionTexts {
    std::optional<std::string> latitude;
    std::optional<std::string> longitude;
};

/// Converts the numbers that the texts begin with, 0 where there is none. `separator` stands for the decimal
/// point in the results, not in `x` and `y`.
[[nodiscard]] ConversionTexts conversionTexts(std::string_view x, std::string_view y,
                                              std::string_view separator);

/// A text of the window as the document holds numbers: with decimal points. Nothing else is altered.
[[nodiscard]] std::string textForDocument(std::string text, std::string_view separator);

} // namespace quillset
