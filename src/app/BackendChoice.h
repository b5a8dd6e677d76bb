#pragma once

#include "Failure.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QString>
#include <QStringList>

#include <functional>
#include <variant>

namespace nookle {

/// A way to the display.
enum class DesktopKind {
    /// An X11 session.
    x11,
    /// A Wayland session, as an X11 program.
    xwayland,
    /// A Wayland session whose compositor lets programs place windows at the edges of the screen.
    wayland,
    /// A Wayland session without either: no panel can be shown.
    none,
};

/// What is known about the session. Each look is made at most once, and only where the answer matters: a look for the
/// X server may start one.
struct SessionFacts {
    /// The user's own choice, from the environment; empty when there is none.
    QString wanted;
    bool isWaylandSession = false;
    /// Whether the session is GNOME's, or one that is built on it.
    bool isGnome = false;
    /// The name of the compositor; empty when the session names none.
    QString waylandDisplay;
    /// The name of the X display; empty when the session names none.
    QString xDisplay;
    /// Whether the program was built with the Wayland backend.
    bool hasWaylandBackend = false;
    std::function<bool()> hasCompositor;
    std::function<bool()> hasLayerShell;
    std::function<bool()> hasXServer;
};

struct BackendChoice {
    DesktopKind kind = DesktopKind::none;
    /// What the log says about the choice.
    QString description;

    /// The toolkit's name of the display system that this way needs.
    [[nodiscard]] QByteArray toolkitPlatform() const;
};

/// Chooses the way to the display. Fails when there is no display, or the user's choice is impossible.
[[nodiscard]] std::variant<BackendChoice, Failure> chooseBackend(const SessionFacts& facts);

/// Whether a compositor offers each drag of a Wayland program to X11 programs, too, at its start. `desktops` is what
/// the session calls itself, `interfaces` what the compositor offers.
[[nodiscard]] bool tellsOfDrags(const QStringList& desktops, const QByteArrayList& interfaces);

} // namespace nookle
