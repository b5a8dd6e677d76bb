#include "ShelfActions.h"

#include "DropCapture.h"
#include "DropHandler.h"
#include "PanelPinning.h"
#include "Pasteboard.h"
#include "ShelfStore.h"

#include <QKeyEvent>

#include <algorithm>

namespace nookle {

ShelfActions::ShelfActions(ShelfStore& store, const PanelPinning& pinning, Pasteboard& pasteboard,
                           DropHandler& dropHandler)
    : m_store(store)
    , m_pinning(pinning)
    , m_clipboard([&pasteboard] { return pasteboard.contents(); },
                  [](const DropPayload& payload) { static_cast<void>(captureDrop(payload)); },
                  [&dropHandler](const DropPayload& payload) { dropHandler.handlePaste(captureDrop(payload)); })
{
}

MenuActions ShelfActions::menuActions()
{
    const auto& items = m_store.items();
    const bool hasUnpinned =
        std::any_of(items.begin(), items.end(), [](const ShelfItem& item) { return !item.pinned; });

    MenuActions menu;
    menu.push_back(MenuAction{ tr("Undo Remove"), m_store.canUndoRemove(), [this] { undoRemove(); },
                               QKeySequence(QKeySequence::Undo) });
    menu.push_back(MenuAction{ tr("Paste"), true, [this] { paste(); }, QKeySequence(QKeySequence::Paste) });
    menu.push_back(MenuAction{ tr("Select All"), !items.isEmpty(), [this] { onSelectAll(); },
                               QKeySequence(QKeySequence::SelectAll) });
    menu.push_back(std::nullopt);
    menu.push_back(MenuAction{ tr("Remove Unpinned Items"), hasUnpinned, [this] { m_store.removeUnpinned(); } });
    menu.push_back(std::nullopt);
    menu.push_back(
        MenuAction{ tr("Keep Shelf Open"), true, [this] { onTogglePin(); }, QKeySequence(), m_pinning.isPinned() });
    menu.push_back(MenuAction{ tr("Settings…"), true, [this] { onShowSettings(); } });
    menu.push_back(std::nullopt);
    menu.push_back(MenuAction{ tr("Quit Nookle"), true, [this] { onQuit(); } });
    return menu;
}

bool ShelfActions::handleKey(const QKeyEvent& event)
{
    if (event.matches(QKeySequence::Undo))
        undoRemove();
    else if (event.matches(QKeySequence::Paste))
        paste();
    else if (event.matches(QKeySequence::SelectAll))
        onSelectAll();
    else
        return false;
    return true;
}

void ShelfActions::undoRemove() const
{
    m_store.undoRemove();
}

void ShelfActions::paste()
{
    m_clipboard.read();
}

} // namespace nookle
