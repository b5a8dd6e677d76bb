#include "HelperProcess.h"

#include "ChildProcess.h"
#include "Sandbox.h"

#include <QProcess>
#include <QSocketNotifier>
#include <QtEndian>

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

namespace nookle {

namespace {

inline constexpr std::size_t pieceSize = 65'536;

[[nodiscard]] QByteArray framed(const QByteArray& body)
{
    QByteArray bytes(sizeof(quint32), '\0');
    qToBigEndian(static_cast<quint32>(body.size()), bytes.data());
    return bytes.append(body);
}

using Rights = std::array<char, CMSG_SPACE(sizeof(int))>;

void addDescriptor(msghdr& message, Rights& control, int descriptor)
{
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    cmsghdr* const rights = CMSG_FIRSTHDR(&message);
    rights->cmsg_level = SOL_SOCKET;
    rights->cmsg_type = SCM_RIGHTS;
    rights->cmsg_len = CMSG_LEN(sizeof descriptor);
    std::memcpy(CMSG_DATA(rights), &descriptor, sizeof descriptor);
}

} // namespace

HelperProcess::HelperProcess(const Program& program, Confinement confinement)
{
    std::array<int, 2> ends{ -1, -1 };
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        return;
    m_socket = FileDescriptor(ends[0]);
    const FileDescriptor helperEnd(ends[1]);
    ::fcntl(m_socket.get(), F_SETFL, O_NONBLOCK);
    // The socket also signals the helper's end, because only the helper holds its other end.
    m_notifier = std::make_unique<QSocketNotifier>(m_socket.get(), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { read(); });
    start(program, confinement, helperEnd.get());
}

HelperProcess::~HelperProcess()
{
    m_notifier.reset();
    if (m_process)
        endChildProcess(std::move(m_process));
}

void HelperProcess::start(const Program& program, Confinement confinement, int socket)
{
    m_process = makeChildProcess([socket] { ::dup2(socket, STDIN_FILENO); });
    if (confinement == Confinement::none) {
        m_process->start(program.path, QStringList());
        return;
    }
    const QStringList own{ QStringLiteral("--ro-bind"), program.path, program.path, program.path };
    m_process->start(sandboxProgram(), sandboxArguments() + program.sandboxArguments + own);
}

bool HelperProcess::send(const QByteArray& message, const FileDescriptor& file)
{
    QByteArray bytes = framed(message);
    iovec part{ bytes.data(), static_cast<size_t>(bytes.size()) };
    msghdr header{};
    header.msg_iov = &part;
    header.msg_iovlen = 1;
    alignas(cmsghdr) Rights control{};
    if (file.isOpen())
        addDescriptor(header, control, file.get());
    // The few messages on their way always fit into the socket's buffer. If one does not, the helper is stuck.
    return ::sendmsg(m_socket.get(), &header, MSG_NOSIGNAL) == bytes.size();
}

qint64 HelperProcess::processId() const
{
    return m_process ? m_process->processId() : 0;
}

void HelperProcess::read()
{
    // Reads one piece for each event, so that a helper that never stops sending cannot block the main thread.
    std::array<char, pieceSize> piece{};
    const ssize_t count = ::recv(m_socket.get(), piece.data(), piece.size(), 0);
    if (count > 0) {
        const auto tell = onBytes;
        tell(QByteArrayView(piece.data(), count));
    } else if (count == 0 || (errno != EAGAIN && errno != EINTR)) {
        const auto tell = std::exchange(onEnd, nullptr);
        tell();
    }
}

} // namespace nookle
