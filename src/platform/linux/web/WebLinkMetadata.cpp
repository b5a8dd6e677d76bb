#include "WebLinkMetadata.h"

#include "IconLoad.h"
#include "PageLookup.h"

#include <utility>

namespace nookle {

class WebLinkMetadata::Request final : public LinkMetadataRequest {
public:
    Request(const std::shared_ptr<WebLinkMetadata*>& service, WebJobQueue::Id id)
        : m_service(service)
        , m_id(id)
    {
    }
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;

    ~Request() override
    {
        if (const auto service = m_service.lock())
            (*service)->m_jobs.remove(m_id);
    }

private:
    std::weak_ptr<WebLinkMetadata*> m_service;
    WebJobQueue::Id m_id;
};

WebLinkMetadata::WebLinkMetadata(WebRoutes& routes, ImageConverter& converter, MainQueue& queue)
    : m_routes(routes)
    , m_converter(converter)
    , m_queue(queue)
    , m_self(std::make_shared<WebLinkMetadata*>(this))
{
}

WebLinkMetadata::~WebLinkMetadata() = default;

std::unique_ptr<LinkMetadataRequest> WebLinkMetadata::start(const QUrl& url, Completion completion)
{
    const WebJobQueue::Id id = m_jobs.nextId();
    auto lookup = std::make_unique<PageLookup>(m_routes, m_queue, url);
    lookup->onEnd = [this, id, completion = std::move(completion)](std::optional<PageFacts> facts) {
        std::optional<LinkMetadata> found;
        if (facts)
            found = metadata(std::move(*facts));
        // Last, because it may destroy everything else.
        m_jobs.remove(id);
        completion(std::move(found));
    };
    m_jobs.add(id, std::move(lookup));
    return std::make_unique<Request>(m_self, id);
}

LinkMetadata WebLinkMetadata::metadata(PageFacts facts) const
{
    LinkMetadata found{ facts.title, nullptr };
    if (facts.iconPlaces.isEmpty())
        return found;
    found.loadIcon = [weak = std::weak_ptr(m_self), facts = std::move(facts)](IconCompletion completion) {
        if (const auto self = weak.lock())
            (*self)->loadIcon(facts, std::move(completion));
    };
    return found;
}

void WebLinkMetadata::loadIcon(const PageFacts& facts, IconCompletion completion)
{
    const WebJobQueue::Id id = m_jobs.nextId();
    auto load =
        std::make_unique<IconLoad>(IconLoad::Services{ m_routes, m_converter, m_queue }, facts.iconPlaces, facts.reach);
    load->onEnd = [this, id, completion = std::move(completion)](std::optional<QByteArray> png) {
        m_jobs.remove(id);
        completion(std::move(png));
    };
    m_jobs.add(id, std::move(load));
}

} // namespace nookle
