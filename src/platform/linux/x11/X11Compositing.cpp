#include "X11Compositing.h"

#include "XcbAtoms.h"
#include "XcbReply.h"

#include <QCoreApplication>

#include <xcb/xcb.h>
#include <xcb/xfixes.h>

#include <utility>

namespace nookle {

X11Compositing::X11Compositing(xcb_connection_t* connection)
    : m_connection(connection)
    , m_root(xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root)
    , m_selection(xcbAtom(connection, "_NET_WM_CM_S0"))
{
    const auto* extension = xcb_get_extension_data(m_connection, &xcb_xfixes_id);
    if (extension && extension->present != 0) {
        m_firstFixesEvent = extension->first_event;
        xcb_xfixes_select_selection_input(m_connection, m_root, m_selection,
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER
                                              | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY
                                              | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    }
    m_backdrop = look();
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11Compositing::~X11Compositing()
{
    if (QCoreApplication::instance())
        QCoreApplication::instance()->removeNativeEventFilter(this);
}

Backdrop X11Compositing::look() const
{
    const auto cookie = xcb_get_selection_owner(m_connection, m_selection);
    const auto reply = owned(xcb_get_selection_owner_reply(m_connection, cookie, nullptr));
    if (!reply || reply->owner == XCB_WINDOW_NONE)
        return Backdrop::opaque;
    // A compositing manager that blurs what a window asks for says so on the root window.
    const auto blur = xcb_get_property(m_connection, 0, m_root, xcbAtom(m_connection, "_KDE_NET_WM_BLUR_BEHIND_REGION"),
                                       XCB_ATOM_ANY, 0, 1);
    const auto property = owned(xcb_get_property_reply(m_connection, blur, nullptr));
    return property && property->type != XCB_ATOM_NONE ? Backdrop::blurred : Backdrop::translucent;
}

bool X11Compositing::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/)
{
    if (eventType != "xcb_generic_event_t" || m_firstFixesEvent == 0)
        return false;
    const auto* event = static_cast<const xcb_xfixes_selection_notify_event_t*>(message);
    if ((event->response_type & 0x7f) != m_firstFixesEvent + XCB_XFIXES_SELECTION_NOTIFY
        || event->selection != m_selection)
        return false;
    const Backdrop present = look();
    if (std::exchange(m_backdrop, present) != present)
        Q_EMIT backdropChanged();
    return false;
}

} // namespace nookle
