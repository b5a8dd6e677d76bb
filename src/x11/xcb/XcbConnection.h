#pragma once

#include <memory>

#include <xcb/xcb.h>

namespace nookle {

struct XcbDisconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

/// A connection to the X server beside the toolkit's. Its replies are read by the thread that asked; the toolkit reads
/// its own on a thread, and each of them wakes two.
using XcbConnection = std::unique_ptr<xcb_connection_t, XcbDisconnect>;

} // namespace nookle
