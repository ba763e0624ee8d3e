#include "simlink/simulator_services.h"

namespace quillset {

namespace {

// The simulator runs on Windows (or in a Wine prefix, whose windows only Windows programs can see).
class NoSimulator : public SimulatorServices {
public:
    bool supported() const override { return false; }
    SimulatorWindow findWindow(const std::string&) override { return SimulatorWindow::none; }
    std::uint32_t registerMessage(const std::string&) override { return 0; }
    SendOutcome send(SimulatorWindow, std::uint32_t, std::uint16_t, std::chrono::milliseconds,
                     const Silence&) override {
        return {};
    }
    std::uint16_t addAtom(const std::string&) override { return 0; }
    void deleteAtom(std::uint16_t) override {}
    CreatedBlock createBlock(const std::string&, std::size_t) override { return {}; }
    void closeBlock(SharedBlock) override {}
    std::byte* mapBlock(SharedBlock, std::size_t) override { return nullptr; }
    void unmapBlock(std::byte*) override {}
    std::uint32_t processId() override { return 0; }
    void sleep(std::chrono::milliseconds) override {}
};

} // namespace

std::unique_ptr<SimulatorServices> systemSimulatorServices() {
    return std::make_unique<NoSimulator>();
}

} // namespace quillset
