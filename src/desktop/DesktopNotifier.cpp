#include "DesktopNotifier.h"

#include "Log.h"
#include "PlainText.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QVariantMap>

namespace nookle {

void DesktopNotifier::notify(const QString& text)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
    constexpr uint noOther = 0;
    constexpr int usualTime = -1;
    // Escaped, because the desktop may interpret markup in the text.
    call << QStringLiteral("Nookle") << noOther << QStringLiteral("org.nookle.Nookle") << QStringLiteral("Nookle")
         << shownText(text).toHtmlEscaped() << QStringList() << QVariantMap() << usualTime;
    auto* watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), QCoreApplication::instance());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, text] {
        if (watcher->isError())
            logLine(QStringLiteral("could not show a message: %1").arg(text));
        watcher->deleteLater();
    });
}

} // namespace nookle
