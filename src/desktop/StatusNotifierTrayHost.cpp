#include "StatusNotifierTrayHost.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

#include <utility>

namespace nookle {

namespace {

const QString service = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString path = QStringLiteral("/StatusNotifierWatcher");
const QString watcherInterface = QStringLiteral("org.kde.StatusNotifierWatcher");

} // namespace

StatusNotifierTrayHost::StatusNotifierTrayHost()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    const auto* owner = new QDBusServiceWatcher(service, bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(owner, &QDBusServiceWatcher::serviceOwnerChanged, this, &StatusNotifierTrayHost::ask);
    for (const char* signal : { "StatusNotifierHostRegistered", "StatusNotifierHostUnregistered" })
        bus.connect(service, path, watcherInterface, QLatin1String(signal), this, SLOT(ask()));
    ask();
}

void StatusNotifierTrayHost::ask()
{
    QDBusMessage get = QDBusMessage::createMethodCall(service, path, QStringLiteral("org.freedesktop.DBus.Properties"),
                                                      QStringLiteral("Get"));
    get << watcherInterface << QStringLiteral("IsStatusNotifierHostRegistered");
    get.setAutoStartService(false);
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(get), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, &StatusNotifierTrayHost::readAnswer);
}

void StatusNotifierTrayHost::readAnswer(QDBusPendingCallWatcher* watcher)
{
    watcher->deleteLater();
    const QDBusPendingReply<QDBusVariant> reply = *watcher;
    setPresent(!reply.isError() && reply.value().variant().toBool());
}

void StatusNotifierTrayHost::setPresent(bool isPresent)
{
    if (std::exchange(m_isPresent, isPresent) != isPresent)
        onChanged();
}

} // namespace nookle
