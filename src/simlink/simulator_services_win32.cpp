#include "simlink/simulator_services.h"

#include <windows.h>

namespace quillset {

namespace {

HANDLE handleOf(SharedBlock block) {
    return reinterpret_cast<HANDLE>(static_cast<std::uintptr_t>(block));
}

// A thread that does not ask for its messages is taken for hung after 5 s: the system then shows an old
// picture of its windows and offers to end the program. Asking also brings to the screen what was painted.
// No message of this number is ever there, so none is taken out of its order.
void showSignOfLife() {
    MSG message{};
    constexpr UINT nobodys = 0xBFFF;
    PeekMessageA(&message, nullptr, nobodys, nobodys, PM_NOREMOVE);
}

class WindowsServices : public SimulatorServices {
public:
    bool supported() const override { return true; }

    SimulatorWindow findWindow(const std::string& className) override {
        const HWND window = FindWindowExA(nullptr, nullptr, className.c_str(), nullptr);
        return static_cast<SimulatorWindow>(reinterpret_cast<std::uintptr_t>(window));
    }

    std::uint32_t registerMessage(const std::string& name) override {
        return RegisterWindowMessageA(name.c_str());
    }

    SendOutcome send(SimulatorWindow window, std::uint32_t message, std::uint16_t atom,
                     std::chrono::milliseconds timeOut) override {
        SendOutcome outcome;
        DWORD_PTR answer = 0;
        SetLastError(ERROR_SUCCESS);
        outcome.sent =
            SendMessageTimeoutA(reinterpret_cast<HWND>(static_cast<std::uintptr_t>(window)), message, atom, 0,
                                SMTO_BLOCK, static_cast<UINT>(timeOut.count()), &answer) != 0;
        if (!outcome.sent) {
            // Older systems leave 0 when the time runs out, newer ones set a number of its own.
            const DWORD error = GetLastError();
            outcome.systemError = error == ERROR_TIMEOUT ? 0 : error;
        }
        outcome.answer = answer;
        return outcome;
    }

    std::uint16_t addAtom(const std::string& name) override { return GlobalAddAtomA(name.c_str()); }
    void deleteAtom(std::uint16_t atom) override { GlobalDeleteAtom(atom); }

    CreatedBlock createBlock(const std::string& name, std::size_t size) override {
        SetLastError(ERROR_SUCCESS);
        const HANDLE block = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                                static_cast<DWORD>(size), name.c_str());
        const bool existed = GetLastError() == ERROR_ALREADY_EXISTS;
        return {static_cast<SharedBlock>(reinterpret_cast<std::uintptr_t>(block)), existed};
    }
    void closeBlock(SharedBlock block) override { CloseHandle(handleOf(block)); }

    std::byte* mapBlock(SharedBlock block, std::size_t size) override {
        return static_cast<std::byte*>(MapViewOfFile(handleOf(block), FILE_MAP_WRITE, 0, 0, size));
    }
    void unmapBlock(std::byte* view) override { UnmapViewOfFile(view); }

    std::uint32_t processId() override { return GetCurrentProcessId(); }
    void sleep(std::chrono::milliseconds time) override {
        showSignOfLife();
        Sleep(static_cast<DWORD>(time.count()));
    }
};

} // namespace

std::unique_ptr<SimulatorServices> systemSimulatorServices() {
    return std::make_unique<WindowsServices>();
}

} // namespace quillset
