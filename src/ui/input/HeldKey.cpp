#include "HeldKey.h"

#include <QGuiApplication>
#include <QKeyEvent>

namespace nookle {

namespace {

/// In milliseconds. No desktop repeats a key that soon after its press.
inline constexpr quint64 shortestDelay = 50;

} // namespace

HeldKey::HeldKey(Repeats repeats)
    : m_repeats(repeats)
{
}

HeldKey::Repeats HeldKey::ofThisProgram()
{
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland")) ? Repeats::byToolkit
                                                                                : Repeats::byServer;
}

void HeldKey::release(const QKeyEvent& event)
{
    m_released = event.nativeScanCode();
    m_releasedAt = event.timestamp();
}

bool HeldKey::isRepeat(const QKeyEvent& press)
{
    const bool isRepeat = looksRepeated(press) && !isTap(press);
    if (!isRepeat) {
        m_pressed = press.nativeScanCode();
        m_pressedAt = press.timestamp();
    }
    return isRepeat;
}

bool HeldKey::looksRepeated(const QKeyEvent& press) const
{
    if (m_repeats == Repeats::byToolkit)
        return press.isAutoRepeat();
    // Events that no display server sent have no time.
    const bool hasTime = press.timestamp() != 0;
    return press.isAutoRepeat()
        || (hasTime && press.timestamp() == m_releasedAt && press.nativeScanCode() == m_released);
}

// Programs that type for the user press and release a key several times within a millisecond.
bool HeldKey::isTap(const QKeyEvent& press) const
{
    return m_repeats == Repeats::byServer && press.timestamp() != 0 && press.nativeScanCode() == m_pressed
        && press.timestamp() - m_pressedAt < shortestDelay;
}

} // namespace nookle
