#include "SystemProxies.h"

#include <gio/gio.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace nookle;

class SystemProxiesTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void withoutSettingsThereIsNone();
    void theEnvironmentCountsFirst();
    void thoseOfGnomeAreFound_data();
    void thoseOfGnomeAreFound();
    void thoseOfPlasmaAreFound_data();
    void thoseOfPlasmaAreFound();

private:
    static void set(const char* schema, const char* key, GVariant* value)
    {
        GSettings* const settings = g_settings_new(schema);
        QVERIFY(g_settings_set_value(settings, key, value));
        g_object_unref(settings);
    }

    void writePlasma(const QByteArray& settings) const
    {
        QFile file(m_folder.filePath(QStringLiteral("kioslaverc")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[Proxy Settings]\n" + settings);
    }

    QTemporaryDir m_folder;
};

void SystemProxiesTest::initTestCase()
{
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_folder.path()));
    qputenv("GSETTINGS_BACKEND", "memory");
    QFile schemas(m_folder.filePath(QStringLiteral("org.gnome.system.proxy.gschema.xml")));
    QVERIFY(schemas.open(QIODevice::WriteOnly));
    schemas.write("<schemalist><schema id='org.gnome.system.proxy' path='/system/proxy/'>"
                  "<child name='http' schema='org.gnome.system.proxy.http'/>"
                  "<child name='https' schema='org.gnome.system.proxy.https'/>"
                  "<child name='socks' schema='org.gnome.system.proxy.socks'/>"
                  "<key name='mode' type='s'><default>'none'</default></key>"
                  "<key name='autoconfig-url' type='s'><default>''</default></key>"
                  "<key name='ignore-hosts' type='as'><default>[]</default></key></schema>");
    for (const char* kind : { "http", "https", "socks" })
        schemas.write(QStringLiteral("<schema id='org.gnome.system.proxy.%1' path='/system/proxy/%1/'>"
                                     "<key name='host' type='s'><default>''</default></key>"
                                     "<key name='port' type='i'><default>0</default></key></schema>")
                          .arg(QLatin1String(kind))
                          .toUtf8());
    schemas.write("</schemalist>");
    schemas.close();
    QCOMPARE(QProcess::execute(QStringLiteral("glib-compile-schemas"), { m_folder.path() }), 0);
    qputenv("GSETTINGS_SCHEMA_DIR", QFile::encodeName(m_folder.path()));
}

void SystemProxiesTest::init()
{
    for (const char* variable : { "http_proxy", "https_proxy", "HTTP_PROXY", "HTTPS_PROXY", "all_proxy", "ALL_PROXY",
                                  "no_proxy", "NO_PROXY", "XDG_CURRENT_DESKTOP" })
        qunsetenv(variable);
}

void SystemProxiesTest::withoutSettingsThereIsNone()
{
    QCOMPARE(systemProxies(), ProxySettings());
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    QCOMPARE(systemProxies(), ProxySettings());
}

void SystemProxiesTest::theEnvironmentCountsFirst()
{
    writePlasma("ProxyType=3\n");
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    qputenv("http_proxy", "http://a.test:1");
    qputenv("all_proxy", "socks://b.test:2");
    qputenv("no_proxy", "c.test,d.test");
    QCOMPARE(systemProxies(), (ProxySettings{ "http://a.test:1", "socks://b.test:2", "c.test,d.test" }));
}

void SystemProxiesTest::thoseOfGnomeAreFound_data()
{
    QTest::addColumn<QByteArray>("mode");
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QByteArray>("http");
    QTest::addColumn<QByteArray>("https");
    QTest::addColumn<QByteArray>("exceptions");
    const QByteArray none;
    QTest::newRow("off") << QByteArray("none") << none << none << none << none;
    QTest::newRow("manual") << QByteArray("manual") << none << QByteArray("http://a.test:3128")
                            << QByteArray("socks://s.test:1080") << QByteArray("c.test,10.0.0.0/8");
    QTest::newRow("script") << QByteArray("auto") << QByteArray("http://a.test/b") << QByteArray("pac+http://a.test/b")
                            << QByteArray("pac+http://a.test/b") << none;
    QTest::newRow("discovered") << QByteArray("auto") << none << QByteArray("wpad://") << QByteArray("wpad://") << none;
}

void SystemProxiesTest::thoseOfGnomeAreFound()
{
    QFETCH(QByteArray, mode);
    QFETCH(QByteArray, script);
    QFETCH(QByteArray, http);
    QFETCH(QByteArray, https);
    QFETCH(QByteArray, exceptions);
    const char* const ignored[] = { "c.test", "10.0.0.0/8", nullptr };
    set("org.gnome.system.proxy", "mode", g_variant_new_string(mode.constData()));
    set("org.gnome.system.proxy", "autoconfig-url", g_variant_new_string(script.constData()));
    set("org.gnome.system.proxy", "ignore-hosts", g_variant_new_strv(ignored, -1));
    set("org.gnome.system.proxy.http", "host", g_variant_new_string("a.test"));
    set("org.gnome.system.proxy.http", "port", g_variant_new_int32(3128));
    set("org.gnome.system.proxy.socks", "host", g_variant_new_string("s.test"));
    set("org.gnome.system.proxy.socks", "port", g_variant_new_int32(1080));
    QCOMPARE(systemProxies(), (ProxySettings{ http, https, exceptions }));
}

void SystemProxiesTest::thoseOfPlasmaAreFound_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QByteArray>("http");
    QTest::addColumn<QByteArray>("https");
    QTest::addColumn<QByteArray>("exceptions");
    const QByteArray http = "httpProxy=http://a.test 3128\n";
    QTest::newRow("off") << QByteArray("ProxyType=0\n" + http) << QByteArray() << QByteArray() << QByteArray();
    QTest::newRow("manual") << QByteArray("ProxyType=1\nNoProxyFor=c.test,d.test\nsocksProxy=socks://s.test 1080\n"
                                          + http)
                            << QByteArray("http://a.test:3128") << QByteArray("socks://s.test:1080")
                            << QByteArray("c.test,d.test");
    QTest::newRow("script") << QByteArray("ProxyType=2\nProxy Config Script=http://a.test/b\n")
                            << QByteArray("pac+http://a.test/b") << QByteArray("pac+http://a.test/b") << QByteArray();
    QTest::newRow("discovered") << QByteArray("ProxyType=3\n") << QByteArray("wpad://") << QByteArray("wpad://")
                                << QByteArray();
}

void SystemProxiesTest::thoseOfPlasmaAreFound()
{
    QFETCH(QByteArray, settings);
    QFETCH(QByteArray, http);
    QFETCH(QByteArray, https);
    QFETCH(QByteArray, exceptions);
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    writePlasma(settings);
    QCOMPARE(systemProxies(), (ProxySettings{ http, https, exceptions }));
}

QTEST_GUILESS_MAIN(SystemProxiesTest)
#include "SystemProxiesTest.moc"
