#include "Lookup.h"

#include "ContentSniffing.h"
#include "DataUrl.h"
#include "Page.h"
#include "PageIcons.h"
#include "ProcessLimits.h"
#include "RequestSocket.h"
#include "WebTransfer.h"

#include <unistd.h>

#include <utility>

namespace nookle {

namespace {

// The maximum number of times that a page is parsed before it is complete.
inline constexpr int mostEarlyReadings = 4;

// An engine that runs scripts reserves far more address space than it uses.
inline constexpr std::size_t memoryWithScript = std::size_t(16) << 30;

/// Detects the end of a page's head while the page arrives, so that the rest need not be loaded.
class HeadWatch final {
public:
    [[nodiscard]] bool isEnough(const WebResponse& response);

private:
    qsizetype m_searched = 0;
    int m_readings = 0;
};

bool HeadWatch::isEnough(const WebResponse& response)
{
    const std::optional<bool> isPage = isPageType(response.contentType);
    if (isPage == false)
        return true;
    const QByteArray& body = response.body;
    if (!isPage && body.size() >= sniffedBytes && !looksLikePage(body.left(sniffedBytes)))
        return true;
    const QByteArray added = body.mid(m_searched).toLower();
    const bool isMarked = added.contains("</head>") || added.contains("<body") || added.contains("<frameset");
    // A tag may be split between two parts, so its beginning is searched again with the next part.
    if (!isMarked || m_readings == mostEarlyReadings) {
        m_searched = qMax(m_searched, body.size() - qsizetype(qstrlen("<frameset")));
        return false;
    }
    m_searched = body.size();
    ++m_readings;
    return readPage(body, response.contentType).isHeadOver;
}

[[nodiscard]] QList<IconPlace> placesOf(const QList<QUrl>& urls)
{
    QList<IconPlace> places;
    for (const QUrl& url : urls) {
        IconPlace place;
        if (url.scheme() == QLatin1String("data"))
            place.bytes = bytesOfDataUrl(url).value_or(QByteArray());
        else
            place.url = url.toEncoded();
        const bool isIcon = place.bytes.size() <= LookupReply::largestIcon && looksLikeIcon(place.bytes);
        const bool isAddress = !place.url.isEmpty() && place.url.size() <= LookupRequest::longestUrl;
        if (places.size() < LookupReply::mostPlaces && (isIcon || isAddress))
            places.append(place);
    }
    return places;
}

[[nodiscard]] LookupReply lookUpPage(const LookupRequest& request, const WebSurroundings& surroundings)
{
    HeadWatch watch;
    const auto isEnough = [&watch](const WebResponse& response) { return watch.isEnough(response); };
    const auto response =
        fetch(surroundings,
              WebWish{ QUrl::fromEncoded(request.url), request.from, "text/html,application/xhtml+xml;q=0.9,*/*;q=0.1",
                       maximumPageBytes, isEnough });
    LookupReply reply;
    if (!response)
        return reply;
    reply.isFound = true;
    reply.reach = response->reach;
    if (!isPageType(response->contentType).value_or(looksLikePage(response->body.left(sniffedBytes))))
        return reply;
    const Page page = readPage(response->body, response->contentType);
    reply.title = page.title;
    reply.places = placesOf(iconPlaces(response->url, page.baseHref, page.icons));
    return reply;
}

[[nodiscard]] LookupReply lookUpIcon(const LookupRequest& request, const WebSurroundings& surroundings)
{
    const auto response =
        fetch(surroundings,
              WebWish{ QUrl::fromEncoded(request.url), request.from, "image/*,*/*;q=0.1", LookupReply::largestIcon });
    LookupReply reply;
    if (!response || response->isTooLong || !looksLikeIcon(response->body))
        return reply;
    reply.isFound = true;
    reply.icon = response->body;
    return reply;
}

} // namespace

LookupReply lookUp(const LookupRequest& request, const WebSurroundings& surroundings)
{
    if (request.purpose == LookupRequest::Purpose::icon)
        return lookUpIcon(request, surroundings);
    return lookUpPage(request, surroundings);
}

int answerRequests(const WebSurroundings& surroundings)
{
    RequestSocket program(FileDescriptor(STDIN_FILENO), LookupRequest::longest);
    if (!program.send(lookupGreeting))
        return 1;
    while (const auto incoming = program.receive()) {
        const auto request = LookupRequest::decode(incoming->message);
        if (!request)
            return 1;
        limitMemory(request->proxies.hasScript() ? memoryWithScript : usualMemory);
        setSystemProxies(request->proxies);
        if (!program.sendMessage(lookUp(*request, surroundings).encode()))
            return 1;
    }
    return 0;
}

} // namespace nookle
