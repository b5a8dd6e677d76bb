#include "BusService.h"

#include "ApplicationAdaptor.h"
#include "Log.h"
#include "ShelfAdaptor.h"

#include <QDBusConnection>
#include <QDBusError>

namespace nookle {

namespace {

[[nodiscard]] QString name()
{
    return QStringLiteral("org.nookle.Nookle");
}

[[nodiscard]] QString path()
{
    return QStringLiteral("/org/nookle/Nookle");
}

} // namespace

BusService::BusService()
{
    // Owned by this object, as every adaptor is.
    new ShelfAdaptor(*this);
    new ApplicationAdaptor(*this);
}

BusService::~BusService()
{
    QDBusConnection::sessionBus().unregisterObject(path());
}

void BusService::start()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    // Register the object before the name, because calls may be waiting for the name.
    if (bus.isConnected() && bus.registerObject(path(), this) && bus.registerService(name()))
        return;
    const QString reason = bus.isConnected() ? bus.lastError().message() : QStringLiteral("there is no session bus");
    logLine(QStringLiteral("other programs cannot reach the shelf: %1")
                .arg(reason.isEmpty() ? QStringLiteral("another program has its name") : reason));
}

} // namespace nookle
