#include "base/text_encoding.h"

#include "base/paths.h"
#include "base/single_byte_tables.h"
#include "base/xml_characters.h"

#include <algorithm>

namespace quillset {

namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view littleEndianMark = "\xFF\xFE";
constexpr std::string_view bigEndianMark = "\xFE\xFF";

struct NamedEncoding {
    std::string_view name; // lower case
    TextEncoding encoding;
};

// The first name of an encoding is the registered one, and the one to declare (in the case below).
constexpr NamedEncoding namedEncodings[] = {
    {"utf-8", TextEncoding::utf8},
    {"utf8", TextEncoding::utf8},
    {"utf-16", TextEncoding::utf16LittleEndian},
    {"utf-16le", TextEncoding::utf16LittleEndian},
    {"utf-16be", TextEncoding::utf16BigEndian},
    {"us-ascii", TextEncoding::usAscii},
    {"ascii", TextEncoding::usAscii},
    {"iso-8859-1", TextEncoding::latin1},
    {"latin1", TextEncoding::latin1},
    {"iso-8859-2", TextEncoding::latin2},
    {"iso-8859-9", TextEncoding::latin5},
    {"iso-8859-15", TextEncoding::latin9},
    {"windows-1250", TextEncoding::windows1250},
    {"windows-1251", TextEncoding::windows1251},
    {"windows-1252", TextEncoding::windows1252},
    {"cp1252", TextEncoding::windows1252},
    {"windows-1253", TextEncoding::windows1253},
    {"windows-1254", TextEncoding::windows1254},
    {"windows-1257", TextEncoding::windows1257},
};

bool isUtf16(TextEncoding encoding) {
    return encoding == TextEncoding::utf16LittleEndian || encoding == TextEncoding::utf16BigEndian;
}

bool isUtf8(TextEncoding encoding) {
    return encoding == TextEncoding::utf8 || encoding == TextEncoding::utf8WithMark;
}

// Takes `what` off the front of the text; false when it does not begin so.
bool take(std::string_view& text, std::string_view what) {
    const bool found = text.starts_with(what);
    if (found)
        text.remove_prefix(what.size());
    return found;
}

void takeSpace(std::string_view& text) {
    while (!text.empty() && hasClass(text.front(), xml_byte::space))
        text.remove_prefix(1);
}

// One ` name = "value"` of the declaration.
std::optional<std::string_view> takeValue(std::string_view& text, std::string_view name) {
    takeSpace(text);
    if (!take(text, name))
        return std::nullopt;
    takeSpace(text);
    if (!take(text, "="))
        return std::nullopt;
    takeSpace(text);
    if (text.empty() || (text.front() != '"' && text.front() != '\''))
        return std::nullopt;
    const std::size_t end = text.find(text.front(), 1);
    if (end == std::string_view::npos)
        return std::nullopt;
    const std::string_view value = text.substr(1, end - 1);
    text.remove_prefix(end + 1);
    return value;
}

// The encoding that the declaration names. A malformed one gives nothing: the checker tells what is wrong.
std::optional<std::string_view> encodingDeclared(std::string_view head) {
    if (!take(head, "<?xml") || head.empty() || !hasClass(head.front(), xml_byte::space))
        return std::nullopt;
    if (!takeValue(head, "version"))
        return std::nullopt;
    return takeValue(head, "encoding");
}

// The ASCII characters at the start of UTF-16 text, enough for any declaration.
std::string narrowHead(std::string_view bytes, TextEncoding encoding) {
    constexpr std::size_t enough = 512;
    const std::size_t low = encoding == TextEncoding::utf16LittleEndian ? 0 : 1;
    std::string head;
    for (std::size_t i = 0; i + 1 < bytes.size() && head.size() < enough; i += 2)
        head.push_back(bytes[i + 1 - low] == 0 ? bytes[i + low] : '\x7F');
    return head;
}

EncodingChoice withUtf16Declaration(std::string_view bytes, EncodingChoice choice) {
    const std::string head = narrowHead(bytes, choice.encoding);
    const auto name = encodingDeclared(head);
    if (name && !declares(*name, choice.encoding))
        choice.problem = "the declared encoding \"" + std::string(*name) +
                         "\" contradicts the bytes, which are " + std::string(declaredName(choice.encoding));
    return choice;
}

EncodingChoice withDeclaration(std::string_view bytes, EncodingChoice choice) {
    const auto name = encodingDeclared(bytes);
    if (!name)
        return choice;
    const auto declared = encodingNamed(*name);
    const std::string quoted = "\"" + std::string(*name) + "\"";
    if (!declared)
        choice.problem = "the encoding " + quoted + " is not supported";
    else if (isUtf16(*declared))
        choice.problem = "the encoding " + quoted + " is declared, but the file is not written in it";
    else if (choice.markLength > 0 && !isUtf8(*declared))
        choice.problem =
            "the declared encoding " + quoted + " contradicts the UTF-8 mark at the start of the file";
    else if (choice.markLength == 0)
        choice.encoding = *declared;
    return choice;
}

// A failed decoding at `at`.
Decoding badText(std::size_t at, std::string problem) {
    return {0, at, std::move(problem)};
}

class Utf8Sink {
public:
    explicit Utf8Sink(char* out)
        : out_(out) {}
    void put(char32_t code) {
        char unused[4];
        size_ += putUtf8(code, out_ != nullptr ? out_ + size_ : unused);
    }
    [[nodiscard]] std::size_t size() const { return size_; }

private:
    char* out_;
    std::size_t size_ = 0;
};

Decoding decodeUtf16(std::string_view bytes, TextEncoding encoding, char* out) {
    if (bytes.size() % 2 != 0)
        return badText(bytes.size() - 1, "the last character is cut in half");
    const std::size_t low = encoding == TextEncoding::utf16LittleEndian ? 0 : 1;
    const auto unitAt = [&](std::size_t i) {
        return static_cast<char32_t>(static_cast<unsigned char>(bytes[i + low]) |
                                     static_cast<unsigned char>(bytes[i + 1 - low]) << 8U);
    };
    Utf8Sink sink(out);
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        const char32_t unit = unitAt(i);
        if (unit < 0xD800 || unit > 0xDFFF) {
            sink.put(unit);
            continue;
        }
        const char32_t next = i + 2 < bytes.size() ? unitAt(i + 2) : 0;
        if (unit > 0xDBFF || next < 0xDC00 || next > 0xDFFF)
            return badText(i, "half of a character pair (a surrogate) stands alone");
        sink.put(0x10000 + ((unit - 0xD800) << 10U) + (next - 0xDC00));
        i += 2;
    }
    return {sink.size(), 0, {}};
}

