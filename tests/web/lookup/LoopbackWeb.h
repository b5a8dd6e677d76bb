#pragma once

#include "WebSurroundings.h"

namespace nookle {

/// A made-up web on this computer: "public.test" and "secure.test" are at 127.0.0.2, which counts as a public address,
/// "private.test" and "other.test" at other ones of loopback, and "unknown.test" is nowhere.
[[nodiscard]] inline WebSurroundings loopbackWeb()
{
    WebSurroundings web;
    web.reachOf = [](const WebAddress& address) {
        const bool isPublic = address == addressOf("127.0.0.2");
        return isPublic ? WebReach::publicNetwork : WebReach::privateNetwork;
    };
    web.proxyFor = [](const QUrl&) { return QByteArray(); };
    web.aliases = { "public.test::127.0.0.2:", "secure.test::127.0.0.2:", "private.test::127.0.0.1:",
                    "other.test::127.0.0.1:", "two.test::localhost:",
                    // A label of more than 63 characters is none that a resolver could ask for.
                    "unknown.test::" + QByteArray(64, 'a') + ":" };
    return web;
}

} // namespace nookle
