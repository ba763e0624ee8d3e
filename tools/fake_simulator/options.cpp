#include "fake_simulator/options.h"

#include <charconv>
#include <string_view>

namespace quillset::tools {

const char* const usage = "fake_simulator [options]\n"
                          "  --class NAME         window class (UIPCMAIN)\n"
                          "  --answer N           answer to each exchange (1)\n"
                          "  --set OFFSET=BYTES   hexadecimal, e.g. 0580=000000C0\n"
                          "  --scribble AT=WORD   hexadecimal word put into the client's block at byte AT\n"
                          "  --scribble-from N    from the N-th exchange on (1)\n"
                          "  --late MS            the first exchange takes that long\n"
                          "  --late-count N       the first N exchanges take that long\n"
                          "  --die-in N           ends in the middle of the N-th exchange\n"
                          "  --log                prints each request\n"
                          "  --until-input-ends   ends with the standard input\n";

namespace {

constexpr std::size_t addressSpace = 0x10000;

template <class Number>
bool parse(std::string_view text, Number& number, int base = 10) {
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number, base);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

bool parseBytes(std::string_view text, std::vector<std::byte>& bytes) {
    for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
        unsigned char byte = 0;
        if (!parse(text.substr(i, 2), byte, 16))
            return false;
        bytes.push_back(std::byte{byte});
    }
    return text.size() % 2 == 0;
}

bool parsePair(std::string_view text, Options& options, bool preset) {
    const std::size_t mark = text.find('=');
    if (mark == std::string_view::npos)
        return false;
    const std::string_view value = text.substr(mark + 1);
    std::uint32_t place = 0;
    if (!parse(text.substr(0, mark), place, 16))
        return false;
    if (preset) {
        std::vector<std::byte>& bytes = options.presets.emplace_back(Preset{place, {}}).bytes;
        return parseBytes(value, bytes) && place + bytes.size() <= addressSpace;
    }
    return parse(value, options.damages.emplace_back(Damage{place, 0}).word, 16);
}

bool parseValue(const std::string& name, const std::string& value, Options& options) {
    if (name == "--class")
        options.windowClass = value;
    else if (name == "--answer")
        return parse(value, options.answer);
    else if (name == "--set")
        return parsePair(value, options, true);
    else if (name == "--scribble")
        return parsePair(value, options, false);
    else if (name == "--scribble-from")
        return parse(value, options.damageFrom);
    else if (name == "--late")
        return parse(value, options.lateMilliseconds);
    else if (name == "--late-count")
        return parse(value, options.lateCount);
    else if (name == "--die-in")
        return parse(value, options.dieIn);
    else
        return false;
    return true;
}

} // namespace

std::optional<Options> parseOptions(std::span<const std::string> arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--log")
            options.log = true;
        else if (arguments[i] == "--until-input-ends")
            options.untilInputEnds = true;
        else if (i + 1 == arguments.size() || !parseValue(arguments[i], arguments[i + 1], options))
            return std::nullopt;
        else
            ++i;
    }
    return options;
}

} // namespace quillset::tools
