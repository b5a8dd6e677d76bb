#include "XcbClients.h"

#include "XcbAtoms.h"
#include "XcbRoot.h"

#include <xcb/xcb.h>

namespace nookle {

// The server gives each program a range of numbers.
bool haveSameMaker(xcb_connection_t* connection, std::uint32_t window, std::uint32_t other)
{
    const std::uint32_t ownPart = xcb_get_setup(connection)->resource_id_mask;
    return (window & ~ownPart) == (other & ~ownPart);
}

bool isOwnWindow(xcb_connection_t* connection, std::uint32_t window)
{
    return haveSameMaker(connection, window, xcb_get_setup(connection)->resource_id_base);
}

bool isWindowOfManager(xcb_connection_t* connection, std::uint32_t window)
{
    const auto root = rootOf(connection);
    const auto manager = xcbNumbers(connection, root, xcbAtom(connection, "_NET_SUPPORTING_WM_CHECK"));
    return !manager.empty() && haveSameMaker(connection, window, manager.front());
}

} // namespace nookle
