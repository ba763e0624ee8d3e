#pragma once

#include "base/dialogs.h"
#include "base/notifier.h"
#include "build/console_process.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>

namespace quillset {

/// Runs one console command line as a hidden child process and hands on what it writes to its standard output
/// and standard error, joined, as it arrives.
///
/// All texts of the child are its bytes as written; ConsoleTextDecoder makes UTF-8 of them.
class DOSOutputs {
public:
    /// Longest piece of output, in bytes.
    static constexpr std::size_t pieceLimit = 256;

    DOSOutputs(Dialogs& dialogs, ProcessStarter& starter);

    /// The command line to run (see commandLineText); keeps its value between runs.
    std::string CommandLine;
    /// Working folder, further environment and PATH of the child.
    ProcessSurroundings surroundings;
    /// Everything captured by the last run that started a process.
    [[nodiscard]] const std::string& Outputs() const { return outputs_; }

    /// How the last child ended, where that is known; nothing when none could be started.
    [[nodiscard]] const std::optional<ProcessEnd>& ended() const { return ended_; }
    /// Whether the last call of ExecuteCommand could start a child.
    [[nodiscard]] bool started() const { return started_; }

    /// Runs `commandLine`, which then becomes CommandLine, or CommandLine when it is empty, and returns the
    /// captured text; empty when nothing could be run, which a message box says. Blocks until the child and
    /// what it started have closed their output, or until terminate().
    std::string ExecuteCommand(const std::string& commandLine = {});

    /// Told once per read, in order, from inside ExecuteCommand: pieces of at most pieceLimit bytes, then one
    /// last empty piece.
    Notifier<const std::string&> ReceiveOutputs;

    /// Called some twenty times a second from inside ExecuteCommand, between two reads, so that a window can
    /// repaint and listen to the user; may call terminate().
    std::function<void()> waitObserver;
    /// Ends the running child and what it started; ExecuteCommand then hands on what was still in the pipe
    /// and returns. Nothing happens when no child is running.
    void terminate();

private:
    void complain(const std::string& text);
    void deliverOutput(RunningProcess& process);
    /// False at the end, with an empty piece.
    bool nextPiece(RunningProcess& process, std::string& piece);
    void letObserverLook();

    Dialogs& dialogs_;
    ProcessStarter& starter_;
    std::string outputs_;
    std::optional<ProcessEnd> ended_;
    bool started_ = false;
    RunningProcess* running_ = nullptr;
    bool terminated_ = false;
    /// Bytes taken after terminate().
    std::size_t drained_ = 0;
    std::chrono::steady_clock::time_point lastLook_;
};

} // namespace quillset
