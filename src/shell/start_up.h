#pragma once

#include "base/dialogs.h"
#include "base/registry.h"
#include "shell/runtime_files.h"
#include "shell/session.h"

#include <optional>
#include <string>
#include <vector>

namespace quillset {

/// What start-up asks of the windows, in the order in which it needs it.
class StartUpWindows {
public:
    virtual ~StartUpWindows() = default;
    virtual void showSplash() = 0;
    virtual void setSplashText(const std::string& text) = 0;
    virtual void closeSplash() = 0;
    /// Registers the tool windows with the docking host and lays them out as the configuration says.
    virtual void dockWindows() = 0;
    /// Makes the 3-D preview ready.
    virtual void initialisePreview() = 0;
};

/// Tables and choices of start-up that tests vary.
struct StartUpOptions {
    /// The simulator's folder as given on the command line.
    std::optional<std::string> fsPath;
    std::vector<std::string> runtimeFiles = runtimeFileTable();
    std::vector<std::string> textureConverter = textureConverterTable();
    /// Value of the environment variable windir; empty where there is none.
    std::string windowsFolder;
};

enum class StartUpOutcome { ready, programEnds };

/// The start-up sequence behind the splash. An unexpected error is reported and the main window opens all the
/// same; the splash is closed whatever happens.
[[nodiscard]] StartUpOutcome startUp(Session& session, StartUpWindows& windows,
                                     const StartUpOptions& options);

/// The simulator's folder as its installer noted it; empty when there is none.
[[nodiscard]] std::string registeredSimulatorFolder(const Registry& registry);

/// Loads or creates the configuration; false when the program must end (its message has been shown).
[[nodiscard]] bool readConfiguration(Session& session, const std::optional<std::string>& fsPath);

} // namespace quillset
