#pragma once

#include <functional>
#include <memory>

class QWindow;
struct xcb_connection_t;

namespace nookle {

class Compositing;
class Displays;
class InputMonitor;
class PanelWindow;
class Pointer;

/// What an X11 session and a Wayland session that runs X11 programs do not have in common: what is known of the mouse,
/// and how the panel is shown. Main thread only.
class X11Manner {
public:
    virtual ~X11Manner() = default;

    [[nodiscard]] virtual const Pointer& pointer() const = 0;
    [[nodiscard]] virtual InputMonitor& inputMonitor() = 0;
    [[nodiscard]] virtual Compositing& compositing() = 0;

    /// As `DesktopBackend::canReserveSpace`.
    [[nodiscard]] virtual bool canReserveSpace() const = 0;

    /// As `DesktopBackend::makePanelWindow`.
    [[nodiscard]] virtual std::unique_ptr<PanelWindow> makePanelWindow(QWindow& window, double cornerRadius) = 0;

    /// Call this when a display was added, removed or changed.
    virtual void displaysChanged() = 0;

    /// Call this before a drag of this program begins.
    virtual void dragBegins() = 0;

    /// As `DesktopBackend::onServerGone`.
    std::function<void()> onServerGone;
};

/// What a manner is made of. All of it outlives the manner.
struct X11Server {
    /// The toolkit's connection.
    xcb_connection_t* connection;
    /// A connection for frequent queries.
    xcb_connection_t* queries;
    const Displays& displays;
};

using X11MannerMaker = std::function<std::unique_ptr<X11Manner>(const X11Server&)>;

} // namespace nookle
