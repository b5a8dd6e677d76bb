#include "IconLoad.h"

#include "ImageConverter.h"
#include "MainQueue.h"

#include <utility>

namespace nookle {

IconLoad::IconLoad(Services services, const LookupReply& page, Completion completion)
    : m_services(std::move(services))
    , m_places(page.places)
    , m_from(page.reach)
    , m_completion(std::move(completion))
{
    m_services.queue.post(m_lifetime.guarded([this] { tryNextPlace(); }));
}

IconLoad::~IconLoad() = default;

void IconLoad::tryNextPlace()
{
    if (m_places.isEmpty())
        return finish(std::nullopt);
    const IconPlace place = m_places.takeFirst();
    if (!place.bytes.isEmpty())
        return convert(place.bytes);
    m_services.lookUp(LookupRequest{ LookupRequest::Purpose::icon, place.url, m_from },
                      m_lifetime.guarded([this](const std::optional<LookupReply>& reply) { takeReply(reply); }));
}

void IconLoad::takeReply(const std::optional<LookupReply>& reply)
{
    // If a lookup for this page has timed out or failed, no other place is tried.
    if (!reply)
        finish(std::nullopt);
    else if (reply->isFound)
        convert(reply->icon);
    else
        tryNextPlace();
}

void IconLoad::convert(const QByteArray& bytes)
{
    m_limit = m_services.queue.after(longestConversion, [this] { finish(std::nullopt); });
    m_conversion = m_services.converter.convertToPng(
        bytes, maximumSide, [this](std::optional<QByteArray> png) { takePng(std::move(png)); });
}

void IconLoad::takePng(std::optional<QByteArray> png)
{
    m_limit.reset();
    m_conversion.reset();
    if (png)
        finish(std::move(png));
    else
        tryNextPlace();
}

void IconLoad::finish(std::optional<QByteArray> png)
{
    const Completion completion = std::exchange(m_completion, nullptr);
    completion(std::move(png));
}

} // namespace nookle
