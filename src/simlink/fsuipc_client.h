#pragma once

#include "base/notifier.h"
#include "simlink/simulator_services.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quillset {

/// Result of a link operation. The numbers are those that users of the FSUIPC module know.
enum class FsuipcError : int {
    success = 0,
    alreadyOpen = 1,
    noSimulatorWindow = 2,
    messageNotRegistered = 3,
    atomNotCreated = 4,
    blockNotCreated = 5, ///< or a block of that name already existed
    blockNotMapped = 6,
    wrongServer = 7, ///< FSUIPC version too old, or the identity check failed
    wrongSimulator = 8,
    notOpen = 9,
    nothingQueued = 10,
    timedOut = 11,             ///< every attempt
    sendFailed = 12,           ///< with an error of the system
    refused = 13,              ///< answered with something other than 1
    wrongServerOldWindow = 14, ///< as wrongServer, window found under its older class name only
    doesNotFit = 15,
};

/// The same in words for the user, without a full stop at the end.
[[nodiscard]] std::string describe(FsuipcError error);

/// Life of one exchange. The observer must not throw, nor call the client back (it would be refused).
enum class ExchangePhase {
    begins,
    unanswered, ///< half a second of an attempt was silent, or one failed and another follows; any number
    ends,
};

/// The client side of the FSUIPC inter-process protocol: one connection to the running simulator, whose state
/// is an address space of numbered offsets. All values are little-endian; a target is filled with the bytes
/// as they come. Every operation gives false and an error, or true and FsuipcError::success.
///
/// To be used from one thread. Each client of a process names its block alike (deliberate): the second one
/// that opens at the same time gets blockNotCreated.
class FsuipcClient {
public:
    /// The services must outlive the client.
    explicit FsuipcClient(SimulatorServices& services);
    ~FsuipcClient();
    FsuipcClient(const FsuipcClient&) = delete;
    FsuipcClient& operator=(const FsuipcClient&) = delete;

    /// Opens the connection to the simulator with that version code, 0 for any. Takes 0.1 s at least, with a
    /// simulator that does not answer 23 s. After a failure everything is closed (but a connection that was
    /// open before stays).
    bool openLink(std::uint32_t requestedSimulator, FsuipcError& error);
    /// Adds a request to the queue; `target` (may be nullptr) must stay valid until the queue is processed or
    /// the link closed. One that does not fit changes nothing.
    bool queueRead(std::uint32_t offset, std::uint32_t size, void* target, FsuipcError& error);
    /// The same for a write; the bytes are copied at once.
    bool queueWrite(std::uint32_t offset, std::uint32_t size, const void* source, FsuipcError& error);
    /// Sends the queue, blocking up to 23 s, copies the answers to their targets and empties the queue, also
    /// after a failure. An answer that cannot be followed gives false with `error` left as it was; the
    /// targets before that place are filled.
    bool processRequests(FsuipcError& error);
    /// Releases everything; harmless when closed.
    void closeLink();

    [[nodiscard]] bool isOpen() const { return view_ != nullptr; }
    [[nodiscard]] bool supported() const { return services_.supported(); }
    /// As read when the link was opened; 0 when closed.
    [[nodiscard]] std::uint32_t fsuipcVersion() const { return fsuipcVersion_; }
    [[nodiscard]] std::uint32_t simulatorVersion() const { return simulatorVersion_; }

    Notifier<ExchangePhase> exchange;

private:
    struct Target {
        void* address;
        std::uint32_t size;
    };
    class Exchange;

    bool connect(bool& olderWindow, FsuipcError& error);
    bool identify(FsuipcError& error);
    bool accept(std::uint32_t requestedSimulator, bool olderWindow, FsuipcError& error);
    bool fits(std::size_t headerSize, std::uint32_t size, FsuipcError& error) const;
    void append(std::uint32_t word);
    bool send(FsuipcError& error);
    bool copyAnswers(std::size_t sentSize, FsuipcError& error);
    bool copyAnswer(std::uint32_t token, std::span<const std::byte> data);

    SimulatorServices& services_;
    SimulatorWindow window_ = SimulatorWindow::none;
    std::uint32_t message_ = 0;
    std::uint16_t atom_ = 0;
    SharedBlock block_ = SharedBlock::none;
    std::byte* view_ = nullptr;
    std::size_t next_ = 0; ///< write position in the block
    std::uint32_t fsuipcVersion_ = 0;
    std::uint32_t simulatorVersion_ = 0;
    bool exchanging_ = false;
    std::vector<Target> targets_; ///< of the reads in the queue; a record names its target by index + 1
    std::vector<Target> sentTargets_;
    std::vector<std::byte> answer_; ///< private copy of the block after an exchange
};

} // namespace quillset
