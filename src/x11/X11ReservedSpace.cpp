#include "X11ReservedSpace.h"

#include "UsableArea.h"
#include "XcbReply.h"
#include "XcbRoot.h"

#include <xcb/xcb.h>

#include <vector>

namespace nookle {

namespace {

inline constexpr const char* strutPartial = "_NET_WM_STRUT_PARTIAL";

} // namespace

X11ReservedSpace::X11ReservedSpace(xcb_connection_t* connection, std::uint32_t window)
    : m_connection(connection)
    , m_window(window)
    , m_atoms(connection, { strutPartial })
{
}

QSize X11ReservedSpace::desktopSize() const
{
    const xcb_window_t root = rootOf(m_connection);
    const auto reply = owned(xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, root), nullptr));
    return reply ? QSize(reply->width, reply->height) : QSize();
}

bool X11ReservedSpace::isPossible(const QRect& display) const
{
    return !rightStrut(display, display, desktopSize()).empty();
}

void X11ReservedSpace::reserve(const QRect& panel, const QRect& display)
{
    const std::vector<std::uint32_t> strut = rightStrut(panel, display, desktopSize());
    if (strut.empty()) {
        release();
        return;
    }
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, m_atoms[strutPartial], XCB_ATOM_CARDINAL, 32,
                        static_cast<std::uint32_t>(strut.size()), strut.data());
    xcb_flush(m_connection);
}

void X11ReservedSpace::release()
{
    xcb_delete_property(m_connection, m_window, m_atoms[strutPartial]);
    xcb_flush(m_connection);
}

} // namespace nookle
