#pragma once

#include <QtGlobal>

#include <functional>
#include <memory>

namespace nookle {

/// An installed monitor. Destroying it removes it.
class InputSubscription {
public:
    virtual ~InputSubscription() = default;
};

/// Watches the mouse while it works in other programs. Handlers run on the main thread. Main thread only.
class InputMonitor {
public:
    virtual ~InputMonitor() = default;

    /// Calls `handler` at every press of the left button; null when the system allows no monitor.
    [[nodiscard]] virtual std::unique_ptr<InputSubscription> monitorLeftPress(std::function<void()> handler) = 0;

    /// Calls `handler` when the mouse moves with the left button down; null when the system allows no monitor.
    [[nodiscard]] virtual std::unique_ptr<InputSubscription> monitorLeftDrag(std::function<void()> handler) = 0;

    /// A number that changes whenever another program begins to drag content.
    [[nodiscard]] virtual qint64 dragChangeCount() const = 0;
};

} // namespace nookle
