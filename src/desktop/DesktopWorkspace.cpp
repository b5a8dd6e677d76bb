#include "DesktopWorkspace.h"

#include "Log.h"
#include "OpenableAddress.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QSet>

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

/// Opens the folder of each file, and each folder once.
void openFolders(const QList<QUrl>& files)
{
    QSet<QUrl> opened;
    for (const QUrl& file : files) {
        const QUrl folder = file.adjusted(QUrl::RemoveFilename);
        if (opened.contains(folder))
            continue;
        opened.insert(folder);
        openWithDesktop(folder);
    }
}

} // namespace

void DesktopWorkspace::open(const QUrl& url)
{
    openWithDesktop(url);
}

void DesktopWorkspace::reveal(const QList<QUrl>& files)
{
    QStringList addresses;
    for (const QUrl& file : files)
        addresses.append(QString::fromLatin1(file.toEncoded()));
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << addresses << QString();
    auto* watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), QCoreApplication::instance());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, files] {
        // If no file manager has this service, at least open the folders.
        if (watcher->isError())
            openFolders(files);
        watcher->deleteLater();
    });
}

} // namespace nookle
