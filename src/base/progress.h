#pragma once

#include <cstddef>
#include <string>

namespace quillset {

/// Shows how far a command has come that may take long, and whether the user wants it to end.
class Progress {
public:
    virtual ~Progress() = default;
    /// `what` says what is being done; `total` steps follow.
    virtual void begin(const std::string& what, std::size_t total) = 0;
    /// `done` steps are done; false when the command is to end. Quick enough to be asked after each step.
    [[nodiscard]] virtual bool goOn(std::size_t done) = 0;
    virtual void end() = 0;
};

} // namespace quillset
