#pragma once

#include "Program.h"
#include "XScreen.h"

#include <QByteArray>
#include <QProcessEnvironment>
#include <QSize>
#include <QString>
#include <QTemporaryDir>

#include <cstdint>
#include <memory>
#include <vector>

namespace nookle::e2e {

/// A desktop of a test's own: an X server, a session bus, perhaps a window manager, and a home folder. Everything ends
/// with it. Its programs see of the machine what the test sees, and the bus starts no other services.
class PrivateDesktop {
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
    PrivateDesktop(const PrivateDesktop&) = delete;
    PrivateDesktop& operator=(const PrivateDesktop&) = delete;

    [[nodiscard]] XScreen& screen() { return *m_screen; }
    /// The name of its X server.
    [[nodiscard]] QByteArray display() const { return m_environment.value(QStringLiteral("DISPLAY")).toLatin1(); }
    [[nodiscard]] const QProcessEnvironment& environment() const { return m_environment; }

    /// Sets a variable for the programs that start from now on.
    void setVariable(const QString& name, const QString& value) { m_environment.insert(name, value); }

    /// Loads a library of a test's own into the programs that start from now on.
    void preload(const QString& library);

    /// The path of something in the home folder.
    [[nodiscard]] QString home(const QString& path) const { return m_home.filePath(path); }

    /// Makes a file of the home folder, with the folders above it.
    void writeFile(const QString& path, const QByteArray& content) const;

    /// Kills the window manager, and starts it again as a session does.
    [[nodiscard]] bool restartWindowManager();
    /// Starts the window manager a second time, which takes the place of the first.
    [[nodiscard]] bool replaceWindowManager();

    /// Unplugs the right one of two displays.
    [[nodiscard]] bool removeDisplay() const;

    /// Ends the session bus.
    void stopBus() { m_bus.reset(); }

    [[nodiscard]] std::unique_ptr<Program> start(const QString& path, const QStringList& arguments = {}) const;

private:
    PrivateDesktop();

    void setUpHome();
    [[nodiscard]] bool startServer(const QSize& size);
    [[nodiscard]] QByteArray busConfiguration() const;
    [[nodiscard]] bool startBus();
    [[nodiscard]] bool startWindowManager(const QString& windowManager);
    /// Whether a window manager runs and has found the windows, other than the one with that mark.
    [[nodiscard]] bool windowManagerIsReady(const std::vector<std::uint32_t>& previousMark) const;
    [[nodiscard]] bool splitDisplay(const QSize& size);

    QTemporaryDir m_home;
    QProcessEnvironment m_environment;
    std::unique_ptr<Program> m_server;
    std::unique_ptr<XScreen> m_screen;
    std::unique_ptr<Program> m_bus;
    QString m_windowManagerPath;
    std::unique_ptr<Program> m_windowManager;
};

} // namespace nookle::e2e
