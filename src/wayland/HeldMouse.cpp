#include "HeldMouse.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QWindow>

#include <utility>

namespace nookle {

namespace {

[[nodiscard]] bool isOfMouse(QEvent::Type type)
{
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease || type == QEvent::MouseButtonDblClick
        || type == QEvent::MouseMove;
}

} // namespace

HeldMouse::HeldMouse(QWindow& window, std::chrono::milliseconds longest)
    : m_window(window)
    , m_longest(longest)
{
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, &HeldMouse::deliver);
}

HeldMouse::~HeldMouse() = default;

bool HeldMouse::mustWait(const QMouseEvent& event) const
{
    return event.type() == QEvent::MouseButtonPress && event.button() == Qt::LeftButton && !m_window.isActive();
}

bool HeldMouse::take(const QEvent& event)
{
    if (m_isDelivering || !isOfMouse(event.type()))
        return false;
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    if (!isHolding() && mustWait(mouse))
        m_limit.start(m_longest);
    if (isHolding())
        m_events.emplace_back(mouse.clone());
    return isHolding();
}

// The compositor tells of the modifiers right after the keyboard, which the toolkit handles before what is posted now.
void HeldMouse::keyboardCame()
{
    if (isHolding())
        m_limit.start(0);
}

void HeldMouse::drop()
{
    m_limit.stop();
    m_events.clear();
}

// The events may start a drag, which runs an event loop of its own.
void HeldMouse::deliver()
{
    const Qt::KeyboardModifiers modifiers = QGuiApplication::queryKeyboardModifiers();
    m_isDelivering = true;
    for (const auto& event : std::exchange(m_events, {})) {
        event->setModifiers(event->modifiers() | modifiers);
        QCoreApplication::sendEvent(&m_window, event.get());
    }
    m_isDelivering = false;
}

} // namespace nookle
