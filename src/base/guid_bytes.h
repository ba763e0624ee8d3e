#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillset {

/// The 16 bytes of a GUID as they stand in a scenery file.
using GuidBytes = std::array<std::uint8_t, 16>;

/// 32 hexadecimal digits (four 32-bit numbers, each stored with its low byte first) or the dashed form with
/// or without braces (the fields of a GUID, each with its low byte first). Both give the bytes of the file.
[[nodiscard]] std::optional<GuidBytes> parseGuid(std::string_view text);

/// The same text for all spellings of one GUID; a text that is no GUID is its own. Not for files: it is no
/// spelling that a compiler would read.
[[nodiscard]] std::string comparableGuid(std::string_view text);

} // namespace quillset
