#pragma once

#include <string>

namespace quillset {

/// The time of day as text.
class Clock {
public:
    virtual ~Clock() = default;
    /// Hours, minutes and seconds in the user's locale.
    [[nodiscard]] virtual std::string timeText() const = 0;
};

} // namespace quillset
