#include "DesktopWorkspace.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>

namespace nookle {

void DesktopWorkspace::open(const QUrl& url)
{
    QDesktopServices::openUrl(url);
}

void DesktopWorkspace::reveal(const QUrl& file)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << QStringList{ QString::fromLatin1(file.toEncoded()) } << QString();
    auto* watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), QCoreApplication::instance());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, file] {
        // Where no file manager answers to that name, at least the folder can be shown.
        if (watcher->isError())
            QDesktopServices::openUrl(file.adjusted(QUrl::RemoveFilename));
        watcher->deleteLater();
    });
}

} // namespace nookle
