#include "StatusItem.h"

#include "MenuBarIcon.h"
#include "StatusMenu.h"

#include <QCoreApplication>
#include <QCursor>
#include <QEvent>

namespace nookle {

StatusItem::StatusItem(StatusMenu& menu, TrayHost& notifier, TrayHost* embedding, MainQueue& queue)
    : m_menu(menu)
    , m_trayFinder(notifier, embedding, queue)
{
    QCoreApplication::instance()->installEventFilter(this);
    m_trayFinder.onFound = [this] { showIcon(); };
    m_trayFinder.start();
}

StatusItem::~StatusItem() = default;

void StatusItem::showIcon()
{
    m_icon = std::make_unique<QSystemTrayIcon>(MenuBarIcon::make());
    m_icon->setToolTip(QStringLiteral("Nookle"));
    m_icon->setContextMenu(&m_menu);
    connect(m_icon.get(), &QSystemTrayIcon::activated, this, &StatusItem::activated);
    m_icon->show();
}

void StatusItem::activated(QSystemTrayIcon::ActivationReason reason)
{
    // The tray, or the toolkit, opens the menu for the other clicks.
    if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::MiddleClick)
        m_menu.popup(QCursor::pos());
}

bool StatusItem::eventFilter(QObject* watched, QEvent* event)
{
    // The tray keeps a copy of the icon in its old colour.
    if (event->type() == QEvent::ApplicationPaletteChange && watched == QCoreApplication::instance() && m_icon)
        m_icon->setIcon(MenuBarIcon::make());
    return QObject::eventFilter(watched, event);
}

} // namespace nookle
