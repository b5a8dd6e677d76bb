#pragma once

#include <QDBusConnection>

namespace nookle {

/// Has the session's service manager start the program in place of this process, so that a start at login runs the same
/// unit as a start by the bus. True once the program runs, whoever started it: this process has nothing left to do.
/// False if nothing was started: `bus` has no such manager, the manager's programs would get another display, language
/// or folders than this process, there is no unit, or it failed. Waits for up to half a minute. Main thread only.
[[nodiscard]] bool startBySession(const QDBusConnection& bus);

} // namespace nookle
