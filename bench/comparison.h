#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <ctime>
#ifdef __GLIBC__
#include <malloc.h>
#endif
#include <vector>

namespace quillset::bench {

/// Processor time for what computes; elapsed time for what mostly waits for the disk.
enum class Measure { processorTime, elapsedTime };

/// Both sides start with no memory left over from the other's run, as a program that opens its first file.
template <class Body>
double secondsOf(Measure measure, const Body& body) {
#ifdef __GLIBC__
    malloc_trim(0);
#endif
    const auto start = std::chrono::steady_clock::now();
    const std::clock_t processorStart = std::clock();
    body();
    if (measure == Measure::processorTime)
        return static_cast<double>(std::clock() - processorStart) / CLOCKS_PER_SEC;
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Runs ours and the peer by turns and compares the fastest run of each: what a busy machine adds falls away.
template <class Ours, class Peer>
void compare(benchmark::State& state, double limit, const Ours& ours, const Peer& peer,
             Measure measure = Measure::processorTime) {
    std::vector<double> ourTimes;
    std::vector<double> peerTimes;
    for (auto unused : state) {
        (void)unused;
        ourTimes.push_back(secondsOf(measure, ours));
        peerTimes.push_back(secondsOf(measure, peer));
        state.SetIterationTime(ourTimes.back());
    }
    const double peerTime = *std::min_element(peerTimes.begin(), peerTimes.end());
    state.counters["ratio"] = *std::min_element(ourTimes.begin(), ourTimes.end()) / peerTime;
    state.counters["limit"] = limit;
    state.counters["peer_ms"] = peerTime * 1000;
}

/// Times one step again and again and compares its median with a limit in milliseconds.
template <class Step>
void timeSteps(benchmark::State& state, double limit, const Step& step) {
    std::vector<double> times;
    for (auto unused : state) {
        (void)unused;
        const auto start = std::chrono::steady_clock::now();
        step();
        times.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        state.SetIterationTime(times.back());
    }
    std::sort(times.begin(), times.end());
    state.counters["median_ms"] = times[times.size() / 2] * 1000;
    state.counters["worst_ms"] = times.back() * 1000;
    state.counters["limit_ms"] = limit;
}

} // namespace quillset::bench
