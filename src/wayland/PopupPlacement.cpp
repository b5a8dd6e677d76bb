#include "PopupPlacement.h"

#include <QEvent>
#include <QGuiApplication>

namespace nookle {

PopupPlacement::PopupPlacement(QWindow& panel)
    : m_panel(panel)
{
    qGuiApp->installEventFilter(this);
}

// A window that is about to be shown hears of it first, when its place can still be chosen.
bool PopupPlacement::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Hide && watched == m_menu) {
        m_menu = nullptr;
        if (onMenuClosed)
            onMenuClosed();
    }
    if (event->type() == QEvent::Show && watched->isWindowType()) {
        auto& window = static_cast<QWindow&>(*watched);
        const bool isPopup = window.type() == Qt::Popup || window.type() == Qt::ToolTip;
        if (isPopup && m_panel.isVisible() && (!window.transientParent() || window.transientParent() == &m_panel))
            place(window);
    }
    return QObject::eventFilter(watched, event);
}

void PopupPlacement::place(QWindow& popup)
{
    popup.setTransientParent(&m_panel);
    if (popup.type() == Qt::Popup)
        menuOpens(popup);
    // A tool tip stands in its place already. A menu is to the left of where it was opened.
    const QRect place = popup.geometry();
    const QPoint corner = popup.type() == Qt::ToolTip ? place.topLeft() + QPoint(place.width(), 0) : place.topLeft();
    const QPoint inPanel = corner - m_panel.position();
    // The toolkit's names for the place of a popup.
    popup.setProperty("_q_waylandPopupAnchorRect", QRect(inPanel, QSize(1, 1)));
    popup.setProperty("_q_waylandPopupAnchor", QVariant::fromValue(Qt::Edges(Qt::TopEdge | Qt::LeftEdge)));
    popup.setProperty("_q_waylandPopupGravity", QVariant::fromValue(Qt::Edges(Qt::BottomEdge | Qt::LeftEdge)));
}

void PopupPlacement::menuOpens(QWindow& menu)
{
    m_menu = &menu;
    m_isMenuOpening = true;
    QMetaObject::invokeMethod(
        this, [this] { m_isMenuOpening = false; }, Qt::QueuedConnection);
}

} // namespace nookle
