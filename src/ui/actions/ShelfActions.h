#pragma once

#include "ContentReader.h"
#include "MenuAction.h"

#include <QCoreApplication>

#include <functional>

class QKeyEvent;

namespace nookle {

class DropHandler;
class PanelPinning;
class Pasteboard;
class ShelfStore;

/// The actions of a user on the shelf as a whole. All arguments must outlive it. Main thread only.
class ShelfActions final {
    Q_DECLARE_TR_FUNCTIONS(nookle::ShelfActions)

public:
    ShelfActions(ShelfStore& store, const PanelPinning& pinning, Pasteboard& pasteboard, DropHandler& dropHandler);

    /// Called by entries of the menu and by keys. Set by the owner.
    std::function<void()> onSelectAll = [] {};
    std::function<void()> onTogglePin = [] {};
    std::function<void()> onShowSettings = [] {};
    std::function<void()> onQuit = [] {};

    /// The entries of the panel's own menu. They may be chosen as long as this object lives.
    [[nodiscard]] MenuActions menuActions();

    /// Does what a key means for the shelf as a whole. Returns false for other keys.
    [[nodiscard]] bool handleKey(const QKeyEvent& event);

    /// Brings back what was removed last.
    void undoRemove() const;

    /// Adds what the clipboard holds, like a drop, once its owner has delivered it. Tells the user if nothing in it can
    /// be added.
    void paste();

private:
    ShelfStore& m_store;
    const PanelPinning& m_pinning;
    ContentReader m_clipboard;
};

} // namespace nookle
