#pragma once

#include <QVariantAnimation>

class QScrollBar;

namespace nookle {

/// Scrolls by a short movement instead of a jump. Further steps meanwhile add up. Runs only while something moves.
class ScrollMotion final {
public:
    /// `bar` must outlive this object.
    explicit ScrollMotion(QScrollBar& bar);

    /// Moves by that many points, as far as the list goes.
    void moveBy(int distance);

    /// Goes on by that many points at once.
    void jumpBy(int distance);

    /// Ends a movement at its end.
    void finish();

    /// Ends a movement where it is.
    void stop() { m_animation.stop(); }

    [[nodiscard]] bool isMoving() const { return m_animation.state() == QAbstractAnimation::Running; }

private:
    QScrollBar& m_bar;
    QVariantAnimation m_animation;
};

} // namespace nookle
