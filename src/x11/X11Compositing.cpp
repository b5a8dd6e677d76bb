#include "X11Compositing.h"

#include "XcbAtoms.h"
#include "XcbReply.h"
#include "XcbRoot.h"

#include <xcb/xcb.h>

#include <utility>

namespace nookle {

X11Compositing::X11Compositing(xcb_connection_t* connection)
    : m_connection(connection)
    , m_manager(connection, "_NET_WM_CM_S0")
    , m_backdrop(look())
{
    m_manager.onChanged = [this] { managerChanged(); };
}

Backdrop X11Compositing::look() const
{
    if (!m_manager.hasOwner())
        return Backdrop::opaque;
    // A compositing manager that can blur the background of windows sets this property on the root window.
    const auto root = rootOf(m_connection);
    const auto blur = xcb_get_property(m_connection, 0, root, xcbAtom(m_connection, "_KDE_NET_WM_BLUR_BEHIND_REGION"),
                                       XCB_ATOM_ANY, 0, 1);
    const auto property = owned(xcb_get_property_reply(m_connection, blur, nullptr));
    return property && property->type != XCB_ATOM_NONE ? Backdrop::blurred : Backdrop::translucent;
}

void X11Compositing::managerChanged()
{
    const Backdrop present = look();
    if (std::exchange(m_backdrop, present) != present)
        Q_EMIT backdropChanged();
}

} // namespace nookle
