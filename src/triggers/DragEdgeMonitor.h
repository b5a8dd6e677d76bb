#pragma once

#include <QPointF>
#include <QtGlobal>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace nookle {

class Displays;
class InputMonitor;
class Cancellable;
class Pointer;

/// Detects that the user drags content of another program to the right edge of a display, once for each press of the
/// left button. The pointer's position is sampled. The whole line since the last sample is tested, because a fast drag
/// across the edge between two displays is in the edge zone only for a moment. The constructor's arguments must outlive
/// it. Main thread only.
class DragEdgeMonitor final {
public:
    DragEdgeMonitor(InputMonitor& input, const Pointer& pointer, const Displays& displays);
    ~DragEdgeMonitor();
    DragEdgeMonitor(const DragEdgeMonitor&) = delete;
    DragEdgeMonitor& operator=(const DragEdgeMonitor&) = delete;

    /// Begins to watch, as long as this object lives. A second call does nothing, unless the first one failed.
    void start();

    /// Ends the watch. `start` begins it again.
    void stop();

    /// Called when a drag has reached a right edge. Set by the owner.
    std::function<void()> onEdgeReached = [] {};

private:
    void leftMouseDown();
    void mouseDragged();

    InputMonitor& m_input;
    const Pointer& m_pointer;
    const Displays& m_displays;
    std::vector<std::unique_ptr<Cancellable>> m_monitors;
    qint64 m_changeCountAtMouseDown = 0;
    bool m_hasFired = false;
    /// The last sample of the pointer's position, or its position at the press.
    std::optional<QPointF> m_lastPosition;
};

} // namespace nookle
