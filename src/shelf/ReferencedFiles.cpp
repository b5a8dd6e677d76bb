#include "ReferencedFiles.h"

#include "FileReferences.h"
#include "FileUrl.h"
#include "Trash.h"

#include <utility>
#include <variant>
#include <vector>

namespace nookle {

ReferencedFiles::ReferencedFiles(FileReferences& references, const Trash& trash)
    : m_references(references)
    , m_trash(trash)
{
}

std::optional<QUrl> ReferencedFiles::url(const QUuid& id) const
{
    const auto url = m_urls.constFind(id);
    return url == m_urls.constEnd() ? std::nullopt : std::optional(*url);
}

bool ReferencedFiles::isFolder(const FileContent& file) const
{
    return m_references.isFolder(file.bookmark);
}

QHash<QByteArray, QList<qsizetype>> ReferencedFiles::itemsByPath(const QList<ShelfItem>& items) const
{
    QHash<QByteArray, QList<qsizetype>> indexes;
    for (qsizetype index = items.size() - 1; index >= 0; --index) {
        if (const auto url = m_urls.constFind(items.at(index).id); url != m_urls.constEnd())
            indexes[standardizedPath(*url)].append(index);
    }
    return indexes;
}

QList<std::optional<FileContent>> ReferencedFiles::makeAll(const QList<QUrl>& urls)
{
    const QList<std::optional<QByteArray>> bookmarks = m_references.makeAll(urls);
    QList<std::optional<FileContent>> files;
    auto url = urls.begin();
    for (const std::optional<QByteArray>& bookmark : bookmarks) {
        const QString name = lastPathComponent(*url++);
        files.append(bookmark ? std::optional(FileContent{ *bookmark, name }) : std::nullopt);
    }
    return files;
}

ReferencedFiles::Changes ReferencedFiles::refresh(QList<ShelfItem>& items)
{
    std::vector<QByteArray> bookmarks;
    for (const ShelfItem& item : std::as_const(items)) {
        if (const FileContent* file = std::get_if<FileContent>(&item.content))
            bookmarks.push_back(file->bookmark);
    }
    const std::vector<std::optional<ResolvedFile>> files = m_references.resolveAll(bookmarks);
    QHash<QUuid, QUrl> urls;
    QSet<QByteArray> replaced;
    Changes changes;
    auto next = files.begin();
    for (ShelfItem& item : items) {
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
        changes.ofItems = true;
    }
    changes.ofUrls = std::exchange(m_urls, urls) != urls;
    releaseUnused(std::move(replaced), items);
    return changes;
}

FileContent ReferencedFiles::refreshed(const FileContent& file, const ResolvedFile& resolved) const
{
    FileContent present{ file.bookmark, lastPathComponent(resolved.url) };
    if (resolved.isStale)
        present.bookmark = m_references.make(resolved.url).value_or(file.bookmark);
    return present;
}

bool ReferencedFiles::forget(const QList<ShelfItem>& gone, const QList<ShelfItem>& remaining)
{
    bool wasKnown = false;
    QSet<QByteArray> bookmarks;
    for (const ShelfItem& item : gone) {
        wasKnown = m_urls.remove(item.id) || wasKnown;
        if (const FileContent* file = std::get_if<FileContent>(&item.content))
            bookmarks.insert(file->bookmark);
    }
    releaseUnused(std::move(bookmarks), remaining);
    return wasKnown;
}

void ReferencedFiles::releaseUnused(QSet<QByteArray> bookmarks, const QList<ShelfItem>& items) const
{
    if (bookmarks.isEmpty())
        return;
    // A file that was added twice has two items, whose bookmarks may be equal.
    for (const ShelfItem& item : items) {
        if (const FileContent* file = std::get_if<FileContent>(&item.content))
            bookmarks.remove(file->bookmark);
    }
    for (const QByteArray& bookmark : std::as_const(bookmarks))
        m_references.release(bookmark);
}

} // namespace nookle
