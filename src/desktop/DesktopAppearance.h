#pragma once

#include <QObject>
#include <QPalette>

class QDBusPendingCallWatcher;
class QDBusVariant;

namespace nookle {

/// Gives the program dark colours while the desktop prefers them, where the toolkit does not do so by itself. Asks the
/// desktop without waiting, and starts no service for it.
class DesktopAppearance final : public QObject {
    Q_OBJECT

public:
    /// The application object exists. The colours that it has now are the light ones, unless they are dark already:
    /// then they are left alone.
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
