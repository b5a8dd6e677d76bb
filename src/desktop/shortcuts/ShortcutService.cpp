#include "ShortcutService.h"

#include <utility>

namespace nookle {

void ShortcutService::setStatus(const ShortcutStatus& status)
{
    const ShortcutStatus before = std::exchange(m_status, status);
    if (before != m_status)
        onChanged();
}

} // namespace nookle
