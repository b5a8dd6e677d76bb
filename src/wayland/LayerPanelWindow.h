#pragma once

#include "FrameAnimation.h"
#include "HeldMouse.h"
#include "PanelWindow.h"
#include "PointerQuestion.h"
#include "PopupPlacement.h"

#include <QObject>
#include <QTimer>

#include <memory>

class QDropEvent;
class QWindow;

namespace nookle {

class SeenPointer;
class ShadowSurface;

/// The shelf's window as a layer surface at the right edge of a display. The compositor keeps it clear of the desktop's
/// own panels. The window does not move: its content slides within it, because a surface that reaches beyond its
/// display would be seen on the next one. While a drag is under way that came by a strip, the edge of the display
/// belongs to that strip. Its shadow is drawn around it while it is shown. The window takes the keyboard after a click,
/// until the pointer has left it and its menu. Main thread only.
class LayerPanelWindow final : public QObject, public PanelWindow {
    Q_OBJECT

public:
    /// All arguments must outlive this object. `window` has been created but not shown. Its content has left corners of
    /// the radius `cornerRadius`, in points.
    LayerPanelWindow(QWindow& window, double cornerRadius, SeenPointer& pointer);
    ~LayerPanelWindow() override;

    void setFrame(const QRectF& frame) override;
    [[nodiscard]] QRectF frame() const override { return m_frame; }
    void orderFront() override;
    void takeFocus() override;
    void orderOut() override;
    [[nodiscard]] bool isShown() const;
    void reserveSpace(const std::optional<QRectF>& frame) override;
    void animateFrame(const QRectF& frame, double seconds, Easing easing, std::function<void()> completion) override;

    /// Handles an event of a drag that is at `position` of the desktop, over another window of this program. A drag
    /// that reaches the edge is taken even if its pointer does not move on to the panel.
    void handleDragElsewhere(QDropEvent& event, const QPointF& position);

    /// Call this when such a drag has left the other window.
    void dragHasLeftElsewhere();

    /// Call this when no such drag is under way any more, or the strips are gone.
    void takeEdge();

    /// Whether the drag that is under way is known to be an X11 program's. Set by the owner.
    std::function<bool()> isDragOfX11Program;

    /// Called when the pointer has come over the window, which no compositor lets it do while a drag is under way. Set
    /// by the owner.
    std::function<void()> onPointerCame;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Aside {
        no,
        /// The window takes nothing, so that the drag leaves it.
        untilTheDragLeaves,
        /// The drag has left, and counts as still over the window.
        untilTheDragIsBack,
    };

    void place(const QRectF& frame);
    void findDisplay(const QRectF& frame);
    [[nodiscard]] double contentOffset() const;
    void showShadow();
    /// Has the compositor send the keys here.
    void takeKeyboard();
    /// Has the compositor send the keys to the window that had them before.
    void giveKeyboardBack();
    /// Gives the keys back unless they were asked for without a click.
    void pointerIsDone();
    /// Leaves the edge of the display to the strip (true), or takes it (false).
    void setEdgeTaken(bool isTaken);
    /// While the panel slides out, the window takes nothing.
    void setLeaving(bool isLeaving);
    /// Whether a drag has to leave and come back before it can be taken.
    [[nodiscard]] bool mustComeAgain(const QDropEvent& event) const;
    /// Lets a drag that has come as one with which nothing may be done leave and come once more.
    void stepAside();
    void dragIsOver(const QDropEvent& event);
    void dragHasLeft();
    void dragWasDropped(const QDropEvent& event);
    void asideIsOver();
    void setAside(Aside aside);
    /// Tells the compositor which part of the window takes the pointer and drags.
    void applyInputArea();
    void tellCompositor();
    /// No compositor tells where a window is, so the toolkit's own coordinates begin at the window.
    [[nodiscard]] QPointF onDesktop(const QPointF& position) const { return m_resting.topLeft() + position; }

    QWindow& m_window;
    double m_cornerRadius;
    SeenPointer& m_pointer;
    PopupPlacement m_popups;
    HeldMouse m_heldMouse;
    FrameAnimation m_animation;
    QRectF m_frame;
    /// Open from the end of a drag until the compositor says where the pointer is.
    PointerQuestion m_pointerQuestion;
    bool m_isPointerInside = false;
    bool m_isEdgeTaken = false;
    bool m_isLeaving = false;
    Aside m_aside = Aside::no;
    /// Ends the window's being aside, should the drag not move.
    QTimer m_asideEnd;
    /// True while an event of a drag over another window is handled.
    bool m_isDragElsewhere = false;
    /// Whether the last answer to a drag over another window was that it is taken.
    bool m_isTakenElsewhere = false;
    /// How often it has been aside for the present drag.
    int m_timesAside = 0;
    /// True from `takeFocus` until the focus is lost or the pointer leaves: the keys do not wait for the pointer then.
    bool m_isForKeys = false;
    /// Where the window is: the frame's place once it has slid in.
    QRectF m_resting;
    /// The full frame of the display that the panel belongs to.
    QRectF m_display;
    /// Null while the window is hidden.
    std::unique_ptr<ShadowSurface> m_shadow;
};

} // namespace nookle
