#pragma once

#include <QRectF>

#include <functional>

namespace nookle {

enum class Easing { in, out };

/// The shelf's window: borderless, above everything, on all workspaces, in no window list, and never taking the focus
/// by itself. Frames are in points of the desktop's coordinates. Main thread only.
class PanelWindow {
public:
    virtual ~PanelWindow() = default;

    /// Places the window at once; ends an animation that is under way, whose completion still runs.
    virtual void setFrame(const QRectF& frame) = 0;

    /// The frame as it is now, also in the middle of an animation.
    [[nodiscard]] virtual QRectF frame() const = 0;

    /// Shows the window above all others without activating anything.
    virtual void orderFront() = 0;

    /// Takes the window off the screen.
    virtual void orderOut() = 0;

    /// Moves the window to `frame` at the display's rate within `seconds`; `completion` (may be empty) runs on the main
    /// thread when it has arrived, or when another animation or `setFrame` takes over.
    virtual void animateFrame(const QRectF& frame, double seconds, Easing easing, std::function<void()> completion) = 0;

    /// The pointer has entered or left the window. Set by the owner.
    std::function<void()> onMouseEntered;
    std::function<void()> onMouseExited;
};

} // namespace nookle
