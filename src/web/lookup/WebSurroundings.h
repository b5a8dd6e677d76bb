#pragma once

#include "AddressRules.h"
#include "ProxySettings.h"
#include "WebReach.h"

#include <QByteArray>
#include <QUrl>

#include <functional>
#include <vector>

namespace nookle {

/// The environment of a transfer.
struct WebSurroundings {
    /// Whether an address is public or private. Called before a connection to it is made.
    std::function<WebReach(const WebAddress&)> reachOf;
    /// The address of the proxy for a URL; empty when there is none.
    std::function<QByteArray(const QUrl&)> proxyFor;
    /// The path of a file with the certificates of the trusted authorities; empty for the system's.
    QByteArray authorities;
    /// Replacements for host names, in the form of CURLOPT_CONNECT_TO.
    std::vector<QByteArray> aliases;
};

/// Sets the proxies that `systemSurroundings` uses, in place of those in the environment variables. Changes this
/// process's environment.
void setSystemProxies(const ProxySettings& settings);

/// The environment of this computer: its proxies, and the rules in AddressRules.h.
[[nodiscard]] WebSurroundings systemSurroundings();

} // namespace nookle
