#pragma once

#include "MainQueue.h"
#include "PanelWindow.h"

#include <QList>

#include <memory>
#include <optional>
#include <utility>

namespace nookle {

/// A panel whose animations run in the virtual time of a queue: half way until they end.
class FakePanelWindow : public PanelWindow {
public:
    struct Animation {
        QRectF from;
        QRectF to;
        double seconds;
        Easing easing;
    };

    explicit FakePanelWindow(MainQueue& queue)
        : m_queue(queue)
    {
    }

    void expectFrame(const QRectF& frame) override { expected = frame; }

    void setFrame(const QRectF& frame) override
    {
        finish();
        m_frame = frame;
    }

    [[nodiscard]] QRectF frame() const override { return m_frame; }

    void orderFront() override { isOnScreen = true; }
    void takeFocus() override { ++focusRequests; }
    void orderOut() override { isOnScreen = false; }

    void animateFrame(const QRectF& to, double seconds, Easing easing, std::function<void()> completion) override
    {
        finish();
        animations.append({ m_frame, to, seconds, easing });
        m_completion = std::move(completion);
        m_frame.translate((to.left() - m_frame.left()) / 2, 0);
        m_end = m_queue.after(seconds, [this, to] {
            m_frame = to;
            finish();
        });
    }

    void reserveSpace(const std::optional<QRectF>& frame) override { reserved = frame; }

    bool isOnScreen = false;
    std::optional<QRectF> expected;
    std::optional<QRectF> reserved;
    int focusRequests = 0;
    QList<Animation> animations;

private:
    void finish()
    {
        m_end.reset();
        if (const auto completion = std::exchange(m_completion, nullptr))
            completion();
    }

    MainQueue& m_queue;
    QRectF m_frame;
    std::unique_ptr<Cancellable> m_end;
    std::function<void()> m_completion;
};

} // namespace nookle
