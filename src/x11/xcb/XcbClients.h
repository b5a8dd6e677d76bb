#pragma once

#include <cstdint>

struct xcb_connection_t;

namespace nookle {

/// Whether one program has made both windows.
[[nodiscard]] bool haveSameMaker(xcb_connection_t* connection, std::uint32_t window, std::uint32_t other);

/// Whether the program at the other end of `connection` has made the window.
[[nodiscard]] bool isOwnWindow(xcb_connection_t* connection, std::uint32_t window);

/// Whether the window manager has made the window. Under XWayland that is the compositor, which speaks for all Wayland
/// programs.
[[nodiscard]] bool isWindowOfManager(xcb_connection_t* connection, std::uint32_t window);

} // namespace nookle
