#include "ShelfStore.h"

#include "DataFiles.h"
#include "FileReferences.h"
#include "FileUrl.h"
#include "Log.h"
#include "PlainText.h"
#include "Trash.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace nookle {

namespace {

constexpr qint64 orphanAgeInDays = 1;

[[nodiscard]] QString iconFileName()
{
    return QStringLiteral("icon.png");
}

/// The places of the items whose file is at a path, the topmost last.
[[nodiscard]] QHash<QByteArray, QList<qsizetype>> placesByPath(const QList<ShelfItem>& items,
                                                               const QHash<QUuid, QUrl>& fileURLs)
{
    QHash<QByteArray, QList<qsizetype>> places;
    for (qsizetype place = items.size() - 1; place >= 0; --place) {
        const auto url = fileURLs.constFind(items.at(place).id);
        if (url != fileURLs.constEnd())
            places[standardizedPath(*url)].append(place);
    }
    return places;
}

/// A file that is to be added: an item that was on the shelf already, or a new one.
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
    , m_fileReferences(fileReferences)
    , m_trash(trash)
    , m_index({ filePath(directory), m_environment.largestIndex, m_environment.claimFolder }, m_items, m_itemFiles,
              queue)
    , m_lookups(linkMetadata)
{
    keepPrivate(filePath(m_directory));
    m_lookups.onTitle = [this](const QUuid& id, const QString& title) { updateLink(id, title, {}); };
    m_lookups.onIcon = [this](const QUuid& id, const QByteArray& png) { saveIcon(png, id); };
    m_items = m_index.load();
    refreshFiles();
}

ShelfStore::~ShelfStore() = default;

void ShelfStore::addFiles(const QList<QUrl>& urls)
{
    auto places = placesByPath(m_items, m_fileURLs);
    QSet<QUuid> readded;
    std::vector<Addition> additions;
    QList<QUrl> newUrls;
    for (const QUrl& url : urls) {
        Addition addition{ standardized(url), {} };
        QList<qsizetype>& known = places[filePath(addition.url)];
        while (!known.isEmpty() && !addition.known) {
            const ShelfItem& item = m_items.at(known.takeLast());
            // Two items of one id go together.
            if (!readded.contains(item.id))
                addition.known = item;
            readded.insert(item.id);
        }
        if (!addition.known)
            newUrls.append(addition.url);
        additions.push_back(std::move(addition));
    }

    const QList<std::optional<QByteArray>> bookmarks = m_fileReferences.makeAll(newUrls);
    auto bookmark = bookmarks.begin();
    QList<ShelfItem> top;
    QList<ShelfItem> newItems;
    for (Addition& addition : additions) {
        if (addition.known) {
            addition.known->createdAt = now();
            top.append(*std::move(addition.known));
        } else if (const auto& made = *bookmark++) {
            top.append(makeItem(FileContent{ *made, lastPathComponent(addition.url) }));
            m_fileURLs.insert(top.constLast().id, addition.url);
            newItems.append(top.constLast());
        }
    }
    if (!newItems.isEmpty() && !hasRoomFor(newItems)) {
        forgetFiles(newItems);
        return;
    }
    if (top.isEmpty())
        return;
    m_items.removeIf([&](const ShelfItem& item) { return readded.contains(item.id); });
    m_items = top + m_items;
    m_index.schedule();
    if (!newItems.isEmpty())
        Q_EMIT fileURLsChanged();
    Q_EMIT itemsChanged();
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
    Q_EMIT itemsChanged();
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
            m_lookups.fetchLinkMetadata(m_items.constFirst().id, url.url());
    }
    m_index.schedule();
    Q_EMIT itemsChanged();
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
        imageNotAdded(failure->description);
        return;
    }
    m_items.prepend(item);
    m_index.schedule();
    Q_EMIT itemsChanged();
}

void ShelfStore::imageNotAdded(const QString& reason)
{
    Q_EMIT additionFailed(tr("The image could not be added to the shelf: %1").arg(reason));
}

