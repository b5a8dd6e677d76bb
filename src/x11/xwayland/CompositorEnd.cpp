#include "CompositorEnd.h"

#include <QDir>
#include <QFile>

#include <glib-unix.h>

#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <utility>

namespace nookle {

namespace {

/// The socket that the session names; a name that is no path lies in the folder of the user's session.
[[nodiscard]] QByteArray socketPath()
{
    const QString name = qEnvironmentVariable("WAYLAND_DISPLAY");
    return name.isEmpty() ? QByteArray()
                          : QFile::encodeName(QDir(qEnvironmentVariable("XDG_RUNTIME_DIR")).filePath(name));
}

[[nodiscard]] FileDescriptor connectTo(const QByteArray& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.isEmpty() || static_cast<std::size_t>(path.size()) >= sizeof(address.sun_path))
        return FileDescriptor();
    std::copy(path.begin(), path.end(), address.sun_path);
    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!socket.isOpen() || ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0)
        return FileDescriptor();
    return socket;
}

} // namespace

// The other connections' ends are events of the usual priority.
CompositorEnd::CompositorEnd(std::function<void()> onGone)
    : m_onGone(std::move(onGone))
    , m_connection(connectTo(socketPath()))
{
    if (m_connection.isOpen())
        m_source = g_unix_fd_add_full(G_PRIORITY_HIGH, m_connection.get(), G_IO_HUP,
                                      reinterpret_cast<GUnixFDSourceFunc>(&CompositorEnd::handleEnd), this, nullptr);
}

CompositorEnd::~CompositorEnd()
{
    if (m_source != 0)
        g_source_remove(m_source);
}

int CompositorEnd::handleEnd(int /*descriptor*/, unsigned /*condition*/, void* end)
{
    auto& self = *static_cast<CompositorEnd*>(end);
    self.m_source = 0;
    self.m_onGone();
    return G_SOURCE_REMOVE;
}

} // namespace nookle
