#pragma once

#include "MainQueue.h"
#include "ShelfItem.h"

#include <QByteArray>
#include <QFile>
#include <QUrl>

#include <cstddef>
#include <functional>
#include <memory>

namespace nookle {

class FileReferences;
class ShelfStore;
class Trash;

/// Keeps an image of the shelf's own that is dragged to a program which moves it, although it was asked to copy it: a
/// file manager does so when its user says so in its menu, some time after the drop. The file is held open, and the
/// shelf gets a copy of it in the old place. Borrows everything. Main thread only.
class DraggedImage final {
public:
    struct Services {
        ShelfStore& store;
        FileReferences& references;
        const Trash& trash;
        MainQueue& queue;
    };

    /// `item` begins to be dragged: holds its file open if it is an image.
    DraggedImage(Services services, const ShelfItem& item);
    ~DraggedImage();
    DraggedImage(const DraggedImage&) = delete;
    DraggedImage& operator=(const DraggedImage&) = delete;

    [[nodiscard]] const QUuid& id() const { return m_item.id; }

    /// Whether it holds nothing, or nothing any more.
    [[nodiscard]] bool isDone() const { return !m_file.isOpen(); }

    /// Looks again and again during the next ten minutes whether the file is still there. A file that was moved is
    /// copied back; for one in the Trash `onTrashed` is called instead. Then the file is let go of.
    void keepLooking(std::function<void()> onTrashed);

    /// Looks at once, if it is to keep looking.
    void lookNow();

private:
    void lookAfter(std::size_t pause);
    /// Whether there is nothing more to look for.
    [[nodiscard]] bool look();
    [[nodiscard]] bool isInTrash() const;
    void copyBack();
    void end();

    Services m_services;
    ShelfItem m_item;
    QFile m_file;
    QByteArray m_reference;
    std::function<void()> m_onTrashed;
    std::unique_ptr<Cancellable> m_nextLook;
};

} // namespace nookle
