#include "WebSurroundings.h"

#include <proxy.h>

#include <memory>

namespace nookle {

namespace {

struct FactoryDeleter {
    void operator()(pxProxyFactory* factory) const { ::px_proxy_factory_free(factory); }
};

void setVariable(const char* name, const QByteArray& value)
{
    if (value.isEmpty())
        qunsetenv(name);
    else
        qputenv(name, value);
}

[[nodiscard]] QByteArray systemProxy(const QUrl& url)
{
    static const std::unique_ptr<pxProxyFactory, FactoryDeleter> factory(::px_proxy_factory_new());
    char** const proxies =
        factory ? ::px_proxy_factory_get_proxies(factory.get(), url.toEncoded().constData()) : nullptr;
    if (proxies == nullptr)
        return {};
    QByteArray first(proxies[0]);
    ::px_proxy_factory_free_proxies(proxies);
    if (first.startsWith("direct:"))
        return {};
    // With these schemes the proxy resolves the host name. It also knows whether the name is a private one.
    if (first.startsWith("socks:") || first.startsWith("socks5:"))
        return "socks5h" + first.mid(first.indexOf(':'));
    return first.startsWith("socks4:") ? "socks4a" + first.mid(6) : first;
}

} // namespace

void setSystemProxies(const ProxySettings& settings)
{
    // Environment variables are the way to pass settings to libproxy.
    for (const char* other : { "HTTP_PROXY", "HTTPS_PROXY", "NO_PROXY", "all_proxy", "ALL_PROXY" })
        qunsetenv(other);
    setVariable("http_proxy", settings.http);
    setVariable("https_proxy", settings.https);
    setVariable("no_proxy", settings.exceptions);
}

WebSurroundings systemSurroundings()
{
    return { [](const WebAddress& address) { return reachOf(address); }, systemProxy, {}, {} };
}

} // namespace nookle
