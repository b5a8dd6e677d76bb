#include "DecoderProtocol.h"

#include "PictureFormat.h"

#include <QDataStream>
#include <QIODevice>

#include <limits>

namespace nookle {

namespace {

// The maximum side of shared thumbnails, in pixels.
inline constexpr int largestThumbnail = 1024;

// The maximum size of a PNG beyond its pixels, in bytes: for its chunks, and for pixels that cannot be compressed.
inline constexpr quint64 pngOverhead = 65'536;

// The maximum size of the numbers in a reply, in bytes.
inline constexpr quint64 replyOverhead = 64;

[[nodiscard]] quint64 largestPixels(int side)
{
    return static_cast<quint64>(side) * static_cast<quint64>(side) * 4;
}

[[nodiscard]] quint64 largestPng(int side)
{
    // A pixel has at most four channels of sixteen bits.
    const quint64 pixels = largestPixels(side) * 2;
    return pixels + pixels / 512 + pngOverhead;
}

[[nodiscard]] quint64 largestPng(const DecodeRequest& request)
{
    if (request.purpose == DecodeRequest::Purpose::conversion)
        return largestPng(request.side);
    return request.savedSide == 0 ? 0 : largestPng(request.savedSide);
}

[[nodiscard]] bool fits(const DecodeReply& reply, const DecodeRequest& request)
{
    const int largestSide = request.purpose == DecodeRequest::Purpose::conversion ? 0 : request.side;
    const auto isSide = [largestSide](int side) { return side >= 0 && side <= largestSide; };
    return isSide(reply.width) && isSide(reply.height)
        && reply.pixels.size() == qsizetype(reply.width) * reply.height * 4
        && static_cast<quint64>(reply.png.size()) <= largestPng(request)
        && (reply.png.isEmpty() || isPngStart(reply.png));
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
    stream.setVersion(QDataStream::Qt_6_4);
    stream << qint32(width) << qint32(height) << pixels << png;
    return bytes;
}

std::optional<DecodeReply> DecodeReply::decode(const QByteArray& bytes, const DecodeRequest& request)
{
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_6_4);
    DecodeReply reply;
    qint32 width = 0;
    qint32 height = 0;
    stream >> width >> height >> reply.pixels >> reply.png;
    reply.width = width;
    reply.height = height;
    const bool isWhole = stream.status() == QDataStream::Ok && stream.atEnd();
    return isWhole && fits(reply, request) ? std::optional(reply) : std::nullopt;
}

quint32 DecodeReply::longest(const DecodeRequest& request)
{
    const quint64 most = largestPixels(request.side) + largestPng(request) + replyOverhead;
    return static_cast<quint32>(qMin(most, quint64{ std::numeric_limits<quint32>::max() }));
}

} // namespace nookle
