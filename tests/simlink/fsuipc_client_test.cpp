#include "simlink/fsuipc_client.h"
#include "support/in_process_simulator.h"

#include <array>
#include <cstring>
#include <gtest/gtest.h>
#include <random>

using namespace quillset;
using quillset::test::InProcessSimulator;
using Failing = InProcessSimulator::Failing;
using namespace std::chrono_literals;

namespace {

constexpr auto unset = FsuipcError{-1};

struct Link {
    InProcessSimulator simulator;
    FsuipcClient client{simulator};
    FsuipcError error = unset;

    Link() = default;
    bool open(std::uint32_t requested = 0) { return client.openLink(requested, error); }
    std::uint16_t readWord(std::uint32_t offset) {
        std::uint16_t value = 0;
        EXPECT_TRUE(client.queueRead(offset, sizeof value, &value, error));
        EXPECT_TRUE(client.processRequests(error)) << static_cast<int>(error);
        return value;
    }
};

std::string hex(const std::vector<std::byte>& bytes, std::size_t from, std::size_t count) {
    std::string text;
    for (std::size_t i = from; i < from + count; ++i) {
        text += "0123456789ABCDEF"[std::to_integer<unsigned>(bytes[i]) >> 4];
        text += "0123456789ABCDEF"[std::to_integer<unsigned>(bytes[i]) & 0xF];
    }
    return text;
}

void put(std::span<std::byte> block, std::size_t at, std::uint32_t word) {
    std::memcpy(block.data() + at, &word, sizeof word);
}

TEST(FsuipcClient, OpensInTheOrderOfTheProtocol) {
    Link link;
    ASSERT_TRUE(link.open());
    EXPECT_EQ(link.error, FsuipcError::success);
    const std::vector<std::string> expected{"find UIPCMAIN",
                                            "message FSASMLIB:IPC",
                                            "atom FSASMLIB:IPC:1A2B:1",
                                            "block FSASMLIB:IPC:1A2B:1 32768",
                                            "map",
                                            "send",
                                            "sleep"};
    EXPECT_EQ(link.simulator.calls, expected);
    EXPECT_EQ(link.simulator.passed, 100ms);
    // Read 0x3304 (4), read 0x3308 (4), write 0x330A (2 bytes 0), end mark; 1 and 2 stand for the targets.
    EXPECT_EQ(hex(link.simulator.sentBlock, 0, 58), "0100000004330000040000000100000000000000"
                                                    "0100000008330000040000000200000000000000"
                                                    "020000000A330000020000000000"
                                                    "00000000");
    EXPECT_EQ(link.simulator.offsets.libraryVersion(), 0);
    EXPECT_EQ(link.client.fsuipcVersion(), 0x39990001u);
    EXPECT_EQ(link.client.simulatorVersion(), 7u);
}

struct FailedOpen {
    const char* name;
    std::function<void(InProcessSimulator&)> arrange;
    FsuipcError error;
    std::uint32_t requested = 0;
};

TEST(FsuipcClient, AFailedOpenLeavesNothingOpen) {
    const std::vector<FailedOpen> rows{
        {"no window", [](auto& s) { s.end(); }, FsuipcError::noSimulatorWindow},
        {"no message", [](auto& s) { s.failing = {Failing::message}; }, FsuipcError::messageNotRegistered},
        {"no atom", [](auto& s) { s.failing = {Failing::atom}; }, FsuipcError::atomNotCreated},
        {"no block", [](auto& s) { s.failing = {Failing::block}; }, FsuipcError::blockNotCreated},
        {"no view", [](auto& s) { s.failing = {Failing::view}; }, FsuipcError::blockNotMapped},
        {"old module", [](auto& s) { s.offsets.set(0x3304, 0x19980004); }, FsuipcError::wrongServer},
        {"no mark", [](auto& s) { s.offsets.set(0x330A, std::uint16_t{0xFADD}); }, FsuipcError::wrongServer},
        {"no version", [](auto& s) { s.offsets.set(0x3304, 0); }, FsuipcError::wrongServer},
        {"no mark, older window",
         [](auto& s) {
             s.windowClasses = {"FS98MAIN"};
             s.offsets.set(0x3308, 7);
         },
         FsuipcError::wrongServerOldWindow},
        {"another simulator", [](auto&) {}, FsuipcError::wrongSimulator, 8},
        {"silence", [](auto& s) { s.unanswered.assign(11, 0); }, FsuipcError::timedOut},
        {"access denied", [](auto& s) { s.unanswered.assign(11, 5); }, FsuipcError::sendFailed},
        {"silence, then denied",
         [](auto& s) {
             s.unanswered.assign(10, 0);
             s.unanswered.push_back(5);
         },
         FsuipcError::sendFailed},
        {"answer 0", [](auto& s) { s.answer = 0; }, FsuipcError::refused},
        {"answer 2", [](auto& s) { s.answer = 2; }, FsuipcError::refused},
        // Deliberate: an answer that cannot be followed has no number; the queueing before it left success.
        {"scribble", [](auto& s) { s.scribble = [](auto block) { put(block, 0, 3); }; },
         FsuipcError::success},
    };
    for (const FailedOpen& row : rows) {
        SCOPED_TRACE(row.name);
        Link link;
        row.arrange(link.simulator);
        EXPECT_FALSE(link.open(row.requested));
        EXPECT_EQ(link.error, row.error);
        EXPECT_FALSE(link.client.isOpen());
        EXPECT_EQ(link.simulator.held(), 0u);
        EXPECT_EQ(link.client.fsuipcVersion() + link.client.simulatorVersion(), 0u);
        EXPECT_FALSE(link.client.processRequests(link.error));
        EXPECT_EQ(link.error, FsuipcError::notOpen);
    }
}

TEST(FsuipcClient, AcceptsTheOldestModuleTheOlderWindowAndTheSimulatorAskedFor) {
    Link link;
    link.simulator.windowClasses = {"FS98MAIN"};
    link.simulator.offsets.set(0x3304, 0x19980005);
    link.simulator.offsets.set(0x3308, 0xFADE0008);
    EXPECT_TRUE(link.open(8)) << static_cast<int>(link.error);
    EXPECT_EQ(link.client.simulatorVersion(), 8u);
}

TEST(FsuipcClient, IdentifiesAModuleThatIsStillStarting) {
    for (const int attempts : {4, 5}) {
        Link link;
        link.simulator.offsets.set(0x3304, 0);
        link.simulator.onSend = [&, sends = 0]() mutable {
            if (++sends == attempts)
                link.simulator.offsets.set(0x3304, 0x39990001);
        };
        EXPECT_TRUE(link.open());
        EXPECT_EQ(link.simulator.sends, attempts);
        EXPECT_EQ(link.simulator.passed, attempts * 100ms);
    }
    Link link;
    link.simulator.offsets.set(0x3304, 0);
    EXPECT_FALSE(link.open());
    EXPECT_EQ(link.simulator.sends, 5);
}

TEST(FsuipcClient, OnlyOneConnectionAtATime) {
    Link link;
    ASSERT_TRUE(link.open());
    EXPECT_FALSE(link.open());
    EXPECT_EQ(link.error, FsuipcError::alreadyOpen);
    EXPECT_EQ(link.readWord(0x3308), 7);

    FsuipcClient second(link.simulator);
    EXPECT_FALSE(second.openLink(0, link.error));
    EXPECT_EQ(link.error, FsuipcError::blockNotCreated);
    EXPECT_EQ(link.readWord(0x3308), 7) << "the second one must not take the first one's atom or block along";

    link.client.closeLink();
    link.client.closeLink();
    EXPECT_EQ(link.simulator.held(), 0u);
    EXPECT_TRUE(second.openLink(0, link.error));
}

TEST(FsuipcClient, RepeatsAnUnansweredMessageTenTimes) {
    Link link;
    ASSERT_TRUE(link.open());
    std::vector<ExchangePhase> phases;
    const Connection watching = link.client.exchange.connect([&](ExchangePhase p) { phases.push_back(p); });
    link.simulator.passed = 0ms;
    link.simulator.unanswered.assign(10, 0);
    EXPECT_EQ(link.readWord(0x3308), 7);
    EXPECT_EQ(link.simulator.passed, 10 * 2000ms + 10 * 100ms);
    EXPECT_EQ(phases.size(), 22u) << "told half a second into each attempt, and at its end";
    EXPECT_EQ(phases.front(), ExchangePhase::begins);
    EXPECT_EQ(phases.back(), ExchangePhase::ends);

    link.simulator.sends = 0;
    link.simulator.unanswered.assign(11, 0);
    std::uint16_t value = 0;
    ASSERT_TRUE(link.client.queueRead(0x3308, sizeof value, &value, link.error));
    EXPECT_FALSE(link.client.processRequests(link.error));
    EXPECT_EQ(link.error, FsuipcError::timedOut);
    EXPECT_EQ(link.simulator.sends, 11);

    EXPECT_TRUE(link.client.isOpen());
    EXPECT_FALSE(link.client.processRequests(link.error));
    EXPECT_EQ(link.error, FsuipcError::nothingQueued);
    EXPECT_EQ(link.simulator.sends, 11) << "an empty queue must not be sent";
    EXPECT_EQ(link.readWord(0x3308), 7) << "the connection lives on";
}

TEST(FsuipcClient, RefusesWhatDoesNotFitAndKeepsTheRest) {
    std::vector<std::byte> large(32497, std::byte{0x5A});
    Link link;
    ASSERT_TRUE(link.open());
    FsuipcClient& client = link.client;
    for (const std::uint32_t size : {32493u, 0x7FFFFFFFu, 0xFFFFFFF0u, 0xFFFFFFFFu}) {
        EXPECT_FALSE(client.queueRead(0, size, large.data(), link.error));
        EXPECT_EQ(link.error, FsuipcError::doesNotFit);
    }
    EXPECT_FALSE(client.queueWrite(0x4000, 32497, large.data(), link.error));
    EXPECT_EQ(link.error, FsuipcError::doesNotFit);
    EXPECT_FALSE(client.processRequests(link.error));
    EXPECT_EQ(link.error, FsuipcError::nothingQueued);

    ASSERT_TRUE(client.queueWrite(0x4000, 32496, large.data(), link.error));
    EXPECT_FALSE(client.queueWrite(0x4000, 0, large.data(), link.error)) << "not even an empty one fits now";
    EXPECT_TRUE(client.processRequests(link.error));

    std::vector<std::byte> answer(32492);
    ASSERT_TRUE(client.queueRead(0x4000, 32492, answer.data(), link.error));
    EXPECT_TRUE(client.processRequests(link.error));
    EXPECT_TRUE(std::equal(answer.begin(), answer.end(), large.begin()));
}

TEST(FsuipcClient, BatchesRequestsInOneMessage) {
    Link link;
    ASSERT_TRUE(link.open());
    link.simulator.sends = 0;
    std::uint32_t source = 0x11223344;
    std::uint32_t before = 0;
    std::uint32_t after = 0;
    std::uint16_t low = 0;
    FsuipcClient& client = link.client;
    ASSERT_TRUE(client.queueRead(0x5000, 4, &before, link.error));
    ASSERT_TRUE(client.queueWrite(0x5000, 4, &source, link.error));
    source = 0; // the bytes were copied
    ASSERT_TRUE(client.queueRead(0x5000, 4, nullptr, link.error));
    ASSERT_TRUE(client.queueRead(0x5000, 0, &before, link.error));
    ASSERT_TRUE(client.queueRead(0x5000, 4, &after, link.error));
    ASSERT_TRUE(client.queueRead(0x5002, 2, &low, link.error));
    EXPECT_EQ(after, 0u) << "only processing brings answers";
    ASSERT_TRUE(client.processRequests(link.error));
    EXPECT_EQ(before, 0u);
    EXPECT_EQ(after, 0x11223344u);
    EXPECT_EQ(low, 0x1122u);
    EXPECT_EQ(link.simulator.sends, 1);

    // The next queue starts anew: targets are counted from 1, the old answers are gone from the block.
    EXPECT_EQ(link.readWord(0x5000), 0x3344);
    EXPECT_EQ(link.readWord(0x5000), 0x3344);
    EXPECT_EQ(hex(link.simulator.sentBlock, 0, 22), "01000000005000000200000001000000"
                                                    "0000"
                                                    "00000000");
}

// Two reads of 4 and 8 bytes, the second at 20; the end mark at 44.
struct Scribble {
    const char* name;
    std::function<void(std::span<std::byte>)> damage;
    bool accepted;
    bool firstArrives;
    bool secondArrives;
};

TEST(FsuipcClient, NeverFollowsAScribbledBlockOutOfBounds) {
    const std::vector<Scribble> rows{
        {"untouched", [](auto) {}, true, true, true},
        {"unknown record", [](auto b) { put(b, 20, 7); }, false, true, false},
        {"early end", [](auto b) { put(b, 20, 0); }, true, true, false},
        {"no end mark", [](auto b) { put(b, 44, 1); }, false, true, true},
        {"size larger than the target", [](auto b) { put(b, 8, 8); }, false, false, false},
        {"size smaller than the target", [](auto b) { put(b, 8, 2); }, false, false, false},
        {"size beyond the block", [](auto b) { put(b, 28, 0x8000); }, false, true, false},
        {"size that wraps around", [](auto b) { put(b, 28, 0xFFFFFFF0); }, false, true, false},
        {"size of the last record up to the end mark", [](auto b) { put(b, 28, 12); }, false, true, false},
        {"write size beyond the block", [](auto b) { put(b, 20, 2), put(b, 28, 0xFFFFFFFC); }, false, true,
         false},
        {"write size behind the end", [](auto b) { put(b, 20, 2), put(b, 28, 20); }, false, true, false},
        {"read header cut by the end", [](auto b) { put(b, 20, 2), put(b, 28, 4), put(b, 36, 1); }, false,
         true, false},
        {"target of nobody", [](auto b) { put(b, 32, 3); }, false, true, false},
        {"target like an address", [](auto b) { put(b, 32, 0x00401000); }, false, true, false},
        {"target of the other size", [](auto b) { put(b, 32, 1); }, false, true, false},
        {"no target", [](auto b) { put(b, 32, 0); }, true, true, false},
        {"all ones", [](auto b) { std::ranges::fill(b, std::byte{0xFF}); }, false, false, false},
        {"all zero", [](auto b) { std::ranges::fill(b, std::byte{0}); }, true, false, false},
    };
    for (const Scribble& row : rows) {
        SCOPED_TRACE(row.name);
        Link link;
        ASSERT_TRUE(link.open());
        link.simulator.offsets.set<std::uint64_t>(0x6000, 0x1111222233334444);
        link.simulator.scribble = row.damage;
        std::array<std::uint32_t, 3> first{0xAAAA, 0xBBBB, 0xCCCC};
        std::array<std::uint64_t, 3> second{0xAAAA, 0xBBBB, 0xCCCC};
        ASSERT_TRUE(link.client.queueRead(0x6000, 4, &first[1], link.error));
        ASSERT_TRUE(link.client.queueRead(0x6000, 8, &second[1], link.error));
        link.error = unset;
        EXPECT_EQ(link.client.processRequests(link.error), row.accepted);
        EXPECT_EQ(link.error, row.accepted ? FsuipcError::success : unset) << "left as it was";
        EXPECT_EQ(first[1], row.firstArrives ? 0x33334444u : 0xBBBBu);
        EXPECT_EQ(second[1], row.secondArrives ? 0x1111222233334444u : 0xBBBBu);
        EXPECT_TRUE(first[0] == 0xAAAA && first[2] == 0xCCCC && second[0] == 0xAAAA && second[2] == 0xCCCC);
        link.simulator.scribble = nullptr;
        EXPECT_EQ(link.readWord(0x3308), 7) << "the next exchange starts clean";
    }
}

TEST(FsuipcClient, SurvivesRandomScribbles) {
    Link link;
    ASSERT_TRUE(link.open());
    std::mt19937 engine(4);
    const auto random = [&engine] { return static_cast<std::uint32_t>(engine()); };
    link.simulator.scribble = [&](std::span<std::byte> block) {
        for (int i = 0; i < 3; ++i)
            put(block, random() % 60, random() % 2 == 0 ? random() % 40 : random());
    };
    for (int round = 0; round < 20000; ++round) {
        std::array<std::uint64_t, 3> targets{1, 0, 2};
        std::uint16_t data = 5;
        ASSERT_TRUE(link.client.queueWrite(0x7000, 2, &data, link.error));
        ASSERT_TRUE(link.client.queueRead(0x7000, 8, &targets[1], link.error));
        ASSERT_TRUE(link.client.queueRead(0x7008, 2, &data, link.error));
        (void)link.client.processRequests(link.error);
        ASSERT_TRUE(targets[0] == 1 && targets[2] == 2);
    }
}

TEST(FsuipcClient, CannotBeCalledWhileItsBlockIsAway) {
    Link link;
    ASSERT_TRUE(link.open());
    std::vector<FsuipcError> refusals;
    link.simulator.onSend = [&] {
        FsuipcError error = unset;
        std::uint32_t value = 0;
        EXPECT_FALSE(link.client.queueRead(0x3304, 4, &value, error));
        refusals.push_back(error);
        EXPECT_FALSE(link.client.queueWrite(0x3304, 4, &value, error));
        refusals.push_back(error);
        EXPECT_FALSE(link.client.processRequests(error));
        refusals.push_back(error);
        link.client.closeLink();
    };
    EXPECT_EQ(link.readWord(0x3308), 7);
    EXPECT_EQ(refusals, std::vector<FsuipcError>(3, FsuipcError::notOpen));
    EXPECT_TRUE(link.client.isOpen());
}

} // namespace
