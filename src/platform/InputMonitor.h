#pragma once

#include "Cancellable.h"

#include <QtGlobal>

#include <functional>
#include <memory>

namespace nookle {

/// Watches the mouse, also while it is over other programs. Main thread only, also the handlers.
class InputMonitor {
public:
    virtual ~InputMonitor() = default;

    /// Calls `handler` at every press of the left button, as long as the returned object lives. Null when the system
    /// allows no monitor.
    [[nodiscard]] virtual std::unique_ptr<Cancellable> monitorLeftPress(std::function<void()> handler) = 0;

    /// Calls `handler` when the mouse moves with the left button down, as long as the returned object lives. Null when
    /// the system allows no monitor.
    [[nodiscard]] virtual std::unique_ptr<Cancellable> monitorLeftDrag(std::function<void()> handler) = 0;

    /// A counter that changes whenever another program begins to drag content.
    [[nodiscard]] virtual qint64 dragChangeCount() const = 0;
};

} // namespace nookle
