#pragma once

#include <QObject>
#include <QPalette>

class QDBusPendingCallWatcher;
class QDBusVariant;

namespace nookle {

/// Gives the program dark colours while the desktop prefers them, if the toolkit does not do so by itself. Asks the
/// desktop asynchronously, and starts no service for that.
class DesktopAppearance final : public QObject {
    Q_OBJECT

public:
    /// The application object must exist. If its present colours are light, they are used as the light ones. If they
    /// are dark already, this object changes nothing.
    DesktopAppearance();

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void follow();
    void askForPreference();
    void readAnswer(QDBusPendingCallWatcher* watcher);
    void setPreference(const QVariant& value);

    QPalette m_own;
};

} // namespace nookle
