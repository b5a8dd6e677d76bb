#include "X11SelectionWatch.h"

#include "XcbAtoms.h"
#include "XcbReply.h"
#include "XcbRoot.h"

#include <QCoreApplication>

#include <xcb/xcb.h>
#include <xcb/xfixes.h>

namespace nookle {

X11SelectionWatch::X11SelectionWatch(xcb_connection_t* connection, const char* selection)
    : m_connection(connection)
    , m_selection(xcbAtom(connection, selection))
{
    const auto* extension = xcb_get_extension_data(m_connection, &xcb_xfixes_id);
    if (extension && extension->present != 0) {
        m_firstFixesEvent = extension->first_event;
        const auto root = rootOf(m_connection);
        xcb_xfixes_select_selection_input(m_connection, root, m_selection,
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER
                                              | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY
                                              | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    }
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11SelectionWatch::~X11SelectionWatch()
{
    if (QCoreApplication::instance())
        QCoreApplication::instance()->removeNativeEventFilter(this);
}

bool X11SelectionWatch::hasOwner() const
{
    const auto cookie = xcb_get_selection_owner(m_connection, m_selection);
    const auto reply = owned(xcb_get_selection_owner_reply(m_connection, cookie, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

bool X11SelectionWatch::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/)
{
    if (eventType != "xcb_generic_event_t" || m_firstFixesEvent == 0)
        return false;
    const auto* event = static_cast<const xcb_xfixes_selection_notify_event_t*>(message);
    if ((event->response_type & 0x7f) == m_firstFixesEvent + XCB_XFIXES_SELECTION_NOTIFY
        && event->selection == m_selection) {
        m_owner = event->owner;
        m_ownedSince = event->selection_timestamp;
        onChanged();
    }
    return false;
}

} // namespace nookle
