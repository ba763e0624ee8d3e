#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace quillset {

/// Keeps one subscription alive; dropping it ends the subscription, also after the notifier is gone.
class Connection {
public:
    Connection() = default;
    explicit Connection(std::function<void()> disconnect)
        : disconnect_(std::move(disconnect)) {}
    Connection(Connection&& other) noexcept
        : disconnect_(std::exchange(other.disconnect_, nullptr)) {}
    Connection& operator=(Connection&& other) noexcept {
        if (this != &other) {
            disconnect();
            disconnect_ = std::exchange(other.disconnect_, nullptr);
        }
        return *this;
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() { disconnect(); }

    void disconnect() {
        if (const auto run = std::exchange(disconnect_, nullptr))
            run();
    }

private:
    std::function<void()> disconnect_;
};

/// Tells any number of observers that something happened. During a notification an observer that is
/// disconnected is not called any more, and one that is connected is called from the next notification on.
template <class... Arguments>
class Notifier {
public:
    using Observer = std::function<void(Arguments...)>;

    [[nodiscard]] Connection connect(Observer observer) {
        const std::uint64_t id = ++state_->lastId;
        state_->entries.push_back({id, std::make_shared<Observer>(std::move(observer))});
        return Connection([weak = std::weak_ptr<State>(state_), id] {
            if (const auto state = weak.lock())
                std::erase_if(state->entries, [id](const Entry& entry) { return entry.id == id; });
        });
    }

    void notify(Arguments... arguments) const {
        const std::shared_ptr<State> state = state_; // outlives a notifier that an observer destroys
        const std::vector<Entry> called = state->entries;
        for (const Entry& entry : called) {
            const bool connected = std::any_of(state->entries.begin(), state->entries.end(),
                                               [&](const Entry& other) { return other.id == entry.id; });
            if (connected)
                (*entry.observer)(arguments...);
        }
    }

private:
    struct Entry {
        std::uint64_t id;
        std::shared_ptr<Observer> observer;
    };
    struct State {
        std::vector<Entry> entries;
        std::uint64_t lastId = 0;
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

} // namespace quillset
