#pragma once

#include "WebReach.h"

#include <QByteArrayView>
#include <QString>

#include <array>
#include <cstdint>
#include <optional>

struct sockaddr;

namespace nookle {

/// An IPv6 address, or an IPv4 address in its mapped form ("::ffff:1.2.3.4").
using WebAddress = std::array<std::uint8_t, 16>;

/// Parses an address; none if `text` is not in the usual form of one.
[[nodiscard]] std::optional<WebAddress> addressOf(const QByteArray& text);

/// None for an address that is neither IPv4 nor IPv6.
[[nodiscard]] std::optional<WebAddress> addressOf(const sockaddr& address);

/// Whether `address` is public or private. An address counts as public only if it is known to be public.
[[nodiscard]] WebReach reachOf(const WebAddress& address);

/// Whether a host is public or private, judged by its name, for hosts whose address is unknown because a proxy resolves
/// it. `host` may be an address.
[[nodiscard]] WebReach reachOfName(const QString& host);

/// Whether the name or address `host` always means this computer, such as "localhost".
[[nodiscard]] bool isThisComputer(const QString& host);

} // namespace nookle
