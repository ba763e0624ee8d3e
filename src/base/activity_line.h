#pragma once

#include "base/clock.h"
#include "base/notifier.h"

#include <string>

namespace quillset {

/// The first panel of the status bar: the result of the last operation, with the time of day.
class ActivityLine {
public:
    explicit ActivityLine(const Clock& clock)
        : clock_(clock) {}

    /// Shows "[" + time + "] " + text.
    void show(const std::string& text) {
        text_ = "[" + clock_.timeText() + "] " + text;
        changed.notify(text_);
    }
    [[nodiscard]] const std::string& text() const { return text_; }

    Notifier<const std::string&> changed;

private:
    const Clock& clock_;
    std::string text_;
};

} // namespace quillset
