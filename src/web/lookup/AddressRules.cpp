#include "AddressRules.h"

#include <QLatin1String>

#include <arpa/inet.h>
#include <netinet/in.h>

#include <algorithm>
#include <cstring>

namespace nookle {

namespace {

struct Network {
    const char* address;
    int prefix;
};

constexpr Network mappedIPv4{ "::ffff:0:0", 96 };
constexpr Network translatedIPv4{ "64:ff9b::", 96 };
constexpr Network tunnelledIPv4{ "2002::", 16 };

// The special-purpose registry of IPv4, with multicast and the addresses that are reserved for the future.
constexpr std::array privateIPv4{
    Network{ "0.0.0.0", 8 },      Network{ "10.0.0.0", 8 },     Network{ "100.64.0.0", 10 },
    Network{ "127.0.0.0", 8 },    Network{ "169.254.0.0", 16 }, Network{ "172.16.0.0", 12 },
    Network{ "192.0.0.0", 24 },   Network{ "192.0.2.0", 24 },   Network{ "192.88.99.0", 24 },
    Network{ "192.168.0.0", 16 }, Network{ "198.18.0.0", 15 },  Network{ "198.51.100.0", 24 },
    Network{ "203.0.113.0", 24 }, Network{ "224.0.0.0", 4 },    Network{ "240.0.0.0", 4 },
};

// From the registry of IPv6: only addresses in 2000::/3 are public.
constexpr Network publicIPv6{ "2000::", 3 };
constexpr std::array privateIPv6{ Network{ "2001::", 23 }, Network{ "2001:db8::", 32 }, Network{ "3fff::", 20 } };

inline constexpr std::size_t mappedOffset = 12;

[[nodiscard]] WebAddress mapped(const void* ipv4)
{
    WebAddress address{ 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff };
    std::memcpy(address.data() + mappedOffset, ipv4, sizeof(in_addr));
    return address;
}

[[nodiscard]] bool isIn(const WebAddress& address, const Network& network)
{
    const WebAddress base = addressOf(network.address).value();
    const bool isIPv4 = std::strchr(network.address, ':') == nullptr;
    const int bits = network.prefix + (isIPv4 ? mappedIPv4.prefix : 0);
    const auto whole = std::ptrdiff_t(bits / 8);
    if (!std::equal(address.begin(), address.begin() + whole, base.begin()))
        return false;
    const int rest = bits % 8;
    return rest == 0 || (address.at(std::size_t(whole)) ^ base.at(std::size_t(whole))) >> (8 - rest) == 0;
}

template <typename Networks> [[nodiscard]] bool isInAny(const WebAddress& address, const Networks& networks)
{
    return std::any_of(networks.begin(), networks.end(),
                       [&](const Network& network) { return isIn(address, network); });
}

/// The IPv4 address that is embedded in this one, if any.
[[nodiscard]] std::optional<WebAddress> carriedIPv4(const WebAddress& address)
{
    if (isIn(address, mappedIPv4) || isIn(address, translatedIPv4))
        return mapped(address.data() + mappedOffset);
    if (isIn(address, tunnelledIPv4))
        return mapped(address.data() + 2);
    return std::nullopt;
}

[[nodiscard]] QString withoutFinalDot(const QString& host)
{
    const QString name = host.toLower();
    return name.endsWith(u'.') ? name.chopped(1) : name;
}

} // namespace

std::optional<WebAddress> addressOf(const QByteArray& text)
{
    in_addr ipv4{};
    if (::inet_pton(AF_INET, text.constData(), &ipv4) == 1)
        return mapped(&ipv4);
    WebAddress address{};
    return ::inet_pton(AF_INET6, text.constData(), address.data()) == 1 ? std::optional(address) : std::nullopt;
}

std::optional<WebAddress> addressOf(const sockaddr& address)
{
    if (address.sa_family == AF_INET) {
        sockaddr_in ipv4{};
        std::memcpy(&ipv4, &address, sizeof ipv4);
        return mapped(&ipv4.sin_addr);
    }
    if (address.sa_family != AF_INET6)
        return std::nullopt;
    sockaddr_in6 ipv6{};
    std::memcpy(&ipv6, &address, sizeof ipv6);
    WebAddress bytes{};
    std::memcpy(bytes.data(), &ipv6.sin6_addr, bytes.size());
    return bytes;
}

WebReach reachOf(const WebAddress& address)
{
    const std::optional<WebAddress> ipv4 = carriedIPv4(address);
    const bool isPublic =
        ipv4 ? !isInAny(*ipv4, privateIPv4) : isIn(address, publicIPv6) && !isInAny(address, privateIPv6);
    return isPublic ? WebReach::publicNetwork : WebReach::privateNetwork;
}

WebReach reachOfName(const QString& host)
{
    if (const auto address = addressOf(host.toLatin1()))
        return reachOf(*address);
    const QString name = withoutFinalDot(host);
    if (!name.contains(u'.'))
        return WebReach::privateNetwork;
    for (const char* suffix :
         { ".localhost", ".local", ".internal", ".home.arpa", ".lan", ".intranet", ".corp", ".home" }) {
        if (name.endsWith(QLatin1String(suffix)))
            return WebReach::privateNetwork;
    }
    // A name whose last label begins with a digit may be an address in an unusual notation.
    const QString lastLabel = name.section(u'.', -1);
    return lastLabel.isEmpty() || lastLabel.at(0).isDigit() ? WebReach::privateNetwork : WebReach::publicNetwork;
}

bool isThisComputer(const QString& host)
{
    if (const auto address = addressOf(host.toLatin1())) {
        const WebAddress loopback = addressOf("::1").value();
        return *address == loopback || isIn(*address, Network{ "127.0.0.0", 8 });
    }
    const QString name = withoutFinalDot(host);
    return name == QLatin1String("localhost") || name.endsWith(QLatin1String(".localhost"));
}

} // namespace nookle
