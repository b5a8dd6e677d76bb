#include "AddressRules.h"

#include <QLatin1String>

#include <algorithm>
#include <array>
#include <cstdint>

namespace nookle {

namespace {

struct IPv4Range {
    std::uint32_t address;
    int prefix;
};

[[nodiscard]] constexpr std::uint32_t ipv4(unsigned a, unsigned b, unsigned c, unsigned d)
{
    return (a << 24U) | (b << 16U) | (c << 8U) | d;
}

// The special-purpose registry of IPv4, with multicast and what is reserved for the future.
constexpr std::array privateIPv4{
    IPv4Range{ ipv4(0, 0, 0, 0), 8 },      IPv4Range{ ipv4(10, 0, 0, 0), 8 },
    IPv4Range{ ipv4(100, 64, 0, 0), 10 },  IPv4Range{ ipv4(127, 0, 0, 0), 8 },
    IPv4Range{ ipv4(169, 254, 0, 0), 16 }, IPv4Range{ ipv4(172, 16, 0, 0), 12 },
    IPv4Range{ ipv4(192, 0, 0, 0), 24 },   IPv4Range{ ipv4(192, 0, 2, 0), 24 },
    IPv4Range{ ipv4(192, 88, 99, 0), 24 }, IPv4Range{ ipv4(192, 168, 0, 0), 16 },
    IPv4Range{ ipv4(198, 18, 0, 0), 15 },  IPv4Range{ ipv4(198, 51, 100, 0), 24 },
    IPv4Range{ ipv4(203, 0, 113, 0), 24 }, IPv4Range{ ipv4(224, 0, 0, 0), 4 },
    IPv4Range{ ipv4(240, 0, 0, 0), 4 },
};

[[nodiscard]] WebReach reachOfIPv4(std::uint32_t address)
{
    const bool isPrivate = std::any_of(privateIPv4.begin(), privateIPv4.end(), [address](const IPv4Range& range) {
        return (address ^ range.address) >> (32 - range.prefix) == 0;
    });
    return isPrivate ? WebReach::privateNetwork : WebReach::publicNetwork;
}

[[nodiscard]] std::uint32_t ipv4At(const Q_IPV6ADDR& address, int offset)
{
    return ipv4(address[offset], address[offset + 1], address[offset + 2], address[offset + 3]);
}

[[nodiscard]] bool isIn(const QHostAddress& address, const char* network, int prefix)
{
    return address.isInSubnet(QHostAddress(QLatin1String(network)), prefix);
}

[[nodiscard]] WebReach reachOfIPv6(const QHostAddress& address)
{
    const Q_IPV6ADDR bytes = address.toIPv6Address();
    // Addresses that carry one of IPv4: what they lead to is that one.
    if (isIn(address, "::ffff:0:0", 96) || isIn(address, "64:ff9b::", 96))
        return reachOfIPv4(ipv4At(bytes, 12));
    if (isIn(address, "2002::", 16))
        return reachOfIPv4(ipv4At(bytes, 2));
    // The registry of IPv6: outside of 2000::/3 nothing is public.
    const bool isPublic = isIn(address, "2000::", 3) && !isIn(address, "2001::", 23) && !isIn(address, "2001:db8::", 32)
        && !isIn(address, "3fff::", 20);
    return isPublic ? WebReach::publicNetwork : WebReach::privateNetwork;
}

} // namespace

WebReach reachOf(const QHostAddress& address)
{
    switch (address.protocol()) {
    case QHostAddress::IPv4Protocol:
        return reachOfIPv4(address.toIPv4Address());
    case QHostAddress::IPv6Protocol:
        return reachOfIPv6(address);
    default:
        return WebReach::privateNetwork;
    }
}

WebReach reachOfName(const QString& host)
{
    if (const QHostAddress address(host); !address.isNull())
        return reachOf(address);
    QString name = host.toLower();
    if (name.endsWith(u'.'))
        name.chop(1);
    if (!name.contains(u'.'))
        return WebReach::privateNetwork;
    for (const char* suffix :
         { ".localhost", ".local", ".internal", ".home.arpa", ".lan", ".intranet", ".corp", ".home" }) {
        if (name.endsWith(QLatin1String(suffix)))
            return WebReach::privateNetwork;
    }
    // A name whose last label is a number is an address in one of its odd forms.
    const QString lastLabel = name.section(u'.', -1);
    return lastLabel.at(0).isDigit() ? WebReach::privateNetwork : WebReach::publicNetwork;
}

bool isThisComputer(const QString& host)
{
    if (const QHostAddress address(host); !address.isNull())
        return address.isLoopback();
    QString name = host.toLower();
    if (name.endsWith(u'.'))
        name.chop(1);
    return name == QLatin1String("localhost") || name.endsWith(QLatin1String(".localhost"));
}

QList<QHostAddress> addressesOfOneReach(const QList<QHostAddress>& addresses)
{
    QList<QHostAddress> publicOnes;
    for (const QHostAddress& address : addresses) {
        if (reachOf(address) == WebReach::publicNetwork)
            publicOnes.append(address);
    }
    return publicOnes.isEmpty() ? addresses : publicOnes;
}

} // namespace nookle
