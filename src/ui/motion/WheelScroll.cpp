#include "WheelScroll.h"

#include <QApplication>
#include <QWheelEvent>

#include <cmath>

namespace nookle {

namespace {

/// The angle of one notch, in the toolkit's unit.
inline constexpr int notch = 120;
inline constexpr double usualLines = 3;
/// Of what is in view, at the usual setting of the desktop.
inline constexpr double pagesToNotch = 0.25;

[[nodiscard]] double distanceOf(const QWheelEvent& event, int page)
{
    // Without phases the number of pixels is a guess of the driver. With them the toolkit adds up the fractions of
    // pixels, so that none means that it is still less than one.
    if (event.phase() != Qt::NoScrollPhase)
        return -event.pixelDelta().y();
    const double notches = static_cast<double>(event.angleDelta().y()) / notch;
    return -notches * page * pagesToNotch * QApplication::wheelScrollLines() / usualLines;
}

[[nodiscard]] WheelScroll::Kind kindOf(const QWheelEvent& event)
{
    if (event.phase() != Qt::NoScrollPhase)
        return WheelScroll::Kind::finger;
    return event.angleDelta().y() % notch == 0 ? WheelScroll::Kind::notch : WheelScroll::Kind::fine;
}

} // namespace

WheelScroll::Step WheelScroll::step(const QWheelEvent& event, int page)
{
    const double distance = distanceOf(event, page);
    const double whole = std::trunc(distance + m_rest);
    m_rest += distance - whole;
    return { static_cast<int>(whole), kindOf(event) };
}

} // namespace nookle
