#pragma once

#include "Cancellable.h"

#include <QtGlobal>

#include <functional>
#include <memory>

namespace nookle {

/// Watches the mouse while it works in other programs. Handlers run on the main thread. Main thread only.
class InputMonitor {
public:
    virtual ~InputMonitor() = default;

    /// Calls `handler` at every press of the left button; null when the system allows no monitor.
    [[nodiscard]] virtual std::unique_ptr<Cancellable> monitorLeftPress(std::function<void()> handler) = 0;

    /// Calls `handler` when the mouse moves with the left button down; null when the system allows no monitor.
    [[nodiscard]] virtual std::unique_ptr<Cancellable> monitorLeftDrag(std::function<void()> handler) = 0;

    /// A number that changes whenever another program begins to drag content.
    [[nodiscard]] virtual qint64 dragChangeCount() const = 0;
};

} // namespace nookle
