#pragma once

class QDropEvent;
class QPointF;
class QWindow;

namespace nookle {

/// Sends an event of a drag over one window of this program to another one, where the drag is at `position`. The event
/// is accepted as it was accepted there. Does not forward that a drag has left, which is no such event.
void forwardDrag(QDropEvent& event, QWindow& window, const QPointF& position);

} // namespace nookle
