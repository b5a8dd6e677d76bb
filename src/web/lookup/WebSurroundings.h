#pragma once

#include "AddressRules.h"
#include "ProxySettings.h"
#include "WebReach.h"

#include <QByteArray>
#include <QUrl>

#include <functional>
#include <vector>

namespace nookle {

/// What a transfer finds around it.
struct WebSurroundings {
    /// Where an address stands that a connection is about to be made to.
    std::function<WebReach(const WebAddress&)> reachOf;
    /// The proxy to a host, as an address; empty when there is none.
    std::function<QByteArray(const QUrl&)> proxyFor;
    /// A file with the certificates of the authorities to trust; empty for the system's.
    QByteArray authorities;
    /// Names that stand for others, as in CURLOPT_CONNECT_TO.
    std::vector<QByteArray> aliases;
};

/// Tells the system's way of finding proxies what the settings are, in place of what the environment says.
void setSystemProxies(const ProxySettings& settings);

/// Those of this computer: its proxies, and the rules for addresses.
[[nodiscard]] WebSurroundings systemSurroundings();

} // namespace nookle