Decoding decodeSingleBytes(std::string_view bytes, TextEncoding encoding, char* out) {
    const std::array<char16_t, 128>* const half = upperHalf(encoding);
    Utf8Sink sink(out);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        char32_t code = byte;
        if (byte >= 0x80 && half != nullptr)
            code = (*half)[byte - 0x80U];
        else if (byte >= 0x80 && encoding == TextEncoding::usAscii)
            code = 0;
        if (code == 0 && byte != 0)
            return badText(i, "a byte stands for no character of the encoding " +
                                  std::string(declaredName(encoding)));
        sink.put(code);
    }
    return {sink.size(), 0, {}};
}

void appendUnit(std::string& out, char32_t unit, TextEncoding encoding) {
    const char low = static_cast<char>(unit & 0xFFU);
    const char high = static_cast<char>(unit >> 8U & 0xFFU);
    const bool little = encoding == TextEncoding::utf16LittleEndian;
    out.push_back(little ? low : high);
    out.push_back(little ? high : low);
}

std::string encodeUtf16(const std::string& utf8, TextEncoding encoding) {
    std::string out(encoding == TextEncoding::utf16LittleEndian ? littleEndianMark : bigEndianMark);
    out.reserve(2 * utf8.size() + 2);
    for (const char* at = utf8.c_str(); at != utf8.data() + utf8.size();) {
        const Utf8Character character = utf8At(at);
        at += std::max(character.length, 1U);
        if (character.code < 0x10000) {
            appendUnit(out, character.code, encoding);
        } else {
            appendUnit(out, 0xD800 + ((character.code - 0x10000) >> 10U), encoding);
            appendUnit(out, 0xDC00 + ((character.code - 0x10000) & 0x3FFU), encoding);
        }
    }
    return out;
}

// The byte of a character beyond ASCII; nothing when it has none.
std::optional<char> byteOf(char32_t code, TextEncoding encoding) {
    const std::array<char16_t, 128>* const half = upperHalf(encoding);
    if (half == nullptr)
        return encoding == TextEncoding::latin1 && code < 0x100 ? std::optional(static_cast<char>(code))
                                                                : std::nullopt;
    const auto found = std::find(half->begin(), half->end(), code);
    if (found == half->end())
        return std::nullopt;
    return static_cast<char>(0x80 + (found - half->begin()));
}

