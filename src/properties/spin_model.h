#pragma once

#include "base/notifier.h"

#include <string>

namespace quillset {

/// The rules of the spin box, without its controls: a text beside a vertical scroll bar. The number is the
/// scroll bar's position negated, since positions grow downwards and numbers upwards.
class SpinModel {
public:
    static constexpr int largest = 32766;
    static constexpr int smallest = -32767;

    [[nodiscard]] int max() const { return -barMinimum_; }
    [[nodiscard]] int min() const { return -barMaximum_; }
    [[nodiscard]] int value() const { return -position_; }
    [[nodiscard]] int position() const { return position_; }
    [[nodiscard]] const std::string& text() const { return text_; }

    /// Limits and value are 16-bit: the setters throw RuntimeError (overflow) outside smallest .. largest.
    /// The value is kept within the limits.
    void setMax(int max);
    void setMin(int min);
    void setValue(int value);
    /// The scroll bar was moved; cut to its ends. The text follows a real change.
    void setPosition(int position);
    /// The text was changed. A number above the maximum is replaced by the maximum, one within the limits
    /// becomes the value, one below stays text until it is settled.
    void setText(const std::string& text);
    /// The text box was left: its number becomes the value, cut to the limits. The text follows a real change
    /// of the value only.
    void settle();

    /// Told after every change of the text.
    Notifier<> changed;

private:
    void applyText();

    int barMinimum_ = -largest;
    int barMaximum_ = 0;
    int position_ = 0;
    std::string text_ = "0";
};

} // namespace quillset
