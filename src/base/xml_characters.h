#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace quillset {

/// What a byte of UTF-8 can be in XML. The scanners of the checker and of the writer run over everything that
/// is not a stop for them, byte by byte, and look closer only at stops. A zero byte is a stop for all.
namespace xml_byte {
inline constexpr std::uint8_t nameStart = 1;  // ASCII only; ":" is none, since it separates the prefix
inline constexpr std::uint8_t name = 2;       // ASCII only
inline constexpr std::uint8_t space = 4;      // blank, tab, CR, LF
inline constexpr std::uint8_t textStop = 8;   // & < ] and every illegal or non-ASCII byte
inline constexpr std::uint8_t valueStop = 16; // & < " ' and every illegal or non-ASCII byte
inline constexpr std::uint8_t plainStop = 32; // every illegal or non-ASCII byte
inline constexpr std::uint8_t literal = 64;   // allowed in a public identifier
} // namespace xml_byte

[[nodiscard]] constexpr std::uint8_t xmlByteClass(unsigned byte) {
    using namespace xml_byte;
    const unsigned char c = static_cast<unsigned char>(byte);
    if (c == ' ' || c == '\r' || c == '\n')
        return space | literal;
    if (c == '\t')
        return space;
    if (c < 0x20 || c >= 0x80)
        return textStop | valueStop | plainStop;
    if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_')
        return nameStart | name | literal;
    if ((c >= '0' && c <= '9') || c == '-' || c == '.')
        return name | literal;
    switch (c) {
    case '&':
    case '<':
        return textStop | valueStop;
    case ']':
        return textStop;
    case '"':
        return valueStop;
    case '\'':
        return valueStop | literal;
    case '[':
    case '\\':
    case '>':
    case '^':
    case '`':
    case '{':
    case '|':
    case '}':
    case '~':
    case 0x7F:
        return 0;
    default:
        return literal;
    }
}

inline constexpr std::array<std::uint8_t, 256> xmlByteClasses = [] {
    std::array<std::uint8_t, 256> classes{};
    for (unsigned byte = 0; byte < 256; ++byte)
        classes[byte] = xmlByteClass(byte);
    return classes;
}();

[[nodiscard]] inline bool hasClass(char byte, std::uint8_t wanted) {
    return (xmlByteClasses[static_cast<unsigned char>(byte)] & wanted) != 0;
}

/// One character of a UTF-8 text.
struct Utf8Character {
    char32_t code = 0;
    /// Bytes it takes; 0 when the bytes are no valid UTF-8 (cut short, overlong, a surrogate, out of range).
    unsigned length = 0;
};

/// The character at `at`. The text must end in a zero byte, which stops a cut character.
[[nodiscard]] Utf8Character utf8At(const char* at);
/// Writes a character as UTF-8 and gives the number of bytes, at most 4.
unsigned putUtf8(char32_t code, char* out);

/// The characters of XML 1.0, fifth edition: all that may stand in a document, and those of names (without
/// the colon).
[[nodiscard]] bool isXmlCharacter(char32_t code);
[[nodiscard]] bool isNameStart(char32_t code);
[[nodiscard]] bool isNameCharacter(char32_t code);

/// The text with U+FFFD in the place of whatever XML cannot hold; unchanged when it can hold all of it.
[[nodiscard]] std::string storableText(const std::string& text);

} // namespace quillset
