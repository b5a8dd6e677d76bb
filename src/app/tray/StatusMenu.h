#pragma once

#include <QKeyCombination>
#include <QMenu>

#include <functional>

class QAction;
class QKeyEvent;
class QKeySequence;

namespace nookle {

class PanelPinning;

/// The menu of the icon in the tray. Its check mark is updated at every change of the pinned state, because a tray that
/// draws the menu itself never asks for the state. Main thread only.
class StatusMenu final : public QMenu {
    Q_OBJECT

public:
    /// `pinning` must outlive the menu.
    explicit StatusMenu(const PanelPinning& pinning);

    /// The keys that the entry for the shelf shows, and takes while the menu is open.
    void setToggleKeys(QKeyCombination keys);

    /// The actions of the entries. Set by the owner.
    std::function<void()> onTogglePanel = [] {};
    std::function<void()> onTogglePinned = [] {};
    std::function<void()> onShowSettings = [] {};
    std::function<void()> onQuit = [] {};

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QAction* addEntry(const QString& title, const QKeySequence& key, std::function<void()> StatusMenu::*action);
    void showPinned();

    const PanelPinning& m_pinning;
    QAction* m_toggleItem;
    QAction* m_pinItem;
};

} // namespace nookle
