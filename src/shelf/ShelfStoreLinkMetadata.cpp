#include "ShelfStore.h"

#include "Log.h"
#include "PlainText.h"

#include <QPointer>

#include <utility>

namespace nookle {

void ShelfStore::fetchLinkMetadata(QUuid id, const QUrl& url)
{
    // The request lives no longer than the store, and its completion no longer than the request.
    m_metadataProviders[id] = m_linkMetadata.start(
        url, [this, id](std::optional<LinkMetadata> metadata) { finishLookup(id, std::move(metadata)); });
}

void ShelfStore::finishLookup(QUuid id, std::optional<LinkMetadata> metadata)
{
    const QPointer<ShelfStore> store = this;
    m_metadataProviders.erase(id);
    if (!metadata)
        return;
    if (metadata->title)
        updateLink(id, metadata->title, {});
    if (!metadata->loadIcon)
        return;
    metadata->loadIcon([store, id](const std::optional<QByteArray>& png) {
        if (store && png)
            store->saveIcon(*png, id);
    });
}

void ShelfStore::updateLink(QUuid id, const std::optional<QString>& title, std::optional<bool> hasIcon)
{
    const qsizetype index = indexOf(id);
    if (index < 0 || !std::holds_alternative<LinkContent>(m_items.at(index).content))
        return;
    LinkContent& link = std::get<LinkContent>(m_items[index].content);
    if (const auto cleaned = cleanedTitle(title))
        link.title = cleaned;
    if (hasIcon)
        link.hasIcon = *hasIcon;
    scheduleSave();
    Q_EMIT itemsChanged();
}

void ShelfStore::saveIcon(const QByteArray& png, QUuid id)
{
    if (indexOf(id) < 0)
        return;
    std::optional<Failure> failure = ensureIndex();
    if (!failure)
        failure = m_itemFiles.write(png, id, iconFileName());
    if (failure) {
        logLine(QStringLiteral("could not save favicon: ") + failure->description);
        return;
    }
    updateLink(id, {}, true);
}

} // namespace nookle
