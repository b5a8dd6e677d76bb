#pragma once

namespace nookle {

/// Lets the program outlive the session bus. GLib ends a program whose connection to it breaks, without a word, and
/// parts of GLib open such a connection unasked: to read GNOME's settings, or to reach the Trash. Opens none itself.
/// Call this once, before the toolkit is set up.
void outliveSessionBus();

} // namespace nookle
