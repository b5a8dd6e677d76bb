#pragma once

#include "X11DockWindow.h"

#include <QRasterWindow>
#include <QRect>
#include <QRectF>

#include <functional>

class QDropEvent;

namespace nookle {

/// An invisible window along the right edge of one display, 3 points wide, over which a drag comes when it reaches the
/// edge. Parked beyond all displays unless it is needed: browsers look for a drag's target only among the windows that
/// existed when it began. Main thread only.
class DragStrip final : public QRasterWindow {
    Q_OBJECT

public:
    static constexpr int thickness = 3;

    /// A parked strip for the display with that full frame. `parking` is in pixels.
    DragStrip(const QRectF& display, const QRect& parking, xcb_connection_t* connection);
    ~DragStrip() override;

    [[nodiscard]] QRectF display() const { return m_display; }

    /// Puts the strip at the right edge of `usable`, the part of its display that the desktop's own panels leave free.
    void standAtEdge(const QRectF& usable);

    /// Puts the strip beyond all displays.
    void park();

    /// Called with each event of a drag of another program over the strip, whose position is in points of the desktop.
    /// The receiver accepts the event or ignores it. Set by the owner.
    std::function<void(QDropEvent& event, const QPointF& position)> onDragEvent;
    /// Called when the drag has left the strip again. Set by the owner.
    std::function<void()> onDragLeft;
    /// Called when the pointer has come without a drag. Set by the owner.
    std::function<void()> onPointerCame;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void handleDrag(QDropEvent& event);
    [[nodiscard]] QPointF onDesktop(const QPointF& position) const;

    QRectF m_display;
    /// The strip's place when it is needed, in points.
    QRectF m_edge;
    QRect m_parking;
    X11DockWindow m_dock;
};

} // namespace nookle
