#pragma once

#include "MainQueue.h"

#include <QByteArray>

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

    /// The drag of the file behind `reference` begins; an empty reference means no file. Checks the previous file once
    /// more and ends its watch.
    void begin(const QByteArray& reference);

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
    std::function<void()> m_onTrashed;
    std::unique_ptr<Cancellable> m_nextLook;
};

} // namespace nookle
