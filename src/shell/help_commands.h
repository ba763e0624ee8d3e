#pragma once

#include "shell/session.h"

#include <functional>
#include <string>

namespace quillset {

/// The commands of the Help menu.
class HelpCommands {
public:
    /// `linkState` gives what the status bar shows of the simulator link.
    HelpCommands(Session& session, std::function<std::string()> linkState);

    /// Shows the manual in the user's browser; a message says where it was looked for when it is not there.
    void openManual();
    void copyDiagnostics();
    void about();

private:
    Session& session_;
    std::function<std::string()> linkState_;
};

} // namespace quillset
