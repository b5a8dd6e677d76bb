#pragma once

#include "FrameAnimation.h"
#include "PanelWindow.h"
#include "XcbAtoms.h"

#include <QObject>
#include <QRectF>
#include <QRegion>
#include <QSize>
#include <QTimer>

#include <cstdint>
#include <optional>

class QWindow;
struct xcb_connection_t;

namespace nookle {

class Compositing;
class Displays;

/// The shelf's window on X11: a managed window of the dock type, because some window managers hand drags to managed
/// windows only, and because no window manager keeps a dock from sliding in from beyond the edge. Where another display
/// lies beyond that edge, the window is cut off there by its shape.
///
/// While it is off the screen it is parked: shown, but a single pixel beyond all displays. Browsers know only the
/// windows that were there when a drag began, and the panel comes out in the middle of one.
class X11PanelWindow final : public QObject, public PanelWindow {
    Q_OBJECT

public:
    /// Borrows everything. `window` has been created and not yet been shown.
    X11PanelWindow(QWindow& window, double cornerRadius, const Displays& displays, const Compositing& compositing,
                   xcb_connection_t* connection);
    ~X11PanelWindow() override;

    void setFrame(const QRectF& frame) override;
    [[nodiscard]] QRectF frame() const override { return m_frame; }
    void orderFront() override;
    void orderOut() override;
    void animateFrame(const QRectF& frame, double seconds, Easing easing, std::function<void()> completion) override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place(const QRectF& frame);
    void park();
    void setDockProperties();
    void standAboveFullScreenWindow();
    void raise();
    void askForBlur();
    /// Of a window of that size; all in pixels.
    [[nodiscard]] QRegion outline(const QSize& size) const;
    [[nodiscard]] int cornerPixels() const;
    void applyShape(const QRegion& pixels);
    void findDisplay(const QRectF& frame);
    void moveTo(const QRect& pixels);
    /// The left edge of the window, where it was put or where it still is.
    [[nodiscard]] int farthestLeft() const;
    void updateShape();

    QWindow& m_window;
    double m_cornerRadius;
    const Displays& m_displays;
    const Compositing& m_compositing;
    xcb_connection_t* m_connection;
    XcbAtoms m_atoms;
    FrameAnimation m_animation;
    QTimer m_parking;
    QRectF m_frame;
    /// The full frame of the display that the panel belongs to.
    QRectF m_display;
    /// The frame in pixels.
    QRect m_pixels;
    /// The right edge that nothing of the window may show beyond, in pixels; none while no display lies there.
    std::optional<int> m_limit;
    /// What the window's shape shows, in pixels; none before it was set.
    std::optional<QRegion> m_shape;
};

} // namespace nookle
