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

/// A running helper program of this project and the socket to it. The helper's end of the socket is its standard input.
/// The process ends with this object. Everything that a helper sends counts as hostile. Main thread only.
class HelperProcess final {
public:
    enum class Confinement { sandbox, none };

    struct Program {
        QString path;
        /// Arguments for the sandbox in addition to those that `nookle::sandboxArguments` gives every helper.
        QStringList sandboxArguments;
    };

    /// Starts the helper. If the program cannot be started, `onEnd` is called.
    HelperProcess(const Program& program, Confinement confinement);
    ~HelperProcess();
    HelperProcess(const HelperProcess&) = delete;
    HelperProcess& operator=(const HelperProcess&) = delete;

    /// Sends the length of `message` as four bytes, big-endian, then the message. Passes `file`, if it is open, along
    /// with the first bytes. False when the helper cannot receive it at once.
    [[nodiscard]] bool send(const QByteArray& message, const FileDescriptor& file = FileDescriptor());

    [[nodiscard]] qint64 processId() const;

    /// Called with bytes from the helper. May destroy this object. Set by the owner.
    std::function<void(QByteArrayView)> onBytes;

    /// Called when the helper has ended or could not be started. May destroy this object. Set by the owner.
    std::function<void()> onEnd;

private:
    void start(const Program& program, Confinement confinement, int socket);
    void read();

    FileDescriptor m_socket;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::unique_ptr<QProcess> m_process;
};

} // namespace nookle
