#pragma once

#include <QByteArray>
#include <QString>

namespace nookle {

/// The MIME type of the regular file at `path`; empty if it cannot be read. Its content decides. Its name decides only
/// between subtypes of that type, or if the content is just text or unknown.
[[nodiscard]] QString fileType(const QByteArray& path);

} // namespace nookle
