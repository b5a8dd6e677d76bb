#pragma once

#include <QByteArray>
#include <QtEndian>

namespace nookle {

/// One chunk of a PNG file. Its checksum is zero, which nobody here looks at.
[[nodiscard]] inline QByteArray pngChunk(const QByteArray& type, const QByteArray& content = {})
{
    QByteArray length(4, '\0');
    qToBigEndian(static_cast<quint32>(content.size()), length.data());
    return length + type + content + QByteArray(4, '\0');
}

[[nodiscard]] inline QByteArray pngStart()
{
    return QByteArrayLiteral("\x89PNG\r\n\x1a\n") + pngChunk("IHDR", QByteArray(13, '\1'));
}

/// A complete file with those chunks between its head and its end.
[[nodiscard]] inline QByteArray png(const QByteArray& chunks = {})
{
    return pngStart() + chunks + pngChunk("IDAT", QByteArray(5000, '\7')) + pngChunk("IEND");
}

[[nodiscard]] inline QByteArray pngText(const QByteArray& key, const QByteArray& text)
{
    return pngChunk("tEXt", key + '\0' + text);
}

} // namespace nookle
