#pragma once

#include "FileDescriptor.h"
#include "LocalSocket.h"

#include <QByteArray>
#include <QObject>

#include <chrono>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace nookle {

/// How long a `RequestServer` waits.
struct RequestTimes {
    /// For a request, once a program has connected.
    std::chrono::milliseconds patience = std::chrono::seconds(5);
    /// Before it tries again to take a connection, when there was no descriptor for it.
    std::chrono::milliseconds pause = std::chrono::seconds(1);
};

/// Answers requests that programs of the same user make through a socket. A request is one line, and each connection is
/// for one. A request whose program has gone meanwhile is dropped: that program counts it as failed. Main thread only.
class RequestServer final : public QObject {
public:
    /// The answer to a request, which comes without the end of its line; empty when it is no request.
    using Answer = std::function<QByteArray(const QByteArray& request)>;

    /// Takes the next connection at a listening socket; none, with errno, when there is no other or that fails.
    using Accept = std::function<FileDescriptor(const FileDescriptor& listening)>;

    explicit RequestServer(Answer answer, RequestTimes times = {}, Accept accept = &acceptConnection);
    /// Takes the socket away.
    ~RequestServer() override;

    /// Makes the socket at that path, which must stay valid; false, with errno, when that is impossible. Once only.
    [[nodiscard]] bool listen(const QByteArray& path);

private:
    void acceptAll();
    void serve(FileDescriptor socket);

    Answer m_answer;
    RequestTimes m_times;
    Accept m_accept;
    int m_connections = 0;
    QByteArray m_path;
    FileDescriptor m_socket;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace nookle
