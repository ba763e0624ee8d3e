#pragma once

#include "compiler/element_walk.h"
#include "compiler/records.h"

#include <optional>

namespace quillset::compiler {

/// Reads the SceneryObject whose start tag was the scanner's last event, up to its end tag. Gives nothing for
/// one that places nothing: it is empty, wrong, or its object is not supported and left out.
[[nodiscard]] std::optional<SceneryObject> readSceneryObject(ReadContext& context);

} // namespace quillset::compiler
