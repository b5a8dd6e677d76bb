#pragma once

#include "WebReach.h"

#include <QHostAddress>
#include <QList>
#include <QString>

namespace nookle {

/// Where `address` stands. Only what is known to be public counts as public.
[[nodiscard]] WebReach reachOf(const QHostAddress& address);

/// Where a host stands whose address is not known, because a proxy looks it up. `host` may be an address.
[[nodiscard]] WebReach reachOfName(const QString& host);

/// Whether `host` is this computer by its name or address alone.
[[nodiscard]] bool isThisComputer(const QString& host);

/// The addresses of one name that may be connected to together: the public ones if there are any, else all.
[[nodiscard]] QList<QHostAddress> addressesOfOneReach(const QList<QHostAddress>& addresses);

} // namespace nookle
