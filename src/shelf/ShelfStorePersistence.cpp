#include "ShelfStore.h"

#include "DataFiles.h"
#include "FileReferences.h"
#include "FileUrl.h"
#include "Log.h"
#include "Overloaded.h"
#include "ShelfIndex.h"
#include "Trash.h"

#include <QFile>

#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace nookle {

namespace {

constexpr double saveDelay = 0.3;

constexpr qint64 orphanAgeInDays = 1;

/// No shelf grows this large; reading a damaged file without a limit could exhaust the memory.
constexpr qint64 largestIndex = 1'000'000'000;

} // namespace

ShelfStore::ShelfStore(const QUrl& directory, Environment environment, FileReferences& fileReferences,
                       const Trash& trash, LinkMetadataService& linkMetadata, MainQueue& queue)
    : m_environment(std::move(environment))
    , m_directory(directory)
    , m_itemFiles(child(directory, QStringLiteral("Files")))
    , m_fileReferences(fileReferences)
    , m_trash(trash)
    , m_linkMetadata(linkMetadata)
    , m_queue(queue)
{
    load();
    refreshFiles();
}

ShelfStore::~ShelfStore() = default;

QByteArray ShelfStore::indexPath() const
{
    return filePath(child(m_directory, QStringLiteral("index.json")));
}

QByteArray ShelfStore::setAsidePath() const
{
    return filePath(child(m_directory, QStringLiteral("index.corrupt.json")));
}

void ShelfStore::load()
{
    const QByteArray path = indexPath();
    // Opening a pipe would wait for its other end, and reading a device might never end.
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(path.toStdString(), ignored))
        return;
    QFile file(QFile::decodeName(path));
    if (!file.open(QIODevice::ReadOnly))
        return;
    if (file.size() > largestIndex) {
        setAsideIndex({ QStringLiteral("larger than %1 bytes").arg(largestIndex) });
        return;
    }
    const QByteArray bytes = file.readAll();
    if (file.error() != QFile::NoError)
        return;
    std::visit(overloaded{
                   [this](ShelfIndex&& index) {
                       m_items = std::move(index.items);
                       m_hasReadIndex = true;
                   },
                   [this](Failure&& failure) { setAsideIndex(failure); },
               },
               ShelfIndex::decode(bytes));
}

void ShelfStore::setAsideIndex(const Failure& reason) const
{
    const QByteArray asidePath = setAsidePath();
    std::error_code ignored;
    std::filesystem::remove_all(asidePath.toStdString(), ignored);
    std::filesystem::rename(indexPath().toStdString(), asidePath.toStdString(), ignored);
    logLine(QStringLiteral("index unreadable, moved to ") + QFile::decodeName(asidePath) + QStringLiteral(": ")
            + reason.description);
}

void ShelfStore::removeOrphans()
{
    std::error_code ignored;
    if (!m_hasReadIndex || std::filesystem::exists(setAsidePath().toStdString(), ignored))
        return;
    QSet<QUuid> owners;
    for (const ShelfItem& item : std::as_const(m_items))
        owners.insert(item.id);
    for (const QUuid& id : m_itemFiles.foldersUnchangedSince(now().addDays(-orphanAgeInDays))) {
        if (!owners.contains(id))
            removeOrphan(id);
    }
}

void ShelfStore::removeOrphan(const QUuid& id) const
{
    for (const QUrl& file : m_itemFiles.contents(id)) {
        const bool isImage = lastPathComponent(file) != iconFileName();
        if (isImage && m_environment.moveToTrash(file))
            return;
    }
    m_itemFiles.removeFolder(id);
}

void ShelfStore::scheduleSave()
{
    m_pendingSave.reset();
    m_pendingSave = m_queue.after(saveDelay, [this] { saveNow(); });
}

void ShelfStore::saveNow()
{
    m_pendingSave.reset();
    std::optional<Failure> failure = makeFolder(filePath(m_directory));
    if (!failure)
        failure = writeAtomically(indexPath(), ShelfIndex{ .items = m_items }.encode());
    if (failure)
        logLine(QStringLiteral("saving failed: ") + failure->description);
}

std::optional<QUrl> ShelfStore::localURL(const ShelfItem& item) const
{
    if (std::holds_alternative<FileContent>(item.content)) {
        const auto url = fileURLs().constFind(item.id);
        return url == fileURLs().constEnd() ? std::nullopt : std::optional(*url);
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
    const bool changedUrls = m_fileUrls.replaceAll(urls);
    if (changedItems) {
        releaseUnused(replaced);
        scheduleSave();
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

} // namespace nookle