void ShelfStore::restoreImage(QUuid id, const QByteArray& bytes)
{
    const qsizetype index = indexOf(id);
    const auto* image = index < 0 ? nullptr : std::get_if<ImageContent>(&m_items.at(index).content);
    if (!image)
        return;
    if (const std::optional<Failure> failure = m_itemFiles.write(bytes, id, image->fileName))
        logLine(QStringLiteral("could not restore image: ") + failure->description);
    else
        Q_EMIT itemsChanged();
}

bool ShelfStore::hasRoomFor(const QList<ShelfItem>& additions)
{
    const bool hasRoom = m_index.hasRoomFor(additions);
    if (!hasRoom)
        Q_EMIT additionFailed(tr("The shelf is full. Remove something large and try again."));
    return hasRoom;
}

void ShelfStore::forgetFiles(const QList<ShelfItem>& items)
{
    QSet<QByteArray> bookmarks;
    for (const ShelfItem& item : items) {
        m_fileURLs.remove(item.id);
        bookmarks.insert(std::get<FileContent>(item.content).bookmark);
    }
    releaseUnused(bookmarks);
}

void ShelfStore::togglePinned(QUuid id)
{
    const qsizetype index = indexOf(id);
    if (index < 0)
        return;
    m_items[index].pinned = !m_items.at(index).pinned;
    m_index.schedule();
    Q_EMIT itemsChanged();
}

void ShelfStore::remove(QUuid id)
{
    removeAll({ id });
}

void ShelfStore::removeExpired(double maxAge)
{
    const QDateTime present = now();
    QSet<QUuid> expired;
    for (const ShelfItem& item : std::as_const(m_items)) {
        const auto age = static_cast<double>(item.createdAt.msecsTo(present)) / 1000;
        if (!item.pinned && age > maxAge)
            expired.insert(item.id);
    }
    if (!expired.isEmpty())
        removeAll(expired);
}

void ShelfStore::removeAll(const QSet<QUuid>& ids)
{
    QSet<QUuid> found;
    QSet<QByteArray> bookmarks;
    for (const ShelfItem& item : QList<ShelfItem>(m_items)) {
        if (!ids.contains(item.id))
            continue;
        if (!found.contains(item.id))
            moveImageToTrash(item);
        found.insert(item.id);
        if (const FileContent* file = std::get_if<FileContent>(&item.content))
            bookmarks.insert(file->bookmark);
    }
    m_items.removeIf([&](const ShelfItem& item) { return ids.contains(item.id); });
    bool lostFileUrl = false;
    for (const QUuid& id : ids) {
        lostFileUrl = m_fileURLs.remove(id) || lostFileUrl;
        m_lookups.cancel(id);
        m_itemFiles.removeFolder(id);
    }
    releaseUnused(bookmarks);
    m_index.schedule();
    if (lostFileUrl)
        Q_EMIT fileURLsChanged();
    if (!found.isEmpty())
        Q_EMIT itemsChanged();
}

void ShelfStore::moveImageToTrash(const ShelfItem& item) const
{
    const ImageContent* image = std::get_if<ImageContent>(&item.content);
    const std::optional<QUrl> url = image ? m_itemFiles.existingFile(item.id, image->fileName) : std::nullopt;
    // What cannot be trashed is deleted with the item's folder.
    if (url)
        static_cast<void>(m_environment.moveToTrash(*url));
}

void ShelfStore::releaseUnused(QSet<QByteArray> bookmarks) const
{
    // A file that was added twice has two items, and their bookmarks may be the same bytes.
    for (const ShelfItem& item : m_items) {
        if (const FileContent* file = std::get_if<FileContent>(&item.content))
            bookmarks.remove(file->bookmark);
    }
    for (const QByteArray& bookmark : std::as_const(bookmarks))
        m_fileReferences.release(bookmark);
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
    Q_EMIT itemsChanged();
}

void ShelfStore::saveIcon(const QByteArray& png, QUuid id)
{
    if (indexOf(id) < 0)
        return;
    std::optional<Failure> failure = m_index.ensureWritten();
    if (!failure)
        failure = m_itemFiles.write(png, id, iconFileName());
    if (failure) {
        logLine(QStringLiteral("could not save favicon: ") + failure->description);
        return;
    }
    updateLink(id, {}, true);
}

