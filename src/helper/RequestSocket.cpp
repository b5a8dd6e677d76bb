#include "RequestSocket.h"

#include <QtEndian>

#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

namespace nookle {

namespace {

void takeDescriptor(msghdr& message, FileDescriptor& file)
{
    for (cmsghdr* part = CMSG_FIRSTHDR(&message); part != nullptr; part = CMSG_NXTHDR(&message, part)) {
        if (part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_RIGHTS || part->cmsg_len != CMSG_LEN(sizeof(int)))
            continue;
        int descriptor = -1;
        std::memcpy(&descriptor, CMSG_DATA(part), sizeof descriptor);
        file = FileDescriptor(descriptor);
    }
}

} // namespace

RequestSocket::RequestSocket(FileDescriptor socket, quint32 longest)
    : m_socket(std::move(socket))
    , m_longest(longest)
{
}

std::optional<RequestSocket::Incoming> RequestSocket::receive()
{
    FileDescriptor file;
    QByteArray length(sizeof(quint32), '\0');
    if (!receiveAll(length, file))
        return std::nullopt;
    const auto size = qFromBigEndian<quint32>(length.constData());
    if (size > m_longest)
        return std::nullopt;
    QByteArray body(size, '\0');
    if (!receiveAll(body, file))
        return std::nullopt;
    return Incoming{ std::move(body), std::move(file) };
}

bool RequestSocket::send(QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const ssize_t count = ::send(m_socket.get(), bytes.data(), static_cast<size_t>(bytes.size()), MSG_NOSIGNAL);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        bytes = bytes.sliced(count);
    }
    return true;
}

bool RequestSocket::sendMessage(const QByteArray& message)
{
    QByteArray length(sizeof(quint32), '\0');
    qToBigEndian(static_cast<quint32>(message.size()), length.data());
    return send(length) && send(message);
}

// The descriptor comes with the first bytes of a request.
bool RequestSocket::receiveAll(QByteArray& bytes, FileDescriptor& file)
{
    qsizetype done = 0;
    while (done < bytes.size()) {
        alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> control{};
        iovec part{ bytes.data() + done, static_cast<size_t>(bytes.size() - done) };
        msghdr message{};
        message.msg_iov = &part;
        message.msg_iovlen = 1;
        message.msg_control = control.data();
        message.msg_controllen = control.size();
        const ssize_t count = ::recvmsg(m_socket.get(), &message, MSG_CMSG_CLOEXEC);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        takeDescriptor(message, file);
        done += count;
    }
    return true;
}

} // namespace nookle
