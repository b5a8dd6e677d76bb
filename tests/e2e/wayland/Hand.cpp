#include "Hand.h"

#include "KWinHand.h"
#include "WlrootsHand.h"

#include <QPointF>
#include <QThread>
#include <QtMath>

#include <cmath>

namespace nookle::e2e {

std::unique_ptr<Hand> Hand::tryTake(const QByteArray& socketPath, const QPoint& desktop)
{
    if (auto hand = WlrootsHand::tryTake(socketPath, desktop))
        return hand;
    return KWinHand::tryTake(socketPath);
}

void Hand::moveTo(const QPoint& point)
{
    constexpr double longestStep = 40;
    constexpr int pace = 4;
    while (m_position != point) {
        const QPoint way = point - m_position;
        const double length = std::hypot(way.x(), way.y());
        m_position += length <= longestStep ? way : (QPointF(way) * longestStep / length).toPoint();
        placePointer(m_position);
        // A hand's pace, and not a wait: programs see a movement and not a jump.
        QThread::msleep(pace);
    }
}

void Hand::sendTo(const QPoint& point)
{
    m_position = point;
    sendPointer(point);
}

void Hand::tremble()
{
    const QPoint rest = m_position;
    moveTo(rest + QPoint(0, 1));
    moveTo(rest);
}

void Hand::click(Button button)
{
    press(button);
    release(button);
}

void Hand::turnWheel(int notches)
{
    constexpr double pointsOfNotch = 15;
    for (int notch = 0; notch < notches; ++notch)
        scroll(pointsOfNotch, 1);
}

void Hand::glide(int points, double step)
{
    const int steps = qCeil(points / step);
    for (int each = 0; each < steps; ++each)
        scroll(step, 0);
}

void Hand::type(Key key)
{
    pushKey(key, true);
    pushKey(key, false);
}

void Hand::typeWith(Key modifier, Key key)
{
    pushKey(modifier, true);
    type(key);
    pushKey(modifier, false);
}

void Hand::clickWith(Key modifier)
{
    constexpr int pace = 100;
    pushKey(modifier, true);
    press();
    QThread::msleep(pace);
    release();
    QThread::msleep(pace);
    pushKey(modifier, false);
}

} // namespace nookle::e2e
