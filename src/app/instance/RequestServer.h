#pragma once

#include "FileDescriptor.h"

#include <QByteArray>
#include <QObject>

#include <functional>

namespace nookle {

/// Answers requests that programs of the same user make through a socket. A request is one line, and each connection is
/// for one. Main thread only.
class RequestServer final : public QObject {
public:
    /// The answer to a request, which comes without the end of its line; empty when it is no request.
    using Answer = std::function<QByteArray(const QByteArray& request)>;

    explicit RequestServer(Answer answer);
    /// Takes the socket away.
    ~RequestServer() override;

    /// Makes the socket at that path, which must stay valid; false, with errno, when that is impossible. Once only.
    [[nodiscard]] bool listen(const QByteArray& path);

private:
    void acceptAll();

    Answer m_answer;
    QByteArray m_path;
    FileDescriptor m_socket;
};

} // namespace nookle
