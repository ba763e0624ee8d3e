#pragma once

#include "base/clock.h"

namespace quillset::test {

/// It is always two minutes past two.
class FixedClock : public Clock {
public:
    [[nodiscard]] std::string timeText() const override { return "14:02:11"; }
};

} // namespace quillset::test
