#pragma once

#include "DragStrip.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace nookle {

class Displays;
class EdgeInputMonitor;
class ForeignDrags;
class SeenPointer;

/// The strips of all displays. They are at the edges only while a drag of another program is under way and somebody
/// wants to know of it. Main thread only.
class DragStrips final {
public:
    struct Services {
        EdgeInputMonitor& input;
        SeenPointer& pointer;
        ForeignDrags& drags;
        const Displays& displays;
    };

    /// All arguments must outlive this object.
    DragStrips(const Services& services, xcb_connection_t* connection, WindowPlacing placing);
    ~DragStrips();
    DragStrips(const DragStrips&) = delete;
    DragStrips& operator=(const DragStrips&) = delete;

    /// Whether the strips are at the edges.
    [[nodiscard]] bool areNeeded() const { return m_areNeeded; }

    /// Call this when a display was added, removed or changed.
    void displaysChanged();

    /// Call this when a window may have come above the strips.
    void raise();

    /// Leaves the edge of the display with that full frame to the panel, which stands there; with none, of no display.
    void leaveToPanel(const std::optional<QRectF>& display);

    /// As in `DragStrip`.
    std::function<void(QDropEvent& event, const QPointF& position)> onDragEvent;
    std::function<void()> onDragLeft;
    /// Called when `areNeeded` has changed. Set by the owner.
    std::function<void()> onNeedChanged;

private:
    void makeStrips();
    void placeStrips();
    void update();
    void handleDrag(QDropEvent& event, const QPointF& position);

    Services m_services;
    xcb_connection_t* m_connection;
    WindowPlacing m_placing;
    bool m_areNeeded = false;
    std::optional<QRectF> m_leftToPanel;
    std::vector<std::unique_ptr<DragStrip>> m_strips;
};

} // namespace nookle
