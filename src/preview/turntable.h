#pragma once

namespace quillset {

class PreviewContext;

/// The turning of the building preview: 2 degrees a tick, ten ticks a second.
class Turntable {
public:
    static constexpr int tickMilliseconds = 100;
    static constexpr float degreesPerTick = 2.0F;

    /// One tick of the timer: turns when rotation is on. Returns whether the current building is to be
    /// drawn; when not, the angle stays, and what is on screen stays too.
    bool tick(const PreviewContext& context);

    void toggleRotation() { rotating_ = !rotating_; }
    [[nodiscard]] bool rotating() const { return rotating_; }
    /// Degrees since the start; never wrapped, never reset.
    [[nodiscard]] float angle() const { return angle_; }

private:
    bool rotating_ = true;
    float angle_ = 0.0F;
};

} // namespace quillset
