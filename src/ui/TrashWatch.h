#pragma once

#include "MainQueue.h"
#include "ShelfItem.h"

#include <QByteArray>
#include <QUrl>

#include <cstddef>
#include <functional>
#include <memory>

namespace nookle {

class FileReferences;
class Trash;

/// Finds out whether the file of a drag has ended in the Trash. No desktop protocol tells: to the shelf a Trash is a
/// program like any other, which moves a file some time after it was dropped. Borrows everything. Main thread only.
class TrashWatch final {
public:
    TrashWatch(FileReferences& references, const Trash& trash, MainQueue& queue);
    ~TrashWatch();
    TrashWatch(const TrashWatch&) = delete;
    TrashWatch& operator=(const TrashWatch&) = delete;

    /// The file of `item`, at `file`, begins to be dragged. Ends the watch over the one before
    /// with a last look at it.
    void begin(const ShelfItem& item, const QUrl& file);

    /// Whether the file is in the Trash now.
    [[nodiscard]] bool isInTrash();

    /// Looks a few times during the next seconds, and calls `onTrashed` once if the file turns up in the Trash.
    void keepLooking(std::function<void()> onTrashed);

    /// Ends the watch; `onTrashed` is not called any more.
    void end();

private:
    /// Whether the file has turned up in the Trash.
    bool lookNow();
    void lookAfter(std::size_t pause);

    FileReferences& m_references;
    const Trash& m_trash;
    MainQueue& m_queue;
    QByteArray m_reference;
    /// An image of the shelf's own is referred to only as long as it is watched.
    bool m_isOwnReference = false;
    std::function<void()> m_onTrashed;
    std::unique_ptr<Cancellable> m_nextLook;
};

} // namespace nookle
