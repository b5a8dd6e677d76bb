#include "X11Pointer.h"

#include "X11Coordinates.h"
#include "XcbReply.h"

#include <xcb/xcb.h>

namespace nookle {

namespace {

[[nodiscard]] XcbReply<xcb_query_pointer_reply_t> query(xcb_connection_t* connection, std::uint32_t root)
{
    return owned(xcb_query_pointer_reply(connection, xcb_query_pointer(connection, root), nullptr));
}

} // namespace

X11Pointer::X11Pointer(xcb_connection_t* connection, std::uint32_t root)
    : m_connection(connection)
    , m_root(root)
{
}

QPointF X11Pointer::position() const
{
    const auto reply = query(m_connection, m_root);
    return reply ? pointsFromPixels(QPoint(reply->root_x, reply->root_y)) : QPointF();
}

bool X11Pointer::isLeftButtonDown() const
{
    const auto reply = query(m_connection, m_root);
    return reply && (reply->mask & XCB_BUTTON_MASK_1) != 0;
}

} // namespace nookle
