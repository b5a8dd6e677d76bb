#include "HeldMouse.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyleHints>
#include <QWindow>

#include <algorithm>
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
    // With the first movement a drag may have begun, and have ended elsewhere.
    if (m_isDelivering && event.type() == QEvent::Leave)
        m_events.clear();
    if (m_isDelivering || !isOfMouse(event.type()))
        return false;
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    if (!isHolding() && mustWait(mouse))
        m_limit.start(m_longest);
    if (isHolding())
        hold(mouse);
    return isHolding();
}

// Of movements in a row, the last one counts.
void HeldMouse::hold(const QMouseEvent& event)
{
    if (event.type() == QEvent::MouseMove && !m_events.empty() && m_events.back()->type() == QEvent::MouseMove)
        m_events.pop_back();
    m_events.emplace_back(event.clone());
}

// A drag must not begin when the button is up again: nothing would end it.
void HeldMouse::forgetMovesOfClick()
{
    const auto release = std::find_if(m_events.begin(), m_events.end(), [](const auto& event) {
        return event->type() == QEvent::MouseButtonRelease && event->button() == Qt::LeftButton;
    });
    if (release == m_events.end())
        return;
    const QPointF way = (*release)->position() - m_events.front()->position();
    if (way.manhattanLength() > QGuiApplication::styleHints()->startDragDistance())
        m_events.clear();
    std::erase_if(m_events, [](const auto& event) { return event->type() == QEvent::MouseMove; });
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
    forgetMovesOfClick();
    m_isDelivering = true;
    while (!m_events.empty()) {
        const std::unique_ptr<QMouseEvent> event = std::move(m_events.front());
        m_events.pop_front();
        event->setModifiers(event->modifiers() | modifiers);
        QCoreApplication::sendEvent(&m_window, event.get());
    }
    m_isDelivering = false;
}

} // namespace nookle
