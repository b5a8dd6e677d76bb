#include "DataUrl.h"

namespace nookle {

std::optional<QByteArray> bytesOfDataUrl(const QUrl& url)
{
    const QByteArray encoded = url.toEncoded(QUrl::RemoveFragment);
    const qsizetype comma = encoded.indexOf(',');
    if (url.scheme() != QLatin1String("data") || comma < 0)
        return std::nullopt;
    const QByteArray type = QByteArray::fromPercentEncoding(encoded.first(comma)).trimmed().toLower();
    QByteArray bytes = QByteArray::fromPercentEncoding(encoded.mid(comma + 1));
    if (!type.endsWith(";base64"))
        return bytes;
    bytes.replace(' ', "");
    bytes.replace('\n', "");
    auto decoded = QByteArray::fromBase64Encoding(bytes, QByteArray::AbortOnBase64DecodingErrors);
    return decoded ? std::optional(decoded.decoded) : std::nullopt;
}

} // namespace nookle
