#include "ShelfStore.h"

#include "DataFiles.h"
#include "FileUrl.h"
#include "Log.h"
#include "OrphanFolders.h"
#include "PlainText.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace nookle {

namespace {

constexpr qint64 orphanAgeInDays = 1;

/// A file to add: as a new item, or by moving the item `known` to the top.
struct Addition {
    QUrl url;
    std::optional<ShelfItem> known;
};

} // namespace

ShelfStore::ShelfStore(const QUrl& directory, Environment environment, FileReferences& fileReferences,
                       const Trash& trash, LinkMetadataService& linkMetadata, MainQueue& queue)
    : m_environment(std::move(environment))
    , m_directory(directory)
    , m_itemFiles(child(directory, QStringLiteral("Files")))
    , m_files(fileReferences, trash)
    , m_index({ filePath(directory), m_environment.largestIndex, m_environment.claimFolder }, m_items, m_itemFiles,
              queue)
    , m_lookups(linkMetadata)
    , m_removed(m_itemFiles, trash, m_environment.putBack)
{
    keepPrivate(filePath(m_directory));
    m_changes.onUrlsChanged = [this] { Q_EMIT fileURLsChanged(); };
    m_changes.onItemsChanged = [this] { Q_EMIT itemsChanged(); };
    m_lookups.onTitle = [this](const QUuid& id, const QString& title) { updateLink(id, title, {}); };
    m_lookups.onIcon = [this](const QUuid& id, const QByteArray& png) { saveIcon(png, id); };
    m_items = m_index.load();
    refreshFiles();
}

ShelfStore::~ShelfStore() = default;

void ShelfStore::addFiles(const QList<QUrl>& urls)
{
    auto itemsByPath = m_files.itemsByPath(m_items);
    QSet<QUuid> readded;
    std::vector<Addition> additions;
    QList<QUrl> newUrls;
    for (const QUrl& url : urls) {
        Addition addition{ standardized(url), {} };
        QList<qsizetype>& known = itemsByPath[filePath(addition.url)];
        while (!known.isEmpty() && !addition.known) {
            const ShelfItem& item = m_items.at(known.takeLast());
            // Items with the same id are moved as one.
            if (!readded.contains(item.id))
                addition.known = item;
            readded.insert(item.id);
        }
        if (!addition.known)
            newUrls.append(addition.url);
        additions.push_back(std::move(addition));
    }

    const QList<std::optional<FileContent>> newFiles = m_files.makeAll(newUrls);
    auto newFile = newFiles.begin();
    QList<ShelfItem> top;
    QList<ShelfItem> newItems;
    for (Addition& addition : additions) {
        if (addition.known) {
            addition.known->createdAt = now();
            top.append(*std::move(addition.known));
        } else if (const auto& file = *newFile++) {
            top.append(makeItem(*file));
            m_files.insert(top.constLast().id, addition.url);
            newItems.append(top.constLast());
        }
    }
    if (!newItems.isEmpty() && !hasRoomFor(newItems)) {
        m_files.forget(newItems, m_items);
        return;
    }
    if (top.isEmpty())
        return;
    m_items.removeIf([&](const ShelfItem& item) { return readded.contains(item.id); });
    m_items = top + m_items;
    m_removed.forgetPlaces(readded);
    m_index.schedule();
    if (!newItems.isEmpty())
        m_changes.urlsChanged();
    m_changes.itemsChanged();
}

void ShelfStore::addText(const QString& text)
{
    if (text.trimmed().isEmpty())
        return;
    if (const std::optional<LinkUrl> url = ShelfItem::webURL(text)) {
        addLink(*url, {});
        return;
    }
    const ShelfItem::Content content = TextContent{ text };
    const auto same =
        std::find_if(m_items.cbegin(), m_items.cend(), [&](const ShelfItem& item) { return item.content == content; });
    if (same != m_items.cend()) {
        moveToTop(same - m_items.cbegin());
    } else {
        const ShelfItem item = makeItem(content);
        if (!hasRoomFor({ item }))
            return;
        m_items.prepend(item);
    }
    m_index.schedule();
    m_changes.itemsChanged();
}

