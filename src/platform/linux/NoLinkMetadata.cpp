#include "NoLinkMetadata.h"

#include "MainQueue.h"

#include <utility>

namespace nookle {

namespace {

class Request final : public LinkMetadataRequest {
public:
    explicit Request(std::shared_ptr<LinkMetadataService::Completion> completion)
        : m_completion(std::move(completion))
    {
    }

private:
    std::shared_ptr<LinkMetadataService::Completion> m_completion;
};

} // namespace

NoLinkMetadata::NoLinkMetadata(MainQueue& queue)
    : m_queue(queue)
{
}

std::unique_ptr<LinkMetadataRequest> NoLinkMetadata::start(const QUrl& /*url*/, Completion completion)
{
    auto shared = std::make_shared<Completion>(std::move(completion));
    m_queue.post([weak = std::weak_ptr(shared)] {
        // Held here while it runs, because it may destroy its request.
        if (const auto call = weak.lock())
            (*call)(std::nullopt);
    });
    return std::make_unique<Request>(std::move(shared));
}

} // namespace nookle
