#pragma once

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

    void press() const { call(m_press); }
    void drag() const { call(m_drag); }

    bool refuses = false;
    int subscriptions = 0;
    qint64 changeCount = 7;

private:
    static void call(const std::function<void()>& handler)
    {
        if (handler)
            handler();
    }

    [[nodiscard]] std::unique_ptr<Cancellable> subscribe(std::function<void()>& place, std::function<void()> handler)
    {
        if (refuses)
            return nullptr;
        ++subscriptions;
        place = std::move(handler);
        return std::make_unique<Cancellable>([] {});
    }

    std::function<void()> m_press;
    std::function<void()> m_drag;
};

} // namespace nookle
