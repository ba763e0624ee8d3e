#pragma once

#include "shell/session.h"

#include <functional>

namespace quillset {

/// The end of a run: writes the windows' layouts into the configuration, saves it, deletes the undo
/// snapshots and temporary files, closes the simulator link. Each step runs even when one before it failed;
/// failures are reported. Asks no question.
void shutDown(Session& session, const std::function<WindowLayout(const std::string& window)>& layoutOf);

} // namespace quillset
