#include "ShelfStore.h"

#include "DataFiles.h"
#include "FileReferences.h"
#include "FileUrl.h"
#include "Log.h"
#include "Trash.h"

#include <chrono>
#include <utility>
#include <vector>

namespace nookle {

namespace {

constexpr double saveDelay = 0.3;

constexpr qint64 orphanAgeInDays = 1;

/// In bytes. Encoding and writing so much takes no time that anybody notices.
constexpr qsizetype quickIndex = 4 << 20;

/// How long the end of the program waits for the disk.
constexpr std::chrono::seconds savingPatience(60);

/// What is on the shelf may grow a little, and must still be saved.
constexpr qsizetype growthShare = 20;

} // namespace

ShelfStore::ShelfStore(const QUrl& directory, Environment environment, FileReferences& fileReferences,
                       const Trash& trash, LinkMetadataService& linkMetadata, MainQueue& queue)
    : m_environment(std::move(environment))
    , m_directory(directory)
    , m_index(filePath(directory), m_environment.largestIndex)
    , m_itemFiles(child(directory, QStringLiteral("Files")))
    , m_fileReferences(fileReferences)
    , m_trash(trash)
    , m_linkMetadata(linkMetadata)
    , m_queue(queue)
    , m_indexWriter(
          [path = m_index.path(), largest = m_environment.largestIndex](const ShelfIndex& index) {
              const QByteArray bytes = index.encode();
              if (bytes.size() > largest)
                  return std::optional(Failure{ QStringLiteral("larger than %1 bytes").arg(largest) });
              return writeAtomically(path, bytes);
          },
          queue, savingPatience)
{
    keepPrivate(filePath(m_directory));
    m_indexWriter.onFailed = [this](const Failure& failure) { logSavingFailure(failure); };
    m_items = m_index.load();
    refreshFiles();
}

ShelfStore::~ShelfStore() = default;

QSet<QUuid> ShelfStore::ids() const
{
    QSet<QUuid> ids;
    for (const ShelfItem& item : m_items)
        ids.insert(item.id);
    return ids;
}

void ShelfStore::removeOrphans()
{
    const QDateTime time = now().addDays(-orphanAgeInDays);
    removeUnfinished(filePath(m_directory), time);
    const auto folders = m_itemFiles.folders();
    if (!folders)
        return;
    const QSet<QUuid> orphans = QSet<QUuid>(folders->begin(), folders->end()).subtract(ids());
    if (orphans.isEmpty())
        m_index.forgetLostIndex();
    if (!m_index.namesEveryItem())
        return;
    for (const QUuid& id : orphans) {
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

bool ShelfStore::hasRoomFor(const QList<ShelfItem>& additions)
{
    const qsizetype largest = m_environment.largestIndex - m_environment.largestIndex / growthShare;
    // Thousands of additions may follow one another: the texts are looked into only where that could matter.
    if (ShelfIndex::upperBound(m_items) + ShelfIndex::upperBound(additions) <= largest)
        return true;
    if (ShelfIndex{ .items = m_items + additions }.encodedSize() <= largest)
        return true;
    logLine(QStringLiteral("not added: the index would be larger than %1 bytes").arg(largest));
    Q_EMIT additionFailed(tr("The shelf is full. Remove something large and try again."));
    return false;
}

void ShelfStore::scheduleSave()
{
    m_pendingSave.reset();
    m_pendingSave = m_queue.after(saveDelay, [this] { save(Wait::whileShort); });
}

void ShelfStore::saveNow()
{
    save(Wait::untilDone);
}

void ShelfStore::save(Wait wait)
{
    m_pendingSave.reset();
    std::optional<Failure> failure = prepareToSave();
    if (!failure) {
        const bool isShort = !m_indexWriter.isBusy() && ShelfIndex::upperBound(m_items) <= quickIndex;
        m_indexWriter.write({ .items = m_items });
        if (isShort || wait == Wait::untilDone)
            failure = m_indexWriter.finish();
    }
    if (failure)
        logSavingFailure(*failure);
}

std::optional<Failure> ShelfStore::prepareToSave()
{
    if (std::optional<Failure> failure = makeFolder(filePath(m_directory)))
        return failure;
    std::optional<Failure> failure = m_environment.claimFolder();
    if (!failure && !m_index.isOurs())
        failure = m_index.makeWay(m_itemFiles.folders() != QList<QUuid>());
    const bool wasOff = std::exchange(m_isSavingOff, failure.has_value());
    if (m_isSavingOff && !wasOff)
        logLine(QStringLiteral("saving is off: ") + failure->description);
    return failure;
}

void ShelfStore::logSavingFailure(const Failure& failure) const
{
    // One line is enough to say that saving is off.
    if (!m_isSavingOff)
        logLine(QStringLiteral("saving failed: ") + failure.description);
}

std::optional<Failure> ShelfStore::ensureIndex()
{
    if (m_index.isWritten())
        return {};
    if (std::optional<Failure> failure = prepareToSave())
        return failure;
    m_indexWriter.write({ .items = m_items });
    return m_indexWriter.finish();
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
