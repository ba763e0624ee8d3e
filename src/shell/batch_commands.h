#pragma once

#include "base/atomic_file.h"
#include "base/console_program.h"
#include "build/console_process.h"
#include "document/scenery_check.h"
#include "shell/command_line.h"
#include "shell/program_files.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillset {

/// What a check of a file came to.
struct CheckReport {
    std::string file;
    /// Why the file could not be checked; empty when it could.
    std::string problem;
    std::vector<SceneryFinding> findings;
};

/// What the commands without a window take from `main`. Everything referred to must outlive the run.
struct BatchEnvironment {
    FileOperations& files;
    ProcessStarter& processes;
    /// `undo` is not used.
    ProgramFiles programFiles;
    /// The simulator's folder as the system knows it; empty when it does not.
    std::function<std::string()> registeredSimulatorFolder;
    /// False when the text was not taken.
    std::function<bool(ConsoleStream stream, std::string_view utf8)> write;
    /// The report as JSON text.
    std::function<std::string(const CheckReport& report)> json;
};

/// Runs the action of the command line that needs no window and gives the program's exit code: 0 when it was
/// done and nothing was found, 1 when something was found or failed. Settings are read, never written.
[[nodiscard]] int runBatchCommand(const CommandLine& options, const BatchEnvironment& environment);

} // namespace quillset
