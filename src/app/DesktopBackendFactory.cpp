#include "DesktopBackendFactory.h"

#include "LocalSocket.h"
#include "NullBackend.h"
#include "SessionShortcuts.h"
#include "WindowScale.h"
#include "X11Backend.h"
#include "XWaylandManner.h"

#ifdef NOOKLE_HAS_WAYLAND
#include "WaylandBackend.h"
#include "X11ForeignDrags.h"
#endif

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <chrono>

namespace nookle {

namespace {

/// Whether a compositor takes connections under the name that the session gives.
[[nodiscard]] bool isCompositorListening()
{
    const QDir runtime(qEnvironmentVariable("XDG_RUNTIME_DIR"));
    const QString path = runtime.filePath(qEnvironmentVariable("WAYLAND_DISPLAY"));
    return connectToSocket(QFile::encodeName(path), std::chrono::seconds(1)).isOpen();
}

[[nodiscard]] QStringList presentDesktops()
{
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
}

[[nodiscard]] SessionFacts lookAtSession()
{
    SessionFacts facts;
    facts.wanted = qEnvironmentVariable("NOOKLE_BACKEND");
    facts.waylandDisplay = qEnvironmentVariable("WAYLAND_DISPLAY");
    facts.isWaylandSession = !facts.waylandDisplay.isEmpty();
    facts.isGnome = presentDesktops().contains(QStringLiteral("GNOME"));
    facts.hasCompositor = &isCompositorListening;
    facts.xDisplay = qEnvironmentVariable("DISPLAY");
    facts.hasXServer = &X11Backend::isServerRunning;
#ifdef NOOKLE_HAS_WAYLAND
    facts.hasWaylandBackend = true;
    facts.hasLayerShell = &WaylandBackend::isLayerShellOffered;
#endif
    return facts;
}

/// Sway gives a dock of an X11 program a tile of its own, also while the dock is parked. It does not always name itself
/// as the desktop, and the variable of an earlier session may be left, whose socket is gone.
[[nodiscard]] WindowPlacing placingUnderXWayland()
{
    const QStringList desktops = presentDesktops();
    const bool isOther = desktops.contains(QStringLiteral("GNOME")) || desktops.contains(QStringLiteral("KDE"));
    const bool isSway =
        desktops.contains(QStringLiteral("sway")) || (!isOther && QFileInfo::exists(qEnvironmentVariable("SWAYSOCK")));
    return isSway ? WindowPlacing::program : WindowPlacing::windowManager;
}

#ifdef NOOKLE_HAS_WAYLAND
[[nodiscard]] std::unique_ptr<DesktopBackend> makeWaylandBackend()
{
    const bool hasNews = tellsOfDrags(presentDesktops(), WaylandBackend::offeredInterfaces());
    return std::make_unique<WaylandBackend>(std::make_unique<SessionShortcuts>(),
                                            hasNews ? std::make_unique<X11ForeignDrags>() : nullptr);
}
#endif

} // namespace

std::variant<BackendChoice, Failure> selectDesktopBackend()
{
    return chooseBackend(lookAtSession());
}

ToolkitScale desktopScale(DesktopKind kind)
{
    if (kind != DesktopKind::x11 && kind != DesktopKind::xwayland)
        return {};
    const ToolkitSettings::Values settings = X11Backend::publishedSettings();
    // In a Wayland session the compositor enlarges the windows of X11 programs.
    return { kind == DesktopKind::x11 ? windowScale(settings) : 1, resolutionInstead(settings) };
}

std::unique_ptr<DesktopBackend> makeDesktopBackend(DesktopKind kind)
{
    switch (kind) {
    case DesktopKind::x11:
        return std::make_unique<X11Backend>();
    case DesktopKind::xwayland:
        // A key that the X server gives would work over X11 windows only.
        return std::make_unique<X11Backend>(std::make_unique<SessionShortcuts>(), [](const X11Server& server) {
            return makeXWaylandManner(server, placingUnderXWayland());
        });
    case DesktopKind::wayland:
#ifdef NOOKLE_HAS_WAYLAND
        return makeWaylandBackend();
#endif
    case DesktopKind::none:
        break;
    }
    return std::make_unique<NullBackend>();
}

} // namespace nookle
