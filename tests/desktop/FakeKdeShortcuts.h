#pragma once

#include "KdeKeys.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QMap>
#include <QStringList>

namespace nookle {

/// KDE's service for shortcuts, as the bus knows it. It runs as long as this object lives.
class FakeKdeShortcuts final : public QDBusVirtualObject {
public:
    struct Action {
        QKeyCombination keys;
        QKeyCombination defaults;
        bool isActive = false;
    };

    explicit FakeKdeShortcuts(const QByteArray& address)
        : m_bus(QDBusConnection::connectToBus(QString::fromLatin1(address), connectionName()))
    {
        registerKdeKeysTypes();
    }
    ~FakeKdeShortcuts() override
    {
        m_bus.unregisterService(service());
        QDBusConnection::disconnectFromBus(connectionName());
    }

    [[nodiscard]] static QString connectionName() { return QStringLiteral("kde"); }

    /// False when the bus refuses.
    [[nodiscard]] bool start() { return m_bus.registerVirtualObject(path(), this) && m_bus.registerService(service()); }

    QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& /*bus*/) override
    {
        calls.append(message.member());
        const QVariantList arguments = message.arguments();
        if (message.member() == QLatin1String("defaultShortcutKeys")) {
            const QString id = arguments.value(0).toStringList().value(1);
            const auto known = actions.constFind(id);
            reply(message, known == actions.constEnd() ? KdeKeysList() : kdeKeys(known->defaults));
        } else if (message.member() == QLatin1String("setShortcutKeys")) {
            setKeys(message);
        } else if (message.member() == QLatin1String("setInactive")) {
            actions[arguments.value(0).toStringList().value(1)].isActive = false;
        } else if (message.member() == QLatin1String("unregister")) {
            unregistered.append(arguments.value(0).toString() + QLatin1Char('/') + arguments.value(1).toString());
            actions.remove(arguments.value(1).toString());
        } else if (message.member() == QLatin1String("doRegister")) {
            names = arguments.value(0).toStringList();
        }
        return true;
    }

    void press(const QString& component, const QString& id)
    {
        QDBusMessage signal = QDBusMessage::createSignal(QStringLiteral("/component/org_nookle_Nookle"),
                                                         QStringLiteral("org.kde.kglobalaccel.Component"),
                                                         QStringLiteral("globalShortcutPressed"));
        m_bus.send(signal << component << id << qlonglong(1));
    }

    /// What the desktop's settings do.
    void changeKeys(const QString& id, const KdeKeysList& keys)
    {
        QDBusMessage signal = QDBusMessage::createSignal(path(), interface(), QStringLiteral("yourShortcutsChanged"));
        const QStringList action{ QStringLiteral("org.nookle.Nookle"), id, QStringLiteral("Nookle"), QString() };
        m_bus.send(signal << action << QVariant::fromValue(keys));
    }

    /// By their identifiers.
    QMap<QString, Action> actions;
    bool isTakenByOther = false;
    /// The members of the calls, in order.
    QStringList calls;
    QStringList unregistered;
    /// Of the action that was registered last.
    QStringList names;
    QString setSignature;

private:
    [[nodiscard]] static QString service() { return QStringLiteral("org.kde.kglobalaccel"); }
    [[nodiscard]] static QString path() { return QStringLiteral("/kglobalaccel"); }
    [[nodiscard]] static QString interface() { return QStringLiteral("org.kde.KGlobalAccel"); }

    void reply(const QDBusMessage& message, const KdeKeysList& keys)
    {
        m_bus.send(message.createReply(QVariant::fromValue(keys)));
    }

    /// Keys that the user has chosen before win.
    void setKeys(const QDBusMessage& message)
    {
        setSignature = message.signature();
        const QString id = message.arguments().value(0).toStringList().value(1);
        const KdeKeysList wanted = kdeKeys(message.arguments().value(1));
        const auto keys = QKeyCombination::fromCombined(wanted.first().combinations.first());
        constexpr uint setPresent = 2;
        constexpr uint isDefault = 8;
        const uint flags = message.arguments().value(2).toUInt();
        if ((flags & isDefault) != 0) {
            m_defaults.insert(id, keys);
            reply(message, wanted);
            return;
        }
        if (!actions.contains(id))
            actions.insert(id, { keys, keys, false });
        actions[id].defaults = m_defaults.value(id, keys);
        actions[id].isActive = (flags & setPresent) != 0;
        reply(message, isTakenByOther ? KdeKeysList{ { { 0, 0, 0, 0 } } } : kdeKeys(actions[id].keys));
    }

    QDBusConnection m_bus;
    QMap<QString, QKeyCombination> m_defaults;
};

} // namespace nookle
