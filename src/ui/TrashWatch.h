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

/// Finds out whether a dragged file was moved to the Trash. No desktop protocol reports this: for the shelf, the Trash
/// is a destination like any other, which moves the file some time after the drop. All arguments must outlive it. Main
/// thread only.
class TrashWatch final {
public:
    TrashWatch(FileReferences& references, const Trash& trash, MainQueue& queue);
    ~TrashWatch();
    TrashWatch(const TrashWatch&) = delete;
    TrashWatch& operator=(const TrashWatch&) = delete;

    /// The drag of `item` begins, whose file is at `file`. Checks the previous file once more and ends its watch.
    void begin(const ShelfItem& item, const QUrl& file);

    /// Whether the file is in the Trash now.
    [[nodiscard]] bool isInTrash();

    /// Checks a few times during the next five seconds, and calls `onTrashed` once if the file is in the Trash.
    void keepLooking(std::function<void()> onTrashed);

    /// Ends the watch. `onTrashed` is not called after this.
    void end();

private:
    /// Checks once during a watch. If the file is in the Trash, ends the watch, calls `onTrashed` and returns true.
    bool lookNow();
    void lookAfter(std::size_t pause);

    FileReferences& m_references;
    const Trash& m_trash;
    MainQueue& m_queue;
    QByteArray m_reference;
    /// Whether this object has made `m_reference` and must release it. True for images that the shelf owns.
    bool m_isOwnReference = false;
    std::function<void()> m_onTrashed;
    std::unique_ptr<Cancellable> m_nextLook;
};

} // namespace nookle
