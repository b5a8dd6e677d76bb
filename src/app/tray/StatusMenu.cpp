#include "StatusMenu.h"

#include "PanelPinning.h"

#include <QAction>
#include <QKeyEvent>
#include <QKeySequence>

#include <algorithm>

namespace nookle {

StatusMenu::StatusMenu(const PanelPinning& pinning)
    : m_pinning(pinning)
{
    m_toggleItem = addEntry(tr("Show Shelf"), Qt::CTRL | Qt::ALT | Qt::META | Qt::Key_D, &StatusMenu::onTogglePanel);
    m_pinItem = addEntry(tr("Keep Shelf Open"), {}, &StatusMenu::onTogglePinned);
    addSeparator();
    addEntry(tr("Settings…"), Qt::CTRL | Qt::Key_Comma, &StatusMenu::onShowSettings);
    addSeparator();
    addEntry(tr("Quit Nookle"), Qt::CTRL | Qt::Key_Q, &StatusMenu::onQuit);

    m_pinItem->setCheckable(true);
    showPinned();
    connect(&m_pinning, &PanelPinning::isPinnedChanged, this, &StatusMenu::showPinned);
    connect(this, &QMenu::aboutToShow, this, &StatusMenu::showPinned);
}

QAction* StatusMenu::addEntry(const QString& title, const QKeySequence& key, std::function<void()> StatusMenu::*action)
{
    QAction* entry = addAction(title);
    entry->setShortcut(key);
    connect(entry, &QAction::triggered, this, [this, action] {
        (this->*action)();
        // The click has toggled the check mark even if the state has not changed.
        showPinned();
    });
    return entry;
}

void StatusMenu::setToggleKeys(QKeyCombination keys)
{
    m_toggleItem->setShortcut(keys);
}

void StatusMenu::showPinned()
{
    m_pinItem->setChecked(m_pinning.isPinned());
}

// Handles the shortcuts itself, because the menu belongs to no window for which the toolkit would do it.
void StatusMenu::keyPressEvent(QKeyEvent* event)
{
    const QKeySequence pressed(event->keyCombination());
    const QList<QAction*> entries = actions();
    const auto entry = std::find_if(entries.begin(), entries.end(), [&pressed](const QAction* candidate) {
        return !candidate->shortcut().isEmpty() && candidate->shortcut() == pressed;
    });
    if (entry == entries.end()) {
        QMenu::keyPressEvent(event);
        return;
    }
    close();
    (*entry)->trigger();
}

} // namespace nookle