void ShelfStore::addLink(const LinkUrl& url, const std::optional<QString>& title)
{
    const auto same = std::find_if(m_items.cbegin(), m_items.cend(), [&](const ShelfItem& item) {
        const LinkContent* link = std::get_if<LinkContent>(&item.content);
        return link && link->url == url;
    });
    if (same != m_items.cend()) {
        moveToTop(same - m_items.cbegin());
    } else {
        const ShelfItem item = makeItem(LinkContent{ url, cleanedTitle(title), false });
        if (!hasRoomFor({ item }))
            return;
        m_items.prepend(item);
        if (m_environment.fetchesLinkMetadata)
            m_lookups.fetchLinkMetadata(item.id, url.url());
    }
    m_index.schedule();
    m_changes.itemsChanged();
}

void ShelfStore::addImage(const QUrl& movingFrom)
{
    const QString fileName = ItemFiles::storedName(movingFrom);
    const ShelfItem item = makeItem(ImageContent{ fileName });
    if (!hasRoomFor({ item }))
        return;
    std::optional<Failure> failure = m_index.ensureWritten();
    if (!failure)
        failure = m_itemFiles.takeOver(movingFrom, item.id, fileName);
    if (failure) {
        logLine(QStringLiteral("could not take over image: ") + failure->description);
        imageNotAdded(failure->shown());
        return;
    }
    m_items.prepend(item);
    m_index.schedule();
    m_changes.itemsChanged();
}

void ShelfStore::imageNotAdded(const QString& reason)
{
    Q_EMIT additionFailed(tr("The image could not be added to the shelf: %1").arg(reason));
}

std::optional<Failure> ShelfStore::restoreImage(QUuid id, const QByteArray& bytes)
{
    const qsizetype index = indexOf(id);
    const auto* image = index < 0 ? nullptr : std::get_if<ImageContent>(&m_items.at(index).content);
    if (!image)
        return {};
    std::optional<Failure> failure = m_itemFiles.write(bytes, id, image->fileName);
    if (!failure)
        m_changes.itemsChanged();
    return failure;
}

bool ShelfStore::hasRoomFor(const QList<ShelfItem>& additions)
{
    const bool hasRoom = m_index.hasRoomFor(additions);
    if (!hasRoom)
        Q_EMIT additionFailed(tr("The shelf is full. Remove something large and try again."));
    return hasRoom;
}

void ShelfStore::togglePinned(QUuid id)
{
    const qsizetype index = indexOf(id);
    if (index < 0)
        return;
    m_items[index].pinned = !m_items.at(index).pinned;
    m_index.schedule();
    m_changes.itemsChanged();
}

void ShelfStore::setPinned(const QSet<QUuid>& ids, bool pinned)
{
    bool isChanged = false;
    for (ShelfItem& item : m_items) {
        if (ids.contains(item.id))
            isChanged |= std::exchange(item.pinned, pinned) != pinned;
    }
    if (!isChanged)
        return;
    m_index.schedule();
    m_changes.itemsChanged();
}

void ShelfStore::remove(const QSet<QUuid>& ids)
{
    m_removed.keep(ids, m_items, m_files.urls(), now());
    removeAll(ids);
}

void ShelfStore::removeUnpinned()
{
    QSet<QUuid> unpinned;
    for (const ShelfItem& item : std::as_const(m_items)) {
        if (!item.pinned)
            unpinned.insert(item.id);
    }
    if (!unpinned.isEmpty())
        remove(unpinned);
}

void ShelfStore::undoRemove()
{
    RemovedItems::Return result;
    // Goes on to the step before if everything has been added anew already.
    while (result.items.isEmpty() && result.missing.isEmpty() && canUndoRemove()) {
        if (!hasRoomFor(m_removed.last()))
            return;
        // Without an index the folders of items look like those of a lost one.
        static_cast<void>(m_index.ensureWritten());
        result = m_removed.putBackLast(m_items, m_files.urls(), now());
    }
    if (!result.missing.isEmpty())
        Q_EMIT additionFailed(
            tr("Could not be brought back from the Trash: %1").arg(result.missing.join(QStringLiteral(", "))));
    if (result.items.isEmpty())
        return;
    m_index.schedule();
    for (const ShelfItem& item : std::as_const(result.items))
        lookUpIfUnknown(item);
    m_changes.together([this] {
        refreshFiles();
        m_changes.itemsChanged();
    });
}

void ShelfStore::lookUpIfUnknown(const ShelfItem& item)
{
    const LinkContent* link = std::get_if<LinkContent>(&item.content);
    if (link && !link->title && !link->hasIcon && m_environment.fetchesLinkMetadata)
        m_lookups.fetchLinkMetadata(item.id, link->url.url());
}

