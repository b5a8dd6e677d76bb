#pragma once

#include <QByteArray>

namespace nookle {

/// Whether a file name is one that a tool gives to screenshots by itself, of the tools that mark them in no other way.
[[nodiscard]] bool isScreenshotName(const QByteArray& name);

} // namespace nookle
