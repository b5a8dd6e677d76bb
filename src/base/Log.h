#pragma once

#include <QString>

namespace nookle {

/// Writes one line, "Nookle: " and the message, to the log. Control characters in the message are escaped, so that a
/// file name cannot break the line. Any thread.
void logLine(const QString& message);

} // namespace nookle
