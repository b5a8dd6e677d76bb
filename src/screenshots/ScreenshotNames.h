#pragma once

#include <QByteArray>

namespace nookle {

/// Whether a file name has the default form of a screenshot tool that marks its files in no other way.
[[nodiscard]] bool isScreenshotName(const QByteArray& name);

} // namespace nookle
