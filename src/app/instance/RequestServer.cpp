#include "RequestServer.h"

#include <QSocketNotifier>
#include <QTimer>

#include <array>
#include <cerrno>
#include <utility>

#include <sys/socket.h>
#include <unistd.h>

namespace nookle {

namespace {

/// In bytes. More than a command line can hold.
inline constexpr qsizetype longestRequest = 8 << 20;

/// At a time. Each has a descriptor, of which the rest of the program needs some.
inline constexpr int mostConnections = 32;

/// Reads one request and answers it, and goes with its end, or when it takes too long.
class Connection final : public QObject {
public:
    Connection(FileDescriptor socket, std::chrono::milliseconds patience, const RequestServer::Answer& answer,
               QObject* server)
        : QObject(server)
        , m_socket(std::move(socket))
        , m_notifier(m_socket.get(), QSocketNotifier::Read)
        , m_answer(answer)
    {
        connect(&m_notifier, &QSocketNotifier::activated, this, [this] { read(); });
        connect(&m_patience, &QTimer::timeout, this, &QObject::deleteLater);
        m_patience.setSingleShot(true);
        m_patience.start(patience);
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
        m_patience.stop();
        if (end >= 0 && hasOtherEnd(m_socket))
            static_cast<void>(sendAll(m_socket, m_answer(m_request.first(end))));
        m_socket = FileDescriptor();
        deleteLater();
    }

    FileDescriptor m_socket;
    QSocketNotifier m_notifier;
    QTimer m_patience;
    const RequestServer::Answer& m_answer;
    QByteArray m_request;
};

} // namespace

RequestServer::RequestServer(Answer answer, RequestTimes times, Accept accept)
    : m_answer(std::move(answer))
    , m_times(times)
    , m_accept(std::move(accept))
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
    m_notifier = std::make_unique<QSocketNotifier>(m_socket.get(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &RequestServer::acceptAll);
    return true;
}

void RequestServer::acceptAll()
{
    while (m_connections < mostConnections) {
        FileDescriptor socket = m_accept(m_socket);
        if (socket.isOpen()) {
            serve(std::move(socket));
            continue;
        }
        if (errno == EMFILE || errno == ENFILE)
            break;
        return;
    }
    // The connection that cannot be taken would be told of without end.
    m_notifier->setEnabled(false);
    if (m_connections < mostConnections)
        QTimer::singleShot(m_times.pause, m_notifier.get(), [this] { m_notifier->setEnabled(true); });
}

void RequestServer::serve(FileDescriptor socket)
{
    if (!isSameUser(socket))
        return;
    ++m_connections;
    connect(new Connection(std::move(socket), m_times.patience, m_answer, this), &QObject::destroyed, this, [this] {
        --m_connections;
        m_notifier->setEnabled(true);
    });
}

} // namespace nookle
