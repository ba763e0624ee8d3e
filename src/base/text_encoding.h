#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quillset {

/// The character encoding of a file, kept so that a later save writes the same one.
enum class TextEncoding {
    utf8,
    utf8WithMark,
    utf16LittleEndian,
    utf16BigEndian,
    usAscii,
    latin1,
    latin2,
    latin5,
    latin9,
    windows1250,
    windows1251,
    windows1252,
    windows1253,
    windows1254,
    windows1257,
};

/// The encoding of that registered name, in any letter case; also a few names in common use ("utf8").
/// Nothing for one that is not supported. "UTF-16" without a byte order is little-endian here.
[[nodiscard]] std::optional<TextEncoding> encodingNamed(std::string_view name);
/// The name to declare.
[[nodiscard]] std::string_view declaredName(TextEncoding encoding);
/// True for names that fit: "latin1" declares ISO-8859-1, "UTF-16" both byte orders.
[[nodiscard]] bool declares(std::string_view name, TextEncoding encoding);

/// How the bytes of an XML document are to be read.
struct EncodingChoice {
    TextEncoding encoding = TextEncoding::utf8;
    /// Bytes of the byte order mark at the start.
    std::size_t markLength = 0;
    /// Why the bytes cannot be read: an unknown encoding, or a declaration that the bytes contradict. Empty
    /// when they can.
    std::string problem;
};

/// Looks at the byte order mark, else at the first bytes, then at the XML declaration.
[[nodiscard]] EncodingChoice detectEncoding(std::string_view bytes);

/// What came of decoding: the bytes of UTF-8, or the place and the reason of the failure.
struct Decoding {
    std::size_t size = 0;
    std::size_t badAt = 0;
    std::string problem;
};

/// Decodes UTF-16 or a single-byte encoding (bytes without the mark). `out` must hold the result's size; when
/// it is null, only the size is computed.
[[nodiscard]] Decoding decodeToUtf8(std::string_view bytes, TextEncoding encoding, char* out);

/// True for a character that the encoding can hold.
[[nodiscard]] bool fits(char32_t code, TextEncoding encoding);
/// Valid UTF-8 in another encoding, with its byte order mark where one belongs to it. Every character must
/// fit.
[[nodiscard]] std::string encodeText(std::string utf8, TextEncoding encoding);

} // namespace quillset
