#pragma once

#include "XcbAtoms.h"

#include <QRect>

#include <cstdint>
#include <vector>

struct xcb_connection_t;

namespace nookle {

/// Who places a window.
enum class WindowPlacing {
    windowManager,
    /// This program alone. Some compositors then give the window no drags, and no keys.
    program,
};

/// What the panel's windows have in common on X11. A managed window of the dock type is on all workspaces, above the
/// others, in no window list, and takes no focus when it is shown. Some window managers deliver drags only to managed
/// windows. Main thread only.
class X11DockWindow final {
public:
    /// `connection` must outlive this object. `window` has not been shown.
    X11DockWindow(xcb_connection_t* connection, std::uint32_t window,
                  WindowPlacing placing = WindowPlacing::windowManager);

    /// Makes the window a dock. Window managers remove some of the properties when a window is hidden, so call this
    /// before each showing.
    void setProperties();

    /// Makes the window an ordinary tool window (true) instead of a dock, without changing its place. GNOME Shell gives
    /// drags of X11 programs to what lies below a dock, and some of its versions put docks below full-screen windows.
    /// It may move a tool window that is not wholly inside a display's work area.
    void setToolWindow(bool isToolWindow);

    /// Places the window on the root window, in pixels. Without the toolkit, which may convert points with the origin
    /// of another display.
    void moveTo(const QRect& pixels);

    /// Asks the window manager for the keyboard focus, as somebody who acts for the user. The toolkit's own request
    /// names the time of the last event that this program got. Where most programs are no X11 programs, that is long
    /// ago, and GNOME Shell refuses a request older than what the user did last.
    void takeFocus();

    /// Stacks the window above its siblings.
    void raise();

    /// Lets the pointer through the window, except in this part of it, which is in pixels of the window.
    void setInputShape(const QRect& pixels);

private:
    void setType(QByteArrayView type);
    void setNumbers(QByteArrayView property, std::uint32_t type, const std::vector<std::uint32_t>& numbers);

    xcb_connection_t* m_connection;
    std::uint32_t m_window;
    XcbAtoms m_atoms;
    bool m_isToolWindow = false;
};

} // namespace nookle
