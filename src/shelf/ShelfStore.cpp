#include "ShelfStore.h"

#include "FileReferences.h"
#include "FileUrl.h"
#include "Log.h"
#include "PlainText.h"
#include "ReaddedFiles.h"

#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace nookle {

namespace {

/// A random UUID of version 4. Nobody has to be kept from guessing it, and the generator of the system, which the
/// library takes, is many times as slow.
[[nodiscard]] QUuid randomUuid()
{
    std::array<quint32, 4> words{};
    QRandomGenerator::global()->fillRange(words.data(), qsizetype(words.size()));
    QUuid uuid = QUuid::fromRfc4122(QByteArrayView(reinterpret_cast<const char*>(words.data()), sizeof(words)));
    uuid.data3 = ushort((uuid.data3 & 0x0fff) | 0x4000);
    uuid.data4[0] = uchar((uuid.data4[0] & 0x3f) | 0x80);
    return uuid;
}

/// A file that is to be added: an item that was on the shelf already, or a new one.
struct Addition {
    QByteArray path;
    QUrl url;
    std::optional<ShelfItem> known;
};

} // namespace

void ShelfStore::addFiles(const QList<QUrl>& urls)
{
    ReaddedFiles readded(m_items, m_fileUrls);
    std::vector<Addition> additions;
    QList<QUrl> newUrls;
    for (const QUrl& url : urls) {
        Addition addition{ standardizedPath(url), standardized(url), {} };
        addition.known = readded.take(addition.path);
        if (!addition.known)
            newUrls.append(addition.url);
        additions.push_back(std::move(addition));
    }

    const QList<std::optional<QByteArray>> bookmarks = m_fileReferences.makeAll(newUrls);
    auto bookmark = bookmarks.begin();
    QList<ShelfItem> top;
    top.reserve(urls.size() + m_items.size());
    QList<ShelfItem> newItems;
    for (Addition& addition : additions) {
        if (addition.known) {
            addition.known->createdAt = now();
            top.append(*std::move(addition.known));
        } else if (const auto& made = *bookmark++) {
            top.append(makeItem(FileContent{ *made, lastPathComponent(addition.path) }));
            m_fileUrls.insert(top.constLast().id, addition.url, addition.path);
            newItems.append(top.constLast());
        }
    }
    if (!newItems.isEmpty() && !hasRoomFor(newItems)) {
        forgetFiles(newItems);
        return;
    }
    if (top.isEmpty())
        return;
    m_items.removeIf([&](const ShelfItem& item) { return readded.taken().contains(item.id); });
    top.append(std::move(m_items));
    m_items = std::move(top);
    scheduleSave();
    if (!newItems.isEmpty())
        Q_EMIT fileURLsChanged();
    Q_EMIT itemsChanged();
}

void ShelfStore::forgetFiles(const QList<ShelfItem>& items)
{
    QSet<QByteArray> bookmarks;
    for (const ShelfItem& item : items) {
        m_fileUrls.remove(item.id);
        bookmarks.insert(std::get<FileContent>(item.content).bookmark);
    }
    releaseUnused(bookmarks);
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
    scheduleSave();
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
            fetchLinkMetadata(m_items.constFirst().id, url.url());
    }
    scheduleSave();
    Q_EMIT itemsChanged();
}

void ShelfStore::addImage(const QUrl& movingFrom)
{
    const QString fileName = ItemFiles::storedName(movingFrom);
    const ShelfItem item = makeItem(ImageContent{ fileName });
    if (!hasRoomFor({ item }))
        return;
    std::optional<Failure> failure = ensureIndex();
    if (!failure)
        failure = m_itemFiles.takeOver(movingFrom, item.id, fileName);
    if (failure) {
        logLine(QStringLiteral("could not take over image: ") + failure->description);
        Q_EMIT additionFailed(tr("The image could not be added to the shelf: %1").arg(failure->description));
        return;
    }
    m_items.prepend(item);
    scheduleSave();
    Q_EMIT itemsChanged();
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

void ShelfStore::togglePinned(QUuid id)
{
    const qsizetype index = indexOf(id);
    if (index < 0)
        return;
    m_items[index].pinned = !m_items.at(index).pinned;
    scheduleSave();
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
        lostFileUrl = m_fileUrls.remove(id) || lostFileUrl;
        m_metadataProviders.erase(id);
        m_itemFiles.removeFolder(id);
    }
    releaseUnused(bookmarks);
    scheduleSave();
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
    return { randomUuid(), now(), std::move(content), false };
}

} // namespace nookle
