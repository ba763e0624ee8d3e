#include "simlink/link_monitor.h"

#include <utility>

namespace quillset {

namespace {

constexpr std::uint32_t simulatorVersionOffset = 0x3308;
constexpr std::uint32_t simulator2004 = 7;

std::string wrongVersion(std::uint32_t code) {
    return "The simulator reports version code " + std::to_string(code) + "; the 2004 simulator has " +
           std::to_string(simulator2004);
}

std::string reasonOf(FsuipcError error) {
    // A failure without a number of its own: the records of the answer could not be followed.
    return error == FsuipcError::success ? "The simulator's answer could not be understood" : describe(error);
}

} // namespace

class LinkMonitor::Check {
public:
    explicit Check(LinkMonitor& monitor)
        : monitor_(monitor) {
        monitor_.checking_ = true;
    }
    ~Check() {
        monitor_.checking_ = false;
        monitor_.setWaiting(Waiting::no);
    }
    Check(const Check&) = delete;
    Check& operator=(const Check&) = delete;

private:
    LinkMonitor& monitor_;
};

LinkMonitor::LinkMonitor(FsuipcClient& client)
    : client_(client)
    , exchange_(client.exchange.connect([this](ExchangePhase phase) { followExchange(phase); })) {}

void LinkMonitor::start() {
    if (checking_ || client_.isOpen())
        return;
    const Check running(*this);
    open();
    if (client_.isOpen() && client_.simulatorVersion() == simulator2004)
        show({true, "FSUIPC OK", PanelBevel::inset, describe(FsuipcError::success) + "."});
    else if (client_.isOpen())
        showFailed(status_.bevel, wrongVersion(client_.simulatorVersion()));
}

void LinkMonitor::tick() {
    if (checking_)
        return;
    const Check running(*this);
    std::uint16_t code = 0;
    FsuipcError error = FsuipcError::success;
    const bool read = client_.queueRead(simulatorVersionOffset, sizeof code, &code, error) &&
                      client_.processRequests(error);
    if (read && code == simulator2004) {
        show({true, "FSUIPC OK", PanelBevel::inset, describe(FsuipcError::success) + "."});
        return;
    }
    if (read)
        showFailed(status_.bevel, wrongVersion(code)); // deliberate: only a failed read raises the panel
    else if (error != FsuipcError::notOpen || status_.text.empty())
        showFailed(PanelBevel::raised, reasonOf(error));
    client_.closeLink();
    open();
}

// A link that cannot be opened says more about the reason than the failed read before it.
void LinkMonitor::open() {
    FsuipcError error = FsuipcError::success;
    if (!client_.openLink(0, error))
        showFailed(PanelBevel::raised, reasonOf(error));
}

void LinkMonitor::stop() {
    client_.closeLink();
}

void LinkMonitor::showFailed(PanelBevel bevel, const std::string& reason) {
    std::string explanation = reason + ".";
    if (!client_.supported())
        explanation =
            "No simulator was found: this system has no link to one. Run the Windows version of this "
            "program in the simulator's Wine prefix.";
    show({false, "FSUIPC failed", bevel, std::move(explanation)});
}

void LinkMonitor::show(LinkStatus status) {
    if (status == status_)
        return;
    status_ = std::move(status);
    changed.notify(status_);
}

void LinkMonitor::followExchange(ExchangePhase phase) {
    switch (phase) {
    case ExchangePhase::begins: {
        // A simulator that has just been silent will let the user wait again. A check keeps quiet all the
        // same: once the simulator is back, the sign would flash.
        const bool again = std::exchange(unanswered_, false);
        if (!checking_)
            setWaiting(again ? Waiting::unanswered : Waiting::briefly);
        break;
    }
    case ExchangePhase::unanswered:
        unanswered_ = true;
        setWaiting(Waiting::unanswered);
        break;
    case ExchangePhase::ends:
        if (!checking_)
            setWaiting(Waiting::no);
        break;
    }
}

void LinkMonitor::setWaiting(Waiting now) {
    if (std::exchange(waiting_, now) != now)
        waiting.notify(now);
}

} // namespace quillset
