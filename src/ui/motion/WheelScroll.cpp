#include "WheelScroll.h"

#include <QApplication>
#include <QPointingDevice>
#include <QWheelEvent>

#include <cmath>

namespace nookle {

namespace {

/// The angle of one notch, in the toolkit's unit.
inline constexpr int notch = 120;
inline constexpr double usualLines = 3;
/// Of what is in view, at the usual setting of the desktop.
inline constexpr double pagesToNotch = 0.25;
/// For how many points of a finger's way a touchpad's driver reports one notch on X11.
inline constexpr double fingerPointsToNotch = 15;
/// The points to a notch of a device that may be either: slow enough for fingers, and not too slow for a wheel.
inline constexpr double eitherPointsToNotch = 60;
/// What fractions that add up to a whole point may lack.
inline constexpr double roundingError = 1e-6;

enum class Device { wheel, touchpad, either };

/// On X11 a touchpad's name tells it from a wheel. The type of the device does not: the toolkit guesses it from axes
/// that both have. XWayland passes all devices of the session on as one.
[[nodiscard]] Device deviceOf(const QWheelEvent& event)
{
    const QPointingDevice* device = event.pointingDevice();
    if (device == nullptr)
        return Device::wheel;
    const QString name = device->name();
    const auto isNamed = [&name](QLatin1String part) { return name.contains(part, Qt::CaseInsensitive); };
    if (isNamed(QLatin1String("touchpad")) || isNamed(QLatin1String("trackpad")))
        return Device::touchpad;
    return isNamed(QLatin1String("xwayland")) ? Device::either : Device::wheel;
}

[[nodiscard]] WheelScroll::Kind kindOf(const QWheelEvent& event)
{
    if (event.phase() != Qt::NoScrollPhase || deviceOf(event) == Device::touchpad)
        return WheelScroll::Kind::finger;
    return event.angleDelta().y() % notch == 0 ? WheelScroll::Kind::notch : WheelScroll::Kind::fine;
}

[[nodiscard]] double pointsToNotch(const QWheelEvent& event, int page)
{
    switch (kindOf(event)) {
    case WheelScroll::Kind::finger:
        return fingerPointsToNotch;
    case WheelScroll::Kind::fine:
        if (deviceOf(event) == Device::either)
            return eitherPointsToNotch;
        break;
    case WheelScroll::Kind::notch:
        break;
    }
    return page * pagesToNotch * QApplication::wheelScrollLines() / usualLines;
}

[[nodiscard]] double distanceOf(const QWheelEvent& event, int page)
{
    // Without phases the number of pixels is a guess of the driver. With them the toolkit adds up the fractions of
    // pixels, so that none means that it is still less than one.
    if (event.phase() != Qt::NoScrollPhase)
        return -event.pixelDelta().y();
    return -static_cast<double>(event.angleDelta().y()) / notch * pointsToNotch(event, page);
}

} // namespace

WheelScroll::Step WheelScroll::step(const QWheelEvent& event, int page)
{
    m_rest += distanceOf(event, page);
    const double whole = std::trunc(m_rest + std::copysign(roundingError, m_rest));
    m_rest -= whole;
    return { static_cast<int>(whole), kindOf(event) };
}

} // namespace nookle
