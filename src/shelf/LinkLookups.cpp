#include "LinkLookups.h"

#include "LinkMetadataService.h"

#include <utility>

namespace nookle {

LinkLookups::LinkLookups(LinkMetadataService& service)
    : m_service(service)
{
}

LinkLookups::~LinkLookups() = default;

void LinkLookups::fetchLinkMetadata(const QUuid& id, const QUrl& url)
{
    // Capturing `this` is safe: this object owns the request, and the completion is not called after the request's end.
    m_metadataProviders[id] =
        m_service.start(url, [this, id](const std::optional<LinkMetadata>& metadata) { finish(id, metadata); });
}

void LinkLookups::finish(QUuid id, const std::optional<LinkMetadata>& metadata)
{
    m_metadataProviders.erase(id);
    if (!metadata)
        return;
    // Made before `onTitle` is called, because that may destroy this object.
    const auto takeIcon = m_lifetime.guarded([this, id](const std::optional<QByteArray>& png) {
        if (png)
            onIcon(id, *png);
    });
    if (metadata->title)
        onTitle(id, *metadata->title);
    if (metadata->loadIcon)
        metadata->loadIcon(takeIcon);
}

} // namespace nookle
