#pragma once

#include "DragOperation.h"
#include "DraggedImages.h"
#include "TrashWatch.h"

namespace nookle {

class ShelfItemActions;

/// Finds out what happens to an item that is dragged out of the shelf, and updates the shelf. The operation that the
/// destination reports is not reliable, so this class checks where the file is now. The constructor's arguments must
/// outlive it. Main thread only.
class DragOutWatch final {
public:
    DragOutWatch(const DraggedImage::Services& services, ShelfItemActions& actions);

    /// The drag of `item` begins. Checks the previous items once more, which may change the shelf.
    void begin(const ShelfItem& item);

    /// The drag of `item` has ended, and its destination has reported `operation`. The item's file is watched for a
    /// while.
    void end(const ShelfItem& item, DragOperation operation);

    /// Call this before the program ends. Copies back each dragged image whose file a receiver has moved away.
    void saveImages() { m_images.lookNow(); }

private:
    void keepLooking(const ShelfItem& item);

    const ShelfStore& m_store;
    ShelfItemActions& m_actions;
    TrashWatch m_trash;
    DraggedImages m_images;
    /// The item that is being dragged had a file when the drag began.
    bool m_hasFile = false;
};

} // namespace nookle
