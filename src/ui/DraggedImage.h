#pragma once

#include "Failure.h"
#include "MainQueue.h"
#include "ShelfItem.h"

#include <QByteArray>
#include <QFile>
#include <QUrl>

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>

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

    /// Whether `keepLooking` was called, and the file was not let go of since.
    [[nodiscard]] bool isLooking() const { return m_onTrashed != nullptr; }

    /// The reference to the file, as long as it is held; empty otherwise.
    [[nodiscard]] const QByteArray& reference() const { return m_reference; }

    /// Looks again and again during the next ten minutes whether the file is still there. A file that was moved is
    /// copied back; for one in the Trash `onTrashed` is called instead. Then the file is let go of. What cannot be
    /// copied back is tried again at the next look, with one log line.
    void keepLooking(std::function<void()> onTrashed);

    /// Looks at once, if it is to keep looking.
    void lookNow();

private:
    void hold();
    void lookAfter(std::size_t pause);
    /// Whether there is nothing more to look for.
    [[nodiscard]] bool look();
    [[nodiscard]] bool isInTrash() const;
    [[nodiscard]] std::optional<Failure> copyBack();
    void end();

    Services m_services;
    ShelfItem m_item;
    QFile m_file;
    QByteArray m_reference;
    std::function<void()> m_onTrashed;
    bool m_hasToldFailure = false;
    std::unique_ptr<Cancellable> m_nextLook;
};

} // namespace nookle
