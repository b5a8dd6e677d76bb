#include "LostPointer.h"

#include "XcbReply.h"
#include "XcbRoot.h"

#include <QCoreApplication>
#include <QWindow>

#include <xcb/shape.h>
#include <xcb/xcb.h>
#include <xcb/xinput.h>

namespace nookle {

namespace {

[[nodiscard]] xcb_window_t numberOf(const QWindow& window)
{
    return static_cast<xcb_window_t>(window.winId());
}

} // namespace

LostPointer::LostPointer(const QWindow& panel, xcb_connection_t* connection)
    : m_panel(panel)
    , m_connection(connection)
{
    QCoreApplication::instance()->installNativeEventFilter(this);
}

LostPointer::~LostPointer()
{
    if (QCoreApplication::instance())
        QCoreApplication::instance()->removeNativeEventFilter(this);
}

// The pointer gets lost only there: up to then it has moved over the panel.
bool LostPointer::isAbovePanel(std::uint32_t window) const
{
    const auto pointerCookie = xcb_query_pointer(m_connection, rootOf(m_connection));
    const auto placeCookie = xcb_query_pointer(m_connection, numberOf(m_panel));
    const auto sizeCookie = xcb_get_geometry(m_connection, numberOf(m_panel));
    const auto pointer = owned(xcb_query_pointer_reply(m_connection, pointerCookie, nullptr));
    const auto place = owned(xcb_query_pointer_reply(m_connection, placeCookie, nullptr));
    const auto size = owned(xcb_get_geometry_reply(m_connection, sizeCookie, nullptr));
    return pointer && place && size && pointer->child == window && place->win_x >= 0 && place->win_y >= 0
        && place->win_x < size->width && place->win_y < size->height;
}

// For the time of one request the pointer goes through the menu. The server then looks anew at what lies below, and
// knows of that window, the panel, whether the pointer has left it.
bool LostPointer::isLostIn(const QWindow& menu)
{
    const xcb_window_t window = numberOf(menu);
    if (!isAbovePanel(window))
        return false;
    m_first = xcb_shape_rectangles(m_connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED,
                                   window, 0, 0, 0, nullptr)
                  .sequence;
    const auto cookie = xcb_query_pointer(m_connection, rootOf(m_connection));
    m_last = xcb_shape_mask(m_connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, window, 0, 0, XCB_PIXMAP_NONE).sequence;
    // What happens afterwards carries another number.
    xcb_no_operation(m_connection);
    const auto pointer = owned(xcb_query_pointer_reply(m_connection, cookie, nullptr));
    return pointer && pointer->child == XCB_WINDOW_NONE;
}

// Of the question itself the program must not hear: the pointer has not moved.
bool LostPointer::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/)
{
    if (eventType != "xcb_generic_event_t" || m_last == 0)
        return false;
    const auto* event = static_cast<const xcb_ge_generic_event_t*>(message);
    constexpr int fromOtherProgram = 0x80;
    if ((event->response_type & ~fromOtherProgram) != XCB_GE_GENERIC
        || event->full_sequence - m_first > m_last - m_first)
        return false;
    return event->event_type == XCB_INPUT_ENTER || event->event_type == XCB_INPUT_LEAVE;
}

} // namespace nookle
