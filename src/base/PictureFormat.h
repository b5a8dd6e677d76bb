#pragma once

#include <QByteArray>

namespace nookle {

/// The number of bytes at the start of a file that the functions below need at most.
inline constexpr qsizetype contentSample = 512;

/// The format of an image of pixels, by the name that the toolkit has for it, such as "png". Decides by the bytes that
/// the image begins with, never by a file name. Empty for everything else.
[[nodiscard]] QByteArray pixelFormat(QByteArrayView start);

/// True if a PNG image begins like this.
[[nodiscard]] bool isPngStart(QByteArrayView start);

/// True if an XML document may begin like this.
[[nodiscard]] bool looksLikeXml(QByteArrayView start);

} // namespace nookle
