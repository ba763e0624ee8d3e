#pragma once

#include "base/notifier.h"
#include "simlink/fsuipc_client.h"

#include <chrono>
#include <string>

namespace quillset {

enum class PanelBevel { inset, raised };

/// What the status bar's panel shows of the link.
struct LinkStatus {
    bool connected = false;
    /// "FSUIPC OK" or "FSUIPC failed"; empty before the first check.
    std::string text;
    PanelBevel bevel = PanelBevel::inset;
    /// One or two sentences for a tool tip: why, and what to do.
    std::string explanation;

    bool operator==(const LinkStatus&) const = default;
};

/// Whether the program stands still because of the simulator, for a busy cursor and a status text.
enum class Waiting {
    no,
    briefly,    ///< an exchange that the user asked for is running: busy cursor
    unanswered, ///< the simulator is silent, perhaps for seconds to come: busy cursor and waitingText
};
inline constexpr const char* waitingText = "Waiting for the simulator to answer...";

/// Watches the link: opens it once, checks it on every tick, opens it again after a failure. The timer
/// belongs to the window; it should start each interval when the tick before has returned, so that ticks
/// which had to wait for the simulator do not pile up.
class LinkMonitor {
public:
    static constexpr std::chrono::milliseconds interval{10000};

    /// The client must outlive the monitor.
    explicit LinkMonitor(FsuipcClient& client);

    /// Opens the link and shows what came of it; does nothing when it is open.
    void start();
    /// One check; blocks up to 46 s with a simulator that does not answer. A tick while start or another tick
    /// is running does nothing.
    void tick();
    /// Closes the link; a tick would open it again.
    void stop();

    [[nodiscard]] const LinkStatus& status() const { return status_; }
    /// Only when something differs.
    Notifier<const LinkStatus&> changed;
    /// Sent from inside a blocking call: repaint, but run no event loop and do not use the link.
    Notifier<Waiting> waiting;

private:
    class Check;

    void open();
    void show(LinkStatus status);
    void showFailed(PanelBevel bevel, const std::string& reason);
    void followExchange(ExchangePhase phase);
    void setWaiting(Waiting waiting);

    FsuipcClient& client_;
    LinkStatus status_;
    Waiting waiting_ = Waiting::no;
    bool checking_ = false;
    bool unanswered_ = false; ///< the simulator was silent in the current exchange, or the last one
    Connection exchange_;
};

} // namespace quillset
