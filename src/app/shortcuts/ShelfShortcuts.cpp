#include "ShelfShortcuts.h"

#include "Log.h"
#include "PlainText.h"
#include "ShortcutText.h"
#include "UserDefaults.h"

#include <utility>

namespace nookle {

namespace {

// In the numbers of `HotKey`.
inline constexpr std::uint32_t keyD = 2;
inline constexpr std::uint32_t controlAltSuper = 4096 + 2048 + 256;

[[nodiscard]] QKeyCombination keysIn(const UserDefaults& settings)
{
    const QKeyCombination usual = HotKey::keys(keyD, controlAltSuper);
    const auto text = settings.string(QString(), QStringLiteral("shortcut"));
    if (!text)
        return usual;
    const auto keys = shortcutKeys(*text);
    if (!keys)
        logLine(
            QStringLiteral("the setting \"shortcut\" needs Ctrl, Alt or Super and one key, without Shift, not \"%1\"")
                .arg(shownText(*text)));
    return keys.value_or(usual);
}

} // namespace

ShelfShortcuts::ShelfShortcuts(GlobalShortcuts& shortcuts, const UserDefaults& settings, Actions actions)
    : ShelfShortcuts(shortcuts, keysIn(settings), std::move(actions))
{
}

ShelfShortcuts::ShelfShortcuts(GlobalShortcuts& shortcuts, QKeyCombination keys, Actions actions)
    : m_keys(keys)
    , m_toggle(shortcuts, keys, tr("Show or hide the shelf"), std::move(actions.toggle))
    , m_focus(shortcuts, QKeyCombination(keys.keyboardModifiers() | Qt::ShiftModifier, keys.key()),
              tr("Show the shelf with the keyboard focus"), std::move(actions.focus))
{
}

} // namespace nookle