std::string encodeSingleBytes(const std::string& utf8, TextEncoding encoding) {
    std::string out;
    out.reserve(utf8.size());
    for (const char* at = utf8.c_str(); at != utf8.data() + utf8.size();) {
        const Utf8Character character = utf8At(at);
        at += std::max(character.length, 1U);
        out.push_back(character.code < 0x80 ? static_cast<char>(character.code)
                                            : byteOf(character.code, encoding).value_or('?'));
    }
    return out;
}

} // namespace

std::optional<TextEncoding> encodingNamed(std::string_view name) {
    const std::string lower = lowerCase(name);
    const auto found = std::find_if(std::begin(namedEncodings), std::end(namedEncodings),
                                    [&](const NamedEncoding& row) { return row.name == lower; });
    if (found == std::end(namedEncodings))
        return std::nullopt;
    return found->encoding;
}

std::string_view declaredName(TextEncoding encoding) {
    switch (encoding) {
    case TextEncoding::utf8:
    case TextEncoding::utf8WithMark:
        return "UTF-8";
    case TextEncoding::utf16LittleEndian:
    case TextEncoding::utf16BigEndian:
        return "UTF-16";
    case TextEncoding::usAscii:
        return "US-ASCII";
    case TextEncoding::latin1:
        return "ISO-8859-1";
    case TextEncoding::latin2:
        return "ISO-8859-2";
    case TextEncoding::latin5:
        return "ISO-8859-9";
    case TextEncoding::latin9:
        return "ISO-8859-15";
    default:
        break;
    }
    const auto windows = std::find_if(std::begin(namedEncodings), std::end(namedEncodings),
                                      [&](const NamedEncoding& row) { return row.encoding == encoding; });
    return windows->name;
}

bool declares(std::string_view name, TextEncoding encoding) {
    const auto named = encodingNamed(name);
    if (!named)
        return false;
    if (isUtf16(encoding) && lowerCase(name) == "utf-16")
        return true;
    return *named == encoding || (isUtf8(*named) && isUtf8(encoding));
}

EncodingChoice detectEncoding(std::string_view bytes) {
    if (bytes.starts_with(std::string_view("\xFF\xFE\0\0", 4)) ||
        bytes.starts_with(std::string_view("\0\0\xFE\xFF", 4)))
        return {TextEncoding::utf8, 0, "the encoding UTF-32 is not supported"};
    if (bytes.starts_with(utf8Mark))
        return withDeclaration(bytes.substr(utf8Mark.size()),
                               {TextEncoding::utf8WithMark, utf8Mark.size(), {}});
    if (bytes.starts_with(littleEndianMark))
        return withUtf16Declaration(bytes.substr(2), {TextEncoding::utf16LittleEndian, 2, {}});
    if (bytes.starts_with(bigEndianMark))
        return withUtf16Declaration(bytes.substr(2), {TextEncoding::utf16BigEndian, 2, {}});
    if (bytes.starts_with(std::string_view("<\0", 2)))
        return withUtf16Declaration(bytes, {TextEncoding::utf16LittleEndian, 0, {}});
    if (bytes.starts_with(std::string_view("\0<", 2)))
        return withUtf16Declaration(bytes, {TextEncoding::utf16BigEndian, 0, {}});
    return withDeclaration(bytes, {});
}

Decoding decodeToUtf8(std::string_view bytes, TextEncoding encoding, char* out) {
    return isUtf16(encoding) ? decodeUtf16(bytes, encoding, out) : decodeSingleBytes(bytes, encoding, out);
}

bool fits(char32_t code, TextEncoding encoding) {
    return code < 0x80 || isUtf8(encoding) || isUtf16(encoding) || byteOf(code, encoding).has_value();
}

std::string encodeText(std::string utf8, TextEncoding encoding) {
    if (encoding == TextEncoding::utf8)
        return utf8;
    if (encoding == TextEncoding::utf8WithMark)
        return utf8.insert(0, utf8Mark);
    return isUtf16(encoding) ? encodeUtf16(utf8, encoding) : encodeSingleBytes(utf8, encoding);
}

} // namespace quillset
