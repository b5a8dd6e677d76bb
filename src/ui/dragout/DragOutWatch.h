#pragma once

#include "DragOperation.h"
#include "DraggedImages.h"
#include "TrashWatch.h"

#include <QByteArray>
#include <QList>
#include <QSet>

#include <functional>
#include <vector>

namespace nookle {

/// Finds out which of the items that are dragged out of the shelf go to the Trash. The operation that the destination
/// reports is not reliable, so this class checks where the files are now. A text or link that is dragged together with
/// files goes to the Trash when all of these are there. The services must outlive it. Main thread only.
class DragOutWatch final {
public:
    using OnTrashed = std::function<void(const QList<ShelfItem>&)>;

    /// `onTrashed` is called with the items that are in the Trash.
    DragOutWatch(const DraggedImage::Services& services, OnTrashed onTrashed);

    /// Checks the items of the previous drag once more, and brings those of `items` back that a receiver has moved
    /// away. Call it before `begin`: it may change the shelf.
    void lookAgain(const QList<ShelfItem>& items);

    /// The drag of `items` begins; each has its file, if it has one. Returns whether a receiver may be allowed to move
    /// the images among them, as `DraggedImages::begin`.
    [[nodiscard]] bool begin(const QList<ShelfItem>& items);

    /// The drag has ended, and its destination has reported `operation`. The items' files are watched for a while.
    void end(DragOperation operation);

    /// Call this before the program ends. Copies back each dragged image whose file a receiver has moved away.
    void saveImages() { m_images.lookNow(); }

private:
    struct Dragged {
        ShelfItem item;
        /// The reference to the item's file; empty if it has none.
        QByteArray reference;
    };

    [[nodiscard]] QByteArray referenceOf(const ShelfItem& item) const;
    void filesTrashed(const QSet<QByteArray>& references);
    void imageTrashed(const ShelfItem& image);
    template <typename Matches> void leave(Matches matches);
    [[nodiscard]] bool hasFilesLeft() const;

    OnTrashed m_onTrashed;
    TrashWatch m_trash;
    DraggedImages m_images;
    /// The items of the latest drag that are not in the Trash.
    std::vector<Dragged> m_dragged;
};

} // namespace nookle
