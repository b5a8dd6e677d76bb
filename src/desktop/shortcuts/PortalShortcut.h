#pragma once

#include <QDBusArgument>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QVariant>
#include <QVariantMap>

namespace nookle {

/// One shortcut as the portal writes it.
struct PortalShortcut {
    QString id;
    QVariantMap properties;
};

using PortalShortcutList = QList<PortalShortcut>;

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut);

/// Makes the types above known to the bus library. May be called more than once.
void registerPortalShortcutTypes();

/// The shortcuts in an argument or a result of the portal; none if it is something else.
[[nodiscard]] PortalShortcutList portalShortcuts(const QVariant& received);

} // namespace nookle

Q_DECLARE_METATYPE(nookle::PortalShortcut)
