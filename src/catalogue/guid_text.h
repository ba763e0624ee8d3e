#pragma once

#include "base/guid_maker.h"

#include <string>

namespace quillset {

/// 32 upper-case hexadecimal digits without braces and hyphens: the fields in their order, each padded with
/// zeros on the left.
[[nodiscard]] std::string guidText(const Guid& guid);

/// The text of a new GUID; empty when the system cannot make one.
[[nodiscard]] std::string newGuidText(GuidMaker& maker);

} // namespace quillset
