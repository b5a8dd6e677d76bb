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

/// Decides what each element of a drop becomes on the shelf. All arguments must outlive it. Main thread only.
class DropHandler final {
public:
    DropHandler(ShelfStore& store, MainQueue& queue, FileTransfers& transfers);
    ~DropHandler();
    DropHandler(const DropHandler&) = delete;
    DropHandler& operator=(const DropHandler&) = delete;

    /// Adds what a drop holds by the operation below that fits it. Always returns true.
    bool handle(CapturedDrop drop);

    /// Adds what the clipboard holds, like a drop, but tells the user if nothing in it can be added.
    void handlePaste(CapturedDrop clipboard);

    /// Adds the elements to the shelf in the source's order, after this call has returned. Always returns true: every
    /// drop is accepted, whatever it holds.
    bool handleDrop(DropItems items);

    /// Adds the files that a sandboxed source hands over under `key`, or `items` when it hands over none. Always
    /// returns true.
    bool handleTransfer(const QByteArray& key, DropItems items);

    /// Adds the files that the source saves into `folder`, once they are there. Always returns true.
    bool handleSaved(const QUrl& folder);

private:
    class Drop;

    void add(const DropItems& items);

    ShelfStore& m_store;
    MainQueue& m_queue;
    FileTransfers& m_transfers;
    std::vector<std::unique_ptr<SavedFiles>> m_saved;
    Lifetime m_lifetime;
};

} // namespace nookle
