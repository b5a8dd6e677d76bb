#pragma once

#include "Failure.h"
#include "IndexFile.h"
#include "IndexWriter.h"
#include "ShelfItem.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QUuid>

#include <functional>
#include <memory>
#include <optional>

namespace nookle {

class Cancellable;
class ItemFiles;
class MainQueue;

/// Saves the items to the index on disk, 0.3 seconds after the last change. The constructor's references must stay
/// valid. Main thread only.
class SavedIndex final {
public:
    struct Environment {
        QByteArray dataFolder;
        /// In bytes. Larger indexes are neither read nor written.
        qsizetype largestSize;
        /// Called before each save, when the data folder exists. After a failure nothing is saved.
        std::function<std::optional<Failure>()> claimFolder;
    };

    SavedIndex(Environment environment, const QList<ShelfItem>& items, const ItemFiles& itemFiles, MainQueue& queue);
    ~SavedIndex();
    SavedIndex(const SavedIndex&) = delete;
    SavedIndex& operator=(const SavedIndex&) = delete;

    /// The saved items; an empty list if there is no readable index.
    [[nodiscard]] QList<ShelfItem> load();

    /// Saves the items in 0.3 seconds, in place of a pending save.
    void schedule();

    /// Saves the items at once, in place of a pending save, and waits until that is done or a time limit is over. A
    /// failure is logged.
    void saveNow();

    /// Saves the items if there is no index yet. Call it before making an item's folder: item folders without an index
    /// look like those of a lost index.
    [[nodiscard]] std::optional<Failure> ensureWritten();

    /// Whether the index has room for `additions`. Logs a line if not.
    [[nodiscard]] bool hasRoomFor(const QList<ShelfItem>& additions) const;

    /// See `IndexFile::namesEveryItem`.
    [[nodiscard]] bool namesEveryItem() const { return m_file.namesEveryItem(); }

    /// Call this when no folder is left that a lost index could have named.
    void forgetLostIndex() const { m_file.forgetLostIndex(); }

private:
    enum class Wait { untilDone, whileShort };

    void save(Wait wait);
    [[nodiscard]] std::optional<Failure> prepare();
    void log(const Failure& failure) const;
    /// As `ShelfIndex::closeUpperBound`, but reads each long text once. The text of an item never changes.
    [[nodiscard]] qsizetype closeBound(const QList<ShelfItem>& items) const;

    Environment m_environment;
    const QList<ShelfItem>& m_items;
    const ItemFiles& m_itemFiles;
    MainQueue& m_queue;
    IndexFile m_file;
    /// The stamp of the index that was written last. The writer's thread sets it, between the start and the end of a
    /// run.
    std::shared_ptr<std::optional<IndexStamp>> m_stamp = std::make_shared<std::optional<IndexStamp>>();
    IndexWriter m_writer;
    bool m_isSavingOff = false;
    struct Bounds {
        qsizetype rough = 0;
        qsizetype close = 0;
    };
    mutable QHash<QUuid, Bounds> m_longTexts;
    std::unique_ptr<Cancellable> m_pendingSave;
};

} // namespace nookle
