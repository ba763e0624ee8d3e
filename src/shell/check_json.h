#pragma once

#include "shell/batch_commands.h"

#include <string>

namespace quillset {

/// {"file": TEXT, "problem": TEXT or null, "findings": [{"kind": TEXT, "row": NUMBER or null (a model),
/// "line": NUMBER or null, "what": TEXT, "why": TEXT}, ...]}, indented, with a line break at the end.
[[nodiscard]] std::string checkJson(const CheckReport& report);

} // namespace quillset
