#include "properties/spin_settings.h"

#include <charconv>
#include <limits>

namespace quillset {

namespace {

template <class Number>
bool parse(std::string_view text, Number& number, int base) {
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number, base);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

/// Reads one setting after the other; each keeps its default when the bag holds nothing usable.
class Reader {
public:
    explicit Reader(PropertyBag& bag)
        : bag_(bag) {}

    void number(const char* name, int& value) {
        std::int16_t read = 0;
        if (parse(bag_.read(name, std::to_string(value)), read, 10))
            value = read;
    }
    void colour(const char* name, std::uint32_t& value);
    void flag(const char* name, bool& value) {
        const std::string text = bag_.read(name, value ? "True" : "False");
        if (text == "True" || text == "False")
            value = text == "True";
    }
    void text(const char* name, std::string& value) { value = bag_.read(name, value); }

private:
    PropertyBag& bag_;
};

std::string colourText(std::uint32_t colour) {
    char digits[8] = {};
    const auto end = std::to_chars(std::begin(digits), std::end(digits), colour, 16).ptr;
    return "0x" + std::string(std::begin(digits), end);
}

void Reader::colour(const char* name, std::uint32_t& value) {
    const std::string text = bag_.read(name, colourText(value));
    std::uint32_t read = 0;
    if (text.rfind("0x", 0) == 0 && parse(std::string_view(text).substr(2), read, 16))
        value = read;
}

} // namespace

SpinSettings readSpinSettings(PropertyBag& bag) {
    SpinSettings settings;
    Reader reader(bag);
    reader.colour("BackColor", settings.backColor);
    reader.colour("ForeColor", settings.foreColor);
    reader.flag("Enabled", settings.enabled);
    reader.text("Font", settings.font);
    reader.number("BorderStyle", settings.borderStyle);
    reader.number("LargeChange", settings.largeChange);
    reader.number("Max", settings.max);
    reader.number("Min", settings.min);
    reader.number("SmallChange", settings.smallChange);
    reader.text("Text", settings.text);
    reader.number("Value", settings.position);
    return settings;
}

void writeSpinSettings(PropertyBag& bag, const SpinSettings& settings) {
    bag.write("BackColor", colourText(settings.backColor));
    bag.write("ForeColor", colourText(settings.foreColor));
    bag.write("Enabled", settings.enabled ? "True" : "False");
    bag.write("Font", settings.font);
    bag.write("BorderStyle", std::to_string(settings.borderStyle));
    bag.write("LargeChange", std::to_string(settings.largeChange));
    bag.write("Max", std::to_string(settings.max));
    bag.write("Min", std::to_string(settings.min));
    bag.write("SmallChange", std::to_string(settings.smallChange));
    bag.write("Text", settings.text);
    bag.write("Value", std::to_string(settings.position));
}

} // namespace quillset
