#pragma once

#include "PrivateSession.h"
#include "XScreen.h"

#include <QByteArray>
#include <QSize>
#include <QString>

#include <cstdint>
#include <memory>
#include <vector>

namespace nookle::e2e {

/// A desktop of a test's own: a session with an X server and perhaps a window manager. Everything ends with it.
class PrivateDesktop : public PrivateSession {
public:
    struct Options {
        QSize size{ 1280, 800 };
        /// The window manager's program; empty for none.
        QString windowManager;
        /// Two displays of half the width side by side.
        bool hasTwoDisplays = false;
    };

    /// Returns once everything runs; null, with a warning that says what does not.
    [[nodiscard]] static std::unique_ptr<PrivateDesktop> tryCreate(const Options& options);
    ~PrivateDesktop();

    [[nodiscard]] XScreen& screen() { return *m_screen; }
    /// The name of its X server.
    [[nodiscard]] QByteArray display() const { return environment().value(QStringLiteral("DISPLAY")).toLatin1(); }
    /// Kills the window manager, and starts it again as a session does.
    [[nodiscard]] bool restartWindowManager();
    /// Starts the window manager a second time, which takes the place of the first.
    [[nodiscard]] bool replaceWindowManager();

    /// Unplugs the right one of two displays.
    [[nodiscard]] bool removeDisplay() const;

private:
    PrivateDesktop() = default;

    [[nodiscard]] bool startServer(const QSize& size);
    [[nodiscard]] bool startWindowManager(const QString& windowManager);
    /// Whether a window manager runs and has found the windows, other than the one with that mark.
    [[nodiscard]] bool windowManagerIsReady(const std::vector<std::uint32_t>& previousMark) const;
    [[nodiscard]] bool splitDisplay(const QSize& size);

    std::unique_ptr<Program> m_server;
    std::unique_ptr<XScreen> m_screen;
    QString m_windowManagerPath;
    std::unique_ptr<Program> m_windowManager;
};

} // namespace nookle::e2e
