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

/// Preserves an image that the shelf owns when the destination of a drag moves its file, although only copying was
/// offered. A file manager does that if its user chooses "move" in a menu, some time after the drop. This object keeps
/// the file open, and copies it back to its old place. All services must outlive it. Main thread only.
class DraggedImage final {
public:
    struct Services {
        ShelfStore& store;
        FileReferences& references;
        const Trash& trash;
        MainQueue& queue;
    };

    /// The drag of `item` begins. Opens its file if the item is an image.
    DraggedImage(Services services, const ShelfItem& item);
    ~DraggedImage();
    DraggedImage(const DraggedImage&) = delete;
    DraggedImage& operator=(const DraggedImage&) = delete;

    [[nodiscard]] const ShelfItem& item() const { return m_item; }
    [[nodiscard]] const QUuid& id() const { return m_item.id; }

    /// Whether no file is open (any more).
    [[nodiscard]] bool isDone() const { return !m_file.isOpen(); }

    /// Whether `keepLooking` was called, and the file has not been closed since.
    [[nodiscard]] bool isLooking() const { return m_onTrashed != nullptr; }

    /// The reference to the file while it is open; empty otherwise.
    [[nodiscard]] const QByteArray& reference() const { return m_reference; }

    /// Checks repeatedly during the next ten minutes whether the file is still in its place. If it was moved, copies it
    /// back; if it was moved to the Trash, calls `onTrashed` instead. Then closes the file. If copying back fails, logs
    /// one line and tries again at the next check.
    void keepLooking(std::function<void()> onTrashed);

    /// Checks at once, if `keepLooking` is running.
    void lookNow();

private:
    void hold();
    void lookAfter(std::size_t pause);
    /// Checks once. Returns whether the watch is finished.
    [[nodiscard]] bool look();
    [[nodiscard]] bool isInTrash() const;
    [[nodiscard]] std::optional<Failure> copyBack();
    void end();

    Services m_services;
    ShelfItem m_item;
    QFile m_file;
    QByteArray m_reference;
    /// Keeps the item while its receiver may still read the file.
    std::unique_ptr<Cancellable> m_use;
    std::function<void()> m_onTrashed;
    bool m_hasToldFailure = false;
    std::unique_ptr<Cancellable> m_nextLook;
};

} // namespace nookle
