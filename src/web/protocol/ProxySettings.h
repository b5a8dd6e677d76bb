#pragma once

#include <QByteArray>

namespace nookle {

/// How web pages are reached, in the words of libproxy: a proxy ("http://a.test:3128"), a script that knows
/// ("pac+http://a.test/b"), or whatever the network says ("wpad://"). Empty where there is none.
struct ProxySettings {
    QByteArray http;
    QByteArray https;
    /// Hosts that are reached without, between commas.
    QByteArray exceptions;

    /// Whether a script is run to find a proxy.
    [[nodiscard]] bool hasScript() const
    {
        const auto isScript = [](const QByteArray& proxy) { return proxy.startsWith("pac+") || proxy == "wpad://"; };
        return isScript(http) || isScript(https);
    }

    bool operator==(const ProxySettings&) const = default;
};

} // namespace nookle
