#pragma once

#include "DecoderProtocol.h"
#include "FileDescriptor.h"

#include <QString>

#include <functional>
#include <memory>

class QProcess;
class QSocketNotifier;

namespace nookle {

/// A running image decoder and the socket to it. The process ends with this object. Main thread only.
class DecoderProcess final {
public:
    enum class Confinement { sandbox, none };

    /// Starts the decoder at `program`. That it cannot be started shows in its end.
    DecoderProcess(const QString& program, Confinement confinement);
    ~DecoderProcess();
    DecoderProcess(const DecoderProcess&) = delete;
    DecoderProcess& operator=(const DecoderProcess&) = delete;

    /// Sends a request. False when the decoder does not take it.
    [[nodiscard]] bool send(const DecodeRequest& request, const FileDescriptor& file);

    [[nodiscard]] qint64 processId() const;

    /// The decoder has sent something. May destroy this object. Set by the owner.
    std::function<void(QByteArrayView)> onBytes;

    /// The decoder has ended, or never began. May destroy this object. Set by the owner.
    std::function<void()> onEnd;

private:
    void start(const QString& program, Confinement confinement, int socket);
    void read();

    FileDescriptor m_socket;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::unique_ptr<QProcess> m_process;
};

} // namespace nookle
