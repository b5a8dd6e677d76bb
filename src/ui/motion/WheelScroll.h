#pragma once

class QWheelEvent;

namespace nookle {

/// Turns what a wheel or a touchpad does into a distance to scroll.
class WheelScroll final {
public:
    enum class Kind {
        /// A wheel was turned by whole notches.
        notch,
        /// A wheel was turned by less, or by more, as wheels without notches are, or a finger moves on a touchpad that
        /// cannot be told from one. Many such steps come one after another.
        fine,
        /// A finger moves on a touchpad.
        finger,
    };

    struct Step {
        /// In points, positive downwards.
        int distance = 0;
        Kind kind = Kind::notch;
    };

    /// The step of the next event. `page` is the height of what is in view. Fractions of a point are kept for the next
    /// step.
    [[nodiscard]] Step step(const QWheelEvent& event, int page);

private:
    double m_rest = 0;
};

} // namespace nookle
