#pragma once

#include "FileDescriptor.h"

#include <QByteArray>
#include <QObject>

#include <chrono>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace nookle {

/// Answers requests that programs of the same user make through a socket. A request is one line, and each connection is
/// for one. Main thread only.
class RequestServer final : public QObject {
public:
    /// The answer to a request, which comes without the end of its line; empty when it is no request.
    using Answer = std::function<QByteArray(const QByteArray& request)>;

    /// Who connects has `patience` for the request.
    explicit RequestServer(Answer answer, std::chrono::milliseconds patience = std::chrono::seconds(5));
    /// Takes the socket away.
    ~RequestServer() override;

    /// Makes the socket at that path, which must stay valid; false, with errno, when that is impossible. Once only.
    [[nodiscard]] bool listen(const QByteArray& path);

private:
    void acceptAll();

    Answer m_answer;
    std::chrono::milliseconds m_patience;
    QByteArray m_path;
    FileDescriptor m_socket;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace nookle
