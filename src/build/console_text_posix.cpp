#include "build/console_text.h"

namespace quillset {

std::string toConsoleCodePage(std::string_view utf8) {
    return std::string(utf8);
}

std::string fromConsoleCodePage(std::string_view bytes) {
    constexpr const char* digits = "0123456789ABCDEF";
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80)
            text += c;
        else
            text.append("\\x") += {digits[byte >> 4U], digits[byte & 15U]};
    }
    return text;
}

} // namespace quillset
