#pragma once

#include "DragOperation.h"
#include "DraggedImages.h"
#include "TrashWatch.h"

namespace nookle {

class ShelfItemActions;

/// Finds out what becomes of the item that is dragged out of the shelf, and lets the shelf follow: what the destination
/// says that it did is no proof; where the file is now, is. What it is given must outlive it. Main thread only.
class DragOutWatch final {
public:
    DragOutWatch(const DraggedImage::Services& services, ShelfItemActions& actions);

    /// `item` begins to be dragged. A last look at what was dragged before may change the shelf.
    void begin(const ShelfItem& item);

    /// The drag has ended, and its destination told `operation`. Its file is looked after for a while.
    void end(const ShelfItem& item, DragOperation operation);

    /// The program is about to end: what a receiver has moved of the images that were dragged out is copied back.
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