void ShelfStore::removeExpired(double maxAge)
{
    const QDateTime present = now();
    QSet<QUuid> expired;
    for (const ShelfItem& item : std::as_const(m_items)) {
        const auto age = static_cast<double>(item.createdAt.msecsTo(present)) / 1000;
        if (!item.pinned && age > maxAge && !m_inUse.contains(item.id))
            expired.insert(item.id);
    }
    if (!expired.isEmpty())
        removeAll(expired);
}

std::unique_ptr<Cancellable> ShelfStore::keepFromExpiring(QUuid id)
{
    m_inUse.append(id);
    return std::make_unique<Cancellable>(m_lifetime.guarded([this, id] { m_inUse.removeOne(id); }));
}

void ShelfStore::removeAll(const QSet<QUuid>& ids)
{
    QList<ShelfItem> gone;
    QSet<QUuid> found;
    for (const ShelfItem& item : std::as_const(m_items)) {
        if (ids.contains(item.id))
            gone.append(item);
    }
    for (const ShelfItem& item : std::as_const(gone)) {
        if (!found.contains(item.id))
            moveImageToTrash(item);
        found.insert(item.id);
    }
    m_items.removeIf([&](const ShelfItem& item) { return ids.contains(item.id); });
    const bool changedUrls = m_files.forget(gone, m_items);
    for (const QUuid& id : ids) {
        m_lookups.cancel(id);
        m_itemFiles.removeFolder(id);
    }
    m_index.schedule();
    if (changedUrls)
        m_changes.urlsChanged();
    if (!gone.isEmpty())
        m_changes.itemsChanged();
}

void ShelfStore::moveImageToTrash(const ShelfItem& item) const
{
    const ImageContent* image = std::get_if<ImageContent>(&item.content);
    const std::optional<QUrl> url = image ? m_itemFiles.existingFile(item.id, image->fileName) : std::nullopt;
    // If this fails, the file is deleted with the item's folder.
    if (url)
        static_cast<void>(m_environment.moveToTrash(*url));
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
    m_index.schedule();
    m_changes.itemsChanged();
}

void ShelfStore::saveIcon(const QByteArray& png, QUuid id)
{
    if (indexOf(id) < 0)
        return;
    std::optional<Failure> failure = m_index.ensureWritten();
    if (!failure)
        failure = m_itemFiles.write(png, id, ItemFiles::iconName());
    if (failure) {
        logLine(QStringLiteral("could not save favicon: ") + failure->description);
        return;
    }
    updateLink(id, {}, true);
}

std::optional<QUrl> ShelfStore::localURL(const ShelfItem& item) const
{
    if (std::holds_alternative<FileContent>(item.content))
        return m_files.url(item.id);
    if (const ImageContent* image = std::get_if<ImageContent>(&item.content))
        return m_itemFiles.file(item.id, image->fileName);
    return {};
}

bool ShelfStore::isFolder(const ShelfItem& item) const
{
    const FileContent* file = std::get_if<FileContent>(&item.content);
    return file && m_files.isFolder(*file);
}

std::optional<QUrl> ShelfStore::iconURL(const ShelfItem& item) const
{
    const LinkContent* link = std::get_if<LinkContent>(&item.content);
    if (!link || !link->hasIcon)
        return {};
    return m_itemFiles.file(item.id, ItemFiles::iconName());
}

void ShelfStore::refreshFiles()
{
    const ReferencedFiles::Changes changes = m_files.refresh(m_items);
    if (changes.ofItems)
        m_index.schedule();
    if (changes.ofUrls)
        m_changes.urlsChanged();
    if (changes.ofItems)
        m_changes.itemsChanged();
}

void ShelfStore::removeOrphans()
{
    const QDateTime time = now().addDays(-orphanAgeInDays);
    removeUnfinished(filePath(m_directory), time);
    removeOrphanFolders(m_items, m_itemFiles, m_index, time, m_environment.moveToTrash);
}

void ShelfStore::moveToTop(qsizetype index)
{
    m_items.move(index, 0);
    m_removed.forgetPlaces({ m_items.constFirst().id });
    m_items.first().createdAt = now();
}

qsizetype ShelfStore::indexOf(const QUuid& id) const
{
    const auto found =
        std::find_if(m_items.begin(), m_items.end(), [&](const ShelfItem& item) { return item.id == id; });
    return found == m_items.end() ? -1 : found - m_items.begin();
}

ShelfItem ShelfStore::makeItem(ShelfItem::Content content) const
{
    return { QUuid::createUuid(), now(), std::move(content), false };
}

} // namespace nookle
