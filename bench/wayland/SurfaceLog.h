#pragma once

#include <QByteArray>

namespace nookle::bench {

// What a program tells the compositor, as libwayland writes it down where WAYLAND_DEBUG is set.

/// Whether it has asked for a window of that width at an edge.
[[nodiscard]] bool hasPlace(const QByteArray& log, int width);

/// Whether a window of its has a picture.
[[nodiscard]] bool hasPicture(const QByteArray& log);

/// How many changes of windows it has told.
[[nodiscard]] qsizetype commits(const QByteArray& log);

} // namespace nookle::bench
