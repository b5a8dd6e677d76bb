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

/// Notices that the user drags content of another program against the right edge of a display, once for each press of
/// the left button. The pointer is looked at now and then, and the whole way since the last look counts: a fast drag
/// over the edge between two displays is in its zone for a moment only. What it is given must outlive it. Main thread
/// only.
class DragEdgeMonitor final {
public:
    DragEdgeMonitor(InputMonitor& input, const Pointer& pointer, const Displays& displays);
    ~DragEdgeMonitor();
    DragEdgeMonitor(const DragEdgeMonitor&) = delete;
    DragEdgeMonitor& operator=(const DragEdgeMonitor&) = delete;

    /// Begins to watch, for as long as the monitor lives. A second call does nothing, unless the system refused the
    /// first.
    void start();

    /// A drag has reached a right edge. Set by the owner.
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
    /// Where the pointer was at the press, or at the last look since.
    std::optional<QPointF> m_lastPosition;
};

} // namespace nookle
