#pragma once

#include "Program.h"

#include <QByteArray>
#include <QProcessEnvironment>
#include <QString>
#include <QTemporaryDir>

#include <memory>

namespace nookle::e2e {

/// A home folder and a session bus of a test's own, which end with it. Its programs see of the machine what the test
/// sees, and the bus starts no other services.
class PrivateSession {
public:
    PrivateSession(const PrivateSession&) = delete;
    PrivateSession& operator=(const PrivateSession&) = delete;

    [[nodiscard]] const QProcessEnvironment& environment() const { return m_environment; }

    /// Sets a variable for the programs that start from now on.
    void setVariable(const QString& name, const QString& value) { m_environment.insert(name, value); }

    /// Loads a library of a test's own into the programs that start from now on.
    void preload(const QString& library);

    /// The path of something in the home folder.
    [[nodiscard]] QString home(const QString& path) const { return m_home.filePath(path); }

    /// Makes a file of the home folder, with the folders above it.
    void writeFile(const QString& path, const QByteArray& content) const;

    /// Ends the session bus.
    void stopBus() { m_bus.reset(); }

    [[nodiscard]] std::unique_ptr<Program> start(const QString& path, const QStringList& arguments = {}) const;

protected:
    /// Makes the home folder; the bus does not run yet.
    PrivateSession();
    ~PrivateSession();

    [[nodiscard]] bool hasHome() const { return m_home.isValid(); }
    [[nodiscard]] bool startBus();

private:
    void setUpHome();
    [[nodiscard]] QByteArray busConfiguration() const;

    QTemporaryDir m_home;
    QProcessEnvironment m_environment;
    std::unique_ptr<Program> m_bus;
};

} // namespace nookle::e2e
