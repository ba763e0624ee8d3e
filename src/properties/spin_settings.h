#pragma once

#include <cstdint>
#include <string>

namespace quillset {

/// Where a control's settings are kept, by name.
class PropertyBag {
public:
    virtual ~PropertyBag() = default;
    /// The stored text, or `defaultText` when there is none.
    [[nodiscard]] virtual std::string read(const std::string& name, const std::string& defaultText) = 0;
    virtual void write(const std::string& name, const std::string& text) = 0;
};

/// The stored settings of a spin box, in the order in which they are read and written.
struct SpinSettings {
    /// 0x00BBGGRR, or 0x80000000 + the number of a system colour (5 window background, 8 window text).
    std::uint32_t backColor = 0x80000005U;
    std::uint32_t foreColor = 0x80000008U;
    bool enabled = true;
    /// As the toolkit describes it; empty for the font of the surroundings.
    std::string font;
    int borderStyle = 1;
    int largeChange = 1;
    int max = 32766;
    int min = 0;
    int smallChange = 1;
    std::string text = "0";
    /// Stored as "Value", but deliberately the scroll bar's position, which is the number negated: settings
    /// already stored depend on it.
    int position = 0;

    bool operator==(const SpinSettings&) const = default;
};

/// A text that is no 16-bit number, colour or Boolean reads as the default.
[[nodiscard]] SpinSettings readSpinSettings(PropertyBag& bag);
void writeSpinSettings(PropertyBag& bag, const SpinSettings& settings);

} // namespace quillset
