#pragma once

#include "Hand.h"
#include "PrivateSession.h"

#include <QDBusConnection>
#include <QImage>
#include <QRect>
#include <QSize>

#include <memory>

namespace nookle::e2e {

/// GNOME Shell without a screen, with a private system bus. It has left its overview, as after a login when the user
/// has begun to work, and shows neither messages nor animations of its own.
class GnomeShell {
public:
    /// The height of its bar at the top of the first display.
    static constexpr int topBar = 32;

    /// Returns once a user could begin. Null, with a warning that says why. The programs of the session know it then.
    [[nodiscard]] static std::unique_ptr<GnomeShell> tryStart(PrivateSession& session, const QSize& displaySize,
                                                              int displays);
    ~GnomeShell();
    GnomeShell(const GnomeShell&) = delete;
    GnomeShell& operator=(const GnomeShell&) = delete;

    [[nodiscard]] std::unique_ptr<Hand> takeHand() const;

    /// What the user sees of an area; null when the shell gives no picture.
    [[nodiscard]] QImage picture(const QRect& area) const;

    /// Ends it at once.
    void kill() { m_program->kill(); }
    void setStalled(bool isStalled);

private:
    GnomeShell(PrivateSession& session, const QDBusConnection& bus);

    [[nodiscard]] bool startSystemBus();
    void start(const QSize& displaySize, int displays);
    /// Whether it is past the animation with which it starts.
    [[nodiscard]] bool hasStarted() const;
    [[nodiscard]] bool leaveOverview();
    /// Lets the programs of the session know where it listens.
    [[nodiscard]] bool tellSession();

    PrivateSession& m_session;
    QDBusConnection m_bus;
    std::unique_ptr<Program> m_systemBus;
    std::unique_ptr<Program> m_program;
};

} // namespace nookle::e2e
