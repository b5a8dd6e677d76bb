#pragma once

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QStringList>

namespace nookle {

/// Returns once a conversation between these connections of the test has come to its end: every round delivers what was
/// sent until then.
inline void settle(const QStringList& connections)
{
    constexpr int rounds = 8;
    const QDBusMessage ask =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                                       QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId"));
    for (int round = 0; round < rounds; ++round) {
        for (const QString& name : connections) {
            if (QDBusConnection(name).isConnected())
                (void)QDBusConnection(name).call(ask);
        }
        QCoreApplication::processEvents();
    }
}

} // namespace nookle
