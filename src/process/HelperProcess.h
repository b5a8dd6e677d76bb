#pragma once

#include "FileDescriptor.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class QProcess;
class QSocketNotifier;

namespace nookle {

/// A running helper program of ours and the socket to it, which is the helper's standard input. The process ends with
/// this object. What a helper sends counts as hostile. Main thread only.
class HelperProcess final {
public:
    enum class Confinement { sandbox, none };

    struct Program {
        QString path;
        /// What its sandbox gets beyond `sandboxArguments`, which hold what every helper needs.
        QStringList sandboxArguments;
    };

    /// Starts the helper. That it cannot be started shows in its end.
    HelperProcess(const Program& program, Confinement confinement);
    ~HelperProcess();
    HelperProcess(const HelperProcess&) = delete;
    HelperProcess& operator=(const HelperProcess&) = delete;

    /// Sends the length of `message` as four bytes, the highest first, then the message; with its first bytes comes
    /// `file`, if it is open. False when the helper does not take it.
    [[nodiscard]] bool send(const QByteArray& message, const FileDescriptor& file = FileDescriptor());

    [[nodiscard]] qint64 processId() const;

    /// The helper has sent something. May destroy this object. Set by the owner.
    std::function<void(QByteArrayView)> onBytes;

    /// The helper has ended, or never began. May destroy this object. Set by the owner.
    std::function<void()> onEnd;

private:
    void start(const Program& program, Confinement confinement, int socket);
    void read();

    FileDescriptor m_socket;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::unique_ptr<QProcess> m_process;
};

} // namespace nookle
