#pragma once

#include <QByteArray>
#include <QString>

namespace nookle {

/// The MIME type of the regular file at `path`. Its content decides, and its name only between the kinds of that.
[[nodiscard]] QString fileType(const QByteArray& path);

} // namespace nookle
