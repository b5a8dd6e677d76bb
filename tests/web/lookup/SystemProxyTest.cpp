#include "WebSurroundings.h"

#include <QTest>

using namespace nookle;

class SystemProxyTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void withoutSettingsThereIsNone();
    void theProxyIsFound_data();
    void theProxyIsFound();
    void secureAddressesHaveTheirOwn();
    void exceptionsAreHonoured();
};

void SystemProxyTest::init()
{
    qputenv("http_proxy", "http://environment.test:1");
    setSystemProxies({});
}

void SystemProxyTest::withoutSettingsThereIsNone()
{
    QCOMPARE(systemSurroundings().proxyFor(QUrl(QStringLiteral("http://a.test/"))), QByteArray());
}

void SystemProxyTest::theProxyIsFound_data()
{
    QTest::addColumn<QByteArray>("setting");
    QTest::addColumn<QByteArray>("proxy");
    QTest::newRow("HTTP") << QByteArray("http://proxy.test:3128") << QByteArray("http://proxy.test:3128");
    QTest::newRow("SOCKS") << QByteArray("socks://proxy.test:1080") << QByteArray("socks5h://proxy.test:1080");
    QTest::newRow("SOCKS 5") << QByteArray("socks5://proxy.test:1080") << QByteArray("socks5h://proxy.test:1080");
    QTest::newRow("SOCKS 4") << QByteArray("socks4://proxy.test:1080") << QByteArray("socks4a://proxy.test:1080");
}

void SystemProxyTest::theProxyIsFound()
{
    QFETCH(QByteArray, setting);
    QFETCH(QByteArray, proxy);
    setSystemProxies({ setting, {}, {} });
    QCOMPARE(systemSurroundings().proxyFor(QUrl(QStringLiteral("http://a.test/b"))), proxy);
}

void SystemProxyTest::secureAddressesHaveTheirOwn()
{
    setSystemProxies({ "http://a.test:1", "http://b.test:2", {} });
    QCOMPARE(systemSurroundings().proxyFor(QUrl(QStringLiteral("https://c.test/"))), QByteArray("http://b.test:2"));
}

void SystemProxyTest::exceptionsAreHonoured()
{
    setSystemProxies({ "http://proxy.test:3128", {}, "a.test" });
    QCOMPARE(systemSurroundings().proxyFor(QUrl(QStringLiteral("http://a.test/"))), QByteArray());
}

QTEST_GUILESS_MAIN(SystemProxyTest)
#include "SystemProxyTest.moc"
