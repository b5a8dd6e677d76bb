#include "DesktopWorkspace.h"

#include "Log.h"
#include "OpenableAddress.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>

namespace nookle {

namespace {

/// The only call of the desktop's opener. It checks the address, because items may come from untrusted sources.
void openWithDesktop(const QUrl& address)
{
    if (const auto scheme = refusedScheme(address))
        logLine(QStringLiteral("an address is not opened: %1").arg(*scheme));
    else
        QDesktopServices::openUrl(address);
}

} // namespace

void DesktopWorkspace::open(const QUrl& url)
{
    openWithDesktop(url);
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
        // If no file manager has this service, at least open the folder.
        if (watcher->isError())
            openWithDesktop(file.adjusted(QUrl::RemoveFilename));
        watcher->deleteLater();
    });
}

} // namespace nookle
