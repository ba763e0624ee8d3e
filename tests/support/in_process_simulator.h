#pragma once

#include "simlink/simulator_services.h"
#include "support/offset_space.h"

#include <algorithm>
#include <deque>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quillset::test {

/// A simulator inside the test: windows, atoms and shared blocks of its own, and time that only counts.
/// Every service can be made to fail; what is not given back can be counted.
class InProcessSimulator : public SimulatorServices {
public:
    enum class Failing { message, atom, block, view };

    OffsetSpace offsets;
    bool isSupported = true;
    std::vector<std::string> windowClasses{"UIPCMAIN"};
    std::set<Failing> failing;
    /// Outcomes of the next sends, instead of an answer: 0 is silence, anything else an error of the system.
    std::deque<std::uint32_t> unanswered;
    std::uintptr_t answer = 1;
    /// How long an answer takes.
    std::chrono::milliseconds late{0};
    /// Runs after each served exchange, with the block as the client will find it.
    std::function<void(std::span<std::byte>)> scribble;
    /// Runs at each attempt to send.
    std::function<void()> onSend;
    /// Runs at each attempt that was silent long enough for the client to be told.
    std::function<void()> onSilence;

    /// What was asked for, in order.
    std::vector<std::string> calls;
    int sends = 0;
    std::chrono::milliseconds passed{0};
    /// The block as it was sent last, before it was served.
    std::vector<std::byte> sentBlock;

    /// Atoms, blocks and views that were not given back.
    [[nodiscard]] std::size_t held() const { return atoms_.size() + blocks_.size() + mapped_; }
    /// A simulator that ends takes its windows along.
    void end() { windowClasses.clear(); }
    /// Only the aircraft's values that tests ask for.
    void placeAircraft(std::int64_t latitude, std::int64_t longitude, std::uint32_t heading) {
        offsets.set(0x0560, latitude);
        offsets.set(0x0568, longitude);
        offsets.set(0x0580, heading);
    }

    bool supported() const override { return isSupported; }

    SimulatorWindow findWindow(const std::string& className) override {
        calls.push_back("find " + className);
        const bool found = std::ranges::find(windowClasses, className) != windowClasses.end();
        return found ? window : SimulatorWindow::none;
    }

    std::uint32_t registerMessage(const std::string& name) override {
        calls.push_back("message " + name);
        return failing.contains(Failing::message) ? 0 : messageNumber;
    }

    SendOutcome send(SimulatorWindow to, std::uint32_t message, std::uint16_t atom,
                     std::chrono::milliseconds timeOut, const Silence& silence) override {
        calls.push_back("send");
        ++sends;
        if (onSend)
            onSend();
        if (!unanswered.empty()) {
            const std::uint32_t error = unanswered.front();
            unanswered.pop_front();
            if (error == 0)
                wait(timeOut, silence);
            return {false, 0, error};
        }
        if (to != window || windowClasses.empty() || message != messageNumber)
            return {false, 0, invalidWindow};
        wait(late, silence);
        return {true, serve(atom), 0};
    }

    std::uint16_t addAtom(const std::string& name) override {
        calls.push_back("atom " + name);
        if (failing.contains(Failing::atom))
            return 0;
        atoms_.emplace(firstAtom, name);
        return firstAtom;
    }
    void deleteAtom(std::uint16_t atom) override {
        calls.push_back("delete atom");
        if (const auto found = atoms_.find(atom); found != atoms_.end())
            atoms_.erase(found);
    }

    CreatedBlock createBlock(const std::string& name, std::size_t size) override {
        calls.push_back("block " + name + " " + std::to_string(size));
        if (failing.contains(Failing::block))
            return {};
        const bool existed =
            std::ranges::any_of(blocks_, [&](const auto& entry) { return entry.second.first == name; });
        const std::uintptr_t handle = ++lastHandle_;
        blocks_[handle] = {name, std::vector<std::byte>(size)};
        return {static_cast<SharedBlock>(handle), existed};
    }
    void closeBlock(SharedBlock block) override {
        calls.push_back("close block");
        blocks_.erase(static_cast<std::uintptr_t>(block));
    }

    std::byte* mapBlock(SharedBlock block, std::size_t size) override {
        calls.push_back("map");
        const auto found = blocks_.find(static_cast<std::uintptr_t>(block));
        if (failing.contains(Failing::view) || found == blocks_.end() || found->second.second.size() != size)
            return nullptr;
        ++mapped_;
        return found->second.second.data();
    }
    void unmapBlock(std::byte*) override {
        calls.push_back("unmap");
        --mapped_;
    }

    std::uint32_t processId() override { return 0x1A2B; }
    void sleep(std::chrono::milliseconds time) override {
        calls.push_back("sleep");
        passed += time;
    }

private:
    static constexpr SimulatorWindow window = SimulatorWindow{77};
    static constexpr std::uint32_t messageNumber = 0xC0DE;
    static constexpr std::uint16_t firstAtom = 0xC123;
    static constexpr std::uint32_t invalidWindow = 1400;

    void wait(std::chrono::milliseconds time, const Silence& silence) {
        passed += time;
        if (time < silence.after)
            return;
        silence.tell();
        if (onSilence)
            onSilence();
    }

    // The way of the real one: the atom names the block.
    std::uintptr_t serve(std::uint16_t atom) {
        const auto name = atoms_.find(atom);
        for (auto& [handle, block] : blocks_) {
            if (name == atoms_.end() || block.first != name->second)
                continue;
            sentBlock = block.second;
            if (!offsets.serve(block.second))
                return 0;
            if (scribble)
                scribble(block.second);
            return answer;
        }
        return 0;
    }

    std::multimap<std::uint16_t, std::string> atoms_;
    std::map<std::uintptr_t, std::pair<std::string, std::vector<std::byte>>> blocks_;
    std::uintptr_t lastHandle_ = 0;
    std::size_t mapped_ = 0;
};

} // namespace quillset::test
