#include "DropTarget.h"

#include "DropCapture.h"
#include "DropHandler.h"

#include <QDropEvent>

#include <utility>

namespace nookle {

namespace {

void acceptCopy(QDropEvent& event)
{
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

} // namespace

DropTarget::DropTarget(DropReader readDrop, DropHandler& handler)
    : m_readDrop(std::move(readDrop))
    , m_handler(handler)
{
}

// Only copies are accepted, because a source deletes what it believes to be moved.
bool DropTarget::isAllowed(const QDropEvent& event) const
{
    return !m_isDraggingOut && (event.possibleActions() & Qt::CopyAction);
}

void DropTarget::setHovered(bool isHovered)
{
    if (std::exchange(m_isHovered, isHovered) != isHovered)
        onHoverChanged(isHovered);
}

void DropTarget::enter(QDragEnterEvent& event)
{
    if (!isAllowed(event) || !canTakeDrop(*m_readDrop(*event.mimeData()))) {
        event.ignore();
        return;
    }
    acceptCopy(event);
    setHovered(true);
}

void DropTarget::move(QDragMoveEvent& event) const
{
    if (m_isHovered && isAllowed(event))
        acceptCopy(event);
    else
        event.ignore();
}

void DropTarget::leave()
{
    setHovered(false);
}

void DropTarget::drop(QDropEvent& event)
{
    const bool wasHovered = m_isHovered;
    setHovered(false);
    if (!wasHovered || !isAllowed(event)) {
        event.ignore();
        return;
    }
    m_handler.handle(captureDrop(*m_readDrop(*event.mimeData())));
    acceptCopy(event);
}

} // namespace nookle
