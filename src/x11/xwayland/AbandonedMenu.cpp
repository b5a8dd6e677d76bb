#include "AbandonedMenu.h"

#include "MainQueue.h"

#include <QEvent>
#include <QGuiApplication>

namespace nookle {

namespace {

inline constexpr double timeAway = 0.5;
inline constexpr double timeBetweenLooks = 0.5;

} // namespace

AbandonedMenu::AbandonedMenu(QWindow& panel, MainQueue& queue)
    : m_panel(panel)
    , m_queue(queue)
{
    qGuiApp->installEventFilter(this);
}

AbandonedMenu::~AbandonedMenu() = default;

bool AbandonedMenu::eventFilter(QObject* watched, QEvent* event)
{
    if (!watched->isWindowType())
        return QObject::eventFilter(watched, event);
    auto& window = static_cast<QWindow&>(*watched);
    const bool isOurs = &window == &m_panel || &window == m_menu;
    if (event->type() == QEvent::Show)
        shown(window);
    else if (event->type() == QEvent::Hide && &window == m_menu)
        hidden();
    else if (event->type() == QEvent::Enter && isOurs)
        pointerEntered(window);
    else if (event->type() == QEvent::Leave && &window == m_entered)
        pointerLeft();
    return QObject::eventFilter(watched, event);
}

// Other windows of the program have menus, too, and those are their children.
void AbandonedMenu::shown(QWindow& window)
{
    const bool isOfPanel = !window.transientParent() || window.transientParent() == &m_panel;
    if (window.type() != Qt::Popup || !isOfPanel)
        return;
    m_menu = &window;
    m_looking = m_queue.every(timeBetweenLooks, [this] { look(); });
}

void AbandonedMenu::hidden()
{
    m_menu = nullptr;
    m_closing.reset();
    m_looking.reset();
}

void AbandonedMenu::look()
{
    if (m_menu && m_entered && isPointerLost && isPointerLost(*m_menu))
        pointerLeft();
}

// The panel may be left only after the menu has been entered.
void AbandonedMenu::pointerEntered(QWindow& window)
{
    m_entered = &window;
    m_closing.reset();
}

void AbandonedMenu::pointerLeft()
{
    m_entered = nullptr;
    if (m_menu)
        m_closing = m_queue.after(timeAway, [this] { closeMenu(); });
}

void AbandonedMenu::closeMenu()
{
    if (!m_menu)
        return;
    if (onAbandoned)
        onAbandoned();
    m_menu->close();
}

} // namespace nookle
