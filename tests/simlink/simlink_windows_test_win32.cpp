// The link against another process: real windows, atoms and shared memory.

#include "fake_simulator_process.h"
#include "simlink/link_monitor.h"
#include "simlink/position_exchange.h"

#include <gtest/gtest.h>
#include <thread>
#include <windows.h>

#include <cstdio>

using namespace quillset;
using quillset::test::FakeSimulatorProcess;
using namespace std::chrono_literals;

namespace {

class WindowsLink : public testing::Test {
protected:
    // Whatever a test did: no atom, no block and no handle stays behind.
    ~WindowsLink() override {
        client.closeLink();
        const std::string name = blockName();
        EXPECT_EQ(GlobalFindAtomA(name.c_str()), 0);
        EXPECT_EQ(OpenFileMappingA(FILE_MAP_READ, FALSE, name.c_str()), nullptr);
    }

    static std::string blockName() {
        char name[40];
        std::snprintf(name, sizeof name, "FSASMLIB:IPC:%lX:1", GetCurrentProcessId());
        return name;
    }
    bool open(std::uint32_t requested = 0) { return client.openLink(requested, error); }
    bool readVersion() {
        std::uint16_t version = 0;
        return client.queueRead(0x3308, sizeof version, &version, error) && client.processRequests(error) &&
               version == 7;
    }

