#pragma once

#include <QByteArray>

namespace nookle::e2e {

/// How many windows, pictures, cursors and the like an X server keeps for a process; -1 when it does not tell.
[[nodiscard]] long xResources(const QByteArray& display, qint64 processId);

} // namespace nookle::e2e
