#pragma once

#include "byte_source.h"

#include <cstdint>
#include <string>

namespace bgl_list {

/// A record of the placements section as one line of text, with the grid numbers of its place.
struct ListedRecord {
    std::string line;
    std::uint32_t longitude = 0; ///< in 2^28 * 3 parts of the circle, from 180 degrees west
    std::uint32_t latitude = 0;  ///< in 2^29 parts of the half circle, from the north pole
};

/// `fields` holds the bytes of one record. Throws Damage when they do not fit its kind.
[[nodiscard]] ListedRecord listRecord(Fields fields);

/// The 16 bytes of a GUID as 32 digits, FS2004's form, and with dashes, the later one's.
[[nodiscard]] std::string plainGuid(const std::string& bytes);
[[nodiscard]] std::string dashedGuid(const std::string& bytes);

} // namespace bgl_list
