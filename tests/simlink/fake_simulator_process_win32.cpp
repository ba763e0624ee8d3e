#include "fake_simulator_process.h"

#include <array>
#include <filesystem>
#include <stdexcept>
#include <utility>
#include <windows.h>

namespace quillset::test {

namespace {

struct Pipe {
    HANDLE read = nullptr;
    HANDLE write = nullptr;
};

// Both ends can be inherited; the one that we keep is then taken out.
Pipe makePipe() {
    SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
    Pipe pipe;
    if (CreatePipe(&pipe.read, &pipe.write, &inheritable, 0) == 0)
        throw std::runtime_error("no pipe");
    return pipe;
}

std::string commandLine(const std::vector<std::string>& arguments) {
    std::array<char, MAX_PATH> self{};
    GetModuleFileNameA(nullptr, self.data(), static_cast<DWORD>(self.size()));
    const std::string path =
        (std::filesystem::path(self.data()).parent_path() / "fake_simulator.exe").string();
    std::string line = "\"" + path + "\" --until-input-ends";
    for (const std::string& argument : arguments)
        line += " " + argument;
    return line;
}

} // namespace

FakeSimulatorProcess::FakeSimulatorProcess(const std::vector<std::string>& arguments) {
    const Pipe input = makePipe();
    const Pipe output = makePipe();
    input_ = input.write;
    output_ = output.read;
    SetHandleInformation(input_, HANDLE_FLAG_INHERIT, 0);
    SetHandleInformation(output_, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = input.read;
    startup.hStdOutput = output.write;
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION started{};
    std::string line = commandLine(arguments);
    const bool ok = CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                   &startup, &started) != 0;
    CloseHandle(input.read);
    CloseHandle(output.write);
    if (ok) {
        CloseHandle(started.hThread);
        process_ = started.hProcess;
    }
    if (!ok || this->line() != "ready")
        throw std::runtime_error("fake_simulator did not start: " + line);
}

FakeSimulatorProcess::~FakeSimulatorProcess() {
    end();
    CloseHandle(output_);
}

std::string FakeSimulatorProcess::line() {
    std::string text;
    char next = 0;
    DWORD count = 0;
    while (ReadFile(output_, &next, 1, &count, nullptr) != 0 && count == 1 && next != '\n')
        if (next != '\r')
            text += next;
    return text;
}

void FakeSimulatorProcess::end() {
    if (const HANDLE input = std::exchange(input_, nullptr))
        CloseHandle(input);
    waitForEnd();
}

void FakeSimulatorProcess::kill() {
    if (process_ != nullptr)
        TerminateProcess(process_, 9);
    end();
}

void FakeSimulatorProcess::waitForEnd() {
    if (const HANDLE process = std::exchange(process_, nullptr)) {
        WaitForSingleObject(process, INFINITE);
        CloseHandle(process);
    }
}

} // namespace quillset::test
