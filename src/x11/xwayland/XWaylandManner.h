#pragma once

#include "X11DockWindow.h"
#include "X11Manner.h"

namespace nookle {

/// The manner of a Wayland session whose compositor lets no Wayland program place windows at the edges of the screen,
/// but runs X11 programs.
[[nodiscard]] std::unique_ptr<X11Manner> makeXWaylandManner(const X11Server& server, WindowPlacing placing);

} // namespace nookle
