#pragma once

#include "Failure.h"
#include "IndexStamp.h"
#include "ShelfItem.h"

#include <QByteArray>
#include <QList>

#include <optional>

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

    /// Whether the index on disk, if any, may be overwritten. False if `load` could not read it, or if another program
    /// has written it since this program last read or wrote it. If false, call `makeWay` before writing.
    [[nodiscard]] bool isOurs();

    /// Call this when the program has written the index. `stamp` is the stamp of the new index.
    void wasWritten(const IndexStamp& stamp) { m_own = stamp; }

    /// Makes it safe to write the index. Moves aside the file that must not be overwritten. If there is no such file,
    /// but item folders exist (`hasItemFolders`) and no index was moved aside that could name them, leaves a mark file.
    /// After a failure the index must not be written.
    [[nodiscard]] std::optional<Failure> makeWay(bool hasItemFolders);

    /// Whether the index on disk was read or written by this program.
    [[nodiscard]] bool isWritten() const;

    /// Whether the index that was read names every item. False if no index was read. Also false while there is an index
    /// that was moved aside, or a mark of a lost one: that index may name other items.
    [[nodiscard]] bool namesEveryItem() const;

    /// Removes the mark of a lost index.
    void forgetLostIndex() const;

private:
    [[nodiscard]] std::optional<Failure> setAside() const;
    /// The new path for an index that is moved aside. A broken index replaces an older broken one. Nothing replaces an
    /// index that may be valid.
    [[nodiscard]] QByteArray asidePath() const;
    /// Whether what is at `path` was read, and is no index.
    [[nodiscard]] bool isNoIndex(const QByteArray& path) const;
    /// Whether there is an index that was set aside, by this program or one before it.
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
