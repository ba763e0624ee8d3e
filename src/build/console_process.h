#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillset {

/// Where a console program runs and what it sees, beside its arguments.
struct ProcessSurroundings {
    /// Folder to start in; empty: the caller's.
    std::string workingFolder;
    /// Variables set in addition to the caller's, or in place of those of the same name.
    std::vector<std::pair<std::string, std::string>> environment;
    /// Folders appended to the END of the child's PATH, so that a program of the user's own wins over ours.
    std::vector<std::string> foldersAfterPath;
};

/// What to run. A program without a separator in it is looked up on the child's PATH.
struct ProcessRequest {
    std::string program;
    std::vector<std::string> arguments;
    ProcessSurroundings surroundings;
};

/// How a process ended.
struct ProcessEnd {
    int exitCode = 0;
    /// What the system calls the fault that ended it; empty when it ended by itself.
    std::string crash;
};

enum class ReadOutcome { data, nothingYet, end };

/// A started child whose standard output and standard error are joined in one pipe. Destroying it closes the
/// pipe; a child whose output was not read to its end is ended first.
class RunningProcess {
public:
    virtual ~RunningProcess() = default;
    /// Waits at most `patience` for output and puts up to `limit` bytes of what is there into `piece`
    /// (emptied first). `end` when every writer has closed its end of the pipe.
    virtual ReadOutcome read(std::string& piece, std::size_t limit, std::chrono::milliseconds patience) = 0;
    /// How the child ended, after its output did. Waits at most `patience`: it may have closed its output and
    /// go on; then nothing is known.
    [[nodiscard]] virtual std::optional<ProcessEnd> waitForEnd(std::chrono::milliseconds patience) = 0;
    /// Ends the child and what it started, at once; returns when the child is gone.
    virtual void terminate() = 0;
};

enum class StartOutcome { started, noPipe, notStarted };

struct StartResult {
    StartOutcome outcome = StartOutcome::notStarted;
    /// The system's error code when there is no pipe.
    unsigned long systemError = 0;
    /// Set when started.
    std::unique_ptr<RunningProcess> process;
};

/// Starts console programs hidden, with no standard input.
class ProcessStarter {
public:
    virtual ~ProcessStarter() = default;
    [[nodiscard]] virtual StartResult start(const ProcessRequest& request) = 0;
};

/// The operating system's processes. The starter should live as long as the program: it collects children
/// that ended after their output did.
[[nodiscard]] std::unique_ptr<ProcessStarter> systemProcessStarter();

/// The "NAME=value" entries of a child, from those of the caller. Names are compared without regard to letter
/// case on Windows.
[[nodiscard]] std::vector<std::string> childEnvironment(std::vector<std::string> own,
                                                        const ProcessSurroundings& surroundings);
/// The value of a variable in such entries; empty when it is missing.
[[nodiscard]] std::string environmentValue(const std::vector<std::string>& entries, const std::string& name);

} // namespace quillset
