#include "SystemProxies.h"

#include "GnomeSettings.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>
#include <QUrl>

#include <initializer_list>

namespace nookle {

namespace {

[[nodiscard]] QByteArray firstVariable(std::initializer_list<const char*> names)
{
    for (const char* name : names) {
        if (const QByteArray value = qgetenv(name); !value.isEmpty())
            return value;
    }
    return {};
}

[[nodiscard]] ProxySettings proxiesOfTheEnvironment()
{
    return { firstVariable({ "http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY" }),
             firstVariable({ "https_proxy", "HTTPS_PROXY", "all_proxy", "ALL_PROXY" }),
             firstVariable({ "no_proxy", "NO_PROXY" }) };
}

[[nodiscard]] ProxySettings script(const QByteArray& address)
{
    const QByteArray proxy = address.isEmpty() ? QByteArray("wpad://") : "pac+" + address;
    return { proxy, proxy, {} };
}

/// A proxy such as "http://a.test:3128", or empty.
[[nodiscard]] QByteArray gnomeProxy(const char* schema, const char* scheme)
{
    const auto settings = GnomeSettings::tryOpen(schema);
    if (!settings)
        return {};
    const QByteArray host = settings->text("host");
    const int port = settings->number("port");
    return host.isEmpty() || port <= 0 ? QByteArray() : scheme + ("://" + host + ':') + QByteArray::number(port);
}

[[nodiscard]] ProxySettings gnomeProxies()
{
    const auto settings = GnomeSettings::tryOpen("org.gnome.system.proxy");
    if (!settings)
        return {};
    const QByteArray mode = settings->text("mode");
    if (mode == "auto")
        return script(settings->text("autoconfig-url"));
    if (mode != "manual")
        return {};
    const QByteArray socks = gnomeProxy("org.gnome.system.proxy.socks", "socks");
    const QByteArray http = gnomeProxy("org.gnome.system.proxy.http", "http");
    const QByteArray https = gnomeProxy("org.gnome.system.proxy.https", "http");
    return { http.isEmpty() ? socks : http, https.isEmpty() ? socks : https,
             settings->texts("ignore-hosts").join(',') };
}

[[nodiscard]] ProxySettings plasmaProxies()
{
    enum Type { manual = 1, configured = 2, discovered = 3 };
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
    QSettings settings(folder.filePath(QStringLiteral("kioslaverc")), QSettings::IniFormat);
    settings.beginGroup(QStringLiteral("Proxy Settings"));
    const auto value = [&settings](const char* key) {
        return settings.value(QLatin1String(key)).toStringList().join(u',').toUtf8();
    };
    // The settings have a space before the port.
    const auto proxy = [&value](const char* key) { return value(key).trimmed().replace(' ', ':'); };
    switch (value("ProxyType").toInt()) {
    case manual: {
        const QByteArray socks = proxy("socksProxy");
        const QByteArray http = proxy("httpProxy");
        const QByteArray https = proxy("httpsProxy");
        return { http.isEmpty() ? socks : http, https.isEmpty() ? socks : https, value("NoProxyFor") };
    }
    case configured:
        return script(value("Proxy Config Script"));
    case discovered:
        return script({});
    default:
        return {};
    }
}

} // namespace

ProxySettings systemProxies()
{
    const ProxySettings said = proxiesOfTheEnvironment();
    if (!said.http.isEmpty() || !said.https.isEmpty())
        return said;
    const bool isPlasma = qgetenv("XDG_CURRENT_DESKTOP").split(':').contains("KDE");
    return isPlasma ? plasmaProxies() : gnomeProxies();
}

} // namespace nookle
