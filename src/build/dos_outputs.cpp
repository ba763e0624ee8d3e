#include "build/dos_outputs.h"

#include "base/runtime_error.h"
#include "build/command_line.h"

namespace quillset {

namespace {

constexpr std::chrono::milliseconds waitInterval{50};
/// A child's output ends a moment before itself.
constexpr std::chrono::milliseconds endPatience{300};
constexpr std::size_t pipeCapacity = 65536;

} // namespace

DOSOutputs::DOSOutputs(Dialogs& dialogs, ProcessStarter& starter)
    : dialogs_(dialogs)
    , starter_(starter) {}

std::string DOSOutputs::ExecuteCommand(const std::string& commandLine) {
    if (running_ != nullptr) // from an observer of the run itself
        throw RuntimeError(ErrorNumber::invalidCall);
    started_ = false;
    ended_.reset();
    if (!commandLine.empty())
        CommandLine = commandLine;
    std::vector<std::string> words = splitCommandLine(CommandLine);
    if (words.empty()) {
        complain("Command Line empty");
        return {};
    }
    ProcessRequest request{words.front(), {words.begin() + 1, words.end()}, surroundings};
    const StartResult started = starter_.start(request);
    if (started.outcome == StartOutcome::noPipe) {
        complain("CreatePipe failed. Error: " + std::to_string(started.systemError));
        return {};
    }
    if (started.outcome == StartOutcome::notStarted) {
        complain("File or command not found");
        return {};
    }
    outputs_.clear();
    started_ = true;
    deliverOutput(*started.process);
    if (!terminated_)
        ended_ = started.process->waitForEnd(endPatience);
    return outputs_;
}

void DOSOutputs::complain(const std::string& text) {
    dialogs_.tell(text, applicationTitle, MessageIcon::critical);
}

void DOSOutputs::deliverOutput(RunningProcess& process) {
    struct Running {
        RunningProcess*& slot;
        ~Running() { slot = nullptr; }
    } const running{running_};
    running_ = &process;
    terminated_ = false;
    drained_ = 0;
    lastLook_ = std::chrono::steady_clock::now();

    std::string piece;
    bool more = true;
    do {
        more = nextPiece(process, piece);
        outputs_ += piece;
        ReceiveOutputs.notify(piece); // deliberate: also the empty piece of the read that met the end
    } while (more);
}

bool DOSOutputs::nextPiece(RunningProcess& process, std::string& piece) {
    for (;;) {
        if (terminated_) {
            // A process that escaped may still hold the pipe open, or even write: take what a pipe holds.
            const bool taken =
                process.read(piece, pieceLimit, std::chrono::milliseconds::zero()) == ReadOutcome::data &&
                drained_ < pipeCapacity;
            drained_ += piece.size();
            if (!taken)
                piece.clear();
            return taken;
        }
        const ReadOutcome outcome = process.read(piece, pieceLimit, waitInterval);
        letObserverLook();
        if (outcome != ReadOutcome::nothingYet)
            return outcome == ReadOutcome::data;
    }
}

void DOSOutputs::letObserverLook() {
    // By the clock and not by idle reads: a flood of output must not starve the observer.
    const auto now = std::chrono::steady_clock::now();
    if (now - lastLook_ < waitInterval)
        return;
    lastLook_ = now;
    if (waitObserver)
        waitObserver();
}

void DOSOutputs::terminate() {
    if (running_ == nullptr || terminated_)
        return;
    terminated_ = true;
    running_->terminate();
}

} // namespace quillset
