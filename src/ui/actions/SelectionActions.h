#pragma once

#include "MenuAction.h"
#include "Question.h"
#include "ShelfItem.h"
#include "ShelfItemActions.h"

#include <QCoreApplication>
#include <QList>
#include <QUrl>

#include <memory>

class QKeyEvent;

namespace nookle {

class ItemOpener;
class MainQueue;

/// The actions of a user on the selected items of the shelf: those of `ShelfItemActions` on a single one, and on
/// several what these do together. All arguments must outlive it. Main thread only.
class SelectionActions final {
    Q_DECLARE_TR_FUNCTIONS(nookle::SelectionActions)

public:
    SelectionActions(const ShelfItemActions& single, ShelfStore& store, Workspace& workspace, Pasteboard& pasteboard,
                     MainQueue& queue, Ask ask);

    /// The entries of the context menu. Titles say how many of several items they are for.
    [[nodiscard]] MenuActions menuActions(const QList<ShelfItem>& items) const;

    /// Does what a key means for `items`, which may be empty. Returns false for other keys.
    [[nodiscard]] bool handleKey(const QKeyEvent& event, const QList<ShelfItem>& items) const;

    // For several items.

    /// Opens what can be opened. Asks before it opens more than ten, which then open one after the other.
    void open(const QList<ShelfItem>& items) const;

    /// Shows the files among `items` in the file manager. Asks before it shows more than ten folders.
    void reveal(const QList<ShelfItem>& items) const;

    /// Replaces the clipboard's content: by the addresses if there are only files, or only links; otherwise by the
    /// addresses of the files, if any, and everything as the text that a drag has. Looks once more where the files are,
    /// and leaves out what is missing; leaves the clipboard as it is if that is all.
    void copy(const QList<ShelfItem>& items) const;

    /// Pins all items if one is not pinned, otherwise unpins all.
    void togglePinned(const QList<ShelfItem>& items) const;

    /// Removes all items, as one step of undo.
    void remove(const QList<ShelfItem>& items) const;

private:
    [[nodiscard]] QList<ShelfItem> openable(const QList<ShelfItem>& items) const;
    [[nodiscard]] QList<QUrl> referencedFiles(const QList<ShelfItem>& items) const;

    ShelfItemActions m_single;
    ShelfStore& m_store;
    Workspace& m_workspace;
    Pasteboard& m_pasteboard;
    /// For many items. Copies of this object share it.
    std::shared_ptr<ItemOpener> m_opener;
    Ask m_ask;
};

} // namespace nookle
