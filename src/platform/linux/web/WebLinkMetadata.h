#pragma once

#include "LinkMetadataService.h"
#include "WebJobQueue.h"

#include <memory>

namespace nookle {

class ImageConverter;
class MainQueue;
class WebRoutes;
struct PageFacts;

/// Looks pages up on the web: asks their servers for them, and reads their heads. A few at once, the rest in their
/// turn. An address that is no page is looked up successfully, and has neither title nor icon; one whose server answers
/// with an error is not. When this object goes, what it has under way is dropped, and nobody is called back.
class WebLinkMetadata final : public LinkMetadataService {
public:
    WebLinkMetadata(WebRoutes& routes, ImageConverter& converter, MainQueue& queue);
    ~WebLinkMetadata() override;
    WebLinkMetadata(const WebLinkMetadata&) = delete;
    WebLinkMetadata& operator=(const WebLinkMetadata&) = delete;

    std::unique_ptr<LinkMetadataRequest> start(const QUrl& url, Completion completion) override;

private:
    using IconCompletion = std::function<void(std::optional<QByteArray> png)>;

    class Request;

    [[nodiscard]] LinkMetadata metadata(PageFacts facts) const;
    void loadIcon(const PageFacts& facts, IconCompletion completion);

    WebRoutes& m_routes;
    ImageConverter& m_converter;
    MainQueue& m_queue;
    WebJobQueue m_jobs;
    /// Expires with this object, for those that still want something of it then.
    std::shared_ptr<WebLinkMetadata*> m_self;
};

} // namespace nookle
