#pragma once

class QWheelEvent;

namespace nookle {

/// Turns what a wheel or a touchpad does into a distance to scroll.
class WheelScroll final {
public:
    struct Step {
        /// In points, positive downwards.
        int distance = 0;
        /// The movement of a finger or of a fine wheel, which is to be followed at once. Else it is a notch of a wheel.
        bool isContinuous = false;
    };

    /// The step of the next event. `page` is the height of what is in view. Fractions of a point are kept for the next
    /// step.
    [[nodiscard]] Step step(const QWheelEvent& event, int page);

private:
    double m_rest = 0;
};

} // namespace nookle
