#pragma once

#include "TrayFinder.h"

#include <QObject>
#include <QSystemTrayIcon>

#include <memory>

namespace nookle {

class MainQueue;
class StatusMenu;
class TrayHost;

/// The program's icon in the desktop's tray, shown as soon as there is a tray. Any click opens the menu. Main thread
/// only.
class StatusItem final : public QObject {
    Q_OBJECT

public:
    /// All arguments must outlive this object. `embedding` is null on display servers without that kind of tray.
    StatusItem(StatusMenu& menu, TrayHost& notifier, TrayHost* embedding, MainQueue& queue);
    ~StatusItem() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showIcon();
    void activated(QSystemTrayIcon::ActivationReason reason);

    StatusMenu& m_menu;
    std::unique_ptr<QSystemTrayIcon> m_icon;
    TrayFinder m_trayFinder;
};

} // namespace nookle
