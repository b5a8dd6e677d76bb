#include "RequestServer.h"

#include "LocalSocket.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <utility>

#include <sys/socket.h>
#include <unistd.h>

namespace nookle {

namespace {

/// In bytes. More than a command line can hold.
inline constexpr qsizetype longestRequest = 8 << 20;

/// Reads one request and answers it, and goes with its end.
class Connection final : public QObject {
public:
    Connection(FileDescriptor socket, const RequestServer::Answer& answer, QObject* server)
        : QObject(server)
        , m_socket(std::move(socket))
        , m_notifier(m_socket.get(), QSocketNotifier::Read)
        , m_answer(answer)
    {
        connect(&m_notifier, &QSocketNotifier::activated, this, [this] { read(); });
    }

private:
    void read()
    {
        std::array<char, 1 << 16> part;
        const ssize_t size = ::recv(m_socket.get(), part.data(), part.size(), 0);
        if (size < 0 && (errno == EAGAIN || errno == EINTR))
            return;
        const qsizetype before = m_request.size();
        if (size > 0)
            m_request.append(part.data(), size);
        const qsizetype end = m_request.indexOf('\n', before);
        if (end < 0 && size > 0 && m_request.size() <= longestRequest)
            return;
        // What answers may let events come.
        m_notifier.setEnabled(false);
        if (end >= 0)
            static_cast<void>(sendAll(m_socket, m_answer(m_request.first(end))));
        m_socket = FileDescriptor();
        deleteLater();
    }

    FileDescriptor m_socket;
    QSocketNotifier m_notifier;
    const RequestServer::Answer& m_answer;
    QByteArray m_request;
};

} // namespace

RequestServer::RequestServer(Answer answer)
    : m_answer(std::move(answer))
{
}

RequestServer::~RequestServer()
{
    if (m_socket.isOpen())
        ::unlink(m_path.constData());
}

bool RequestServer::listen(const QByteArray& path)
{
    m_socket = listenAtSocket(path);
    if (!m_socket.isOpen())
        return false;
    m_path = path;
    auto* notifier = new QSocketNotifier(m_socket.get(), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &RequestServer::acceptAll);
    return true;
}

void RequestServer::acceptAll()
{
    for (FileDescriptor socket = acceptConnection(m_socket); socket.isOpen(); socket = acceptConnection(m_socket)) {
        if (isSameUser(socket))
            new Connection(std::move(socket), m_answer, this);
    }
}

} // namespace nookle
