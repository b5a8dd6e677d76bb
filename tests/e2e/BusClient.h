#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <memory>

namespace nookle::e2e {

/// Another program on the session bus of a private desktop, which also shows messages as a desktop does.
class BusClient final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    /// Null when the bus does not take it.
    [[nodiscard]] static std::unique_ptr<BusClient> tryConnect(const QString& busAddress);
    ~BusClient() override;

    /// Calls the shelf, for which the bus starts it if need be; the reply.
    [[nodiscard]] QDBusMessage call(const QString& interface, const QString& method,
                                    const QVariantList& arguments) const;
    [[nodiscard]] QDBusMessage addToShelf(const QStringList& uris, const QString& text) const;
    /// The same without waiting for the reply.
    void beginAddToShelf(const QStringList& uris, const QString& text) const;

    /// By how many rules the bus chooses messages for the program of that name; 0 when it does not tell.
    [[nodiscard]] uint matchRules(const QString& name) const;

    /// What the user was shown.
    [[nodiscard]] QStringList messages() const { return m_messages; }

public Q_SLOTS:
    uint Notify(const QString& program, uint replaces, const QString& icon, const QString& summary, const QString& body,
                const QStringList& actions, const QVariantMap& hints, int time);

private:
    [[nodiscard]] QDBusPendingCall begin(const QString& interface, const QString& method,
                                         const QVariantList& arguments) const;
    explicit BusClient(const QDBusConnection& bus);

    QDBusConnection m_bus;
    QStringList m_messages;
};

} // namespace nookle::e2e
