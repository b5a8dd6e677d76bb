#pragma once

#include "StripWindow.h"
#include "X11DockWindow.h"

#include <QPoint>
#include <QRect>
#include <QRectF>

namespace nookle {

/// The strip of one display. Parked beyond all displays unless it is needed: browsers look for a drag's target only
/// among the windows that existed when it began. Main thread only.
class DragStrip final : public StripWindow {
    Q_OBJECT

public:
    struct Place {
        /// The full frame of the display.
        QRectF display;
        /// The part of it that the desktop's own panels leave free.
        QRectF usable;
        /// A point beyond all displays, in pixels.
        QPoint parking;
    };

    /// A parked strip.
    DragStrip(const Place& place, xcb_connection_t* connection, WindowPlacing placing);
    ~DragStrip() override;

    [[nodiscard]] QRectF display() const { return m_display; }

    /// Puts the strip at the right edge of `usable`, as in `Place`.
    void standAtEdge(const QRectF& usable);

    /// Puts the strip above the other windows of its kind.
    void raise() { m_dock.raise(); }

    /// Puts the strip beyond all displays.
    void park();

protected:
    [[nodiscard]] QPointF onDesktop(const QPointF& position) const override;

private:
    [[nodiscard]] QRect parked() const;

    QRectF m_display;
    /// The strip's place when it is needed, in points.
    QRectF m_edge;
    QPoint m_parking;
    X11DockWindow m_dock;
};

} // namespace nookle
