#pragma once

class QDropEvent;
class QPointF;
class QRectF;
class QWindow;

namespace nookle {

/// Sends an event of a drag over one window of this program to another one, which lies at `frame`, as if the drag were
/// at the place in it that is nearest to `position`. Both are in points of the desktop. The event is accepted as it was
/// accepted there. Does not forward that a drag has left, which is no such event.
void forwardDrag(QDropEvent& event, QWindow& window, const QRectF& frame, const QPointF& position);

/// Tells the other window that such a drag has left.
void forwardDragLeave(QWindow& window);

} // namespace nookle
