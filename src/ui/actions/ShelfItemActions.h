#pragma once

#include "DragOperation.h"
#include "ItemInteraction.h"
#include "MenuAction.h"
#include "ShelfItem.h"

#include <QCoreApplication>
#include <QUrl>

#include <optional>

class QKeyEvent;

namespace nookle {

class FileTransfers;
class Pasteboard;
class ShelfStore;
class Trash;
class Workspace;

/// The actions of a user on one item of the shelf. All arguments must outlive it. Main thread only.
class ShelfItemActions final {
    Q_DECLARE_TR_FUNCTIONS(nookle::ShelfItemActions)

public:
    ShelfItemActions(ShelfStore& store, Workspace& workspace, Pasteboard& pasteboard, Trash& trash,
                     FileTransfers& transfers);

    /// The operations that other programs may do when `item` is dragged to them.
    [[nodiscard]] static DragOperations allowedOperations(const ShelfItem& item);

    /// The entries of the item's context menu.
    [[nodiscard]] MenuActions menuActions(const ShelfItem& item) const;

    /// The address or file that a click opens, if any.
    [[nodiscard]] std::optional<QUrl> openURL(const ShelfItem& item) const;
    void open(const ShelfItem& item) const;

    /// Whether the item can be copied. False for a file that is missing.
    [[nodiscard]] bool canBeCopied(const ShelfItem& item) const;

    /// Replaces the clipboard's content by the item. Clears the clipboard when the item's file is missing.
    void copyToPasteboard(const ShelfItem& item) const;

    /// The payload and picture for a drag; none when the item cannot be dragged. The picture of a file, an image or a
    /// link is `thumbnail`, or the icon of its kind if `thumbnail` is null.
    [[nodiscard]] std::optional<DragItem> dragItem(const ShelfItem& item, const QPixmap& thumbnail) const;

    [[nodiscard]] static QString toolTip(const ShelfItem& item, const std::optional<QUrl>& localURL);

    /// The tool tip with the item's number and date, if another item has the same tool tip; none otherwise.
    [[nodiscard]] std::optional<QString> distinctToolTip(const ShelfItem& item) const;

    /// Does what a key means for the item that has the keyboard focus. Returns false for other keys.
    [[nodiscard]] bool handleKey(const QKeyEvent& event, const ShelfItem& item) const;

    /// Call this after a drag out. If `operation` is `remove`, moves the item's file to the Trash and removes the item
    /// from the shelf. Otherwise does nothing.
    void dragEnded(const ShelfItem& item, DragOperation operation) const;

private:
    ShelfStore& m_store;
    Workspace& m_workspace;
    Pasteboard& m_pasteboard;
    Trash& m_trash;
    FileTransfers& m_transfers;
};

} // namespace nookle
