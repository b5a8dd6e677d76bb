#include "BackendChoice.h"

namespace nookle {

namespace {

[[nodiscard]] QString reasonAgainstWayland(const SessionFacts& facts)
{
    return facts.hasWaylandBackend ? QStringLiteral("the compositor offers no layer shell")
                                   : QStringLiteral("this build has no Wayland backend");
}

/// Only GNOME's compositor hands whole drags to the windows of X11 programs.
[[nodiscard]] QString reasonForXWayland(const SessionFacts& facts)
{
    const QString reason = reasonAgainstWayland(facts);
    if (facts.isGnome)
        return reason;
    const QString cure =
        facts.hasWaylandBackend ? QString() : QStringLiteral(", as those for Debian 13 and later have");
    return reason + cure + QStringLiteral("; drags may not reach the shelf or leave it");
}

[[nodiscard]] bool canUseWayland(const SessionFacts& facts)
{
    return facts.isWaylandSession && facts.hasWaylandBackend && facts.hasLayerShell();
}

[[nodiscard]] BackendChoice throughXWayland(const QString& reason)
{
    return { DesktopKind::xwayland, QStringLiteral("the display: X11 through XWayland (%1)").arg(reason) };
}

[[nodiscard]] std::variant<BackendChoice, Failure> chooseX11(const SessionFacts& facts, const QString& reason)
{
    if (!facts.hasXServer())
        return Failure{ QStringLiteral("no X11 display can be opened (DISPLAY is \"%1\")").arg(facts.xDisplay) };
    if (!facts.isWaylandSession)
        return BackendChoice{ DesktopKind::x11, QStringLiteral("the display: X11") };
    return throughXWayland(reason);
}

[[nodiscard]] BackendChoice nativeWayland()
{
    return { DesktopKind::wayland, QStringLiteral("the display: Wayland") };
}

[[nodiscard]] std::variant<BackendChoice, Failure> chooseNoPanel(const SessionFacts& facts)
{
    if (!facts.hasCompositor())
        return Failure{ QStringLiteral("no display can be opened (WAYLAND_DISPLAY is \"%1\", DISPLAY is \"%2\")")
                            .arg(facts.waylandDisplay, facts.xDisplay) };
    return BackendChoice{
        DesktopKind::none,
        QStringLiteral("the display: Wayland, on which no panel can be shown (%1)").arg(reasonAgainstWayland(facts))
    };
}

[[nodiscard]] std::variant<BackendChoice, Failure> chooseFor(const SessionFacts& facts)
{
    if (!facts.isWaylandSession)
        return chooseX11(facts, {});
    if (canUseWayland(facts))
        return nativeWayland();
    if (facts.hasXServer())
        return throughXWayland(reasonForXWayland(facts));
    return chooseNoPanel(facts);
}

} // namespace

QByteArray BackendChoice::toolkitPlatform() const
{
    return kind == DesktopKind::x11 || kind == DesktopKind::xwayland ? QByteArrayLiteral("xcb")
                                                                     : QByteArrayLiteral("wayland");
}

std::variant<BackendChoice, Failure> chooseBackend(const SessionFacts& facts)
{
    if (facts.wanted.isEmpty())
        return chooseFor(facts);
    if (facts.wanted == QStringLiteral("x11"))
        return chooseX11(facts, QStringLiteral("as NOOKLE_BACKEND says"));
    const bool wantsWayland = facts.wanted == QStringLiteral("wayland");
    if (!wantsWayland && facts.wanted != QStringLiteral("xwayland"))
        return Failure{
            QStringLiteral("NOOKLE_BACKEND is \"%1\"; it can be x11, wayland or xwayland").arg(facts.wanted)
        };
    if (!facts.isWaylandSession)
        return Failure{ QStringLiteral("NOOKLE_BACKEND is \"%1\", but this is no Wayland session").arg(facts.wanted) };
    if (wantsWayland && canUseWayland(facts))
        return nativeWayland();
    if (wantsWayland)
        return chooseNoPanel(facts);
    return chooseX11(facts, QStringLiteral("as NOOKLE_BACKEND says"));
}

// A session with KWin need not call itself Plasma's; no other compositor has its edges of the screen.
bool tellsOfDrags(const QStringList& desktops, const QByteArrayList& interfaces)
{
    return interfaces.contains("kde_screen_edge_manager_v1") || desktops.contains(QStringLiteral("KDE"))
        || desktops.contains(QStringLiteral("labwc"));
}

} // namespace nookle
