#pragma once

#include "PrivateSession.h"

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

namespace nookle::e2e {

/// The program under test, and what it has saved.
class ShelfProgram {
public:
    /// Nothing runs before `launch`.
    ShelfProgram(PrivateSession& session, QString program);

    /// Starts it, and does not wait.
    void launch(const QStringList& arguments = {});

    /// Ends it as a session does.
    [[nodiscard]] bool stop();

    /// Starts it a second time, which shows the shelf of the first, or adds the files of its arguments there; its exit
    /// code.
    [[nodiscard]] int startAgain(const QStringList& arguments = {});

    /// Whether it ends by itself, as it should.
    [[nodiscard]] bool hasEnded();

    [[nodiscard]] bool isRunning() const { return m_process && m_process->isRunning(); }

    /// The items of the saved index; none while there is no index that can be read.
    [[nodiscard]] QList<QJsonObject> savedItems() const;

    /// The names of the saved items that are files.
    [[nodiscard]] QStringList savedFileNames() const;

    [[nodiscard]] qint64 processId() const { return m_process->processId(); }

    [[nodiscard]] QByteArray log() { return m_process ? m_process->log() : QByteArray(); }

private:
    PrivateSession& m_session;
    QString m_program;
    std::unique_ptr<Program> m_process;
};

} // namespace nookle::e2e
