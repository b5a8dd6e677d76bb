#pragma once

#include "Cancellable.h"
#include "Failure.h"
#include "ShelfItem.h"

#include <QList>
#include <QSet>
#include <QUrl>
#include <QUuid>

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <optional>

namespace nookle {

class ItemFiles;
class MainQueue;

/// Moves the images of removed items to the Trash and deletes the items' folders. A few images go at once. Many go one
/// after the other, since each takes some milliseconds, and only when the index that names them no more has had time to
/// be saved: if the program is killed, an image of the shelf has its file. What is left then lies in a folder without
/// an item, which a later start moves to the Trash. Main thread only.
class DiscardedFiles final {
public:
    using MoveToTrash = std::function<std::optional<Failure>(const QUrl&)>;

    /// `files` and `queue` must outlive this object. The end of it, and so that of the program, waits no longer than
    /// `patienceAtEnd`.
    DiscardedFiles(const ItemFiles& files, MoveToTrash moveToTrash, MainQueue& queue,
                   std::chrono::milliseconds patienceAtEnd = std::chrono::seconds(2));
    /// Moves what is left to the Trash, as far as there is time.
    ~DiscardedFiles();
    DiscardedFiles(const DiscardedFiles&) = delete;
    DiscardedFiles& operator=(const DiscardedFiles&) = delete;

    /// Discards the files of the items `ids`. `items` are those of them that are known. An image that cannot be moved
    /// to the Trash is deleted.
    void discard(const QSet<QUuid>& ids, const QList<ShelfItem>& items);

    /// Leaves alone what has not been discarded yet of `items`, which are about to come back.
    void keep(const QList<ShelfItem>& items);

private:
    struct Image {
        QUuid id;
        QString fileName;
    };

    [[nodiscard]] std::deque<Image> imagesOf(const QList<ShelfItem>& items) const;
    void discard(const Image& image) const;
    void discardNext();

    const ItemFiles& m_files;
    MoveToTrash m_moveToTrash;
    MainQueue& m_queue;
    std::chrono::milliseconds m_patienceAtEnd;
    std::deque<Image> m_left;
    /// Null while nothing is left.
    std::unique_ptr<Cancellable> m_next;
};

} // namespace nookle
