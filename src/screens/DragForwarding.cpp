#include "DragForwarding.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QPointF>
#include <QRectF>
#include <QWindow>

#include <algorithm>

namespace nookle {

void forwardDrag(QDropEvent& event, QWindow& window, const QRectF& frame, const QPointF& position)
{
    const QPointF inWindow = position - frame.topLeft();
    const QPointF place(std::clamp(inWindow.x(), 0.0, frame.width() - 1),
                        std::clamp(inWindow.y(), 0.0, frame.height() - 1));
    const auto send = [&](QDropEvent&& copy) {
        copy.setDropAction(event.dropAction());
        QCoreApplication::sendEvent(&window, &copy);
        event.setAccepted(copy.isAccepted());
        if (copy.isAccepted())
            event.setDropAction(copy.dropAction());
    };
    const QPoint point = place.toPoint();
    switch (event.type()) {
    case QEvent::DragEnter:
        send(QDragEnterEvent(point, event.possibleActions(), event.mimeData(), event.buttons(), event.modifiers()));
        break;
    case QEvent::DragMove:
        send(QDragMoveEvent(point, event.possibleActions(), event.mimeData(), event.buttons(), event.modifiers()));
        break;
    default:
        send(QDropEvent(place, event.possibleActions(), event.mimeData(), event.buttons(), event.modifiers()));
        break;
    }
}

void forwardDragLeave(QWindow& window)
{
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&window, &leave);
}

} // namespace nookle
