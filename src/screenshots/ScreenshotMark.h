#pragma once

#include <QByteArray>

namespace nookle {

/// Whether the file at `path` is a screenshot. It is one if it has the extended attribute for screenshots, a text that
/// known tools write into the picture, or a file name that a tool without such marks gives. Never waits for a pipe, and
/// reads little of a large file. Waits for the file system: call it only for file systems that always answer.
[[nodiscard]] bool hasScreenshotMark(const QByteArray& path);

} // namespace nookle
