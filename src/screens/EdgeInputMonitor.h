#pragma once

#include "HandlerList.h"
#include "InputMonitor.h"
#include "Lifetime.h"

namespace nookle {

/// A drag that enters a window at the edge is press, drag and movement at once: nothing else of other programs' input
/// can be seen. Main thread only.
class EdgeInputMonitor final : public InputMonitor {
public:
    [[nodiscard]] std::unique_ptr<Cancellable> monitorLeftPress(std::function<void()> handler) override;
    [[nodiscard]] std::unique_ptr<Cancellable> monitorLeftDrag(std::function<void()> handler) override;
    [[nodiscard]] qint64 dragChangeCount() const override { return m_dragChangeCount; }

    /// Call this when a drag of another program has entered a window at the edge, where the pointer is.
    void dragHasReachedEdge();

    /// Whether somebody wants to know of drags.
    [[nodiscard]] bool isWatched() const { return !m_dragHandlers.isEmpty(); }

    /// Called when `isWatched` may have changed. Set by the owner.
    std::function<void()> onWatchedChanged;

private:
    HandlerList m_pressHandlers;
    HandlerList m_dragHandlers;
    qint64 m_dragChangeCount = 0;
    Lifetime m_lifetime;
};

} // namespace nookle
