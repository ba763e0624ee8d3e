#pragma once

#include "compiler/element_walk.h"
#include "compiler/records.h"

namespace quillset::compiler {

/// Reads the GenericBuilding whose start tag was the scanner's last event, up to its end tag.
[[nodiscard]] GenericBuilding readGenericBuilding(ReadContext& context);

} // namespace quillset::compiler
