#pragma once

#include "shell/session.h"

#include <string>

namespace quillset {

/// What only the windows know about the machine.
struct PlatformFacts {
    std::string toolkit;       ///< "6.4.2"
    std::string system;        ///< "Debian GNU/Linux 12 (x86_64), xcb"
    std::string screens;       ///< "1920 x 1080 at 200 %"
    std::string openGl;        ///< renderer and version, or why there is none
    std::string simulatorLink; ///< what the status bar shows, with its explanation
};

/// A text for a report of a problem: versions, folders, what was found of the simulator and the compiler, and
/// the last lines of the log. Nothing of the scenery but its path and the number of its placements.
[[nodiscard]] std::string diagnosticsText(Session& session, const PlatformFacts& facts);

} // namespace quillset
