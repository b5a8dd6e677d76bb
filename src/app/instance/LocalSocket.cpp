#include "LocalSocket.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace nookle {

namespace {

inline constexpr int mostWaiting = 50;

[[nodiscard]] std::optional<sockaddr_un> addressOf(const QByteArray& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    // An end is part of the name.
    if (path.isEmpty() || static_cast<std::size_t>(path.size()) >= sizeof(address.sun_path)) {
        errno = ENAMETOOLONG;
        return std::nullopt;
    }
    std::copy(path.begin(), path.end(), address.sun_path);
    return address;
}

using Call = int (*)(int, const sockaddr*, socklen_t);

[[nodiscard]] bool apply(Call call, const FileDescriptor& socket, const QByteArray& path)
{
    const auto address = addressOf(path);
    return address && socket.isOpen()
        && call(socket.get(), reinterpret_cast<const sockaddr*>(&*address), sizeof(*address)) == 0;
}

void setPatience(const FileDescriptor& socket, std::chrono::milliseconds patience)
{
    const auto seconds = std::chrono::floor<std::chrono::seconds>(patience);
    const timeval time{ seconds.count(), std::chrono::microseconds(patience - seconds).count() };
    ::setsockopt(socket.get(), SOL_SOCKET, SO_SNDTIMEO, &time, sizeof(time));
    ::setsockopt(socket.get(), SOL_SOCKET, SO_RCVTIMEO, &time, sizeof(time));
}

/// Whether this process can open a few more. The file that a request names needs some, its picture, and the panel: the
/// library for the X server waits for ever for memory whose descriptor could not be taken.
[[nodiscard]] bool hasDescriptorsLeft(const FileDescriptor& any)
{
    std::array<FileDescriptor, 16> more;
    return std::all_of(more.begin(), more.end(), [&](FileDescriptor& each) {
        each = FileDescriptor(::fcntl(any.get(), F_DUPFD_CLOEXEC, 0));
        return each.isOpen();
    });
}

} // namespace

FileDescriptor connectToSocket(const QByteArray& path, std::chrono::milliseconds patience)
{
    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    setPatience(socket, patience);
    return apply(&::connect, socket, path) ? std::move(socket) : FileDescriptor();
}

FileDescriptor listenAtSocket(const QByteArray& path)
{
    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!apply(&::bind, socket, path) || ::listen(socket.get(), mostWaiting) != 0)
        return FileDescriptor();
    return socket;
}

FileDescriptor acceptConnection(const FileDescriptor& listening)
{
    if (!hasDescriptorsLeft(listening))
        return FileDescriptor();
    return FileDescriptor(::accept4(listening.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
}

bool isSameUser(const FileDescriptor& socket)
{
    ucred credentials{};
    socklen_t size = sizeof(credentials);
    return ::getsockopt(socket.get(), SOL_SOCKET, SO_PEERCRED, &credentials, &size) == 0
        && credentials.uid == ::getuid();
}

bool hasOtherEnd(const FileDescriptor& socket)
{
    pollfd end{ socket.get(), POLLRDHUP, 0 };
    return ::poll(&end, 1, 0) <= 0;
}

bool sendAll(const FileDescriptor& socket, const QByteArray& bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t size =
            ::send(socket.get(), bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done), MSG_NOSIGNAL);
        if (size < 0 && errno != EINTR)
            return false;
        done += std::max<ssize_t>(size, 0);
    }
    return true;
}

} // namespace nookle
