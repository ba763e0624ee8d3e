#include "base/xml_characters.h"

#include <algorithm>

namespace quillset {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

constexpr Range nameStartRanges[] = {{0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},
                                     {0x370, 0x37D},   {0x37F, 0x1FFF},  {0x200C, 0x200D},
                                     {0x2070, 0x218F}, {0x2C00, 0x2FEF}, {0x3001, 0xD7FF},
                                     {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF}};
constexpr Range furtherNameRanges[] = {{0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

template <std::size_t count>
bool isIn(const Range (&ranges)[count], char32_t code) {
    return std::any_of(std::begin(ranges), std::end(ranges),
                       [code](const Range& range) { return code >= range.first && code <= range.last; });
}

unsigned byteAt(const char* at) {
    return static_cast<unsigned char>(*at);
}

bool isContinuation(const char* at) {
    return (byteAt(at) & 0xC0U) == 0x80U;
}

} // namespace

Utf8Character utf8At(const char* at) {
    const unsigned first = byteAt(at);
    if (first < 0x80)
        return {first, 1};
    if (first < 0xC2 || !isContinuation(at + 1))
        return {};
    const unsigned second = byteAt(at + 1) & 0x3FU;
    if (first < 0xE0)
        return {(first & 0x1FU) << 6U | second, 2};
    if (!isContinuation(at + 2))
        return {};
    const unsigned third = byteAt(at + 2) & 0x3FU;
    if (first < 0xF0) {
        const char32_t code = (first & 0x0FU) << 12U | second << 6U | third;
        const bool valid = code >= 0x800 && (code < 0xD800 || code > 0xDFFF);
        return valid ? Utf8Character{code, 3} : Utf8Character{};
    }
    if (first > 0xF4 || !isContinuation(at + 3))
        return {};
    const char32_t code = (first & 0x07U) << 18U | second << 12U | third << 6U | (byteAt(at + 3) & 0x3FU);
    return code >= 0x10000 && code <= 0x10FFFF ? Utf8Character{code, 4} : Utf8Character{};
}

unsigned putUtf8(char32_t code, char* out) {
    const auto continuation = [code](unsigned shift) {
        return static_cast<char>(0x80U | ((code >> shift) & 0x3FU));
    };
    if (code < 0x80) {
        out[0] = static_cast<char>(code);
        return 1;
    }
    if (code < 0x800) {
        out[0] = static_cast<char>(0xC0U | code >> 6U);
        out[1] = continuation(0);
        return 2;
    }
    if (code < 0x10000) {
        out[0] = static_cast<char>(0xE0U | code >> 12U);
        out[1] = continuation(6);
        out[2] = continuation(0);
        return 3;
    }
    out[0] = static_cast<char>(0xF0U | code >> 18U);
    out[1] = continuation(12);
    out[2] = continuation(6);
    out[3] = continuation(0);
    return 4;
}

bool isXmlCharacter(char32_t code) {
    if (code < 0x20)
        return code == '\t' || code == '\n' || code == '\r';
    return code < 0xD800 || (code > 0xDFFF && code < 0xFFFE) || (code > 0xFFFF && code <= 0x10FFFF);
}

bool isNameStart(char32_t code) {
    return code < 0x80 ? (xmlByteClasses[code] & xml_byte::nameStart) != 0 : isIn(nameStartRanges, code);
}

bool isNameCharacter(char32_t code) {
    if (code < 0x80)
        return (xmlByteClasses[code] & xml_byte::name) != 0;
    return isIn(nameStartRanges, code) || isIn(furtherNameRanges, code);
}

std::string storableText(const std::string& text) {
    std::string stored;
    const char* const end = text.c_str() + text.size();
    for (const char* at = text.c_str(); at != end;) {
        const Utf8Character character = utf8At(at);
        if (character.length > 0 && isXmlCharacter(character.code))
            stored.append(at, character.length);
        else
            stored += "\uFFFD";
        at += std::max(character.length, 1U);
    }
    return stored;
}

} // namespace quillset
