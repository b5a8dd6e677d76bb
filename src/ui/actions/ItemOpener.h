#pragma once

#include "Cancellable.h"
#include "ShelfItem.h"
#include "ShelfItemActions.h"

#include <QList>

#include <memory>

namespace nookle {

class MainQueue;

/// Opens many items one after the other, with a pause after each in which the panel answers: to start a program takes
/// some milliseconds. What is still to be opened when this object is destroyed stays closed. Main thread only.
class ItemOpener final {
public:
    /// `store`, `queue` and what `actions` needs must outlive this object.
    ItemOpener(const ShelfItemActions& actions, const ShelfStore& store, MainQueue& queue);

    /// Opens `items` after those that are still to be opened, if any. Leaves out what is gone from the shelf by then.
    void open(const QList<ShelfItem>& items);

private:
    void openNext();
    [[nodiscard]] bool isOnShelf(const ShelfItem& item) const;

    ShelfItemActions m_actions;
    const ShelfStore& m_store;
    MainQueue& m_queue;
    QList<ShelfItem> m_left;
    /// Null while there is nothing to open.
    std::unique_ptr<Cancellable> m_next;
};

} // namespace nookle
