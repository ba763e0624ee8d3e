#include "base/runtime_error.h"
#include "simlink/link_monitor.h"
#include "simlink/position_exchange.h"
#include "simlink/simulator_recording.h"
#include "support/in_process_simulator.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace quillset;
using quillset::test::InProcessSimulator;
using quillset::test::TemporaryFolder;

namespace {

class FixedClock : public Clock {
public:
    std::string timeText() const override { return "12:30:05"; }
};

// What a user sees in a session that has everything: a late start, a position, a silent and a dead simulator.
std::vector<std::string> session(SimulatorServices& services, InProcessSimulator* simulator) {
    const auto with = [simulator](auto change) {
        if (simulator != nullptr)
            change(*simulator);
    };
    FsuipcClient client(services);
    FSUIPCFunctions functions(client);
    LinkMonitor monitor(client);
    std::vector<std::string> seen;
    const Connection changes =
        monitor.changed.connect([&](const LinkStatus& s) { seen.push_back(s.text + ": " + s.explanation); });
    with([](auto& s) { s.end(); });
    monitor.start();
    with([](auto& s) {
        s.windowClasses = {"FS98MAIN"};
        s.placeAircraft(21478594576384000, -(std::int64_t{1} << 62), 0xC0000000);
    });
    monitor.tick();
    monitor.tick();
    seen.push_back(coordinateText(functions.readLatitude()));
    with([](auto& s) { s.placeAircraft(-21478594576384000, 0, 0); });
    seen.push_back(coordinateText(functions.readLatitude()));
    seen.push_back(functions.writeHeading(90) ? "turned" : "not turned");
    with([](auto& s) { s.unanswered.assign(11, 0); });
    monitor.tick();
    monitor.tick();
    with([](auto& s) { s.scribble = [](std::span<std::byte> block) { block[0] = std::byte{9}; }; });
    monitor.tick();
    with([](auto& s) { s.scribble = nullptr; });
    monitor.tick();
    monitor.tick();
    with([](auto& s) { s.end(); });
    monitor.tick();
    return seen;
}

TEST(SimulatorRecording, AReplayShowsWhatTheUserSaw) {
    const TemporaryFolder folder;
    const std::string path = folder.file("link.txt");
    const FixedClock clock;
    auto owned = std::make_unique<InProcessSimulator>();
    InProcessSimulator* const simulator = owned.get();
    std::vector<std::string> original;
    {
        const auto services = recordedServices(std::move(owned), path, clock);
        original = session(*services, simulator);
        EXPECT_EQ(simulator->held(), 0u);
    }
    const std::string text = folder.read("link.txt");
    EXPECT_NE(text.find("\nfind FS98MAIN = 1\n"), std::string::npos);
    EXPECT_NE(text.find("\n# 12:30:05\n#   read 00000560: 00000000AB4E4C00\nsend 0100000060050000"),
              std::string::npos);
    EXPECT_NE(text.find(" = failed 1400\n"), std::string::npos);

    const Replay replay = replayedServices(text);
    ASSERT_NE(replay.services, nullptr) << replay.problem;
    EXPECT_EQ(session(*replay.services, nullptr), original);
    EXPECT_GT(original.size(), 8u);
}

TEST(SimulatorRecording, WhatWasNotRecordedIsRefused) {
    const Replay replay =
        replayedServices("Quillset simulator recording 1\r\nfind UIPCMAIN = 1\r\nmessage FSASMLIB:IPC = 1\r\n"
                         "atom FSASMLIB:IPC:0:1 = 1\nblock FSASMLIB:IPC:0:1 = 1\nmap = 1");
    ASSERT_NE(replay.services, nullptr) << replay.problem;
    FsuipcClient client(*replay.services);
    FsuipcError error{};
    EXPECT_FALSE(client.openLink(0, error));
    EXPECT_EQ(error, FsuipcError::refused);
}

TEST(SimulatorRecording, DamagedRecordingsNameTheLine) {
    const std::string first = "Quillset simulator recording 1\n";
    EXPECT_NE(replayedServices("").problem, "");
    EXPECT_NE(replayedServices("Quillset simulator recording 2\n").problem, "");
    for (const std::string line :
         {"find UIPCMAIN", "find UIPCMAIN = ", "find UIPCMAIN = yes", "send 01 = 1 0", "send 01 = 1 0G",
          "send 01 = failed", "send 0 = 1 00", "sned 00 = 1 00", "find  = 1", "maps = 1",
          "send 01 = 99999999999999999999 01"}) {
        const Replay replay = replayedServices(first + "# note\n" + line + "\n");
        EXPECT_EQ(replay.services, nullptr) << line;
        EXPECT_NE(replay.problem.find("line 3"), std::string::npos) << replay.problem;
    }
    const std::string tooLong = first + "send 00 = 1 " + std::string(2 * 0x8000 + 2, '0');
    EXPECT_EQ(replayedServices(tooLong).services, nullptr);
}

TEST(SimulatorRecording, OnlyAnOlderRecordingIsWrittenOver) {
    const TemporaryFolder folder;
    const FixedClock clock;
    const auto record = [&](const std::string& path) {
        (void)recordedServices(std::make_unique<InProcessSimulator>(), path, clock);
    };
    record(folder.file("new.txt"));
    const std::string recorded = folder.read("new.txt");
    EXPECT_FALSE(recorded.empty());
    folder.write("new.txt", recorded + "find UIPCMAIN = 1\n");
    record(folder.file("new.txt"));
    EXPECT_EQ(folder.read("new.txt"), recorded);
    record(folder.write("empty.txt", ""));
    EXPECT_EQ(folder.read("empty.txt"), recorded);
    for (const std::string text :
         {"<FSData/>", "Quillset simulator recording", "a longer text of something else"}) {
        EXPECT_THROW(record(folder.write("mine.xml", text)), RuntimeError);
        EXPECT_EQ(folder.read("mine.xml"), text);
    }
    EXPECT_THROW(record(folder.file("no-such-folder/link.txt")), RuntimeError);
    EXPECT_THROW(record(folder.path()), RuntimeError);
}

} // namespace
