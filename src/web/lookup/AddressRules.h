#pragma once

#include "WebReach.h"

#include <QByteArrayView>
#include <QString>

#include <array>
#include <cstdint>
#include <optional>

struct sockaddr;

namespace nookle {

/// An address of IPv6, or one of IPv4 in its mapped form ("::ffff:1.2.3.4").
using WebAddress = std::array<std::uint8_t, 16>;

/// None for what is not the usual form of an address.
[[nodiscard]] std::optional<WebAddress> addressOf(const QByteArray& text);

/// None for an address of another family.
[[nodiscard]] std::optional<WebAddress> addressOf(const sockaddr& address);

/// Where `address` stands. Only what is known to be public counts as public.
[[nodiscard]] WebReach reachOf(const WebAddress& address);

/// Where a host stands whose address is not known, because a proxy looks it up. `host` may be an address.
[[nodiscard]] WebReach reachOfName(const QString& host);

/// Whether `host` is this computer by its name or address alone.
[[nodiscard]] bool isThisComputer(const QString& host);

} // namespace nookle
