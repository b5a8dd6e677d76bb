#pragma once

#include "Cancellable.h"

#include <QKeyCombination>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace nookle {

/// Keyboard shortcuts that reach this program even when another program is active. Some desktops bind a shortcut at
/// once, others later, when the user has agreed or chosen other keys. Main thread only.
class GlobalShortcuts : public QObject {
    Q_OBJECT

public:
    /// Calls `pressed` at each press of `keys`, or of the keys that the user has chosen instead, as long as the
    /// returned object lives. A key that is held down counts as one press. `description` tells the user what the keys
    /// do, on desktops that show it. Null when the key is unknown, or another program is known to hold it.
    [[nodiscard]] virtual std::unique_ptr<Cancellable>
    registerShortcut(QKeyCombination keys, const QString& description, std::function<void()> pressed) = 0;

    /// The keys that are bound to the shortcut that was registered first, in the desktop's words. Empty while it is not
    /// bound, and where the desktop does not tell.
    [[nodiscard]] virtual QString boundKeys() const = 0;

    /// The same keys for the toolkit. None also where the desktop's words name no single combination that it knows.
    [[nodiscard]] virtual std::optional<QKeyCombination> boundCombination() const = 0;

    /// The keys for which that shortcut was registered, in the desktop's words. Empty before that, and where the
    /// display server has no shortcuts.
    [[nodiscard]] virtual QString wantedKeys() const = 0;

    /// Why there are no bound keys, as a text for the user: the shortcut is not bound, or the desktop does not tell.
    /// Where each shortcut is bound for itself, also which ones of the others are not, in a line each.
    [[nodiscard]] virtual QString obstacle() const = 0;

    /// Whether the desktop can be asked again for a shortcut that is not bound.
    [[nodiscard]] virtual bool canAskAgain() const = 0;

    /// Asks the desktop again, even if the user has declined before.
    virtual void askAgain() = 0;

Q_SIGNALS:
    /// An answer of the functions above has changed. Never emitted within a call of `registerShortcut`.
    void changed();
};

} // namespace nookle
