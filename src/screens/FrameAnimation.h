#pragma once

#include "PanelWindow.h"

#include <QEasingCurve>
#include <QElapsedTimer>
#include <QObject>
#include <QRectF>
#include <QTimer>

#include <functional>

class QScreen;

namespace nookle {

/// Moves a rectangle from one place to another, one step for each frame of the display. Main thread only.
class FrameAnimation final : public QObject {
    Q_OBJECT

public:
    using Step = std::function<void(const QRectF&)>;
    using Completion = std::function<void()>;

    explicit FrameAnimation(Step step);

    /// Ends the running animation, runs its completion, and starts another one. `screen` shows it, and may be null.
    void start(const QRectF& from, const QRectF& to, double seconds, Easing easing, const QScreen* screen,
               Completion completion);

    /// Ends the animation at its present place and runs its completion.
    void stop();

private:
    void advance();

    Step m_step;
    Completion m_completion;
    QTimer m_timer;
    QElapsedTimer m_elapsed;
    QEasingCurve m_curve;
    QRectF m_from;
    QRectF m_to;
    double m_seconds = 0;
};

} // namespace nookle
