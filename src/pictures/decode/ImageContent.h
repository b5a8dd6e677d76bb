#pragma once

#include <QByteArray>

namespace nookle {

/// How many bytes of a file tell what it is.
inline constexpr qsizetype contentSample = 512;

/// The format of an image of pixels, by the name that the toolkit has for it, from the bytes that the image begins
/// with. Empty for everything else, whatever a file name says.
[[nodiscard]] QByteArray pixelFormat(QByteArrayView start);

/// Whether what begins like this may be an XML document.
[[nodiscard]] bool looksLikeXml(QByteArrayView start);

} // namespace nookle
