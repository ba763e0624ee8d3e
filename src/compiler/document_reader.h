#pragma once

#include "compiler/element_walk.h"
#include "compiler/records.h"

namespace quillset::compiler {

/// Reads a whole scenery source. Everything that is wrong in it is reported; with an error the result is
/// not fit to be written.
[[nodiscard]] SceneryRecords readDocument(ReadContext& context);

} // namespace quillset::compiler
