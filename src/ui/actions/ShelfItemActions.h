#pragma once

#include "MenuAction.h"
#include "ShelfItem.h"

#include <QCoreApplication>
#include <QUrl>

#include <optional>

class QKeyEvent;

namespace nookle {

class Pasteboard;
class ShelfStore;
class Workspace;

/// The actions of a user on one item of the shelf. All arguments must outlive it. Main thread only.
class ShelfItemActions final {
    Q_DECLARE_TR_FUNCTIONS(nookle::ShelfItemActions)

public:
    ShelfItemActions(ShelfStore& store, Workspace& workspace, Pasteboard& pasteboard);

    /// The entries of the item's context menu.
    [[nodiscard]] MenuActions menuActions(const ShelfItem& item) const;

    /// The address or file that a click opens, if any.
    [[nodiscard]] std::optional<QUrl> openURL(const ShelfItem& item) const;
    void open(const ShelfItem& item) const;

    /// Whether the item can be copied. False for a file that is missing.
    [[nodiscard]] bool canBeCopied(const ShelfItem& item) const;

    /// Replaces the clipboard's content by the item. Clears the clipboard when the item's file is missing.
    void copyToPasteboard(const ShelfItem& item) const;

    [[nodiscard]] static QString toolTip(const ShelfItem& item, const std::optional<QUrl>& localURL);

    /// The tool tip with the item's number and date, if another item has the same tool tip; none otherwise.
    [[nodiscard]] std::optional<QString> distinctToolTip(const ShelfItem& item) const;

    /// Does what a key means for the item that has the keyboard focus. Returns false for other keys.
    [[nodiscard]] bool handleKey(const QKeyEvent& event, const ShelfItem& item) const;

private:
    ShelfStore& m_store;
    Workspace& m_workspace;
    Pasteboard& m_pasteboard;
};

} // namespace nookle
