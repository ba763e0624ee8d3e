// The client's own part of an exchange with the simulator: queueing, checking and copying, without any
// window. Limit: 10 us for one value.

#include "simlink/link_monitor.h"
#include "simlink/position_exchange.h"
#include "support/in_process_simulator.h"

#include <benchmark/benchmark.h>

namespace {

using namespace quillset;

// Answers at once; the aircraft is where the block says.
class InstantSimulator : public test::InProcessSimulator {
public:
    SendOutcome send(SimulatorWindow to, std::uint32_t message, std::uint16_t atom,
                     std::chrono::milliseconds timeOut, const Silence& silence) override {
        return instant ? SendOutcome{true, 1, 0}
                       : InProcessSimulator::send(to, message, atom, timeOut, silence);
    }
    bool instant = false;
};

// How many times the limit of 10 us holds the exchange: must stay above 1.
void showLimit(benchmark::State& state) {
    state.counters["limit_10us_over_time"] =
        benchmark::Counter(10e-6 * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

void oneValue(benchmark::State& state) {
    InstantSimulator simulator;
    FsuipcClient client(simulator);
    LinkMonitor monitor(client);
    monitor.start();
    simulator.instant = true;
    FSUIPCFunctions functions(client);
    for (auto _ : state) {
        const auto heading = functions.read(Coordinate::heading);
        if (!heading)
            state.SkipWithError("the exchange failed");
        benchmark::DoNotOptimize(heading);
    }
    showLimit(state);
}
BENCHMARK(oneValue);

void fullBlock(benchmark::State& state) {
    InstantSimulator simulator;
    FsuipcClient client(simulator);
    FsuipcError error{};
    client.openLink(0, error);
    simulator.instant = true;
    std::vector<std::uint16_t> words(1805); // as many reads of two bytes as fit
    for (auto _ : state) {
        for (std::uint16_t& word : words)
            client.queueRead(0x3308, sizeof word, &word, error);
        if (!client.processRequests(error))
            state.SkipWithError("the exchange failed");
    }
}
BENCHMARK(fullBlock);

} // namespace

BENCHMARK_MAIN();
