#pragma once

#include "MainQueue.h"

#include <QByteArray>

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

    /// The file behind `reference` begins to be dragged; an empty reference stands for none. Ends the watch over the
    /// file before with a last look at it.
    void begin(const QByteArray& reference);

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
    std::function<void()> m_onTrashed;
    std::unique_ptr<Cancellable> m_nextLook;
};

} // namespace nookle
