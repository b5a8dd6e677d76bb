#include "LookupProtocol.h"

#include "ContentSniffing.h"
#include "PageTitle.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>

namespace nookle {

namespace {

[[nodiscard]] bool isReach(quint8 value)
{
    return value <= quint8(WebReach::privateNetwork);
}

[[nodiscard]] bool isIcon(const QByteArray& bytes)
{
    return bytes.size() <= LookupReply::largestIcon && looksLikeIcon(bytes);
}

[[nodiscard]] bool isPlace(const IconPlace& place)
{
    if (place.url.isEmpty())
        return isIcon(place.bytes);
    const bool isWeb = place.url.startsWith("http://") || place.url.startsWith("https://");
    return isWeb && place.url.size() <= LookupRequest::longestUrl && place.bytes.isEmpty();
}

[[nodiscard]] bool fits(const LookupReply& reply, const LookupRequest& request)
{
    const bool isEmpty = !reply.title && reply.places.isEmpty() && reply.icon.isEmpty();
    if (!reply.isFound)
        return isEmpty;
    if (request.purpose == LookupRequest::Purpose::icon)
        return !reply.title && reply.places.isEmpty() && isIcon(reply.icon);
    const bool hasGoodTitle = !reply.title || presentableTitle(*reply.title) == reply.title;
    return hasGoodTitle && reply.icon.isEmpty() && std::all_of(reply.places.begin(), reply.places.end(), isPlace);
}

} // namespace

QByteArray LookupRequest::encode() const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_4);
    stream << quint8(purpose) << quint8(from) << url << proxies.http << proxies.https << proxies.exceptions;
    return bytes.size() <= qsizetype(longest) ? bytes : LookupRequest{ purpose, url, from }.encode();
}

std::optional<LookupRequest> LookupRequest::decode(const QByteArray& bytes)
{
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_6_4);
    quint8 purpose = 0;
    quint8 from = 0;
    LookupRequest request;
    stream >> purpose >> from >> request.url >> request.proxies.http >> request.proxies.https
        >> request.proxies.exceptions;
    const bool isKnown = purpose >= quint8(Purpose::page) && purpose <= quint8(Purpose::icon) && isReach(from);
    if (stream.status() != QDataStream::Ok || !stream.atEnd() || !isKnown || request.url.size() > longestUrl)
        return std::nullopt;
    request.purpose = Purpose(purpose);
    request.from = WebReach(from);
    return request;
}

QByteArray LookupReply::encode() const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_4);
    stream << isFound << quint8(reach) << title.has_value() << title.value_or(QString()) << icon
           << quint8(places.size());
    for (const IconPlace& place : places)
        stream << place.url << place.bytes;
    return bytes;
}

std::optional<LookupReply> LookupReply::decode(const QByteArray& bytes, const LookupRequest& request)
{
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_6_4);
    LookupReply reply;
    quint8 reach = 0;
    bool hasTitle = false;
    QString title;
    quint8 places = 0;
    stream >> reply.isFound >> reach >> hasTitle >> title >> reply.icon >> places;
    if (places > mostPlaces || !isReach(reach) || (!hasTitle && !title.isEmpty()))
        return std::nullopt;
    for (quint8 i = 0; i < places; ++i) {
        IconPlace place;
        stream >> place.url >> place.bytes;
        reply.places.append(place);
    }
    reply.reach = WebReach(reach);
    if (hasTitle)
        reply.title = title;
    const bool isWhole = stream.status() == QDataStream::Ok && stream.atEnd();
    return isWhole && fits(reply, request) ? std::optional(reply) : std::nullopt;
}

} // namespace nookle
