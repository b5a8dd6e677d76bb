#include "SystemProxies.h"

#include <QDir>
#include <QFile>
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
    void write(const char* name, const QByteArray& content)
    {
        const QString path = m_folder.filePath(QString::fromLatin1(name));
        QVERIFY(QDir().mkpath(path.section(u'/', 0, -2)));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QTemporaryDir m_folder;
};

void SystemProxiesTest::initTestCase()
{
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_folder.path()));
    qputenv("GSETTINGS_BACKEND", "keyfile");
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
    write("kioslaverc", "[Proxy Settings]\nProxyType=3\n");
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    qputenv("http_proxy", "http://a.test:1");
    qputenv("all_proxy", "socks://b.test:2");
    qputenv("no_proxy", "c.test,d.test");
    QCOMPARE(systemProxies(), (ProxySettings{ "http://a.test:1", "socks://b.test:2", "c.test,d.test" }));
}

void SystemProxiesTest::thoseOfGnomeAreFound_data()
{
    QTest::addColumn<QByteArray>("mode");
    QTest::addColumn<QByteArray>("rest");
    QTest::addColumn<QByteArray>("http");
    QTest::addColumn<QByteArray>("https");
    QTest::addColumn<QByteArray>("exceptions");
    const QByteArray http = "[org/gnome/system/proxy/http]\nhost='a.test'\nport=3128\n";
    QTest::newRow("off") << QByteArray("none") << http << QByteArray() << QByteArray() << QByteArray();
    QTest::newRow("manual") << QByteArray("manual")
                            << QByteArray("ignore-hosts=['c.test', '10.0.0.0/8']\n" + http
                                          + "[org/gnome/system/proxy/socks]\nhost='s.test'\nport=1080\n")
                            << QByteArray("http://a.test:3128") << QByteArray("socks://s.test:1080")
                            << QByteArray("c.test,10.0.0.0/8");
    QTest::newRow("script") << QByteArray("auto") << QByteArray("autoconfig-url='http://a.test/b'\n")
                            << QByteArray("pac+http://a.test/b") << QByteArray("pac+http://a.test/b") << QByteArray();
    QTest::newRow("discovered") << QByteArray("auto") << QByteArray() << QByteArray("wpad://") << QByteArray("wpad://")
                                << QByteArray();
}

void SystemProxiesTest::thoseOfGnomeAreFound()
{
    QFETCH(QByteArray, mode);
    QFETCH(QByteArray, rest);
    QFETCH(QByteArray, http);
    QFETCH(QByteArray, https);
    QFETCH(QByteArray, exceptions);
    write("glib-2.0/settings/keyfile", "[org/gnome/system/proxy]\nmode='" + mode + "'\n" + rest);
    QTRY_COMPARE(systemProxies(), (ProxySettings{ http, https, exceptions }));
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
    write("kioslaverc", "[Proxy Settings]\n" + settings);
    QCOMPARE(systemProxies(), (ProxySettings{ http, https, exceptions }));
}

QTEST_GUILESS_MAIN(SystemProxiesTest)
#include "SystemProxiesTest.moc"
