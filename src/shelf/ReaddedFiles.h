#pragma once

#include "ShelfItem.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>
#include <QUuid>

#include <optional>

namespace nookle {

class FileUrls;

/// Takes off the shelf, one after the other, the file items that one call adds again. Works on what it was given,
/// which must stay unchanged meanwhile, in a time that grows with the number of items and URLs, not with their product.
class ReaddedFiles {
public:
    ReaddedFiles(const QList<ShelfItem>& items, const FileUrls& fileUrls);

    /// The first item in display order whose file is at `standardizedPath` and that has not been taken yet.
    [[nodiscard]] std::optional<ShelfItem> take(const QByteArray& standardizedPath);

    /// The ids of the items taken so far.
    [[nodiscard]] const QSet<QUuid>& taken() const { return m_taken; }

private:
    /// The places of the items whose file is there, the topmost last.
    [[nodiscard]] QList<qsizetype> placesOfItemsAt(const QByteArray& standardizedPath);
    void findPlaces();

    const QList<ShelfItem>& m_items;
    const FileUrls& m_fileUrls;
    /// The topmost place of each id; filled when the first item is taken.
    QHash<QUuid, qsizetype> m_places;
    /// The places that are still to be taken, by path.
    QHash<QByteArray, QList<qsizetype>> m_waiting;
    QSet<QUuid> m_taken;
};

} // namespace nookle
