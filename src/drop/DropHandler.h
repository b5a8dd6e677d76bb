#pragma once

#include "DropCapture.h"
#include "Lifetime.h"
#include "MainQueue.h"

#include <QList>
#include <QUrl>

#include <memory>
#include <optional>
#include <vector>

namespace nookle {

class FileTransfers;
class SavedFiles;
class ShelfStore;

/// Decides what each element of a drop becomes on the shelf. Borrows everything. Main thread only.
class DropHandler final {
public:
    DropHandler(ShelfStore& store, MainQueue& queue, FileTransfers& transfers);
    ~DropHandler();
    DropHandler(const DropHandler&) = delete;
    DropHandler& operator=(const DropHandler&) = delete;

    /// Takes the elements in the source's order and puts them on the shelf after this call has returned. A drop is
    /// always accepted, whatever it turns out to hold.
    bool handleDrop(DropItems items);

    /// The same for the files that a sandboxed source hands over under `key`; for `items` when it hands over none.
    bool handleTransfer(const QByteArray& key, DropItems items);

    /// Adds the files that the source saves into that folder, once they are there.
    bool handleSaved(const QUrl& folder);

private:
    class Drop;

    ShelfStore& m_store;
    MainQueue& m_queue;
    FileTransfers& m_transfers;
    std::vector<std::unique_ptr<SavedFiles>> m_saved;
    Lifetime m_lifetime;
};

} // namespace nookle
