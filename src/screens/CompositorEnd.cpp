#include "CompositorEnd.h"

#include <QDir>
#include <QFile>

#include <glib-unix.h>

#include <poll.h>
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

/// An event of the main loop: the other end of a connection is gone.
struct EndSource {
    GSource base;
    int descriptor;
};

[[nodiscard]] gboolean isGone(GSource* source)
{
    pollfd connection{ reinterpret_cast<EndSource*>(source)->descriptor, POLLIN, 0 };
    return ::poll(&connection, 1, 0) == 1 && (connection.revents & POLLHUP) != 0;
}

[[nodiscard]] gboolean prepare(GSource* source, int* timeout)
{
    *timeout = -1;
    return isGone(source);
}

[[nodiscard]] gboolean dispatch(GSource* /*source*/, GSourceFunc work, void* data)
{
    return work(data);
}

GSourceFuncs endFunctions{ &prepare, &isGone, &dispatch, nullptr, nullptr, nullptr };

} // namespace

// GTK looks at its connection even before it waits for events, and ends the program when that is gone. A source of
// higher priority that is ready comes before that look.
CompositorEnd::CompositorEnd(std::function<void()> onGone)
    : m_onGone(std::move(onGone))
    , m_connection(connectTo(socketPath()))
{
    if (!m_connection.isOpen())
        return;
    m_source = g_source_new(&endFunctions, sizeof(EndSource));
    reinterpret_cast<EndSource*>(m_source)->descriptor = m_connection.get();
    g_source_add_unix_fd(m_source, m_connection.get(), G_IO_HUP);
    g_source_set_priority(m_source, G_PRIORITY_HIGH);
    g_source_set_callback(m_source, &CompositorEnd::handleEnd, this, nullptr);
    g_source_attach(m_source, nullptr);
}

CompositorEnd::~CompositorEnd()
{
    if (!m_source)
        return;
    g_source_destroy(m_source);
    g_source_unref(m_source);
}

int CompositorEnd::handleEnd(void* end)
{
    static_cast<CompositorEnd*>(end)->m_onGone();
    return G_SOURCE_REMOVE;
}

} // namespace nookle
