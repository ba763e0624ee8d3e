#include "build/console_process.h"

#include "base/paths.h"
#include "build/program_search.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace quillset {

namespace {

/// Children that closed their output but had not ended yet when they were last looked at.
using Unreaped = std::vector<pid_t>;

bool reap(pid_t child, int options, int* status = nullptr) {
    pid_t result = 0;
    do {
        result = waitpid(child, status, options);
    } while (result < 0 && errno == EINTR);
    return result != 0; // also when it is not ours to wait for any more
}

ProcessEnd endOf(int status) {
    if (!WIFSIGNALED(status))
        return {WEXITSTATUS(status), {}};
    const int signal = WTERMSIG(status);
    const char* const words = strsignal(signal);
    return {signal, "signal " + std::to_string(signal) + (words == nullptr ? "" : std::string(", ") + words)};
}

class PosixProcess : public RunningProcess {
public:
    PosixProcess(pid_t child, int output, std::shared_ptr<Unreaped> unreaped)
        : child_(child)
        , output_(output)
        , unreaped_(std::move(unreaped)) {}
    PosixProcess(const PosixProcess&) = delete;
    PosixProcess& operator=(const PosixProcess&) = delete;
    ~PosixProcess() override {
        if (!atEnd_)
            PosixProcess::terminate();
        close(output_);
        if (!reaped_ && !reap(child_, WNOHANG))
            unreaped_->push_back(child_);
    }

    ReadOutcome read(std::string& piece, std::size_t limit, std::chrono::milliseconds patience) override {
        piece.clear();
        pollfd waiting{output_, POLLIN, 0};
        const int ready = poll(&waiting, 1, static_cast<int>(patience.count()));
        if (ready == 0 || (ready < 0 && errno == EINTR))
            return ReadOutcome::nothingYet;
        piece.resize(limit);
        ssize_t count = 0;
        do {
            count = ::read(output_, piece.data(), limit);
        } while (count < 0 && errno == EINTR);
        piece.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
        if (count > 0)
            return ReadOutcome::data;
        atEnd_ = true;
        return ReadOutcome::end;
    }

    std::optional<ProcessEnd> waitForEnd(std::chrono::milliseconds patience) override {
        constexpr std::chrono::milliseconds nap{2};
        int status = 0;
        for (auto waited = std::chrono::milliseconds::zero(); !reaped_; waited += nap) {
            reaped_ = reap(child_, WNOHANG, &status);
            if (reaped_)
                return endOf(status);
            if (waited >= patience)
                break;
            std::this_thread::sleep_for(nap);
        }
        return std::nullopt;
    }

    void terminate() override {
        if (reaped_)
            return;
        kill(-child_, SIGKILL); // the child leads a group of its own: what it started ends with it
        reap(child_, 0);
        reaped_ = true;
    }

private:
    pid_t child_;
    int output_;
    bool atEnd_ = false;
    bool reaped_ = false;
    std::shared_ptr<Unreaped> unreaped_;
};

/// File actions and attributes of posix_spawn: hidden from the terminal's signals, no input, joined output.
class SpawnSetting {
public:
    SpawnSetting(int output, const std::string& workingFolder) {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&actions_, output, STDERR_FILENO);
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        if (!workingFolder.empty())
            posix_spawn_file_actions_addchdir_np(&actions_, workingFolder.c_str());
        sigset_t signals;
        posix_spawnattr_init(&attributes_);
        posix_spawnattr_setflags(&attributes_,
                                 POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
        posix_spawnattr_setpgroup(&attributes_, 0);
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes_, &signals);
        sigaddset(&signals, SIGPIPE);
        posix_spawnattr_setsigdefault(&attributes_, &signals);
    }
    SpawnSetting(const SpawnSetting&) = delete;
    SpawnSetting& operator=(const SpawnSetting&) = delete;
    ~SpawnSetting() {
        posix_spawn_file_actions_destroy(&actions_);
        posix_spawnattr_destroy(&attributes_);
    }

    /// The process, or nothing when it cannot be started.
    [[nodiscard]] std::optional<pid_t> spawn(const std::string& program, std::vector<std::string> words,
                                             std::vector<std::string> environment) const {
        pid_t child = 0;
        std::vector<char*> argv = pointers(words);
        std::vector<char*> envp = pointers(environment);
        if (posix_spawn(&child, program.c_str(), &actions_, &attributes_, argv.data(), envp.data()) != 0)
            return std::nullopt;
        return child;
    }

private:
    static std::vector<char*> pointers(std::vector<std::string>& texts) {
        std::vector<char*> result(texts.size() + 1, nullptr); // ends in a null pointer
        std::transform(texts.begin(), texts.end(), result.begin(),
                       [](std::string& text) { return text.data(); });
        return result;
    }

    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

std::vector<std::string> ownEnvironment() {
    std::vector<std::string> entries;
    for (char** entry = environ; *entry != nullptr; ++entry)
        entries.emplace_back(*entry);
    return entries;
}

class PosixProcessStarter : public ProcessStarter {
public:
    StartResult start(const ProcessRequest& request) override {
        std::erase_if(*unreaped_, [](pid_t child) { return reap(child, WNOHANG); });
        StartResult result;
        int ends[2] = {-1, -1};
        if (pipe2(ends, O_CLOEXEC) != 0) {
            result.outcome = StartOutcome::noPipe;
            result.systemError = static_cast<unsigned long>(errno);
            return result;
        }
        const std::optional<pid_t> child = spawnOn(ends[1], request);
        // Our copy of the write end must go, or reading would never end. Closing the read end of a failed
        // start is deliberate too: repeated failures must not use up the descriptors.
        close(ends[1]);
        if (!child) {
            close(ends[0]);
            return result;
        }
        result.outcome = StartOutcome::started;
        result.process = std::make_unique<PosixProcess>(*child, ends[0], unreaped_);
        return result;
    }

private:
    static std::optional<pid_t> spawnOn(int output, const ProcessRequest& request) {
        std::vector<std::string> environment = childEnvironment(ownEnvironment(), request.surroundings);
        const std::optional<std::string> program =
            findProgram(request.program, environmentValue(environment, "PATH"));
        if (!program)
            return std::nullopt;
        std::vector<std::string> words{request.program};
        words.insert(words.end(), request.arguments.begin(), request.arguments.end());
        return SpawnSetting(output, request.surroundings.workingFolder)
            .spawn(*program, std::move(words), std::move(environment));
    }

    std::shared_ptr<Unreaped> unreaped_ = std::make_shared<Unreaped>();
};

} // namespace

std::unique_ptr<ProcessStarter> systemProcessStarter() {
    return std::make_unique<PosixProcessStarter>();
}

} // namespace quillset
