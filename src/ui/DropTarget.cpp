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

// A source may say only after the drag has entered that it can save its data, so a refusal is not final as long as
// nothing is offered. The data is looked at once for each drag.
bool DropTarget::canTake(const QDropEvent& event)
{
    if (!isAllowed(event))
        return false;
    if (!m_isWanted) {
        const std::unique_ptr<DropPayload> payload = m_readDrop(*event.mimeData());
        if (!offersDropItems(*payload))
            return false;
        m_isWanted = canTakeDrop(*payload);
    }
    return *m_isWanted;
}

void DropTarget::answer(QDragMoveEvent& event)
{
    const bool canBeTaken = canTake(event);
    if (canBeTaken)
        acceptCopy(event);
    else
        event.ignore();
    setHovered(canBeTaken);
}

// The toolkit tells only who has accepted the entry of the drag's movements, and reports one with each entry. The
// source hears the answer to that one.
void DropTarget::enter(QDragEnterEvent& event)
{
    m_isWanted.reset();
    answer(event);
    event.accept();
}

void DropTarget::move(QDragMoveEvent& event)
{
    answer(event);
}

void DropTarget::leave()
{
    m_isWanted.reset();
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
