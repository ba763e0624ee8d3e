#include "properties/spin_model.h"

#include "base/number_text.h"
#include "base/runtime_error.h"

#include <algorithm>
#include <cmath>

namespace quillset {

namespace {

int negated(int value) {
    if (value < SpinModel::smallest || value > SpinModel::largest)
        throw RuntimeError(ErrorNumber::overflow);
    return -value;
}

/// Of a number within the limits; half to even.
int negatedRounded(double number) {
    return -static_cast<int>(std::nearbyint(number));
}

} // namespace

void SpinModel::setMax(int max) {
    barMinimum_ = negated(max);
    setPosition(position_);
}

void SpinModel::setMin(int min) {
    barMaximum_ = negated(min);
    setPosition(position_);
}

void SpinModel::setValue(int value) {
    setPosition(negated(value));
}

void SpinModel::setPosition(int position) {
    const auto [low, high] = std::minmax(barMinimum_, barMaximum_);
    const int wanted = std::clamp(position, low, high);
    if (wanted == position_)
        return;
    position_ = wanted;
    setText(std::to_string(-position_));
}

void SpinModel::setText(const std::string& text) {
    if (text == text_)
        return;
    text_ = text;
    applyText();
    changed.notify();
}

void SpinModel::applyText() {
    if (text_.empty())
        return;
    const double number = leadingNumber(text_);
    if (number > max()) {
        setPosition(barMinimum_);
        setText(std::to_string(max()));
    } else if (number >= min()) {
        setPosition(negatedRounded(number));
    }
}

void SpinModel::settle() {
    const double number = leadingNumber(text_);
    if (number > max())
        setPosition(barMinimum_);
    else if (number < min())
        setPosition(barMaximum_);
    else
        setPosition(negatedRounded(number));
}

} // namespace quillset
