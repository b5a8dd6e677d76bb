#include "ItemInteractionView.h"

#include "ContextMenu.h"
#include "PlainToolTip.h"
#include "Selection.h"
#include "ToolTipPlace.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QStyleHints>

#include <cmath>
#include <utility>

namespace nookle {

namespace {

inline constexpr double dragDistance = 3;

template <typename Closure, typename... Arguments> void callIfSet(const Closure& closure, Arguments... arguments)
{
    if (closure)
        closure(arguments...);
}

} // namespace

ItemInteractionView::ItemInteractionView(QWidget* parent, DragRunner runDrag)
    : QWidget(parent)
    , m_runDrag(std::move(runDrag))
{
}

void ItemInteractionView::setConfiguration(ItemInteraction configuration)
{
    setPlainToolTip(*this, configuration.toolTip.value_or(QString()));
    m_configuration = std::move(configuration);
}

bool ItemInteractionView::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const bool asks = m_configuration && m_configuration->distinctToolTip;
    if (const auto toolTip = asks ? m_configuration->distinctToolTip() : std::nullopt)
        setPlainToolTip(*this, *toolTip);
    event->setAccepted(showToolTip(*this));
    return true;
}

// Counts presses itself, because the toolkit recognizes a double press but treats the third press as a first one.
void ItemInteractionView::press(const QMouseEvent& event)
{
    if (event.button() != Qt::LeftButton)
        return;
    m_mouseDownLocation = event.position();
    Press latest{ event.globalPosition(), event.timestamp(), event.modifiers(), 1 };
    if (m_lastPress && isSoonAfter(*m_lastPress, latest))
        latest.clickCount = m_lastPress->clickCount + 1;
    else if (event.type() == QEvent::MouseButtonDblClick)
        latest.clickCount = 2;
    m_lastPress = latest;
}

bool ItemInteractionView::isSoonAfter(const Press& first, const Press& second)
{
    const QStyleHints& hints = *QGuiApplication::styleHints();
    const QPointF moved = second.globalPosition - first.globalPosition;
    return second.time - first.time < static_cast<quint64>(hints.mouseDoubleClickInterval())
        && moved.manhattanLength() < hints.mouseDoubleClickDistance();
}

void ItemInteractionView::mousePressEvent(QMouseEvent* event)
{
    press(*event);
}

void ItemInteractionView::mouseDoubleClickEvent(QMouseEvent* event)
{
    press(*event);
}

void ItemInteractionView::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_mouseDownLocation || !m_configuration)
        return;
    const QPointF moved = event->position() - *m_mouseDownLocation;
    if (std::hypot(moved.x(), moved.y()) > dragDistance)
        beginDrag();
}

void ItemInteractionView::beginDrag()
{
    m_mouseDownLocation.reset();
    if (!m_configuration->dragItem)
        return;
    // A look at an item that was dragged before may replace the configuration, or remove the tile.
    const QPointer<ItemInteractionView> self(this);
    const auto dragItem = m_configuration->dragItem;
    if (Selection::isKept(m_lastPress->modifiers))
        callIfSet(m_configuration->onChooseForDrag, m_lastPress->modifiers);
    std::optional<DragItem> item = dragItem();
    if (!item || !self)
        return;
    // The drag runs its own event loop. When it ends, this view may be destroyed or have another configuration.
    const ItemInteraction configuration = *m_configuration;
    const DragRunner runDrag = m_runDrag;
    callIfSet(configuration.onDragBegan);
    const DragOperation operation = runDrag(*this, std::move(*item));
    callIfSet(configuration.onDragEnded, operation);
}

void ItemInteractionView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const bool isStill = m_mouseDownLocation.has_value();
    m_mouseDownLocation.reset();
    if (!isStill || !m_configuration)
        return;
    // The click's action may replace the configuration, or remove the tile.
    const ItemInteraction configuration = *m_configuration;
    const Press press = *m_lastPress;
    // Each click of a series chooses, but only the first one opens.
    if (Selection::isKept(press.modifiers))
        callIfSet(configuration.onChoose, press.modifiers);
    else if (press.clickCount == 1)
        callIfSet(configuration.onClick);
}

std::unique_ptr<QMenu> ItemInteractionView::makeMenu()
{
    if (!m_configuration || !m_configuration->menu)
        return nullptr;
    const auto makeActions = m_configuration->menu;
    return makeContextMenu(makeActions());
}

void ItemInteractionView::contextMenuEvent(QContextMenuEvent* event)
{
    showMenu(event->globalPos());
}

void ItemInteractionView::showMenu(const QPoint& globalPosition)
{
    std::unique_ptr<QMenu> menu = makeMenu();
    if (!menu)
        return;
    openContextMenu(std::move(menu), globalPosition, m_configuration->onMenuOpenChanged);
}

void ItemInteractionView::enterEvent(QEnterEvent* event)
{
    QWidget::enterEvent(event);
    if (m_configuration)
        callIfSet(m_configuration->onHover, true);
}

void ItemInteractionView::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    if (m_configuration)
        callIfSet(m_configuration->onHover, false);
}

} // namespace nookle
