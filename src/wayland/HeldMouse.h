#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <deque>
#include <memory>

class QEvent;
class QMouseEvent;
class QWindow;

namespace nookle {

/// Holds the mouse's events for a window back until the window has the keyboard, because a compositor tells of Control
/// and Shift only who has it. Main thread only.
class HeldMouse final : public QObject {
    Q_OBJECT

public:
    /// `window` must outlive this object. After `longest` the events are delivered without the keyboard.
    HeldMouse(QWindow& window, std::chrono::milliseconds longest);
    ~HeldMouse() override;

    /// Call this with each event of the window, before the window has it. True if this has taken the event.
    [[nodiscard]] bool take(const QEvent& event);

    /// Call this when the window has got the keyboard.
    void keyboardCame();

    /// Forgets what is held.
    void drop();

    /// Whether an event that the window gets now was held.
    [[nodiscard]] bool isDelivering() const { return m_isDelivering; }

private:
    [[nodiscard]] bool isHolding() const { return m_limit.isActive(); }
    void hold(const QMouseEvent& event);
    void forgetMovesOfClick();
    /// Whether the modifiers of that event are not known.
    [[nodiscard]] bool mustWait(const QMouseEvent& event) const;
    void deliver();

    QWindow& m_window;
    std::chrono::milliseconds m_longest;
    QTimer m_limit;
    bool m_isDelivering = false;
    std::deque<std::unique_ptr<QMouseEvent>> m_events;
};

} // namespace nookle
