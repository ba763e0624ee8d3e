#pragma once

#include "preview/little_endian.h"
#include "preview/texture_file.h"

#include <cstdint>
#include <optional>

namespace quillset {

/// Compression by blocks of 4 x 4 pixels. DXT3 and DXT5 differ in their transparency only, which is dropped.
enum class DxtKind { dxt1, dxt3, dxt5 };

/// The kind of a four-character code ("DXT1" and so on) as a little-endian number.
[[nodiscard]] std::optional<DxtKind> dxtKindOf(std::uint32_t fourCharacters);

/// Decodes the blocks at `offset`, rows in file order; sides must be positive and not above the largest one.
/// Nothing when the file ends before the last block.
[[nodiscard]] std::optional<Picture> decodeDxt(const LittleEndian& file, std::uint64_t offset, DxtKind kind,
                                               int width, int height);

} // namespace quillset
