#pragma once

#include <xcb/xcb.h>

namespace nookle {

/// The root window, which the whole desktop is drawn in. The connection must not have failed.
[[nodiscard]] inline xcb_window_t rootOf(xcb_connection_t* connection)
{
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

} // namespace nookle
