#pragma once

#include "base/clock.h"

namespace quillset {

/// The time of day in the format of the user's locale, with seconds and without a time zone.
class QtClock : public Clock {
public:
    [[nodiscard]] std::string timeText() const override;
};

} // namespace quillset
