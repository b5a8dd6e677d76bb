#pragma once

#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

namespace nookle::e2e {

struct XcbFree {
    void operator()(void* memory) const { std::free(memory); }
};

/// Frees a reply of the X server with the pointer.
template <typename Type> [[nodiscard]] std::unique_ptr<Type, XcbFree> owned(Type* reply)
{
    return std::unique_ptr<Type, XcbFree>(reply);
}

struct XcbDisconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

using XcbConnection = std::unique_ptr<xcb_connection_t, XcbDisconnect>;

} // namespace nookle::e2e