    const std::unique_ptr<SimulatorServices> services = systemSimulatorServices();
    FsuipcClient client{*services};
    FsuipcError error = FsuipcError::success;
};

TEST_F(WindowsLink, ExchangesPositionsWithAnotherProcess) {
    FakeSimulatorProcess simulator({"--log", "--set", "0560=00000000AB4E4C00", "--set", "0580=000000C0"});
    ASSERT_TRUE(open()) << static_cast<int>(error);
    EXPECT_EQ(simulator.line(), "read 3304 4");
    EXPECT_EQ(simulator.line(), "read 3308 4");
    EXPECT_EQ(simulator.line(), "write 330A 2");
    FSUIPCFunctions functions(client);
    EXPECT_EQ(functions.readLatitude(), 45);
    EXPECT_EQ(functions.readHeading(), 270);
    EXPECT_TRUE(functions.writeLongitude(-180));
    EXPECT_EQ(functions.readLongitude(), -180);
    EXPECT_TRUE(functions.writeHeading(271.40625));
    EXPECT_EQ(functions.readHeading(), 271.40625);
    EXPECT_EQ(simulator.line(), "read 0560 8");
    EXPECT_EQ(simulator.line(), "read 0580 4");
    EXPECT_EQ(simulator.line(), "write 0568 8");
}

TEST_F(WindowsLink, RefusesWhatIsNoSimulator) {
    struct Row {
        std::vector<std::string> arguments;
        FsuipcError error;
        std::uint32_t requested;
    };
    const std::vector<Row> rows{
        {{"--class", "SOMETHING"}, FsuipcError::noSimulatorWindow, 0},
        {{"--set", "3304=00000000"}, FsuipcError::wrongServer, 0},
        {{"--set", "330A=0000"}, FsuipcError::wrongServer, 0},
        {{"--class", "FS98MAIN", "--set", "330A=0000"}, FsuipcError::wrongServerOldWindow, 0},
        {{"--set", "3308=0800"}, FsuipcError::wrongSimulator, 7},
        {{"--answer", "0"}, FsuipcError::refused, 0},
        {{"--answer", "-1"}, FsuipcError::refused, 0},
        {{"--class", "FS98MAIN"}, FsuipcError::success, 7},
    };
    for (const Row& row : rows) {
        const FakeSimulatorProcess simulator(row.arguments);
        EXPECT_EQ(open(row.requested), row.error == FsuipcError::success) << row.arguments[1];
        EXPECT_EQ(error, row.error) << row.arguments[1];
        client.closeLink();
    }
}

TEST_F(WindowsLink, ABlockOfThatNameIsNotTakenOver) {
    const FakeSimulatorProcess simulator;
    ASSERT_TRUE(open());
    FsuipcClient second(*services);
    EXPECT_FALSE(second.openLink(0, error));
    EXPECT_EQ(error, FsuipcError::blockNotCreated);
    EXPECT_TRUE(readVersion());
}

TEST_F(WindowsLink, TheLargestRequestsFitTheBlock) {
    const FakeSimulatorProcess simulator;
    ASSERT_TRUE(open());
    const std::vector<std::byte> sent(32496, std::byte{0x5A});
    std::vector<std::byte> received(32492);
    ASSERT_TRUE(client.queueWrite(0x4000, 32496, sent.data(), error) && client.processRequests(error));
    ASSERT_TRUE(client.queueRead(0x4000, 32492, received.data(), error) && client.processRequests(error));
    EXPECT_TRUE(std::equal(received.begin(), received.end(), sent.begin()));
}

TEST_F(WindowsLink, ALateAnswerIsATimeOutAndTheNextAttemptSucceeds) {
    const FakeSimulatorProcess simulator({"--late", "2300"});
    int signs = 0;
    const Connection watching = client.exchange.connect(
        [&](ExchangePhase phase) { signs += phase == ExchangePhase::unanswered ? 1 : 0; });
    EXPECT_TRUE(open()) << static_cast<int>(error);
    EXPECT_EQ(signs, 2) << "in the middle of the first attempt, and at its end";
}

TEST_F(WindowsLink, ATimeOutIsNoErrorOfTheSystemButAMissingWindowIs) {
    SimulatorWindow window{};
    const std::uint32_t message = services->registerMessage("FSASMLIB:IPC");
    const Silence patient{10s, [] { ADD_FAILURE() << "told of a silence that did not last"; }};
    {
        const FakeSimulatorProcess simulator({"--late", "700"});
        window = services->findWindow("UIPCMAIN");
        ASSERT_NE(window, SimulatorWindow::none);
        const SendOutcome late = services->send(window, message, 1, 20ms, patient);
        EXPECT_FALSE(late.sent);
        EXPECT_EQ(late.systemError, 0u);
    }
    const SendOutcome gone = services->send(window, message, 1, 20ms, patient);
    EXPECT_FALSE(gone.sent);
    EXPECT_NE(gone.systemError, 0u);
}

TEST_F(WindowsLink, ASilenceIsToldOnceInTheMiddleOfTheSend) {
    const FakeSimulatorProcess simulator({"--late", "700"});
    const SimulatorWindow window = services->findWindow("UIPCMAIN");
    const std::uint32_t message = services->registerMessage("FSASMLIB:IPC");
    std::vector<std::thread::id> told;
    Silence silence{100ms, [&] { told.push_back(std::this_thread::get_id()); }};
    EXPECT_TRUE(services->send(window, message, 1, 10s, silence).sent);
    EXPECT_EQ(told, std::vector{std::this_thread::get_id()});
    silence.after = 9s;
    EXPECT_TRUE(services->send(window, message, 1, 10s, silence).sent);
    EXPECT_EQ(told.size(), 1u);
}

TEST_F(WindowsLink, ASimulatorThatDiesInMidExchange) {
    const FakeSimulatorProcess simulator({"--die-in", "2"});
    ASSERT_TRUE(open());
    EXPECT_FALSE(readVersion());
    EXPECT_EQ(error, FsuipcError::sendFailed);
    EXPECT_FALSE(client.processRequests(error));
    EXPECT_EQ(error, FsuipcError::nothingQueued);
}

TEST_F(WindowsLink, AScribblingSimulatorDoesNoHarm) {
    for (const char* const damage : {"0=00000003", "8=FFFFFFFF", "8=00008000", "C=7FFFFFFF", "12=01010101"}) {
        const FakeSimulatorProcess simulator({"--scribble-from", "2", "--scribble", damage});
        ASSERT_TRUE(open());
        EXPECT_FALSE(readVersion()) << damage;
        EXPECT_TRUE(client.isOpen());
        client.closeLink();
    }
}

DWORD handleCount() {
    DWORD count = 0;
    GetProcessHandleCount(GetCurrentProcess(), &count);
    return count;
}

TEST_F(WindowsLink, FollowsASimulatorThatStopsAndStarts) {
    LinkMonitor monitor(client);
    monitor.start();
    EXPECT_EQ(monitor.status().text, "FSUIPC failed");
    DWORD handles = 0;
    for (int round = 0; round < 5; ++round) {
        {
            FakeSimulatorProcess simulator;
            monitor.tick();
            monitor.tick();
            EXPECT_EQ(monitor.status().text, "FSUIPC OK");
            if (round % 2 == 0)
                simulator.kill();
        }
        monitor.tick();
        EXPECT_EQ(monitor.status().text, "FSUIPC failed");
        EXPECT_FALSE(client.isOpen());
        if (round == 0)
            handles = handleCount();
    }
    EXPECT_LT(handleCount(), handles + 4) << "a round leaves nothing; threads of the system come and go";
}

} // namespace
