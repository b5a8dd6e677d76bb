#pragma once

#include "MainQueue.h"

#include <QByteArray>
#include <QSet>

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace nookle {

class FileReferences;
class Trash;

/// Finds out which dragged files were moved to the Trash. No desktop protocol reports this: for the shelf, the Trash is
/// a destination like any other, which moves files some time after the drop. All arguments must outlive it. Main thread
/// only.
class TrashWatch final {
public:
    TrashWatch(FileReferences& references, const Trash& trash, MainQueue& queue);

    /// The drag of the files behind `references` begins. Ends the watch over the previous files.
    void begin(std::vector<QByteArray> references);

    /// The references of the files that are in the Trash now. They are not watched any more.
    [[nodiscard]] QSet<QByteArray> takeTrashed();

    /// Checks a few times during the next five seconds, and calls `onTrashed` for those files that are in the Trash,
    /// once for each.
    void keepLooking(std::function<void(const QSet<QByteArray>&)> onTrashed);

    /// Checks at once, if `keepLooking` is running.
    void lookNow();

    /// Ends the watch. `onTrashed` is not called after this.
    void end();

private:
    /// Checks once during a watch. Returns whether the watch goes on.
    [[nodiscard]] bool look();
    void lookAfter(std::size_t pause);

    FileReferences& m_references;
    const Trash& m_trash;
    MainQueue& m_queue;
    std::vector<QByteArray> m_watched;
    std::function<void(const QSet<QByteArray>&)> m_onTrashed;
    std::unique_ptr<Cancellable> m_nextLook;
};

} // namespace nookle
