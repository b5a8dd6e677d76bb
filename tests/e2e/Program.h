#pragma once

#include <QByteArray>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace nookle::e2e {

/// A program that ends with this object, and also when the test itself dies.
class Program {
public:
    /// Starts it; its standard error goes to the log.
    Program(const QString& path, const QStringList& arguments, const QProcessEnvironment& environment);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// The next line of its standard output, without its end; empty when none comes.
    [[nodiscard]] QByteArray readLine();

    /// Asks it to end, as a session does; false when it does not.
    bool terminate();

    /// Ends it at once, whatever it is doing.
    void kill();

    /// Its exit code once it has ended by itself; -1 when it does not, or crashed.
    [[nodiscard]] int waitForExit();

    [[nodiscard]] qint64 processId() const { return m_process.processId(); }

    [[nodiscard]] bool isRunning() const { return m_process.state() == QProcess::Running; }

    /// What it has written to standard error so far.
    [[nodiscard]] QByteArray log();

    /// What it has written to standard output so far, without what `readLine` has taken.
    [[nodiscard]] QByteArray output();

private:
    QProcess m_process;
    QByteArray m_log;
    QByteArray m_output;
};

} // namespace nookle::e2e
