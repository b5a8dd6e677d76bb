#pragma once

#include "GnomeShell.h"
#include "Hand.h"
#include "PrivateSession.h"
#include "XScreen.h"

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <memory>

namespace nookle::e2e {

/// A desktop of a test's own with a Wayland compositor that has no screen. Everything ends with it.
class WaylandDesktop : public PrivateSession {
public:
    enum class Compositor {
        sway,
        labwc,
        /// With a bridge to X11 programs, which tells when a drag begins, as long as one of them runs.
        labwcWithX11,
        kwin,
        /// With a bridge to X11 programs, which tells when a drag begins.
        kwinWithX11,
        /// In a window of an X server, where it gives pictures. With one display.
        kwinInWindow,
        kwinInWindowWithX11,
        gnome,
    };

    struct Options {
        Compositor compositor = Compositor::sway;
        /// Displays side by side, each of the size `displaySize`.
        int displays = 1;
        /// Whether the bridge to X11 programs runs, or starts with the first of them.
        bool isBridgeRunning = true;
    };

    static constexpr QSize displaySize{ 1280, 720 };

    /// Returns once everything runs; null, with a warning that says what does not.
    [[nodiscard]] static std::unique_ptr<WaylandDesktop> tryCreate(const Options& options);
    ~WaylandDesktop();

    [[nodiscard]] Hand& hand() { return *m_hand; }

    /// The height of the bar at the top of the displays.
    [[nodiscard]] int topBar() const { return m_gnome ? GnomeShell::topBar : 0; }

    /// Whether the source of a drag is told that the shelf would take it. GNOME tells Wayland programs nothing of X11
    /// programs.
    [[nodiscard]] bool tellsSources() const { return !m_gnome; }

    /// Whether the compositor gives pictures.
    [[nodiscard]] bool hasPictures() const { return m_hasPictures; }
    /// What the user sees of an area.
    [[nodiscard]] QImage picture(const QRect& area) const;

    /// Takes the right one of two displays away. Only under sway.
    [[nodiscard]] bool unplugRightDisplay();

    /// Starts or ends an X11 program that shows nothing. Only where there is a bridge, and under labwc one runs from
    /// the start.
    void startX11Program();
    void endX11Program() { m_x11Program.reset(); }
    /// Whether the bridge's X server runs.
    [[nodiscard]] bool isX11ServerRunning() const;

    /// Ends the compositor at once.
    void killCompositor();

    /// Lets GNOME Shell do nothing (true), as on a machine that is very busy, or go on.
    void setStalled(bool isStalled) { m_gnome->setStalled(isStalled); }

private:
    WaylandDesktop() = default;

    [[nodiscard]] bool startCompositor(const Options& options);
    [[nodiscard]] std::unique_ptr<Program> startSway(int displays);
    [[nodiscard]] std::unique_ptr<Program> startLabwc(const Options& options);
    [[nodiscard]] std::unique_ptr<Program> startKWin(const Options& options);
    [[nodiscard]] static bool hasBridge(Compositor compositor);
    /// Starts an X server of the size of a display; where it is, or nothing when it does not start.
    [[nodiscard]] QString startScreen();
    [[nodiscard]] bool startGnome(int displays);
    /// Writes a program that the compositor has to start, which tells where the X server is; its path.
    [[nodiscard]] QString writeBridgeTeller() const;
    /// Lets programs know the compositor's X server.
    [[nodiscard]] bool findBridge();
    [[nodiscard]] bool startBridge();
    void useWlrootsWithoutScreen(int displays);

    bool m_hasPictures = true;
    /// What the compositor's window is on.
    std::unique_ptr<Program> m_server;
    std::unique_ptr<XScreen> m_screen;
    std::unique_ptr<Program> m_compositor;
    std::unique_ptr<XScreen> m_x11Program;
    std::unique_ptr<GnomeShell> m_gnome;
    std::unique_ptr<Hand> m_hand;
};

} // namespace nookle::e2e
