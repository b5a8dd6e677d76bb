#pragma once

#include "HotKey.h"

#include <QCoreApplication>

#include <functional>

namespace nookle {

class UserDefaults;

/// The shelf's two shortcuts: one shows and hides it, and the same keys with Shift show it with the keyboard focus. The
/// settings file may name other keys. Main thread only.
class ShelfShortcuts final {
    Q_DECLARE_TR_FUNCTIONS(nookle::ShelfShortcuts)

public:
    struct Actions {
        std::function<void()> toggle;
        std::function<void()> focus;
    };

    /// `shortcuts` must outlive this object. Keys in `settings` that cannot be a shortcut are named in one log line.
    ShelfShortcuts(GlobalShortcuts& shortcuts, const UserDefaults& settings, Actions actions);

    /// The keys that are to show and hide the shelf, unless the desktop decides.
    [[nodiscard]] QKeyCombination keys() const { return m_keys; }

private:
    ShelfShortcuts(GlobalShortcuts& shortcuts, QKeyCombination keys, Actions actions);

    QKeyCombination m_keys;
    HotKey m_toggle;
    HotKey m_focus;
};

} // namespace nookle
