#include "TrayServer.h"

#include "Waiting.h"

#include <QDBusArgument>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QVariantMap>
#include <QtEndian>

namespace nookle::e2e {

namespace {

const QString connectionName = QStringLiteral("tray");
const QString watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");
const QString itemPath = QStringLiteral("/StatusNotifierItem");
const QString itemInterface = QStringLiteral("org.kde.StatusNotifierItem");
const QString menuInterface = QStringLiteral("com.canonical.dbusmenu");

[[nodiscard]] QImage picture(int width, int height, const QByteArray& pixels)
{
    if (pixels.size() != qsizetype{ 4 } * width * height)
        return {};
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qFromBigEndian<quint32>(pixels.constData() + qsizetype{ 4 } * (y * width + x)));
    }
    return image;
}

[[nodiscard]] TrayServer::Entry entryOf(int id, const QVariantMap& properties)
{
    TrayServer::Entry entry;
    entry.id = id;
    entry.label = properties.value(QStringLiteral("label")).toString();
    entry.isSeparator = properties.value(QStringLiteral("type")).toString() == QLatin1String("separator");
    entry.showsKeys = properties.contains(QStringLiteral("shortcut"));
    if (properties.contains(QStringLiteral("toggle-type")))
        entry.isChecked = properties.value(QStringLiteral("toggle-state")).toInt() == 1;
    return entry;
}

/// The entries right below the root of a layout.
[[nodiscard]] QList<TrayServer::Entry> entriesOf(const QDBusArgument& layout)
{
    QList<TrayServer::Entry> entries;
    int root = 0;
    QVariantMap rootProperties;
    layout.beginStructure();
    layout >> root >> rootProperties;
    layout.beginArray();
    while (!layout.atEnd()) {
        QDBusVariant child;
        layout >> child;
        const auto fields = child.variant().value<QDBusArgument>();
        int id = 0;
        QVariantMap properties;
        fields.beginStructure();
        fields >> id >> properties;
        fields.endStructure();
        entries.append(entryOf(id, properties));
    }
    layout.endArray();
    layout.endStructure();
    return entries;
}

} // namespace

std::unique_ptr<TrayServer> TrayServer::tryStart(const QString& busAddress)
{
    std::unique_ptr<TrayServer> server(new TrayServer(QDBusConnection::connectToBus(busAddress, connectionName)));
    const bool isRegistered =
        server->m_bus.registerObject(watcherPath, server.get(),
                                     QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals
                                         | QDBusConnection::ExportAllProperties)
        && server->m_bus.registerService(watcherName);
    if (!isRegistered)
        return nullptr;
    Q_EMIT server->StatusNotifierHostRegistered();
    return server;
}

TrayServer::TrayServer(const QDBusConnection& bus)
    : m_bus(bus)
{
}

TrayServer::~TrayServer()
{
    m_bus = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(connectionName);
}

void TrayServer::RegisterStatusNotifierItem(const QString& /*service*/, const QDBusMessage& message)
{
    m_items.append(message.service());
    Q_EMIT StatusNotifierItemRegistered(message.service());
}

void TrayServer::RegisterStatusNotifierHost(const QString& /*service*/) {}

QDBusMessage TrayServer::call(const QString& path, const QString& interface, const QString& method,
                              const QVariantList& arguments) const
{
    QDBusMessage message = QDBusMessage::createMethodCall(m_items.value(0), path, interface, method);
    message.setArguments(arguments);
    const QDBusPendingCall pending = m_bus.asyncCall(message);
    if (!waitFor([&] { return pending.isFinished(); }))
        qWarning("%s is not answered", qPrintable(method));
    return pending.reply();
}

QVariant TrayServer::property(const QString& name) const
{
    const QDBusMessage reply = call(itemPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                                    { itemInterface, name });
    return reply.arguments().value(0).value<QDBusVariant>().variant();
}

QString TrayServer::text(const QString& property) const
{
    return this->property(property).toString();
}

QList<QImage> TrayServer::icons() const
{
    QList<QImage> images;
    const auto pictures = property(QStringLiteral("IconPixmap")).value<QDBusArgument>();
    pictures.beginArray();
    while (!pictures.atEnd()) {
        int width = 0;
        int height = 0;
        QByteArray pixels;
        pictures.beginStructure();
        pictures >> width >> height >> pixels;
        pictures.endStructure();
        images.append(picture(width, height, pixels));
    }
    pictures.endArray();
    return images;
}

QList<TrayServer::Entry> TrayServer::menu() const
{
    const auto path = property(QStringLiteral("Menu")).value<QDBusObjectPath>();
    constexpr int root = 0;
    constexpr int everything = -1;
    const QDBusMessage reply =
        call(path.path(), menuInterface, QStringLiteral("GetLayout"), { root, everything, QStringList() });
    const QVariant layout = reply.arguments().value(1);
    return layout.isValid() ? entriesOf(layout.value<QDBusArgument>()) : QList<Entry>();
}

void TrayServer::choose(const QString& label) const
{
    const auto path = property(QStringLiteral("Menu")).value<QDBusObjectPath>();
    for (const Entry& entry : menu()) {
        if (entry.label != label)
            continue;
        const QVariant nothing = QVariant::fromValue(QDBusVariant(QString()));
        // Not waited for: the program may end of it.
        QDBusMessage event =
            QDBusMessage::createMethodCall(m_items.value(0), path.path(), menuInterface, QStringLiteral("Event"));
        event << entry.id << QStringLiteral("clicked") << nothing << 0U;
        m_bus.send(event);
        return;
    }
    qWarning("there is no entry %s", qPrintable(label));
}

void TrayServer::activate() const
{
    (void)call(itemPath, itemInterface, QStringLiteral("Activate"), { 0, 0 });
}

} // namespace nookle::e2e
