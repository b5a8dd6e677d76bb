#pragma once

#include "DropItem.h"
#include "MainQueue.h"

#include <memory>
#include <vector>

namespace nookle {

class ShelfStore;

/// Decides what each element of a drop becomes on the shelf. Borrows the store and the queue. Main thread only.
class DropHandler final {
public:
    using DropItems = std::vector<std::unique_ptr<DropItem>>;

    DropHandler(ShelfStore& store, MainQueue& queue);
    ~DropHandler();
    DropHandler(const DropHandler&) = delete;
    DropHandler& operator=(const DropHandler&) = delete;

    /// Takes the elements in the source's order and puts them on the shelf after this call has returned. A drop is
    /// always accepted, whatever it turns out to hold.
    bool handleDrop(DropItems items);

private:
    class Drop;

    ShelfStore& m_store;
    MainQueue& m_queue;
    /// Work that is still queued looks here whether the handler lives.
    std::shared_ptr<DropHandler*> m_self;
};

} // namespace nookle
