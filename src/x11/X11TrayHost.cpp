#include "X11TrayHost.h"

namespace nookle {

X11TrayHost::X11TrayHost(xcb_connection_t* connection)
    : m_manager(connection, "_NET_SYSTEM_TRAY_S0")
{
    m_manager.onChanged = [this] { onChanged(); };
}

} // namespace nookle
