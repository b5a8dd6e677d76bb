#pragma once

#include "HandlerList.h"
#include "InputMonitor.h"

#include <utility>

namespace nookle {

/// The mouse of other programs, moved by the test.
class FakeInputMonitor : public InputMonitor {
public:
    [[nodiscard]] std::unique_ptr<Cancellable> monitorLeftPress(std::function<void()> handler) override
    {
        return subscribe(m_press, std::move(handler));
    }

    [[nodiscard]] std::unique_ptr<Cancellable> monitorLeftDrag(std::function<void()> handler) override
    {
        return subscribe(m_drag, std::move(handler));
    }

    [[nodiscard]] qint64 dragChangeCount() const override { return changeCount; }

    void press() { m_press.call(); }
    void drag() { m_drag.call(); }
    [[nodiscard]] bool isWatched() const { return !m_press.isEmpty() || !m_drag.isEmpty(); }

    bool refuses = false;
    int subscriptions = 0;
    qint64 changeCount = 7;

private:
    [[nodiscard]] std::unique_ptr<Cancellable> subscribe(HandlerList& handlers, std::function<void()> handler)
    {
        if (refuses)
            return nullptr;
        ++subscriptions;
        return handlers.add(std::move(handler));
    }

    HandlerList m_press;
    HandlerList m_drag;
};

} // namespace nookle
