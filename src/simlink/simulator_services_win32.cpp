#include "simlink/simulator_services.h"

#include <mutex>
#include <optional>
#include <ratio>
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

// Speaks up in the middle of a send. The sending thread stands still meanwhile, but for messages that other
// threads send to its windows: a timer of the system's sends one to a window that nobody sees. What the user
// does comes as posted messages and waits. Handing the send to a thread of its own instead would make each
// exchange pay for two changes of thread, and sending again after a while would be a second request.
class SilenceAlarm {
public:
    SilenceAlarm() {
        constexpr const char* name = "Quillset silence alarm";
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = procedure;
        windowClass.hInstance = GetModuleHandleA(nullptr);
        windowClass.lpszClassName = name;
        RegisterClassA(&windowClass); // fails from the second alarm on: the class is there
        window_ = CreateWindowExA(0, name, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                  windowClass.hInstance, nullptr);
        SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        timer_ = CreateThreadpoolTimer(onTimer, this, nullptr);
    }
    ~SilenceAlarm() {
        if (timer_ != nullptr) {
            SetThreadpoolTimer(timer_, nullptr, 0, 0);
            WaitForThreadpoolTimerCallbacks(timer_, TRUE);
            CloseThreadpoolTimer(timer_);
        }
        DestroyWindow(window_);
    }
    SilenceAlarm(const SilenceAlarm&) = delete;
    SilenceAlarm& operator=(const SilenceAlarm&) = delete;

    void set(const Silence& silence) {
        const std::lock_guard lock(mutex_);
        silence_ = &silence;
        due_ = Clock::now() + silence.after;
        ++number_;
        if (!rings_ || *rings_ > due_)
            ringAtDue();
    }
    // The timer runs on, for nobody or for the next send: setting it anew each time would be a good part of
    // the cost of a fast exchange.
    void clear() {
        const std::lock_guard lock(mutex_);
        silence_ = nullptr;
    }

private:
    using Clock = std::chrono::steady_clock;
    using Units = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;

    static void CALLBACK onTimer(PTP_CALLBACK_INSTANCE, void* alarm, PTP_TIMER) {
        static_cast<SilenceAlarm*>(alarm)->ring();
    }

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM number, LPARAM second) {
        if (message != ringing)
            return DefWindowProcA(window, message, number, second);
        reinterpret_cast<const SilenceAlarm*>(GetWindowLongPtrA(window, GWLP_USERDATA))->tell(number);
        return 0;
    }

    // On the timer's thread.
    void ring() {
        const std::lock_guard lock(mutex_);
        rings_.reset();
        if (silence_ == nullptr)
            return;
        if (Clock::now() < due_)
            ringAtDue();
        else
            SendNotifyMessageA(window_, ringing, number_, 0);
    }

    void tell(WPARAM number) const {
        // The message of a send that has just ended comes late, perhaps into the next one.
        if (silence_ == nullptr || number != number_)
            return;
        silence_->tell();
        showSignOfLife();
    }

    void ringAtDue() {
        if (timer_ == nullptr)
            return;
        rings_ = due_;
        // Below 0 is from now on.
        const auto time = static_cast<std::uint64_t>(-std::chrono::ceil<Units>(due_ - Clock::now()).count());
        FILETIME words{static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
        SetThreadpoolTimer(timer_, &words, 0, 0);
    }

    static constexpr UINT ringing = WM_APP;
    HWND window_ = nullptr;
    PTP_TIMER timer_ = nullptr;
    std::mutex mutex_; // for what follows, which only the sending thread changes but for rings_
    std::optional<Clock::time_point> rings_;
    const Silence* silence_ = nullptr; // of the send that is under way
    Clock::time_point due_;
    WPARAM number_ = 0; // of the send
};

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
                     std::chrono::milliseconds timeOut, const Silence& silence) override {
        SendOutcome outcome;
        DWORD_PTR answer = 0;
        // Not earlier: the toolkit must set up scaled screens before the process has its first window.
        if (!alarm_)
            alarm_.emplace();
        alarm_->set(silence);
        SetLastError(ERROR_SUCCESS);
        // Not SMTO_BLOCK, which would keep the alarm's message out too.
        outcome.sent =
            SendMessageTimeoutA(reinterpret_cast<HWND>(static_cast<std::uintptr_t>(window)), message, atom, 0,
                                SMTO_NORMAL, static_cast<UINT>(timeOut.count()), &answer) != 0;
        if (!outcome.sent) {
            // Older systems leave 0 when the time runs out, newer ones set a number of its own.
            const DWORD error = GetLastError();
            outcome.systemError = error == ERROR_TIMEOUT ? 0 : error;
        }
        alarm_->clear();
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

private:
    std::optional<SilenceAlarm> alarm_;
};

} // namespace

std::unique_ptr<SimulatorServices> systemSimulatorServices() {
    return std::make_unique<WindowsServices>();
}

} // namespace quillset
