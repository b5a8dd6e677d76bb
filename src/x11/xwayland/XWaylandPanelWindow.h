#pragma once

#include "AbandonedMenu.h"
#include "FrameAnimation.h"
#include "LostPointer.h"
#include "PanelWindow.h"
#include "X11DockWindow.h"
#include "X11ReservedSpace.h"
#include "X11StillShadow.h"

#include <QObject>
#include <QRect>
#include <QRectF>
#include <QTimer>

#include <functional>
#include <optional>

class QDropEvent;
class QWindow;

namespace nookle {

class Displays;
class ForeignDrags;
class MainQueue;
class SeenPointer;

/// The shelf's window under XWayland. It does not move while it is shown: its content slides within it, because a
/// compositor forgets a drag over a window that moves below the pointer. During a drag the edge of the display belongs
/// to the strip there. While the panel is hidden, its window is parked beyond all displays. Main thread only.
class XWaylandPanelWindow final : public QObject, public PanelWindow {
    Q_OBJECT

public:
    struct Services {
        const Displays& displays;
        SeenPointer& pointer;
        ForeignDrags& drags;
        MainQueue& queue;
    };

    /// All arguments must outlive this object. `window` has been created but not shown. `cornerRadius` is in points.
    XWaylandPanelWindow(QWindow& window, double cornerRadius, const Services& services, xcb_connection_t* connection,
                        WindowPlacing placing);
    ~XWaylandPanelWindow() override;

    void expectFrame(const QRectF& frame) override;
    void setFrame(const QRectF& frame) override;
    [[nodiscard]] QRectF frame() const override { return m_frame; }
    void orderFront() override;
    void takeFocus() override;
    void orderOut() override;
    void reserveSpace(const std::optional<QRectF>& frame) override;
    void animateFrame(const QRectF& frame, double seconds, Easing easing, std::function<void()> completion) override;

    /// Called with the full frame of the display at whose edge the panel has reserved space, or with none when it has
    /// given that space back. Set by the owner.
    std::function<void(const std::optional<QRectF>& display)> onSpaceReserved;

    /// Called when the panel's shadow has come above all windows, and before the panel is raised. Set by the owner.
    std::function<void()> onShadowRaised;

    /// Call this when the strips have come to the edges of the displays (true) or are gone.
    void setEdgeTaken(bool isTaken);

    /// Handles an event of a drag that is at `position` of the desktop, over another window of this program. A drag
    /// that reaches the edge is taken even if its pointer does not move on to the panel.
    void handleDragElsewhere(QDropEvent& event, const QPointF& position);

    /// Call this when such a drag has left the other window.
    void dragHasLeftElsewhere();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place(const QRectF& frame);
    void findDisplay(const QRectF& frame);
    void moveContent();
    void showShadow();
    /// Makes the panel and its shadow tool windows (true) or docks.
    void setToolWindow(bool isToolWindow);
    /// A length in points in pixels of the panel's display.
    [[nodiscard]] int pixels(double points) const;
    void setGeometry(const QRect& points);
    void updateInputShape();
    void remindOfSpace();
    void giveFocusBack();
    void park();
    void handleDrag(const QDropEvent& event);
    void pointerCame(const QPointF& position);
    void pointerMoved(const QPointF& position);
    void pointerLeft();
    [[nodiscard]] QPointF onDesktop(const QPointF& position) const;

    QWindow& m_window;
    double m_cornerRadius;
    Services m_services;
    xcb_connection_t* m_connection;
    X11DockWindow m_dock;
    X11StillShadow m_shadow;
    /// Whether the shadow lets drags through under this compositor; known from the first showing on.
    std::optional<bool> m_keepsInputShapes;
    X11ReservedSpace m_space;
    QTimer m_reminding;
    int m_remindersLeft = 0;
    LostPointer m_lostPointer;
    AbandonedMenu m_menu;
    FrameAnimation m_animation;
    QTimer m_parking;
    /// How often the parked window has given the focus back since the panel was hidden.
    int m_focusReturns = 0;
    /// Runs from a drop until the compositor says where the pointer is.
    QTimer m_afterDrop;
    QRectF m_frame;
    /// Where the window is: the frame's place once it has slid in.
    QRectF m_resting;
    /// The full frame of the display that the panel belongs to.
    QRectF m_display;
    /// The right edge of the display's usable area, at which the panel rests.
    double m_right = 0;
    bool m_isShown = false;
    bool m_isEdgeTaken = false;
    bool m_hasReservedSpace = false;
    /// Whether a drag over another window has been handed on to the panel, and has not left.
    bool m_hasDragElsewhere = false;
    /// True from the showing of the panel, and from the closing of an abandoned menu, until the pointer moves over the
    /// panel.
    bool m_isPointerElsewhere = false;
};

} // namespace nookle
