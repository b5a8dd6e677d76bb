#include "HeldKey.h"

#include <QKeyEvent>

namespace nookle {

void HeldKey::release(const QKeyEvent& event)
{
    m_released = event.nativeScanCode();
    m_releasedAt = event.timestamp();
}

bool HeldKey::isRepeat(const QKeyEvent& press) const
{
    // Events that no display server sent have no time.
    const bool hasTime = press.timestamp() != 0;
    return press.isAutoRepeat()
        || (hasTime && press.timestamp() == m_releasedAt && press.nativeScanCode() == m_released);
}

} // namespace nookle