std::optional<QUrl> ShelfStore::localURL(const ShelfItem& item) const
{
    if (std::holds_alternative<FileContent>(item.content)) {
        const auto url = m_fileURLs.constFind(item.id);
        return url == m_fileURLs.constEnd() ? std::nullopt : std::optional(*url);
    }
    if (const ImageContent* image = std::get_if<ImageContent>(&item.content))
        return m_itemFiles.file(item.id, image->fileName);
    return {};
}

bool ShelfStore::isFolder(const ShelfItem& item) const
{
    const FileContent* file = std::get_if<FileContent>(&item.content);
    return file && m_fileReferences.isFolder(file->bookmark);
}

std::optional<QUrl> ShelfStore::iconURL(const ShelfItem& item) const
{
    const LinkContent* link = std::get_if<LinkContent>(&item.content);
    if (!link || !link->hasIcon)
        return {};
    return m_itemFiles.file(item.id, iconFileName());
}

void ShelfStore::refreshFiles()
{
    QHash<QUuid, QUrl> urls;
    QSet<QByteArray> replaced;
    bool changedItems = false;
    std::vector<QByteArray> bookmarks;
    for (const ShelfItem& item : std::as_const(m_items)) {
        if (const FileContent* file = std::get_if<FileContent>(&item.content))
            bookmarks.push_back(file->bookmark);
    }
    const std::vector<std::optional<ResolvedFile>> files = m_fileReferences.resolveAll(bookmarks);
    auto next = files.begin();
    for (ShelfItem& item : m_items) {
        FileContent* file = std::get_if<FileContent>(&item.content);
        if (!file)
            continue;
        const std::optional<ResolvedFile>& resolved = *next++;
        if (!resolved || m_trash.contains(resolved->url))
            continue;
        urls.insert(item.id, resolved->url);
        FileContent present = refreshed(*file, *resolved);
        if (present == *file)
            continue;
        if (present.bookmark != file->bookmark)
            replaced.insert(file->bookmark);
        *file = std::move(present);
        changedItems = true;
    }
    const bool changedUrls = std::exchange(m_fileURLs, urls) != urls;
    if (changedItems) {
        releaseUnused(replaced);
        m_index.schedule();
    }
    if (changedUrls)
        Q_EMIT fileURLsChanged();
    if (changedItems)
        Q_EMIT itemsChanged();
}

FileContent ShelfStore::refreshed(const FileContent& file, const ResolvedFile& resolved) const
{
    FileContent present{ file.bookmark, lastPathComponent(resolved.url) };
    if (resolved.isStale)
        present.bookmark = m_fileReferences.make(resolved.url).value_or(file.bookmark);
    return present;
}

void ShelfStore::removeOrphans()
{
    const QDateTime time = now().addDays(-orphanAgeInDays);
    removeUnfinished(filePath(m_directory), time);
    const auto folders = m_itemFiles.folders();
    if (!folders)
        return;
    QSet<QUuid> orphans(folders->begin(), folders->end());
    for (const ShelfItem& item : std::as_const(m_items))
        orphans.remove(item.id);
    if (orphans.isEmpty())
        m_index.forgetLostIndex();
    if (!m_index.namesEveryItem())
        return;
    for (const QUuid& id : std::as_const(orphans)) {
        if (m_itemFiles.isUnchangedSince(id, time))
            removeOrphan(id);
    }
}

void ShelfStore::removeOrphan(const QUuid& id) const
{
    // A favicon looks like any other image of that name.
    for (const QUrl& file : m_itemFiles.contents(id).value_or(QList<QUrl>())) {
        if (m_environment.moveToTrash(file))
            return;
    }
    m_itemFiles.removeEmptyFolder(id);
}

void ShelfStore::saveNow()
{
    m_index.saveNow();
}

void ShelfStore::moveToTop(qsizetype index)
{
    m_items.move(index, 0);
    m_items.first().createdAt = now();
}

QDateTime ShelfStore::now() const
{
    return m_environment.now().toUTC();
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
