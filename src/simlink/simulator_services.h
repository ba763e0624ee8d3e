#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace quillset {

/// Handles of the system; 0 is none.
enum class SimulatorWindow : std::uintptr_t { none = 0 };
enum class SharedBlock : std::uintptr_t { none = 0 };

struct CreatedBlock {
    SharedBlock block = SharedBlock::none;
    /// A block of that name was there before; `block` is then that one and has to be closed like a new one.
    bool existed = false;
};

struct SendOutcome {
    /// The window's procedure has run and returned `answer`.
    bool sent = false;
    std::uintptr_t answer = 0;
    /// Only when not sent: the system's error number, 0 when the time ran out.
    std::uint32_t systemError = 0;
};

/// Told once by a send that has had no answer for that long: on the caller's thread, while the send goes on.
/// Must not throw, nor send.
struct Silence {
    std::chrono::milliseconds after;
    std::function<void()> tell;
};

/// What the link needs of the operating system. Names are ASCII. Nothing throws; a service that fails gives
/// none, 0 or nullptr.
class SimulatorServices {
public:
    virtual ~SimulatorServices() = default;

    /// False where the system has no simulator windows at all.
    [[nodiscard]] virtual bool supported() const = 0;
    /// A top-level window of that class.
    [[nodiscard]] virtual SimulatorWindow findWindow(const std::string& className) = 0;
    /// The number of a message known to the whole system by its name.
    [[nodiscard]] virtual std::uint32_t registerMessage(const std::string& name) = 0;
    /// Blocks until the window has answered or the time is over; `atom` is the first parameter, 0 the second.
    [[nodiscard]] virtual SendOutcome send(SimulatorWindow window, std::uint32_t message, std::uint16_t atom,
                                           std::chrono::milliseconds timeOut, const Silence& silence) = 0;
    /// A global atom; each success needs its own deleteAtom.
    [[nodiscard]] virtual std::uint16_t addAtom(const std::string& name) = 0;
    virtual void deleteAtom(std::uint16_t atom) = 0;
    /// Read-write memory that another process can open under that name.
    [[nodiscard]] virtual CreatedBlock createBlock(const std::string& name, std::size_t size) = 0;
    virtual void closeBlock(SharedBlock block) = 0;
    /// The block's bytes; valid until unmapBlock.
    [[nodiscard]] virtual std::byte* mapBlock(SharedBlock block, std::size_t size) = 0;
    virtual void unmapBlock(std::byte* view) = 0;
    [[nodiscard]] virtual std::uint32_t processId() = 0;
    virtual void sleep(std::chrono::milliseconds time) = 0;
};

/// The operating system's own services.
[[nodiscard]] std::unique_ptr<SimulatorServices> systemSimulatorServices();

} // namespace quillset
