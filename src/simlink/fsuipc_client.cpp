#include "simlink/fsuipc_client.h"

#include "simlink/fsuipc_records.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <utility>

namespace quillset {

using namespace std::chrono_literals;

namespace {

using namespace fsuipc;

constexpr auto sendTimeOut = 2000ms;
constexpr auto silentTime = 500ms;
constexpr auto pause = 100ms;
constexpr int furtherSends = 10;
constexpr int identifications = 5;
constexpr std::uintptr_t acceptedAnswer = 1;

constexpr std::uint32_t oldestFsuipc = 0x19980005;
constexpr std::uint32_t simulatorMark = 0xFADE;

bool fail(FsuipcError& error, FsuipcError reason) {
    error = reason;
    return false;
}

bool succeed(FsuipcError& error) {
    error = FsuipcError::success;
    return true;
}

// Deliberate: the number at the end never counts up, so a second link of this process is refused.
std::string blockName(std::uint32_t processId) {
    std::array<char, 24> name{};
    std::snprintf(name.data(), name.size(), "FSASMLIB:IPC:%X:1", static_cast<unsigned>(processId));
    return name.data();
}

} // namespace

// Keeps the client from being called back while its block is in the simulator's hands.
class FsuipcClient::Exchange {
public:
    explicit Exchange(FsuipcClient& client)
        : client_(client) {
        client_.exchanging_ = true;
    }
    ~Exchange() {
        client_.exchange.notify(ExchangePhase::ends);
        client_.exchanging_ = false;
    }
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

private:
    FsuipcClient& client_;
};

FsuipcClient::FsuipcClient(SimulatorServices& services)
    : services_(services)
    , answer_(usableSize) {}

FsuipcClient::~FsuipcClient() {
    closeLink();
}

bool FsuipcClient::openLink(std::uint32_t requestedSimulator, FsuipcError& error) {
    fsuipcVersion_ = 0;
    simulatorVersion_ = 0;
    if (isOpen())
        return fail(error, FsuipcError::alreadyOpen);
    bool olderWindow = false;
    if (connect(olderWindow, error) && identify(error) && accept(requestedSimulator, olderWindow, error))
        return succeed(error);
    closeLink();
    return false;
}

bool FsuipcClient::connect(bool& olderWindow, FsuipcError& error) {
    window_ = services_.findWindow("UIPCMAIN");
    if (window_ == SimulatorWindow::none) {
        olderWindow = true;
        window_ = services_.findWindow("FS98MAIN");
    }
    if (window_ == SimulatorWindow::none)
        return fail(error, FsuipcError::noSimulatorWindow);
    message_ = services_.registerMessage("FSASMLIB:IPC");
    if (message_ == 0)
        return fail(error, FsuipcError::messageNotRegistered);
    const std::string name = blockName(services_.processId());
    atom_ = services_.addAtom(name);
    if (atom_ == 0)
        return fail(error, FsuipcError::atomNotCreated);
    const CreatedBlock created = services_.createBlock(name, blockSize);
    block_ = created.block;
    if (block_ == SharedBlock::none || created.existed)
        return fail(error, FsuipcError::blockNotCreated);
    view_ = services_.mapBlock(block_, blockSize);
    if (view_ == nullptr)
        return fail(error, FsuipcError::blockNotMapped);
    next_ = 0;
    return true;
}

bool FsuipcClient::identify(FsuipcError& error) {
    for (int attempt = 1; attempt <= identifications; ++attempt) {
        // Deliberate: this client has no library version of its own and announces 0.
        const std::uint16_t libraryVersion = 0;
        if (!queueRead(0x3304, sizeof fsuipcVersion_, &fsuipcVersion_, error) ||
            !queueRead(0x3308, sizeof simulatorVersion_, &simulatorVersion_, error))
            return false;
        if (!queueWrite(0x330A, sizeof libraryVersion, &libraryVersion, error) && attempt == 1)
            return false;
        if (!processRequests(error))
            return false;
        services_.sleep(pause);
        if (fsuipcVersion_ != 0 && simulatorVersion_ != 0)
            break;
    }
    return true;
}

bool FsuipcClient::accept(std::uint32_t requestedSimulator, bool olderWindow, FsuipcError& error) {
    if (fsuipcVersion_ < oldestFsuipc || simulatorVersion_ >> 16 != simulatorMark)
        return fail(error, olderWindow ? FsuipcError::wrongServerOldWindow : FsuipcError::wrongServer);
    simulatorVersion_ &= 0xFFFF;
    if (requestedSimulator != 0 && requestedSimulator != simulatorVersion_)
        return fail(error, FsuipcError::wrongSimulator);
    return true;
}

bool FsuipcClient::fits(std::size_t headerSize, std::uint32_t size, FsuipcError& error) const {
    if (!isOpen() || exchanging_)
        return fail(error, FsuipcError::notOpen);
    // 64 bits: in a 32-bit build a huge size would wrap around and seem to fit.
    const std::uint64_t used = std::uint64_t{next_} + wordSize + headerSize + size;
    if (used > usableSize)
        return fail(error, FsuipcError::doesNotFit);
    return true;
}

bool FsuipcClient::queueRead(std::uint32_t offset, std::uint32_t size, void* target, FsuipcError& error) {
    if (!fits(readHeaderSize, size, error))
        return false;
    // The record's target field has 4 bytes, too few for an address: it holds a number that only we resolve.
    std::uint32_t token = 0;
    if (target != nullptr) {
        targets_.push_back({target, size});
        token = static_cast<std::uint32_t>(targets_.size());
    }
    append(readRecord);
    append(offset);
    append(size);
    append(token);
    std::memset(view_ + next_, 0, size);
    next_ += size;
    return succeed(error);
}

bool FsuipcClient::queueWrite(std::uint32_t offset, std::uint32_t size, const void* source,
                              FsuipcError& error) {
    if (!fits(writeHeaderSize, size, error))
        return false;
    append(writeRecord);
    append(offset);
    append(size);
    if (size != 0)
        std::memcpy(view_ + next_, source, size);
    next_ += size;
    return succeed(error);
}

void FsuipcClient::append(std::uint32_t word) {
    std::memcpy(view_ + next_, &word, wordSize);
    next_ += wordSize;
}

bool FsuipcClient::processRequests(FsuipcError& error) {
    if (!isOpen() || exchanging_)
        return fail(error, FsuipcError::notOpen);
    if (next_ == 0)
        return fail(error, FsuipcError::nothingQueued);
    append(endMark);
    const std::size_t sentSize = std::exchange(next_, 0);
    sentTargets_.swap(targets_);
    targets_.clear();
    const Exchange running(*this);
    exchange.notify(ExchangePhase::begins);
    return send(error) && copyAnswers(sentSize, error);
}

bool FsuipcClient::send(FsuipcError& error) {
    const Silence silence{silentTime, [this] { exchange.notify(ExchangePhase::unanswered); }};
    SendOutcome outcome = services_.send(window_, message_, atom_, sendTimeOut, silence);
    for (int again = 0; !outcome.sent && again < furtherSends; ++again) {
        exchange.notify(ExchangePhase::unanswered);
        services_.sleep(pause);
        outcome = services_.send(window_, message_, atom_, sendTimeOut, silence);
    }
    if (!outcome.sent)
        return fail(error, outcome.systemError != 0 ? FsuipcError::sendFailed : FsuipcError::timedOut);
    if (outcome.answer != acceptedAnswer)
        return fail(error, FsuipcError::refused);
    return true;
}

// The simulator could write anything into the block, at any time: what is checked and used is a private copy
// of the bytes that were sent, and nothing behind them is ever looked at.
bool FsuipcClient::copyAnswers(std::size_t sentSize, FsuipcError& error) {
    std::memcpy(answer_.data(), view_, sentSize);
    const std::span<const std::byte> answer(answer_.data(), sentSize);
    for (std::size_t at = 0; answer.size() - at >= wordSize;) {
        if (wordAt(answer, at) == endMark)
            return succeed(error);
        const std::optional<Record> record = recordAt(answer, at);
        if (!record || !copyAnswer(record->target, record->data))
            return false;
        at += record->length;
    }
    return false;
}

bool FsuipcClient::copyAnswer(std::uint32_t token, std::span<const std::byte> data) {
    if (token == 0 || data.empty())
        return true;
    // A number or a size that was not queued would lead outside the caller's memory.
    if (token > sentTargets_.size() || sentTargets_[token - 1].size != data.size())
        return false;
    std::memcpy(sentTargets_[token - 1].address, data.data(), data.size());
    return true;
}

void FsuipcClient::closeLink() {
    if (exchanging_)
        return;
    window_ = SimulatorWindow::none;
    message_ = 0;
    next_ = 0;
    targets_.clear();
    fsuipcVersion_ = 0;
    simulatorVersion_ = 0;
    if (const std::uint16_t atom = std::exchange(atom_, std::uint16_t{0}))
        services_.deleteAtom(atom);
    if (std::byte* const view = std::exchange(view_, nullptr))
        services_.unmapBlock(view);
    if (const SharedBlock block = std::exchange(block_, SharedBlock::none); block != SharedBlock::none)
        services_.closeBlock(block);
}

std::string describe(FsuipcError error) {
    switch (error) {
    case FsuipcError::success:
        return "The simulator is connected";
    case FsuipcError::alreadyOpen:
        return "The link is already open";
    case FsuipcError::noSimulatorWindow:
        return "No running simulator was found";
    case FsuipcError::messageNotRegistered:
        return "The system did not register the link's message";
    case FsuipcError::atomNotCreated:
        return "The system did not register the name of the link's memory";
    case FsuipcError::blockNotCreated:
        return "The link's shared memory could not be created";
    case FsuipcError::blockNotMapped:
        return "The link's shared memory could not be used";
    case FsuipcError::wrongServer:
        return "The simulator's FSUIPC module is missing, too old or not ready";
    case FsuipcError::wrongSimulator:
        return "Another simulator is running than the one asked for";
    case FsuipcError::notOpen:
        return "The link to the simulator is not open";
    case FsuipcError::nothingQueued:
        return "There was nothing to send to the simulator";
    case FsuipcError::timedOut:
        return "The simulator did not answer in time";
    case FsuipcError::sendFailed:
        return "The simulator could not be reached: it has ended, or runs with higher rights";
    case FsuipcError::refused:
        return "The simulator runs, but no FSUIPC module answered";
    case FsuipcError::wrongServerOldWindow:
        return "An older simulator runs whose FSUIPC module is missing, too old or not ready";
    case FsuipcError::doesNotFit:
        return "The request is too large for the link";
    }
    return "Unknown error of the link";
}

} // namespace quillset
