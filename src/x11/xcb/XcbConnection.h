#pragma once

#include <memory>

#include <xcb/xcb.h>

namespace nookle {

struct XcbDisconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

/// A connection to the X server in addition to the toolkit's. The calling thread reads the replies itself. On the
/// toolkit's connection, another thread reads them, so each reply wakes two threads.
using XcbConnection = std::unique_ptr<xcb_connection_t, XcbDisconnect>;

} // namespace nookle
