#include "build/console_text.h"

namespace quillset {

std::string toConsoleCodePage(std::string_view utf8) {
    return std::string(utf8);
}

std::string fromConsoleCodePage(std::string_view bytes) {
    std::string text;
    for (const char c : bytes) {
        if (static_cast<unsigned char>(c) < 0x80)
            text += c;
        else
            text += "\xEF\xBF\xBD"; // U+FFFD
    }
    return text;
}

} // namespace quillset
