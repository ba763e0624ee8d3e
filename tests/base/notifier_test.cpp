#include "base/notifier.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

using namespace quillset;

TEST(Notifier, DroppingAConnectionEndsIt) {
    Notifier<int> notifier;
    int sum = 0;
    {
        const Connection connection = notifier.connect([&](int value) { sum += value; });
        notifier.notify(3);
    }
    notifier.notify(5);
    EXPECT_EQ(sum, 3);
}

TEST(Notifier, AConnectionMayOutliveItsNotifier) {
    std::optional<Notifier<>> notifier(std::in_place);
    Connection connection = notifier->connect([] {});
    notifier.reset();
    connection.disconnect();
}

TEST(Notifier, ChangesDuringANotification) {
    Notifier<> notifier;
    std::string calls;
    Connection late;
    Connection second;
    const Connection first = notifier.connect([&] {
        calls += "a";
        second.disconnect();
        if (calls == "a")
            late = notifier.connect([&] { calls += "c"; });
    });
    second = notifier.connect([&] { calls += "b"; });
    notifier.notify();
    EXPECT_EQ(calls, "a") << "the disconnected one and the new one are not called in this round";
    notifier.notify();
    EXPECT_EQ(calls, "aac");
}

TEST(Notifier, AnObserverMayDisconnectItselfOrDestroyTheNotifier) {
    auto notifier = std::make_unique<Notifier<>>();
    int calls = 0;
    Connection own;
    own = notifier->connect([&] {
        ++calls;
        own.disconnect();
    });
    const Connection destroyer = notifier->connect([&] { notifier.reset(); });
    notifier->notify();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(notifier, nullptr);
}
