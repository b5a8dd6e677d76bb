#include "FrameAnimation.h"

#include <QScreen>

#include <algorithm>
#include <utility>

namespace nookle {

namespace {

inline constexpr double usualRefreshRate = 60;

/// The curve of a movement that starts slowly (in) or ends slowly (out).
[[nodiscard]] QEasingCurve curveOf(Easing easing)
{
    QEasingCurve bezier(QEasingCurve::BezierSpline);
    const QPointF start = easing == Easing::in ? QPointF(0.42, 0) : QPointF(0, 0);
    const QPointF end = easing == Easing::in ? QPointF(1, 1) : QPointF(0.58, 1);
    bezier.addCubicBezierSegment(start, end, QPointF(1, 1));
    return bezier;
}

[[nodiscard]] QRectF between(const QRectF& from, const QRectF& to, double share)
{
    const auto mix = [share](double start, double end) { return start + (end - start) * share; };
    return { mix(from.x(), to.x()), mix(from.y(), to.y()), mix(from.width(), to.width()),
             mix(from.height(), to.height()) };
}

} // namespace

FrameAnimation::FrameAnimation(Step step)
    : m_step(std::move(step))
{
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &FrameAnimation::advance);
}

void FrameAnimation::start(const QRectF& from, const QRectF& to, double seconds, Easing easing, const QScreen* screen,
                           Completion completion)
{
    stop();
    m_from = from;
    m_to = to;
    m_seconds = seconds;
    m_curve = curveOf(easing);
    m_completion = std::move(completion);
    m_elapsed.start();
    const double rate = screen && screen->refreshRate() >= 1 ? screen->refreshRate() : usualRefreshRate;
    m_timer.start(std::max(1, static_cast<int>(1000 / rate)));
}

void FrameAnimation::stop()
{
    m_timer.stop();
    if (const Completion completion = std::exchange(m_completion, nullptr))
        completion();
}

void FrameAnimation::advance()
{
    const double share = static_cast<double>(m_elapsed.nsecsElapsed()) / 1e9 / m_seconds;
    if (share < 1) {
        m_step(between(m_from, m_to, m_curve.valueForProgress(share)));
        return;
    }
    m_timer.stop();
    m_step(m_to);
    stop();
}

} // namespace nookle
