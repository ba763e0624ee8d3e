#pragma once

#include <string>
#include <vector>

namespace quillset::test {

/// The fake simulator as a second process (Windows only), ready when the constructor returns; the destructor
/// ends it. `bin/fake_simulator.exe` lies beside the running program.
class FakeSimulatorProcess {
public:
    explicit FakeSimulatorProcess(const std::vector<std::string>& arguments = {});
    ~FakeSimulatorProcess();
    FakeSimulatorProcess(const FakeSimulatorProcess&) = delete;
    FakeSimulatorProcess& operator=(const FakeSimulatorProcess&) = delete;

    /// The next line of its output; empty when it has ended.
    [[nodiscard]] std::string line();
    /// Asks it to end and waits for that.
    void end();
    /// Ends it without a chance to clean up.
    void kill();

private:
    void waitForEnd();

    void* process_ = nullptr;
    void* input_ = nullptr;  ///< writing end; it ends when this is closed
    void* output_ = nullptr; ///< reading end
};

} // namespace quillset::test
