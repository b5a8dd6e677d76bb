#pragma once

#include "FrameAnimation.h"
#include "PanelWindow.h"
#include "X11DockWindow.h"
#include "X11PanelShadow.h"
#include "X11ReservedSpace.h"
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

/// The shelf's window on X11. It is a managed window of the dock type, for two reasons: some window managers deliver
/// drags only to managed windows, and no window manager prevents a dock from sliding in from beyond the edge. If
/// another display lies beyond that edge, the window's shape is cut off there.
///
/// While the panel is hidden, its window is "parked": it stays mapped, with a size of one pixel beyond all displays.
/// Browsers consider only the windows that existed when a drag began, and the panel slides in during a drag.
class X11PanelWindow final : public QObject, public PanelWindow {
    Q_OBJECT

public:
    /// All arguments must outlive this object. `window` has been created but not shown.
    X11PanelWindow(QWindow& window, double cornerRadius, const Displays& displays, const Compositing& compositing,
                   xcb_connection_t* connection);
    ~X11PanelWindow() override;

    void setFrame(const QRectF& frame) override;
    [[nodiscard]] QRectF frame() const override { return m_frame; }
    void orderFront() override;
    void takeFocus() override;
    void orderOut() override;
    void reserveSpace(const std::optional<QRectF>& frame) override;
    void animateFrame(const QRectF& frame, double seconds, Easing easing, std::function<void()> completion) override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place(const QRectF& frame);
    void giveFocusBack();
    [[nodiscard]] bool hasFocus() const;
    void focusCame();
    void park();
    void standAboveFullScreenWindow();
    void askForBlur();
    /// The outline of a window of that size, in pixels.
    [[nodiscard]] QRegion outline(const QSize& size) const;
    [[nodiscard]] int cornerPixels() const;
    void applyShape(const QRegion& pixels);
    void findDisplay(const QRectF& frame);
    /// The window's left edge in pixels: its target or its present position, whichever is farther right.
    [[nodiscard]] int farthestLeft() const;
    void updateShape();

    QWindow& m_window;
    double m_cornerRadius;
    const Displays& m_displays;
    const Compositing& m_compositing;
    xcb_connection_t* m_connection;
    XcbAtoms m_atoms;
    X11DockWindow m_dock;
    X11PanelShadow m_shadow;
    X11ReservedSpace m_space;
    FrameAnimation m_animation;
    QTimer m_parking;
    /// Runs from the hiding until the window manager has given the focus to whom it should.
    QTimer m_settling;
    QRectF m_frame;
    /// The full frame of the display that the panel belongs to.
    QRectF m_display;
    /// The frame in pixels.
    QRect m_pixels;
    /// The x coordinate in pixels beyond which no part of the window may be visible; none if no display lies there.
    std::optional<int> m_limit;
    /// True from the first sign that the window got the focus, until it is parked.
    bool m_mayHaveFocus = false;
    bool m_isParked = false;
    /// The window's shape in pixels; none before it was set.
    std::optional<QRegion> m_shape;
};

} // namespace nookle
