#include "DragForwarding.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QPointF>
#include <QWindow>

namespace nookle {

void forwardDrag(QDropEvent& event, QWindow& window, const QPointF& position)
{
    const auto send = [&](QDropEvent&& copy) {
        copy.setDropAction(event.dropAction());
        QCoreApplication::sendEvent(&window, &copy);
        event.setAccepted(copy.isAccepted());
        if (copy.isAccepted())
            event.setDropAction(copy.dropAction());
    };
    const QPoint point = position.toPoint();
    switch (event.type()) {
    case QEvent::DragEnter:
        send(QDragEnterEvent(point, event.possibleActions(), event.mimeData(), event.buttons(), event.modifiers()));
        break;
    case QEvent::DragMove:
        send(QDragMoveEvent(point, event.possibleActions(), event.mimeData(), event.buttons(), event.modifiers()));
        break;
    default:
        send(QDropEvent(position, event.possibleActions(), event.mimeData(), event.buttons(), event.modifiers()));
        break;
    }
}

} // namespace nookle
