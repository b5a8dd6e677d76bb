#include "BusClient.h"

#include "Waiting.h"

#include <QDBusReply>

namespace nookle::e2e {

namespace {

const QString connectionName = QStringLiteral("client");
const QString shelfInterface = QStringLiteral("org.nookle.Nookle1");
const QString addMethod = QStringLiteral("AddToShelf");

} // namespace

std::unique_ptr<BusClient> BusClient::tryConnect(const QString& busAddress)
{
    std::unique_ptr<BusClient> client(new BusClient(QDBusConnection::connectToBus(busAddress, connectionName)));
    const bool isRegistered = client->m_bus.registerObject(QStringLiteral("/org/freedesktop/Notifications"),
                                                           client.get(), QDBusConnection::ExportAllSlots)
        && client->m_bus.registerService(QStringLiteral("org.freedesktop.Notifications"));
    return isRegistered ? std::move(client) : nullptr;
}

BusClient::BusClient(const QDBusConnection& bus)
    : m_bus(bus)
{
}

BusClient::~BusClient()
{
    m_bus = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(connectionName);
}

uint BusClient::Notify(const QString& program, uint /*replaces*/, const QString& /*icon*/, const QString& /*summary*/,
                       const QString& body, const QStringList& /*actions*/, const QVariantMap& /*hints*/, int /*time*/)
{
    m_messages.append(QString(program + QStringLiteral(": ") + body));
    return static_cast<uint>(m_messages.size());
}

QDBusPendingCall BusClient::begin(const QString& interface, const QString& method, const QVariantList& arguments) const
{
    QDBusMessage message = QDBusMessage::createMethodCall(QStringLiteral("org.nookle.Nookle"),
                                                          QStringLiteral("/org/nookle/Nookle"), interface, method);
    message.setArguments(arguments);
    return m_bus.asyncCall(message);
}

QDBusMessage BusClient::call(const QString& interface, const QString& method, const QVariantList& arguments) const
{
    const QDBusPendingCall pending = begin(interface, method, arguments);
    if (!waitFor([&] { return pending.isFinished(); }))
        qWarning("%s is not answered", qPrintable(method));
    return pending.reply();
}

QDBusMessage BusClient::addToShelf(const QStringList& uris, const QString& text) const
{
    return call(shelfInterface, addMethod, { uris, text });
}

void BusClient::beginAddToShelf(const QStringList& uris, const QString& text) const
{
    static_cast<void>(begin(shelfInterface, addMethod, { uris, text }));
}

uint BusClient::matchRules(const QString& name) const
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus.Debug.Stats"), QStringLiteral("GetConnectionStats"));
    message.setArguments({ name });
    const QDBusReply<QVariantMap> statistics = m_bus.call(message);
    return statistics.value().value(QStringLiteral("MatchRules")).toUInt();
}

} // namespace nookle::e2e
