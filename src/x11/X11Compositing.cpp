#include "X11Compositing.h"

#include "XcbAtoms.h"
#include "XcbReply.h"
#include "XcbRoot.h"

#include <QCoreApplication>

#include <xcb/xcb.h>

#include <utility>

namespace nookle {

X11Compositing::X11Compositing(xcb_connection_t* connection)
    : m_connection(connection)
    , m_blur(xcbAtom(connection, "_KDE_NET_WM_BLUR_BEHIND_REGION"))
    , m_manager(connection, "_NET_WM_CM_S0")
    , m_backdrop(look())
{
    m_manager.onChanged = [this] { update(); };
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11Compositing::~X11Compositing()
{
    if (QCoreApplication::instance())
        QCoreApplication::instance()->removeNativeEventFilter(this);
}

Backdrop X11Compositing::look() const
{
    if (!m_manager.hasOwner())
        return Backdrop::opaque;
    // A compositing manager has this property on the root window while it blurs the background of windows.
    const auto root = rootOf(m_connection);
    const auto blur = xcb_get_property(m_connection, 0, root, m_blur, XCB_ATOM_ANY, 0, 1);
    const auto property = owned(xcb_get_property_reply(m_connection, blur, nullptr));
    return property && property->type != XCB_ATOM_NONE ? Backdrop::blurred : Backdrop::translucent;
}

void X11Compositing::update()
{
    const Backdrop present = look();
    if (std::exchange(m_backdrop, present) != present)
        Q_EMIT backdropChanged();
}

// The toolkit has the server report all changes of the root window's properties on its connection.
bool X11Compositing::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_property_notify_event_t*>(message);
    if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY && event->atom == m_blur
        && event->window == rootOf(m_connection))
        update();
    return false;
}

} // namespace nookle
