#pragma once

#include "Cancellable.h"

#include <QKeyCombination>
#include <QString>

#include <functional>
#include <memory>

namespace nookle {

/// Keys that reach this program whichever program is active. Main thread only.
class GlobalShortcuts {
public:
    virtual ~GlobalShortcuts() = default;

    /// Calls `pressed` at each press of `keys`, as long as what is returned lives; a key that is held down is one
    /// press. `description` tells the user what the keys do, where the desktop asks. A desktop may take its time, or
    /// leave the choice of the keys to the user. Null when the key is unknown, or another program holds it.
    [[nodiscard]] virtual std::unique_ptr<Cancellable>
    registerShortcut(QKeyCombination keys, const QString& description, std::function<void()> pressed) = 0;
};

} // namespace nookle
