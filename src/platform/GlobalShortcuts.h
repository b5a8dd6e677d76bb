#pragma once

#include "Cancellable.h"

#include <QKeyCombination>
#include <QString>

#include <functional>
#include <memory>

namespace nookle {

/// Keyboard shortcuts that reach this program even when another program is active. Main thread only.
class GlobalShortcuts {
public:
    virtual ~GlobalShortcuts() = default;

    /// Calls `pressed` at each press of `keys`, as long as the returned object lives. A key that is held down counts as
    /// one press. `description` tells the user what the keys do, on desktops that show it. A desktop may register the
    /// keys later, or let the user choose other keys. Null when the key is unknown, or another program holds it.
    [[nodiscard]] virtual std::unique_ptr<Cancellable>
    registerShortcut(QKeyCombination keys, const QString& description, std::function<void()> pressed) = 0;
};

} // namespace nookle
