#include "DecoderProtocol.h"

#include <QDataStream>
#include <QIODevice>

namespace nookle {

namespace {

inline constexpr quint32 replyMark = 0x4e4b4452;

// Pictures in the folder of thumbnails have at most this side.
inline constexpr int largestThumbnail = 1024;

// What a PNG may be larger than the pixels in it, for its chunks and for pixels that cannot be compressed.
inline constexpr quint64 pngOverhead = 65'536;

[[nodiscard]] quint64 largestPng(int side)
{
    const auto pixels = static_cast<quint64>(side) * static_cast<quint64>(side);
    // A pixel has at most four channels of sixteen bits.
    return pixels * 8 + pixels / 64 + pngOverhead;
}

} // namespace

QByteArray DecodeRequest::encode() const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_4);
    stream << static_cast<quint8>(purpose) << qint32(side) << qint32(savedSide) << uri << modificationTime << fileSize;
    return bytes;
}

std::optional<DecodeRequest> DecodeRequest::decode(const QByteArray& bytes)
{
    if (bytes.size() > longest)
        return std::nullopt;
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_6_4);
    DecodeRequest request;
    quint8 purpose = 0;
    qint32 side = 0;
    qint32 savedSide = 0;
    stream >> purpose >> side >> savedSide >> request.uri >> request.modificationTime >> request.fileSize;
    const bool isKnown = purpose >= quint8(Purpose::thumbnail) && purpose <= quint8(Purpose::conversion);
    if (stream.status() != QDataStream::Ok || !stream.atEnd() || !isKnown)
        return std::nullopt;
    if (side < 1 || savedSide < 0 || savedSide > largestThumbnail)
        return std::nullopt;
    request.purpose = static_cast<Purpose>(purpose);
    request.side = side;
    request.savedSide = savedSide;
    return request;
}

QByteArray DecodeReply::encode() const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << replyMark << quint32(width) << quint32(height) << quint32(pixels.size()) << quint32(png.size());
    return bytes.append(pixels).append(png);
}

std::optional<DecodeReplyHeader> DecodeReplyHeader::decode(QByteArrayView bytes)
{
    if (bytes.size() < encodedSize)
        return std::nullopt;
    QDataStream stream(QByteArray::fromRawData(bytes.data(), encodedSize));
    DecodeReplyHeader header;
    quint32 mark = 0;
    stream >> mark >> header.width >> header.height >> header.pixelBytes >> header.pngBytes;
    return mark == replyMark ? std::optional(header) : std::nullopt;
}

bool DecodeReplyHeader::fits(const DecodeRequest& request) const
{
    const auto side = static_cast<quint64>(request.side);
    if (request.purpose == DecodeRequest::Purpose::conversion)
        return width == 0 && height == 0 && pixelBytes == 0 && pngBytes <= largestPng(request.side);
    if (width > side || height > side)
        return false;
    const bool hasPixels = pixelBytes == quint64(width) * height * 4;
    return hasPixels && pngBytes <= (request.savedSide == 0 ? 0 : largestPng(request.savedSide));
}

} // namespace nookle
