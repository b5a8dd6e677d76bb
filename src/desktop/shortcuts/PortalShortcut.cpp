#include "PortalShortcut.h"

#include <QDBusMetaType>

namespace nookle {

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut)
{
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut)
{
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}

void registerPortalShortcutTypes()
{
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<PortalShortcutList>();
}

PortalShortcutList portalShortcuts(const QVariant& received)
{
    const auto argument = received.value<QDBusArgument>();
    if (argument.currentSignature() != QLatin1String("a(sa{sv})"))
        return {};
    return qdbus_cast<PortalShortcutList>(argument);
}

} // namespace nookle
