#include "CompositorWatch.h"

#include <glib-unix.h>

#include <utility>

#include <wayland-client.h>

namespace nookle {

// A connection of its own, on which nothing is ever said. The toolkit handles the end of its connection as an event of
// the usual priority.
CompositorWatch::CompositorWatch(std::function<void()> onGone)
    : m_onGone(std::move(onGone))
    , m_connection(wl_display_connect(nullptr))
{
    if (m_connection)
        m_source = g_unix_fd_add_full(G_PRIORITY_HIGH, wl_display_get_fd(m_connection), G_IO_HUP,
                                      reinterpret_cast<GUnixFDSourceFunc>(&CompositorWatch::handleEnd), this, nullptr);
}

CompositorWatch::~CompositorWatch()
{
    if (m_source != 0)
        g_source_remove(m_source);
    if (m_connection)
        wl_display_disconnect(m_connection);
}

int CompositorWatch::handleEnd(int /*descriptor*/, unsigned /*condition*/, void* watch)
{
    auto& self = *static_cast<CompositorWatch*>(watch);
    self.m_source = 0;
    self.m_onGone();
    return G_SOURCE_REMOVE;
}

} // namespace nookle
