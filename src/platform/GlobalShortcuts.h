#pragma once

#include "Cancellable.h"

#include <QKeyCombination>
#include <QString>

#include <functional>
#include <memory>

namespace nookle {

/// Keyboard shortcuts that reach this program even when another program is active. Some desktops bind a shortcut at
/// once, others later, when the user has agreed or chosen other keys. Main thread only.
class GlobalShortcuts {
public:
    virtual ~GlobalShortcuts() = default;

    /// Calls `pressed` at each press of `keys`, or of the keys that the user has chosen instead, as long as the
    /// returned object lives. A key that is held down counts as one press. `description` tells the user what the keys
    /// do, on desktops that show it. Null when the key is unknown, or another program is known to hold it.
    [[nodiscard]] virtual std::unique_ptr<Cancellable>
    registerShortcut(QKeyCombination keys, const QString& description, std::function<void()> pressed) = 0;

    /// The keys that are bound to the shortcut that was registered first, in the desktop's words. Empty while it is not
    /// bound, and where the desktop does not tell.
    [[nodiscard]] virtual QString boundKeys() const = 0;

    /// The keys for which that shortcut was registered, in the desktop's words. Empty before that, and where the
    /// display server has no shortcuts.
    [[nodiscard]] virtual QString wantedKeys() const = 0;

    /// Why there are no bound keys, as a text for the user: the shortcut is not bound, or the desktop does not tell.
    [[nodiscard]] virtual QString obstacle() const = 0;

    /// Whether the desktop can be asked again for a shortcut that is not bound.
    [[nodiscard]] virtual bool canAskAgain() const = 0;

    /// Asks the desktop again, even if the user has declined before.
    virtual void askAgain() = 0;

    /// Called when an answer of the functions above has changed, never within a call of `registerShortcut`. Set by the
    /// object that shows them.
    std::function<void()> onChanged = [] {};
};

} // namespace nookle
