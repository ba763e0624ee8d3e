// A Windows program in the simulator's place; see README.md.

#include "fake_simulator/options.h"
#include "support/offset_space.h"

#include <array>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>
#include <windows.h>

namespace {

using quillset::test::OffsetSpace;
using quillset::tools::Options;

void say(const std::string& line) {
    std::puts(line.c_str());
    std::fflush(stdout);
}

class Simulator {
public:
    explicit Simulator(Options options)
        : options_(std::move(options)) {
        for (const quillset::tools::Preset& preset : options_.presets)
            for (std::size_t i = 0; i < preset.bytes.size(); ++i)
                offsets_.set(preset.offset + static_cast<std::uint32_t>(i), preset.bytes[i]);
    }

    LRESULT exchange(ATOM atom) {
        ++count_;
        if (count_ <= options_.lateCount)
            Sleep(options_.lateMilliseconds);
        std::array<char, 256> name{};
        if (GlobalGetAtomNameA(atom, name.data(), static_cast<int>(name.size())) == 0)
            return 0;
        const HANDLE mapping = OpenFileMappingA(FILE_MAP_WRITE, FALSE, name.data());
        if (mapping == nullptr)
            return 0;
        void* const view = MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, 0);
        MEMORY_BASIC_INFORMATION memory{};
        const bool known = view != nullptr && VirtualQuery(view, &memory, sizeof memory) != 0;
        const bool served = known && serve({static_cast<std::byte*>(view), memory.RegionSize});
        if (view != nullptr)
            UnmapViewOfFile(view);
        CloseHandle(mapping);
        return served ? static_cast<LRESULT>(options_.answer) : 0;
    }

private:
    bool serve(std::span<std::byte> block) {
        const auto note = [this](const std::string& line) {
            if (options_.log)
                say(line);
        };
        const bool served = offsets_.serve(block, note);
        if (count_ == options_.dieIn)
            TerminateProcess(GetCurrentProcess(), 3);
        if (count_ >= options_.damageFrom)
            for (const quillset::tools::Damage& damage : options_.damages)
                if (damage.position + sizeof damage.word <= block.size())
                    std::memcpy(block.data() + damage.position, &damage.word, sizeof damage.word);
        return served;
    }

    Options options_;
    OffsetSpace offsets_;
    unsigned count_ = 0;
};

LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    static const UINT exchange = RegisterWindowMessageA("FSASMLIB:IPC");
    if (message == exchange)
        if (auto* const simulator = reinterpret_cast<Simulator*>(GetWindowLongPtrA(window, GWLP_USERDATA)))
            return simulator->exchange(static_cast<ATOM>(first));
    if (message == WM_DESTROY)
        PostQuitMessage(0);
    return DefWindowProcA(window, message, first, second);
}

HWND createWindow(const Options& options, Simulator& simulator) {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = windowProcedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = options.windowClass.c_str();
    RegisterClassA(&windowClass);
    const HWND window = CreateWindowExA(0, options.windowClass.c_str(), "Fake simulator", WS_OVERLAPPED, 0, 0,
                                        10, 10, nullptr, nullptr, windowClass.hInstance, nullptr);
    if (window != nullptr)
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&simulator));
    return window;
}

void closeAtEndOfInput(HWND window) {
    std::thread([window] {
        while (std::getchar() != EOF) {
        }
        PostMessageA(window, WM_CLOSE, 0, 0);
    }).detach();
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const std::optional<Options> options = quillset::tools::parseOptions(arguments);
    if (!options) {
        std::fputs(quillset::tools::usage, stderr);
        return 2;
    }
    Simulator simulator(*options);
    const HWND window = createWindow(*options, simulator);
    if (window == nullptr) {
        std::fputs("fake_simulator: no window could be created\n", stderr);
        return 1;
    }
    if (options->untilInputEnds)
        closeAtEndOfInput(window);
    say("ready");
    MSG message{};
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
    return 0;
}
