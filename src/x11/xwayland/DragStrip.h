#pragma once

#include "StripWindow.h"
#include "X11DockWindow.h"

#include <QRect>
#include <QRectF>

namespace nookle {

/// The strip of one display. Parked beyond all displays unless it is needed: browsers look for a drag's target only
/// among the windows that existed when it began. Main thread only.
class DragStrip final : public StripWindow {
    Q_OBJECT

public:
    /// A parked strip for the display with that full frame. `parking` is in pixels.
    DragStrip(const QRectF& display, const QRect& parking, xcb_connection_t* connection, WindowPlacing placing);
    ~DragStrip() override;

    [[nodiscard]] QRectF display() const { return m_display; }

    /// Puts the strip at the right edge of `usable`, the part of its display that the desktop's own panels leave free.
    void standAtEdge(const QRectF& usable);

    /// Puts the strip beyond all displays.
    void park();

protected:
    [[nodiscard]] QPointF onDesktop(const QPointF& position) const override;

private:
    QRectF m_display;
    /// The strip's place when it is needed, in points.
    QRectF m_edge;
    QRect m_parking;
    X11DockWindow m_dock;
};

} // namespace nookle
