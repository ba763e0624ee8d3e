// One-value exchanges with the fake simulator in another process, against the bare messages of the same round
// trips in the same run. Limit: 1.2 times the bare cost. Exit code 1 when the middle of the rounds is beyond.

#include "simlink/fake_simulator_process.h"
#include "simlink/position_exchange.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>
#include <windows.h>

namespace {

using namespace quillset;

constexpr int exchanges = 1000;
constexpr int rounds = 9;
constexpr double limit = 1.2;

// A block with the request that FSUIPCFunctions::read sends, and nothing of the client around it.
class BareMessages {
public:
    explicit BareMessages(SimulatorServices& services)
        : services_(services)
        , window_(services.findWindow("UIPCMAIN"))
        , message_(services.registerMessage("FSASMLIB:IPC"))
        , atom_(services.addAtom(name))
        , block_(services.createBlock(name, 0x8000).block)
        , view_(services.mapBlock(block_, 0x8000)) {
        const std::array<std::uint32_t, 6> request{1, 0x0580, 4, 1, 0, 0};
        std::memcpy(view_, request.data(), sizeof request);
    }
    ~BareMessages() {
        services_.deleteAtom(atom_);
        services_.unmapBlock(view_);
        services_.closeBlock(block_);
    }
    BareMessages(const BareMessages&) = delete;
    BareMessages& operator=(const BareMessages&) = delete;

    bool send() const {
        DWORD_PTR answer = 0;
        return SendMessageTimeoutA(reinterpret_cast<HWND>(static_cast<std::uintptr_t>(window_)), message_,
                                   atom_, 0, SMTO_BLOCK, 2000, &answer) != 0 &&
               answer == 1;
    }

private:
    static constexpr const char* name = "Quillset bare round trips";
    SimulatorServices& services_;
    SimulatorWindow window_;
    std::uint32_t message_;
    std::uint16_t atom_;
    SharedBlock block_;
    std::byte* view_;
};

template <class Exchange>
double microseconds(const Exchange& exchange) {
    const auto start = std::chrono::steady_clock::now();
    if (!exchange()) {
        std::puts("an exchange failed");
        std::exit(2);
    }
    const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - start;
    return time.count();
}

double middleOf(std::vector<double>& values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

} // namespace

int main() {
    const test::FakeSimulatorProcess simulator;
    const auto services = systemSimulatorServices();
    FsuipcClient client(*services);
    FsuipcError error{};
    if (!client.openLink(0, error))
        return 2;
    FSUIPCFunctions functions(client);
    const BareMessages bare(*services);
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        // In turns, and the middle of each: whatever else the machine does hits both alike.
        std::vector<double> plain;
        std::vector<double> ours;
        for (int i = 0; i < exchanges; ++i) {
            plain.push_back(microseconds([&] { return bare.send(); }));
            ours.push_back(microseconds([&] { return functions.read(Coordinate::heading).has_value(); }));
        }
        ratios.push_back(middleOf(ours) / middleOf(plain));
        std::printf("bare %7.1f us   exchange %7.1f us   ratio %.3f\n", middleOf(plain), middleOf(ours),
                    ratios.back());
    }
    const double middle = middleOf(ratios);
    std::printf("middle ratio %.3f, limit %.1f\n", middle, limit);
    return middle <= limit ? 0 : 1;
}
