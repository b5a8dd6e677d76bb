#pragma once

#include <QByteArray>

namespace nookle {

/// The proxies for web pages, in libproxy's notation: a proxy ("http://a.test:3128"), a configuration script
/// ("pac+http://a.test/b"), or automatic discovery ("wpad://"). Empty for no proxy.
struct ProxySettings {
    QByteArray http;
    QByteArray https;
    /// Hosts that are reached without a proxy, separated by commas.
    QByteArray exceptions;

    /// Whether a script must be run to find the proxy.
    [[nodiscard]] bool hasScript() const
    {
        const auto isScript = [](const QByteArray& proxy) { return proxy.startsWith("pac+") || proxy == "wpad://"; };
        return isScript(http) || isScript(https);
    }

    bool operator==(const ProxySettings&) const = default;
};

} // namespace nookle
