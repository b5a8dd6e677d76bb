#pragma once

#include "Failure.h"
#include "ShelfItem.h"

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QList>
#include <QSet>
#include <QStringList>
#include <QUrl>
#include <QUuid>

#include <deque>
#include <functional>
#include <optional>
#include <vector>

namespace nookle {

class ItemFiles;
class Trash;

/// What was removed from the shelf, step by step, so that it can come back. Holds it in memory: the oldest steps are
/// dropped when it gets too much. Main thread only.
class RemovedItems final {
public:
    /// Moves a file back to where it was before it went to the Trash.
    using PutBack = std::function<std::optional<Failure>(const QUrl&)>;

    /// `files` and `trash` must outlive this object.
    RemovedItems(const ItemFiles& files, const Trash& trash, PutBack putBack);

    [[nodiscard]] bool isEmpty() const { return m_steps.empty(); }

    /// Keeps the items `ids` of `items` as one step. Call it before the removal, while the items' files are there.
    /// `fileUrls` are the places of referenced files.
    void keep(const QSet<QUuid>& ids, const QList<ShelfItem>& items, const QHash<QUuid, QUrl>& fileUrls,
              const QDateTime& now);

    /// Call this when items that are on the shelf have moved to its top.
    void forgetPlaces(const QSet<QUuid>& ids);

    /// The items of the last step.
    [[nodiscard]] QList<ShelfItem> last() const;

    struct Return {
        QList<ShelfItem> items;
        /// The names of images that did not come back.
        QStringList missing;
    };

    /// Puts the items of the last step back into `items`, each to its place, with its files. Leaves out what has been
    /// added anew meanwhile. The time since the removal does not count to an item's age. Images that could not leave
    /// the Trash stay in the step, which lets the one before it go first the next time; otherwise it is dropped.
    [[nodiscard]] Return putBackLast(QList<ShelfItem>& items, const QHash<QUuid, QUrl>& fileUrls, const QDateTime& now);

private:
    struct Entry {
        ShelfItem item;
        std::optional<QUrl> file;
        QByteArray icon;
    };
    struct Step {
        std::vector<Entry> entries;
        /// All items before the removal, from the top.
        QList<QUuid> order;
        QDateTime time;
        /// In bytes, roughly.
        qsizetype size = 0;
    };

    /// Brings back the files that the shelf owned. None if the image does not come back.
    [[nodiscard]] std::optional<ShelfItem> withFiles(const Entry& entry) const;
    [[nodiscard]] bool isInTrash(const ShelfItem& item) const;
    void dropOldSteps();

    const ItemFiles& m_files;
    const Trash& m_trash;
    PutBack m_putBack;
    std::deque<Step> m_steps;
};

} // namespace nookle
