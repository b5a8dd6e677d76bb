#include "HotKey.h"

#include <QtGlobal>

#include <limits>
#include <utility>

namespace nookle {

HotKey::HotKey(GlobalShortcuts& shortcuts, std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> action)
    : m_id(takeId())
    , m_action(std::move(action))
    , m_handler(shortcuts.installHandler([this](ShortcutId pressed) { return handle(pressed); }))
    , m_hotKey(shortcuts.registerShortcut({ keyCode, modifiers }, { signature, m_id }))
{
}

std::uint32_t HotKey::takeId()
{
    if (nextID == std::numeric_limits<std::uint32_t>::max())
        qFatal("no number is left for another shortcut");
    return nextID++;
}

bool HotKey::handle(ShortcutId pressed) const
{
    if (pressed != ShortcutId{ signature, m_id })
        return false;
    m_action();
    return true;
}

} // namespace nookle
