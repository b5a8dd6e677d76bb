#pragma once

#include "X11DockWindow.h"

#include <QRasterWindow>
#include <QRect>
#include <QRectF>

namespace nookle {

/// An invisible window that lies above all others while a drag of this program begins. GNOME Shell remembers over which
/// window the last drag of an X11 program was, and offers the next one to that window only after the drag has been over
/// another one. A fast drag is out of the panel before the shell knows of it. Main thread only.
class DragCover final : public QRasterWindow {
    Q_OBJECT

public:
    /// A parked cover. `parking` is in pixels.
    DragCover(const QRect& parking, xcb_connection_t* connection, WindowPlacing placing);
    ~DragCover() override;

    /// Covers `area`, in points, of the display with the full frame `display`. The pointer goes through it.
    void cover(const QRectF& area, const QRectF& display);

    /// Puts the cover beyond all displays.
    void park();
    void parkAt(const QRect& parking);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect m_parking;
    X11DockWindow m_dock;
};

} // namespace nookle
