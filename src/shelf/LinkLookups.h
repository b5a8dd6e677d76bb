#pragma once

#include "Lifetime.h"

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <QUuid>

#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace nookle {

class Cancellable;
class LinkMetadataService;
struct LinkMetadata;

/// Runs the lookups of titles and icons, at most one for each link. Main thread only.
class LinkLookups final {
public:
    /// `service` must outlive this object.
    explicit LinkLookups(LinkMetadataService& service);
    ~LinkLookups();
    LinkLookups(const LinkLookups&) = delete;
    LinkLookups& operator=(const LinkLookups&) = delete;

    /// Looks up the page at `url` for the item `id`.
    void fetchLinkMetadata(const QUuid& id, const QUrl& url);

    /// Cancels the lookup for `id`, if there is one.
    void cancel(const QUuid& id) { m_metadataProviders.erase(id); }

    /// Called with the title of a page. Set by the owner.
    std::function<void(const QUuid& id, const QString& title)> onTitle;

    /// Called with the icon of a page, as PNG. Set by the owner.
    std::function<void(const QUuid& id, const QByteArray& png)> onIcon;

private:
    void finish(QUuid id, const std::optional<LinkMetadata>& metadata);

    LinkMetadataService& m_service;
    std::map<QUuid, std::unique_ptr<Cancellable>> m_metadataProviders;
    Lifetime m_lifetime;
};

} // namespace nookle
