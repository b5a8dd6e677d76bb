#pragma once

#include <QByteArray>

struct xcb_connection_t;

namespace nookle {

/// The version of Mutter, GNOME's compositor, if it manages the X server's windows; empty if another one does.
[[nodiscard]] QByteArray mutterVersion(xcb_connection_t* connection);

/// Whether a compositor that says it is that version of Mutter heeds a window's input shape for as long as the window
/// has it. Others may forget it with each picture of the window, which then takes the pointer.
[[nodiscard]] bool keepsInputShapes(const QByteArray& mutterVersion);

} // namespace nookle
