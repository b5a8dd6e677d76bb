#pragma once

#include "DragItem.h"
#include "DragOutWatch.h"
#include "CarriedItem.h"

#include <QList>
#include <QPixmap>

#include <functional>
#include <optional>

class QWidget;

namespace nookle {

class FileTransfers;

/// Drags of items out of the shelf: what they offer and show, and what becomes of the items. All arguments must outlive
/// it. Main thread only.
class DragOut final {
public:
    struct Services {
        ShelfStore& store;
        Trash& trash;
        FileReferences& references;
        FileTransfers& transfers;
        MainQueue& queue;
    };

    /// The pictures are drawn in the colours and for the display of `view`.
    DragOut(const Services& services, const QWidget& view);

    /// Returns the picture in the item's tile; null if there is none. Set by the owner.
    std::function<QPixmap(const ShelfItem&)> thumbnailOf = [](const ShelfItem&) { return QPixmap(); };

    /// The operations that other programs may do with `item`.
    [[nodiscard]] static DragOperations allowedOperations(const ShelfItem& item);

    /// A drag of `items` is about to begin. Looks once more where the files are and what became of the previous drag,
    /// which may change the shelf. Leaves out what has no file any more; none if nothing is left.
    [[nodiscard]] std::optional<DragItem> begin(const QList<ShelfItem>& items);

    /// The drag has ended, and its destination has reported `operation`. Removes from the shelf what went to the Trash,
    /// now and during some time.
    void end(DragOperation operation) { m_watch.end(operation); }

    /// Call this before the program ends. Copies back each dragged image whose file a receiver has moved away.
    void saveImages() { m_watch.saveImages(); }

private:
    [[nodiscard]] QList<CarriedItem> carriedItems(const QList<ShelfItem>& items) const;
    void addPicture(DragItem& drag, const QList<CarriedItem>& items) const;
    void addFan(DragItem& drag, const QList<CarriedItem>& items) const;

    Services m_services;
    const QWidget& m_view;
    DragOutWatch m_watch;
};

} // namespace nookle
