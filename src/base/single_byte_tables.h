#pragma once

#include "base/text_encoding.h"

#include <array>

namespace quillset {

/// The characters of bytes 80 to FF in a single-byte encoding, 0 for a byte without one; null for the
/// encodings that need no table.
[[nodiscard]] const std::array<char16_t, 128>* upperHalf(TextEncoding encoding);

} // namespace quillset
