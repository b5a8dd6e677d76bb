#pragma once

#include "TrayHost.h"

#include <QObject>

class QDBusPendingCallWatcher;

namespace nookle {

/// The kind of tray that draws the icons and menus of programs itself; it gets them over the session bus. Never waits
/// for the bus. Main thread only.
class StatusNotifierTrayHost final : public QObject, public TrayHost {
    Q_OBJECT

public:
    StatusNotifierTrayHost();

    /// False until the bus has answered.
    [[nodiscard]] bool isPresent() const override { return m_isPresent; }

private Q_SLOTS:
    void ask();

private:
    void readAnswer(QDBusPendingCallWatcher* watcher);
    void setPresent(bool isPresent);

    bool m_isPresent = false;
};

} // namespace nookle
