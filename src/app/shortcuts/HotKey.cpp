#include "HotKey.h"

#include <limits>
#include <utility>

namespace nookle {

namespace {

[[nodiscard]] Qt::Key key(std::uint32_t keyCode)
{
    constexpr std::uint32_t codeOfD = 2;
    return keyCode == codeOfD ? Qt::Key_D : Qt::Key_unknown;
}

[[nodiscard]] Qt::KeyboardModifiers keyboardModifiers(std::uint32_t modifiers)
{
    Qt::KeyboardModifiers held;
    held.setFlag(Qt::MetaModifier, (modifiers & 256) != 0);
    held.setFlag(Qt::ShiftModifier, (modifiers & 512) != 0);
    held.setFlag(Qt::AltModifier, (modifiers & 2048) != 0);
    held.setFlag(Qt::ControlModifier, (modifiers & 4096) != 0);
    return held;
}

} // namespace

QKeyCombination HotKey::keys(std::uint32_t keyCode, std::uint32_t modifiers)
{
    return QKeyCombination(keyboardModifiers(modifiers), key(keyCode));
}

HotKey::HotKey(GlobalShortcuts& shortcuts, QKeyCombination keys, const QString& description,
               std::function<void()> action)
    : m_id(takeId())
    , m_hotKey(shortcuts.registerShortcut(keys, description, std::move(action)))
{
}

std::uint32_t HotKey::takeId()
{
    if (nextID == std::numeric_limits<std::uint32_t>::max())
        qFatal("no number is left for another shortcut");
    return nextID++;
}

} // namespace nookle
