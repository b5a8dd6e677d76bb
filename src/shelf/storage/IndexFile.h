#pragma once

#include "Failure.h"
#include "IndexStamp.h"
#include "ShelfIndex.h"

#include <QByteArray>
#include <QList>

#include <optional>
#include <variant>

namespace nookle {

/// The index file in the data folder. An index that the program cannot read is never overwritten; it is renamed ("moved
/// aside"). Main thread only.
class IndexFile {
public:
    /// An index of more than `largestSize` bytes counts as unreadable.
    IndexFile(const QByteArray& dataFolder, qsizetype largestSize);

    [[nodiscard]] const QByteArray& path() const { return m_path; }

    /// The items of the index; an empty list if there is no index or it cannot be read. A file that is not a valid
    /// index, or is too large, is moved aside at once.
    [[nodiscard]] QList<ShelfItem> load();

    /// Whether the index on disk, if any, may be overwritten. False if `load` could not read it, if it is no regular
    /// file, or if another program has written it since this program last read or wrote it. If false, call `makeWay`
    /// before writing.
    [[nodiscard]] bool isOurs();

    /// Writes the index to the file at `path`, or leaves that file as it was. An index of more than `largestSize` bytes
    /// is not written. Any thread.
    [[nodiscard]] static std::variant<IndexStamp, Failure> write(const ShelfIndex& index, const QByteArray& path,
                                                                 qsizetype largestSize);

    /// Call this when `write` has written the index. `stamp` is its result.
    void wasWritten(const IndexStamp& stamp) { m_own = stamp; }

    /// Makes it safe to write the index: moves aside the file that must not be overwritten. If the index is gone but
    /// item folders remain (`hasItemFolders`), creates `index.missing`, so that a later clean-up does not take those
    /// folders for leftovers. After a failure the index must not be written.
    [[nodiscard]] std::optional<Failure> makeWay(bool hasItemFolders);

    /// Whether the index on disk was read or written by this program.
    [[nodiscard]] bool isWritten() const;

    /// Whether an item folder that is not in the index is surely a leftover. False if no index was read, and while
    /// there is an index that was moved aside, or the mark of a lost one: that index may name other items.
    [[nodiscard]] bool namesEveryItem() const;

    /// Removes the mark of a lost index.
    void forgetLostIndex() const;

private:
    [[nodiscard]] std::optional<Failure> setAside() const;
    /// The new path for an index that is moved aside; none if all are taken. A broken index replaces an older broken
    /// one. Nothing replaces an index that may be valid.
    [[nodiscard]] std::optional<QByteArray> asidePath() const;
    /// Whether it is certain that no valid index is at `path`. False if it could not be read, or is too large.
    [[nodiscard]] bool isNoIndex(const QByteArray& path) const;
    /// Whether there is an index that was moved aside, by this program or one before it.
    [[nodiscard]] bool hasIndexAside() const;

    QByteArray m_dataFolder;
    QByteArray m_path;
    QByteArray m_asidePath;
    QByteArray m_lostMark;
    qsizetype m_largestSize;
    /// The reason why the file at `m_path` must not be overwritten; none if it may be.
    std::optional<Failure> m_obstacle;
    bool m_wasRead = false;
    /// The file at `m_path` was read completely and is not a valid index.
    bool m_isBroken = false;
    /// The stamp of the index that the program last read or wrote.
    std::optional<IndexStamp> m_own;
};

} // namespace nookle
