#pragma once

#include "PortalShortcut.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QStringList>

#include <optional>

namespace nookle {

/// The desktop's portal for shortcuts, as the bus knows it. It runs as long as this object lives.
class FakeShortcutPortal final : public QDBusVirtualObject {
public:
    explicit FakeShortcutPortal(const QByteArray& address)
        : m_bus(QDBusConnection::connectToBus(QString::fromLatin1(address), connectionName()))
    {
        registerPortalShortcutTypes();
    }
    ~FakeShortcutPortal() override
    {
        m_bus.unregisterService(service());
        QDBusConnection::disconnectFromBus(connectionName());
    }

    [[nodiscard]] static QString connectionName() { return QStringLiteral("portal"); }

    /// False when the bus refuses.
    [[nodiscard]] bool start()
    {
        return m_bus.registerVirtualObject(path(), this, QDBusConnection::SubPath) && m_bus.registerService(service());
    }

    QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& /*bus*/) override
    {
        calls.append(message.member());
        client = message.service();
        if (message.member() == QLatin1String("Register"))
            registerProgram(message);
        else if (message.interface() == QLatin1String("org.freedesktop.portal.GlobalShortcuts"))
            request(message);
        else if (message.member() == QLatin1String("Get"))
            sendVersion(message);
        else if (message.member() == QLatin1String("Close"))
            closed.append(message.path());
        return true;
    }

    /// Answers the last request.
    void respond(uint response, const QVariantMap& results)
    {
        QDBusMessage signal = QDBusMessage::createTargetedSignal(
            client, lastRequest, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
        m_bus.send(signal << response << results);
    }

    void answerSession() { respond(0, { { QStringLiteral("session_handle"), session } }); }

    void press(const QString& pressedSession, const QString& id)
    {
        QDBusMessage signal = signalOfShortcuts(QStringLiteral("Activated"));
        m_bus.send(signal << QVariant::fromValue(QDBusObjectPath(pressedSession)) << id << qulonglong(1)
                          << QVariantMap());
    }

    void changeKeys(const QString& id, const QString& keys)
    {
        QDBusMessage signal = signalOfShortcuts(QStringLiteral("ShortcutsChanged"));
        m_bus.send(signal << QVariant::fromValue(QDBusObjectPath(session)) << QVariant::fromValue(bound(id, keys)));
    }

    void closeSession()
    {
        QDBusMessage signal = QDBusMessage::createTargetedSignal(
            client, session, QStringLiteral("org.freedesktop.portal.Session"), QStringLiteral("Closed"));
        m_bus.send(signal << QVariantMap());
    }

    [[nodiscard]] static PortalShortcutList bound(const QString& id, const QString& keys)
    {
        return { { id, { { QStringLiteral("trigger_description"), keys } } } };
    }

    /// What a program that calls `Register` is told; by default that it is known.
    std::optional<QDBusError::ErrorType> registryError;
    QString registryRefusal;
    bool hasShortcuts = true;
    /// Otherwise the request stays open.
    bool answersSession = true;
    bool answersBinding = true;
    bool refusesBinding = false;
    uint bindResponse = 0;
    QVariantMap bindResults{ { QStringLiteral("shortcuts"),
                               QVariant::fromValue(
                                   bound(QStringLiteral("toggle"), QStringLiteral("Ctrl+Alt+Win+D"))) } };
    /// What is listed before and after the program has asked for its keys.
    QVariantMap earlierResults;
    QVariantMap listResults{ { QStringLiteral("shortcuts"), QVariant::fromValue(PortalShortcutList()) } };

    QString session = QStringLiteral("/org/freedesktop/portal/desktop/session/1/nookle");
    QString client;
    QString lastRequest;
    /// The members of the calls, in order.
    QStringList calls;
    QStringList programs;
    /// The paths of the sessions and requests that the program has closed.
    QStringList closed;
    QString bindSignature;
    QString boundSession;
    PortalShortcutList wanted;

private:
    [[nodiscard]] static QString service() { return QStringLiteral("org.freedesktop.portal.Desktop"); }
    [[nodiscard]] static QString path() { return QStringLiteral("/org/freedesktop/portal/desktop"); }

    [[nodiscard]] QDBusMessage signalOfShortcuts(const QString& name) const
    {
        return QDBusMessage::createTargetedSignal(client, path(),
                                                  QStringLiteral("org.freedesktop.portal.GlobalShortcuts"), name);
    }

    void registerProgram(const QDBusMessage& message)
    {
        programs.append(message.arguments().value(0).toString());
        if (registryError)
            m_bus.send(message.createErrorReply(*registryError, QStringLiteral("no")));
        else if (!registryRefusal.isEmpty())
            m_bus.send(
                message.createErrorReply(QStringLiteral("org.freedesktop.portal.Error.Failed"), registryRefusal));
        else
            m_bus.send(message.createReply());
    }

    void sendVersion(const QDBusMessage& message)
    {
        const QDBusVariant version(1U);
        m_bus.send(hasShortcuts ? message.createReply(QVariant::fromValue(version))
                                : message.createErrorReply(QDBusError::InvalidArgs, QStringLiteral("no interface")));
    }

    void request(const QDBusMessage& message)
    {
        if (!hasShortcuts || (refusesBinding && message.member() == QLatin1String("BindShortcuts"))) {
            m_bus.send(message.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("no such interface")));
            return;
        }
        const auto options = qdbus_cast<QVariantMap>(message.arguments().last());
        const QString sender = client.mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
        lastRequest = QStringLiteral("%1/request/%2/%3")
                          .arg(path(), sender, options.value(QStringLiteral("handle_token")).toString());
        m_bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(lastRequest))));
        if (message.member() == QLatin1String("CreateSession") && answersSession)
            answerSession();
        if (message.member() == QLatin1String("BindShortcuts"))
            bind(message);
        if (message.member() == QLatin1String("ListShortcuts"))
            respond(0, calls.contains(QStringLiteral("BindShortcuts")) ? listResults : earlierResults);
    }

    void bind(const QDBusMessage& message)
    {
        bindSignature = message.signature();
        boundSession = message.arguments().value(0).value<QDBusObjectPath>().path();
        wanted = portalShortcuts(message.arguments().value(1));
        if (answersBinding)
            respond(bindResponse, bindResults);
    }

    QDBusConnection m_bus;
};

} // namespace nookle
