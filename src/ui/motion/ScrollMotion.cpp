#include "ScrollMotion.h"

#include "Motion.h"

#include <QScrollBar>

#include <algorithm>

namespace nookle {

namespace {

inline constexpr int milliseconds = 140;

} // namespace

ScrollMotion::ScrollMotion(QScrollBar& bar)
    : m_bar(bar)
{
    m_animation.setDuration(milliseconds);
    m_animation.setEasingCurve(QEasingCurve::OutCubic);
    QObject::connect(&m_animation, &QVariantAnimation::valueChanged, &m_animation,
                     [this](const QVariant& value) { m_bar.setValue(value.toInt()); });
}

void ScrollMotion::moveBy(int distance)
{
    if (!wantsMotion()) {
        jumpBy(distance);
        return;
    }
    const int end = isMoving() ? m_animation.endValue().toInt() : m_bar.value();
    const int target = std::clamp(end + distance, m_bar.minimum(), m_bar.maximum());
    m_animation.stop();
    if (target == m_bar.value())
        return;
    m_animation.setStartValue(m_bar.value());
    m_animation.setEndValue(target);
    m_animation.start();
}

void ScrollMotion::jumpBy(int distance)
{
    stop();
    m_bar.setValue(m_bar.value() + distance);
}

void ScrollMotion::finish()
{
    if (!isMoving())
        return;
    stop();
    m_bar.setValue(m_animation.endValue().toInt());
}

} // namespace nookle
