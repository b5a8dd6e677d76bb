#include "SystemProxies.h"

#include <gio/gio.h>

#include <QDir>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>
#include <QUrl>

#include <initializer_list>
#include <memory>

namespace nookle {

namespace {

struct Release {
    void operator()(GSettings* settings) const { g_object_unref(settings); }
    void operator()(GSettingsSchema* schema) const { g_settings_schema_unref(schema); }
    void operator()(char* text) const { g_free(text); }
    void operator()(char** texts) const { g_strfreev(texts); }
};

using Settings = std::unique_ptr<GSettings, Release>;

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

[[nodiscard]] QByteArray text(GSettings* settings, const char* key)
{
    const std::unique_ptr<char, Release> value(g_settings_get_string(settings, key));
    return QByteArray(value.get());
}

/// A proxy such as "http://a.test:3128", or empty.
[[nodiscard]] QByteArray gnomeProxy(GSettings* settings, const char* kind, const char* scheme)
{
    const Settings proxy(g_settings_get_child(settings, kind));
    const QByteArray host = text(proxy.get(), "host");
    const int port = g_settings_get_int(proxy.get(), "port");
    return host.isEmpty() || port <= 0 ? QByteArray() : scheme + ("://" + host + ':') + QByteArray::number(port);
}

[[nodiscard]] ProxySettings gnomeProxies()
{
    constexpr const char* name = "org.gnome.system.proxy";
    GSettingsSchemaSource* const source = g_settings_schema_source_get_default();
    const std::unique_ptr<GSettingsSchema, Release> schema(
        source != nullptr ? g_settings_schema_source_lookup(source, name, TRUE) : nullptr);
    if (!schema)
        return {};
    const Settings settings(g_settings_new(name));
    const QByteArray mode = text(settings.get(), "mode");
    if (mode == "auto")
        return script(text(settings.get(), "autoconfig-url"));
    if (mode != "manual")
        return {};
    const QByteArray socks = gnomeProxy(settings.get(), "socks", "socks");
    const QByteArray http = gnomeProxy(settings.get(), "http", "http");
    const QByteArray https = gnomeProxy(settings.get(), "https", "http");
    const std::unique_ptr<char*, Release> ignored(g_settings_get_strv(settings.get(), "ignore-hosts"));
    const std::unique_ptr<char, Release> exceptions(g_strjoinv(",", ignored.get()));
    return { http.isEmpty() ? socks : http, https.isEmpty() ? socks : https, QByteArray(exceptions.get()) };
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
