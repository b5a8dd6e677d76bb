#pragma once

#include <QDBusArgument>
#include <QKeyCombination>
#include <QList>
#include <QMetaType>
#include <QVariant>

namespace nookle {

/// One shortcut as KDE's service writes it: the combinations that are pressed one after the other. Unused places are 0.
struct KdeKeys {
    QList<int> combinations;

    friend bool operator==(const KdeKeys&, const KdeKeys&) = default;
};

/// The alternatives for one action.
using KdeKeysList = QList<KdeKeys>;

QDBusArgument& operator<<(QDBusArgument& argument, const KdeKeys& keys);
const QDBusArgument& operator>>(const QDBusArgument& argument, KdeKeys& keys);

/// Makes the types above known to the bus library. May be called more than once.
void registerKdeKeysTypes();

[[nodiscard]] KdeKeysList kdeKeys(QKeyCombination keys);

/// The alternatives in an argument or a reply of the service, without empty ones; none if it is something else.
[[nodiscard]] KdeKeysList kdeKeys(const QVariant& received);

} // namespace nookle

Q_DECLARE_METATYPE(nookle::KdeKeys)
