#include "X11DockWindow.h"
#include "XcbRoot.h"

#include <xcb/shape.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace nookle {

X11DockWindow::X11DockWindow(xcb_connection_t* connection, std::uint32_t window, WindowPlacing placing)
    : m_connection(connection)
    , m_window(window)
    , m_atoms(connection,
              { "_NET_ACTIVE_WINDOW", "_NET_WM_DESKTOP", "_NET_WM_STATE", "_NET_WM_STATE_ABOVE",
                "_NET_WM_STATE_SKIP_PAGER", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_STICKY", "_NET_WM_USER_TIME",
                "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_UTILITY" })
{
    const std::uint32_t isOwn = 1;
    if (placing == WindowPlacing::program)
        xcb_change_window_attributes(m_connection, m_window, XCB_CW_OVERRIDE_REDIRECT, &isOwn);
}

void X11DockWindow::setNumbers(QByteArrayView property, std::uint32_t type, const std::vector<std::uint32_t>& numbers)
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, m_atoms[property], type, 32,
                        static_cast<std::uint32_t>(numbers.size()), numbers.data());
}

void X11DockWindow::setProperties()
{
    constexpr std::uint32_t allDesktops = 0xffffffff;
    setType("_NET_WM_WINDOW_TYPE_DOCK");
    m_isToolWindow = false;
    setNumbers("_NET_WM_DESKTOP", XCB_ATOM_CARDINAL, { allDesktops });
    setNumbers("_NET_WM_USER_TIME", XCB_ATOM_CARDINAL, { 0 });
    setNumbers("_NET_WM_STATE", XCB_ATOM_ATOM,
               { m_atoms["_NET_WM_STATE_ABOVE"], m_atoms["_NET_WM_STATE_STICKY"], m_atoms["_NET_WM_STATE_SKIP_TASKBAR"],
                 m_atoms["_NET_WM_STATE_SKIP_PAGER"] });
}

void X11DockWindow::setType(QByteArrayView type)
{
    setNumbers("_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, { m_atoms[type] });
}

void X11DockWindow::setToolWindow(bool isToolWindow)
{
    if (std::exchange(m_isToolWindow, isToolWindow) == isToolWindow)
        return;
    setType(isToolWindow ? "_NET_WM_WINDOW_TYPE_UTILITY" : "_NET_WM_WINDOW_TYPE_DOCK");
    xcb_flush(m_connection);
}

void X11DockWindow::moveTo(const QRect& pixels)
{
    const std::uint32_t values[] = { static_cast<std::uint32_t>(pixels.x()), static_cast<std::uint32_t>(pixels.y()),
                                     static_cast<std::uint32_t>(std::max(1, pixels.width())),
                                     static_cast<std::uint32_t>(std::max(1, pixels.height())) };
    xcb_configure_window(m_connection, m_window,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                         values);
    xcb_flush(m_connection);
}

void X11DockWindow::takeFocus()
{
    constexpr std::uint32_t forTheUser = 2;
    xcb_client_message_event_t request{};
    request.response_type = XCB_CLIENT_MESSAGE;
    request.format = 32;
    request.window = m_window;
    request.type = m_atoms["_NET_ACTIVE_WINDOW"];
    request.data.data32[0] = forTheUser;
    request.data.data32[1] = XCB_CURRENT_TIME;
    const xcb_window_t root = rootOf(m_connection);
    xcb_send_event(m_connection, 0, root, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&request));
    xcb_flush(m_connection);
}

void X11DockWindow::raise()
{
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_connection, m_window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_flush(m_connection);
}

void X11DockWindow::setInputShape(const QRect& pixels)
{
    const xcb_rectangle_t rectangle{ static_cast<std::int16_t>(pixels.x()), static_cast<std::int16_t>(pixels.y()),
                                     static_cast<std::uint16_t>(pixels.width()),
                                     static_cast<std::uint16_t>(pixels.height()) };
    xcb_shape_rectangles(m_connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, m_window, 0, 0,
                         pixels.isEmpty() ? 0 : 1, &rectangle);
    xcb_flush(m_connection);
}

} // namespace nookle
