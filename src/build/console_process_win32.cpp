#include "build/console_process.h"

#include "base/paths.h"
#include "build/command_line.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <windows.h>

namespace quillset {

namespace {

/// Closes a handle of the system at the end of its life.
class Handle {
public:
    Handle() = default;
    explicit Handle(HANDLE handle)
        : handle_(handle) {}
    Handle(Handle&& other) noexcept
        : handle_(std::exchange(other.handle_, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { reset(); }

    void reset() {
        if (handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE)
            CloseHandle(handle_);
        handle_ = nullptr;
    }
    [[nodiscard]] HANDLE get() const { return handle_; }

private:
    HANDLE handle_ = nullptr;
};

class WindowsProcess : public RunningProcess {
public:
    /// In the order in which they are closed.
    struct Handles {
        Handle process;
        Handle thread;
        Handle output;
        Handle job;
    };

    explicit WindowsProcess(Handles handles)
        : handles_(std::move(handles)) {}
    WindowsProcess(const WindowsProcess&) = delete;
    WindowsProcess& operator=(const WindowsProcess&) = delete;
    ~WindowsProcess() override {
        if (!atEnd_)
            WindowsProcess::terminate();
        handles_.process.reset();
        handles_.thread.reset();
        handles_.output.reset();
    }

    ReadOutcome read(std::string& piece, std::size_t limit, std::chrono::milliseconds patience) override {
        // Anonymous pipes cannot be waited for with a time-out: look, and sleep in between.
        constexpr DWORD nap = 5;
        piece.clear();
        for (auto waited = std::chrono::milliseconds::zero();; waited += std::chrono::milliseconds(nap)) {
            DWORD available = 0;
            if (!PeekNamedPipe(handles_.output.get(), nullptr, 0, nullptr, &available, nullptr)) {
                atEnd_ = true; // every write end is closed
                return ReadOutcome::end;
            }
            if (available > 0)
                return take(piece, std::min<std::size_t>(limit, available));
            if (waited >= patience)
                return ReadOutcome::nothingYet;
            Sleep(nap);
        }
    }

    std::optional<ProcessEnd> waitForEnd(std::chrono::milliseconds patience) override {
        DWORD code = 0;
        if (WaitForSingleObject(handles_.process.get(), static_cast<DWORD>(patience.count())) !=
                WAIT_OBJECT_0 ||
            GetExitCodeProcess(handles_.process.get(), &code) == 0)
            return std::nullopt;
        constexpr DWORD firstFault =
            0xC0000000; // status codes of errors, which the system ends programs with
        ProcessEnd end{static_cast<int>(code), {}};
        if (code >= firstFault) {
            std::array<char, 24> text{};
            std::snprintf(text.data(), text.size(), "fault 0x%08lX", code);
            end.crash = text.data();
        }
        return end;
    }

    void terminate() override {
        constexpr UINT endedByUser = 1;
        constexpr DWORD patience = 5000;
        if (!TerminateJobObject(handles_.job.get(), endedByUser))
            TerminateProcess(handles_.process.get(), endedByUser);
        WaitForSingleObject(handles_.process.get(), patience);
    }

private:
    ReadOutcome take(std::string& piece, std::size_t size) {
        piece.resize(size);
        DWORD count = 0;
        if (!ReadFile(handles_.output.get(), piece.data(), static_cast<DWORD>(size), &count, nullptr))
            count = 0;
        piece.resize(count);
        atEnd_ = count == 0;
        return atEnd_ ? ReadOutcome::end : ReadOutcome::data;
    }

    Handles handles_;
    bool atEnd_ = false;
};

std::vector<std::string> ownEnvironment() {
    std::vector<std::string> entries;
    wchar_t* const block = GetEnvironmentStringsW();
    for (const wchar_t* entry = block; entry != nullptr && *entry != L'\0'; entry += wcslen(entry) + 1)
        entries.push_back(toText(std::filesystem::path(entry)));
    FreeEnvironmentStringsW(block);
    return entries;
}

std::wstring environmentBlock(const ProcessSurroundings& surroundings) {
    std::vector<std::string> entries = childEnvironment(ownEnvironment(), surroundings);
    std::sort(entries.begin(), entries.end(), [](const std::string& a, const std::string& b) {
        return lowerCase(a.substr(0, a.find('=', 1))) < lowerCase(b.substr(0, b.find('=', 1)));
    });
    std::wstring block;
    for (const std::string& entry : entries) {
        block += toPath(entry).native();
        block += L'\0';
    }
    return block + L'\0';
}

/// The start-up information that hands on two handles and no others: a second child started at the same time
/// must not keep this one's pipe open.
class StartUp {
public:
    StartUp(HANDLE input, HANDLE output)
        : handles_{input, output} {
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        storage_.resize(size);
        info_.lpAttributeList = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(storage_.data());
        InitializeProcThreadAttributeList(info_.lpAttributeList, 1, 0, &size);
        UpdateProcThreadAttribute(info_.lpAttributeList, 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles_,
                                  sizeof handles_, nullptr, nullptr);
        info_.StartupInfo.cb = sizeof info_;
        info_.StartupInfo.dwFlags = STARTF_USESHOWWINDOW | STARTF_USESTDHANDLES;
        info_.StartupInfo.wShowWindow = SW_HIDE;
        info_.StartupInfo.hStdInput = input;
        info_.StartupInfo.hStdOutput = output;
        info_.StartupInfo.hStdError = output;
    }
    StartUp(const StartUp&) = delete;
    StartUp& operator=(const StartUp&) = delete;
    ~StartUp() { DeleteProcThreadAttributeList(info_.lpAttributeList); }

    [[nodiscard]] STARTUPINFOW* info() { return &info_.StartupInfo; }

private:
    HANDLE handles_[2];
    std::vector<std::byte> storage_;
    STARTUPINFOEXW info_{};
};

std::wstring commandLineOf(const ProcessRequest& request) {
    std::vector<std::string> words{request.program};
    words.insert(words.end(), request.arguments.begin(), request.arguments.end());
    return toPath(commandLineText(words)).native();
}

/// Started suspended, so that not even its first children escape the job.
bool startInJob(const ProcessRequest& request, StartUp& startUp, WindowsProcess::Handles& handles) {
    std::wstring commandLine = commandLineOf(request);
    std::wstring environment = environmentBlock(request.surroundings);
    const std::filesystem::path folder = toPath(request.surroundings.workingFolder);
    PROCESS_INFORMATION started{};
    constexpr DWORD flags =
        NORMAL_PRIORITY_CLASS | CREATE_SUSPENDED | CREATE_UNICODE_ENVIRONMENT | EXTENDED_STARTUPINFO_PRESENT;
    if (CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, flags, environment.data(),
                       folder.empty() ? nullptr : folder.c_str(), startUp.info(), &started) != TRUE)
        return false;
    handles.process = Handle(started.hProcess);
    handles.thread = Handle(started.hThread);
    handles.job = Handle(CreateJobObjectW(nullptr, nullptr));
    AssignProcessToJobObject(handles.job.get(), started.hProcess);
    ResumeThread(started.hThread);
    return true;
}

class WindowsProcessStarter : public ProcessStarter {
public:
    StartResult start(const ProcessRequest& request) override {
        StartResult result;
        SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
        HANDLE readEnd = nullptr;
        HANDLE writeEnd = nullptr;
        if (!CreatePipe(&readEnd, &writeEnd, &inheritable, 0)) {
            result.outcome = StartOutcome::noPipe;
            result.systemError = GetLastError();
            return result;
        }
        WindowsProcess::Handles handles;
        handles.output = Handle(readEnd);
        // The write end closes on return, or reading would never end. On a failed start the read end closes
        // too, deliberately: repeated failures must not use up the handles.
        const Handle output(writeEnd);
        const Handle input(CreateFileW(L"NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, &inheritable,
                                       OPEN_EXISTING, 0, nullptr));
        StartUp startUp(input.get(), output.get());
        if (!startInJob(request, startUp, handles))
            return result;
        result.outcome = StartOutcome::started;
        result.process = std::make_unique<WindowsProcess>(std::move(handles));
        return result;
    }
};

} // namespace

std::unique_ptr<ProcessStarter> systemProcessStarter() {
    return std::make_unique<WindowsProcessStarter>();
}

} // namespace quillset
