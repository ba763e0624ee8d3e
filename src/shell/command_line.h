#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillset {

/// What the user asked for on the command line.
struct CommandLine {
    enum class Action {
        start,
        showHelp,
        showVersion,
        compile,
        exportShapefile,
        importShapefile,
        check,
        format
    };
    enum class ReportForm { text, json };

    Action action = Action::start;
    /// Scenery file to open; empty for none.
    std::string file;
    /// For an action without a window: its files, as many as it takes.
    std::vector<std::string> operands;
    ReportForm reportForm = ReportForm::text;
    std::optional<std::string> fsPath;
    std::optional<std::string> programFolder;
    /// Files for exchanges with the simulator: written while the program runs, or played in its place.
    std::optional<std::string> recordSimulator;
    std::optional<std::string> replaySimulator;
};

/// A command line, or a message for standard error (the program then ends with exit code 2).
struct CommandLineResult {
    CommandLine options;
    std::string error;
};

/// `arguments` without the program's name; UTF-8.
[[nodiscard]] CommandLineResult parseCommandLine(const std::vector<std::string>& arguments);

[[nodiscard]] std::string helpText();
[[nodiscard]] std::string versionText();

} // namespace quillset
