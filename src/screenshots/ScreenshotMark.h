#pragma once

#include <QByteArray>

namespace nookle {

/// Whether the file at `path` is a screenshot, by an attribute of the file, by a text that known tools write into the
/// picture, or by the name that a tool without either gives. Never waits for a pipe, and reads little of a large
/// file; waits for the file system, so ask only where it answers.
[[nodiscard]] bool hasScreenshotMark(const QByteArray& path);

} // namespace nookle
