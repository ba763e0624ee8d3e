#include "simlink/link_monitor.h"
#include "simlink/position_exchange.h"
#include "support/in_process_simulator.h"

#include <gtest/gtest.h>

using namespace quillset;
using quillset::test::InProcessSimulator;
using namespace std::chrono_literals;

namespace {

class Monitor : public testing::Test {
protected:
    InProcessSimulator simulator;
    FsuipcClient client{simulator};
    LinkMonitor monitor{client};
    std::vector<std::string> shown;
    std::vector<Waiting> waits;
    Connection changes = monitor.changed.connect([this](const LinkStatus& s) {
        shown.push_back(s.text + (s.bevel == PanelBevel::inset ? " inset: " : " raised: ") + s.explanation);
    });
    Connection waiting = monitor.waiting.connect([this](Waiting w) { waits.push_back(w); });

    void ticks(int count) {
        for (int i = 0; i < count; ++i)
            monitor.tick();
    }
};

const std::string connected = "FSUIPC OK inset: The simulator is connected.";
const std::string nobody = "FSUIPC failed raised: No running simulator was found.";

TEST_F(Monitor, KeepsTheLinkOpenBetweenTicks) {
    monitor.start();
    simulator.sends = 0;
    simulator.calls.clear();
    ticks(3);
    EXPECT_EQ(simulator.calls, std::vector<std::string>(3, "send"));
    EXPECT_EQ(shown, std::vector{connected}) << "told once, not on every tick";
    EXPECT_TRUE(waits.empty()) << "a poll that is answered shows no busy cursor";
    monitor.stop();
    EXPECT_EQ(simulator.held(), 0u);
}

TEST_F(Monitor, FindsASimulatorThatStartsLater) {
    simulator.end();
    monitor.start();
    ticks(2);
    EXPECT_EQ(shown, std::vector{nobody});
    simulator.windowClasses = {"UIPCMAIN"};
    monitor.tick();
    EXPECT_EQ(shown.size(), 1u) << "this tick failed and opened the link";
    EXPECT_TRUE(client.isOpen());
    monitor.tick();
    EXPECT_EQ(shown.back(), connected);
}

TEST_F(Monitor, NoticesAnEndAndANewStart) {
    monitor.start();
    simulator.end();
    monitor.tick();
    EXPECT_EQ(shown.back(), nobody);
    EXPECT_EQ(simulator.held(), 0u);
    simulator.windowClasses = {"UIPCMAIN"};
    ticks(2);
    EXPECT_EQ(shown.back(), connected);
}

TEST_F(Monitor, AnotherSimulatorFailsWithoutRaisingThePanel) {
    simulator.offsets.set<std::uint16_t>(0x3308, 8);
    monitor.start();
    monitor.tick();
    EXPECT_EQ(shown.back(),
              "FSUIPC failed inset: The simulator reports version code 8; the 2004 simulator has 7.");
    EXPECT_FALSE(monitor.status().connected);
    EXPECT_TRUE(client.isOpen()) << "opened again after the failure";
}

TEST_F(Monitor, LeaksNothingInADayOfStartsAndStops) {
    monitor.start();
    for (int tick = 0; tick < 8640; ++tick) {
        const int phase = tick % 12;
        simulator.windowClasses =
            phase < 3 ? std::vector<std::string>{} : std::vector<std::string>{"UIPCMAIN"};
        simulator.answer = phase == 7 ? 0 : 1;
        simulator.unanswered.assign(phase == 9 ? 11 : 0, 0);
        monitor.tick();
        ASSERT_EQ(simulator.held(), client.isOpen() ? 3u : 0u) << tick;
        ASSERT_EQ(monitor.status().connected, (phase >= 4 && phase <= 6) || phase >= 10) << phase;
        simulator.calls.clear();
    }
}

TEST_F(Monitor, SaysThatItWaitsOnceASimulatorIsSilent) {
    monitor.start();
    simulator.unanswered.assign(2, 0);
    monitor.tick();
    EXPECT_EQ(waits, (std::vector{Waiting::unanswered, Waiting::no}));
    waits.clear();
    simulator.unanswered.assign(22, 0); // the check and the new opening
    monitor.tick();
    EXPECT_EQ(waits, (std::vector{Waiting::unanswered, Waiting::no})) << "one sign for the whole tick";
    monitor.tick(); // opens again
    simulator.late = 499ms;
    waits.clear();
    monitor.tick();
    EXPECT_TRUE(waits.empty()) << "a simulator that is back shows no busy cursor";
    EXPECT_EQ(shown.back(), connected);
    simulator.late = 500ms;
    simulator.sends = 0;
    simulator.onSilence = [this] { EXPECT_EQ(waits, std::vector{Waiting::unanswered}); };
    monitor.tick();
    EXPECT_EQ(waits, (std::vector{Waiting::unanswered, Waiting::no})) << "the sign precedes the answer";
    EXPECT_EQ(simulator.sends, 1);
}

TEST_F(Monitor, AUsersExchangeShowsABusyCursorAtOnce) {
    monitor.start();
    FSUIPCFunctions functions(client);
    (void)functions.readHeading();
    EXPECT_EQ(waits, (std::vector{Waiting::briefly, Waiting::no}));
    waits.clear();
    simulator.unanswered.assign(11, 0);
    (void)functions.readHeading();
    (void)functions.readHeading();
    EXPECT_EQ(waits, (std::vector{Waiting::briefly, Waiting::unanswered, Waiting::no, Waiting::unanswered,
                                  Waiting::no}))
        << "the second exchange expects silence from the start";
}

TEST_F(Monitor, ATickDuringATickDoesNothing) {
    monitor.start();
    simulator.sends = 0;
    simulator.onSend = [this] {
        monitor.tick();
        monitor.start();
    };
    monitor.tick();
    EXPECT_EQ(simulator.sends, 1);
    EXPECT_EQ(shown, std::vector{connected});
}

TEST(LinkMonitorHere, ASystemWithoutSimulatorsSaysWhatToDo) {
    InProcessSimulator simulator;
    simulator.isSupported = false;
    simulator.end();
    FsuipcClient client(simulator);
    LinkMonitor monitor(client);
    monitor.start();
    monitor.tick();
    EXPECT_EQ(monitor.status().text, "FSUIPC failed");
    EXPECT_NE(monitor.status().explanation.find("Wine prefix"), std::string::npos);
}

} // namespace
