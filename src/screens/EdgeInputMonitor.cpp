#include "EdgeInputMonitor.h"

#include <utility>

namespace nookle {

std::unique_ptr<Cancellable> EdgeInputMonitor::monitorLeftPress(std::function<void()> handler)
{
    return m_pressHandlers.add(std::move(handler));
}

std::unique_ptr<Cancellable> EdgeInputMonitor::monitorLeftDrag(std::function<void()> handler)
{
    auto tell = m_lifetime.guarded([this] {
        if (onWatchedChanged)
            onWatchedChanged();
    });
    std::shared_ptr<Cancellable> installed = m_dragHandlers.add(std::move(handler));
    tell();
    return std::make_unique<Cancellable>([installed, tell]() mutable {
        installed.reset();
        tell();
    });
}

void EdgeInputMonitor::dragHasReachedEdge()
{
    m_pressHandlers.call();
    ++m_dragChangeCount;
    m_dragHandlers.call();
}

} // namespace nookle
