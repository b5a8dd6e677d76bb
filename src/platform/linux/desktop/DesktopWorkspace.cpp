#include "DesktopWorkspace.h"

#include <QDBusConnection>
#include <QDBusMessage>
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
    // Where no file manager answers to that name, at least the folder can be shown.
    if (!QDBusConnection::sessionBus().send(call))
        open(file.adjusted(QUrl::RemoveFilename));
}

} // namespace nookle
