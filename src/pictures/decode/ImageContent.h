#pragma once

#include <QByteArray>

namespace nookle {

/// The number of bytes at the start of a file that are enough to recognize its format.
inline constexpr qsizetype contentSample = 512;

/// The toolkit's name for the format of a pixel image that begins with `start`. Empty for everything else. The file
/// name does not matter.
[[nodiscard]] QByteArray pixelFormat(QByteArrayView start);

/// Whether a file that begins with `start` may be an XML document.
[[nodiscard]] bool looksLikeXml(QByteArrayView start);

} // namespace nookle
