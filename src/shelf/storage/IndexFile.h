#pragma once

#include "Failure.h"
#include "IndexStamp.h"
#include "ShelfItem.h"

#include <QByteArray>
#include <QList>

#include <optional>

namespace nookle {

/// The index in the data folder. An index that the program cannot read is never written over: it is moved aside. Main
/// thread only.
class IndexFile {
public:
    /// Reads no index of more than `largestSize` bytes.
    IndexFile(const QByteArray& dataFolder, qsizetype largestSize);

    [[nodiscard]] const QByteArray& path() const { return m_path; }

    /// The items of the index; none if there is no index, or none that can be read. One that can be read, but not be
    /// understood, is moved aside at once.
    [[nodiscard]] QList<ShelfItem> load();

    /// Whether the index may be written, over the one on disk if there is one. Not over one that another program has
    /// written since this one last read or wrote it.
    [[nodiscard]] bool isOurs();

    /// The program has written the index, and `stamp` was taken then.
    void wasWritten(const IndexStamp& stamp) { m_own = stamp; }

    /// Makes that so: moves aside what `load` has not read, and leaves a mark if there is no index, here or aside, that
    /// could name the folders of items that there are. After a failure nothing may be written.
    [[nodiscard]] std::optional<Failure> makeWay(bool hasItemFolders);

    /// Whether there is an index on disk that this program has read or written.
    [[nodiscard]] bool isWritten() const;

    /// Whether every item is in the index that was read. Not while another index, which was lost or moved aside, may
    /// name some.
    [[nodiscard]] bool namesEveryItem() const;

    /// Takes the mark away that an index was lost.
    void forgetLostIndex() const;

private:
    [[nodiscard]] std::optional<Failure> setAside() const;
    /// Where the index on disk goes. A broken index replaces an older broken one, and nothing replaces an index that
    /// may be whole.
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
    /// Why what is there is not ours to replace; none once it is.
    std::optional<Failure> m_obstacle;
    bool m_wasRead = false;
    /// What is there was read, and is no index.
    bool m_isBroken = false;
    /// The index as the program last read or wrote it.
    std::optional<IndexStamp> m_own;
};

} // namespace nookle
