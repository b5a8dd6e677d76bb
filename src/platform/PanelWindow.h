#pragma once

#include <QRectF>

#include <functional>
#include <optional>

namespace nookle {

enum class Easing { in, out };

/// The shelf's window: borderless, above all other windows, on all workspaces, and in no window list. It takes
/// the keyboard focus only when asked to, or after a click. Frames are in points of the desktop's coordinates. Main
/// thread only.
class PanelWindow {
public:
    virtual ~PanelWindow() = default;

    /// Tells, while the panel is hidden, where it will probably rest when it shows next.
    virtual void expectFrame(const QRectF& /*frame*/) {}

    /// Moves the window at once. Ends a running animation, whose completion still runs.
    virtual void setFrame(const QRectF& frame) = 0;

    /// The present frame, also during an animation.
    [[nodiscard]] virtual QRectF frame() const = 0;

    /// Shows the window above all others without activating anything.
    virtual void orderFront() = 0;

    /// Asks the desktop for the keyboard focus. Call it while the window is shown.
    virtual void takeFocus() = 0;

    /// Takes the window off the screen.
    virtual void orderOut() = 0;

    /// Moves the window to `frame` within `seconds`, one step for each frame of the display. `completion` (may be
    /// empty) runs on the main thread when the animation ends, or when another animation or `setFrame` ends it early.
    virtual void animateFrame(const QRectF& frame, double seconds, Easing easing, std::function<void()> completion) = 0;

    /// Has the desktop keep other windows out of the space between the left edge of `frame` and the edge of its
    /// display; with none, gives that space back. Call it once the window has come to `frame`. Does nothing where no
    /// space can be reserved.
    virtual void reserveSpace(const std::optional<QRectF>& /*frame*/) {}

    /// Called when the content must be drawn `offset` points to the right of its place in the window: on some display
    /// servers it slides within a window that does not move. Nothing is drawn of a content that is farther to the right
    /// than the window is wide. Set by the owner.
    std::function<void(double offset)> onContentMoved;

    /// Called when the pointer has entered or left the window. Set by the owner.
    std::function<void()> onMouseEntered;
    std::function<void()> onMouseExited;
};

} // namespace nookle
