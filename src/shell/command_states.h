#pragma once

#include "shell/session.h"

#include <map>
#include <string>
#include <string_view>

namespace quillset {

/// What the object list allows at the moment.
[[nodiscard]] ListState listState(Session& session);

/// Which commands are enabled now, by name; commands that always are do not appear. Costs nothing that grows
/// with the document, so that it can be asked after every change.
[[nodiscard]] std::map<std::string_view, bool> commandStates(Session& session);

} // namespace quillset
