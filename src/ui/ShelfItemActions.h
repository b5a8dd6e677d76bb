#pragma once

#include "DragOperation.h"
#include "ItemInteraction.h"
#include "MenuAction.h"
#include "ShelfItem.h"

#include <QCoreApplication>
#include <QUrl>

#include <optional>

namespace nookle {

class FileTransfers;
class Pasteboard;
class ShelfStore;
class Trash;
class Workspace;

/// What a user can do with one item of the shelf. Borrows everything. Main thread only.
class ShelfItemActions final {
    Q_DECLARE_TR_FUNCTIONS(nookle::ShelfItemActions)

public:
    ShelfItemActions(ShelfStore& store, Workspace& workspace, Pasteboard& pasteboard, Trash& trash,
                     FileTransfers& transfers);

    /// What other programs may do with an item of that kind when it is dragged to them.
    [[nodiscard]] static DragOperations allowedOperations(const ShelfItem& item);

    /// The context menu.
    [[nodiscard]] MenuActions menuActions(const ShelfItem& item) const;

    /// What a click opens, if anything.
    [[nodiscard]] std::optional<QUrl> openURL(const ShelfItem& item) const;
    void open(const ShelfItem& item) const;

    /// Whether there is anything to copy: not of a file that cannot be found.
    [[nodiscard]] bool canBeCopied(const ShelfItem& item) const;

    /// Replaces the clipboard by the item; by nothing when its file is gone.
    void copyToPasteboard(const ShelfItem& item) const;

    /// What a drag carries; nothing when the item cannot be dragged. The picture of a file, an image or a link is its
    /// `thumbnail`; where that is null, the icon of its kind.
    [[nodiscard]] std::optional<DragItem> dragItem(const ShelfItem& item, const QPixmap& thumbnail) const;

    [[nodiscard]] static QString toolTip(const ShelfItem& item, const std::optional<QUrl>& localURL);

    /// After a drag out: a destination that deleted the item takes it off the shelf and its file to the Trash. Anything
    /// else leaves it where it is.
    void dragEnded(const ShelfItem& item, DragOperation operation) const;

private:
    ShelfStore& m_store;
    Workspace& m_workspace;
    Pasteboard& m_pasteboard;
    Trash& m_trash;
    FileTransfers& m_transfers;
};

} // namespace nookle
