#include "SystemWebRoutes.h"

#include "QtMainQueue.h"

#include <QTest>

#include <memory>

using namespace nookle;

namespace {

struct Found {
    std::optional<WebRoute> route;
    int calls = 0;
};

} // namespace

class SystemWebRoutesTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void addressesNeedNoResolver_data();
    void addressesNeedNoResolver();
    void localhostIsPrivate();
    void aNameThatNobodyHasIsNotFound();
    void nothingIsFoundInsideTheCall();
    void aProxyIsHonouredAndNoNameLookedUp();
    void exceptionsFromTheProxyAreHonoured();
    void thisComputerNeedsNoProxy();
    void aCancelledSearchStaysSilent();
    void aSearchMayOutliveTheRoutes();
    void aSearchMayBeDestroyedByItsCompletion();

private:
    [[nodiscard]] std::unique_ptr<WebRouteRequest> find(const char* url, Found& found)
    {
        return m_routes->find(QUrl(QString::fromLatin1(url)), [&found](std::optional<WebRoute> route) {
            ++found.calls;
            found.route = std::move(route);
        });
    }

    /// Waits for what was asked of other threads before.
    void settle()
    {
        Found found;
        const auto other = std::make_unique<SystemWebRoutes>(*m_queue);
        const auto request = other->find(QUrl(QStringLiteral("http://1.1.1.1/")), [&](const auto&) { ++found.calls; });
        QTRY_COMPARE(found.calls, 1);
    }

    std::unique_ptr<QtMainQueue> m_queue;
    std::unique_ptr<SystemWebRoutes> m_routes;
};

void SystemWebRoutesTest::init()
{
    for (const char* variable : { "http_proxy", "https_proxy", "HTTP_PROXY", "HTTPS_PROXY", "all_proxy", "ALL_PROXY",
                                  "no_proxy", "NO_PROXY", "socks_proxy" })
        qunsetenv(variable);
    m_queue = std::make_unique<QtMainQueue>();
    m_routes = std::make_unique<SystemWebRoutes>(*m_queue);
}

void SystemWebRoutesTest::cleanup()
{
    m_routes.reset();
    m_queue.reset();
}

void SystemWebRoutesTest::addressesNeedNoResolver_data()
{
    QTest::addColumn<QByteArray>("url");
    QTest::addColumn<QString>("address");
    QTest::addColumn<bool>("isPublic");
    QTest::newRow("public") << QByteArray("http://1.1.1.1/") << QStringLiteral("1.1.1.1") << true;
    QTest::newRow("private") << QByteArray("https://10.0.0.1:81/") << QStringLiteral("10.0.0.1") << false;
    QTest::newRow("loopback") << QByteArray("http://127.0.0.1/") << QStringLiteral("127.0.0.1") << false;
    QTest::newRow("IPv6") << QByteArray("http://[2606:4700::1111]/") << QStringLiteral("2606:4700::1111") << true;
    QTest::newRow("loopback of IPv6") << QByteArray("http://[::1]/") << QStringLiteral("::1") << false;
    QTest::newRow("one number") << QByteArray("http://2130706433/") << QStringLiteral("127.0.0.1") << false;
    QTest::newRow("hexadecimal") << QByteArray("http://0x7f.0.0.1/") << QStringLiteral("127.0.0.1") << false;
    QTest::newRow("short") << QByteArray("http://127.1/") << QStringLiteral("127.0.0.1") << false;
}

void SystemWebRoutesTest::addressesNeedNoResolver()
{
    QFETCH(QByteArray, url);
    QFETCH(QString, address);
    QFETCH(bool, isPublic);
    Found found;
    const auto request = find(url.constData(), found);
    QTRY_COMPARE(found.calls, 1);
    QVERIFY(found.route);
    QCOMPARE(found.route->addresses, QList<QHostAddress>{ QHostAddress(address) });
    QCOMPARE(found.route->reach, isPublic ? WebReach::publicNetwork : WebReach::privateNetwork);
    QCOMPARE(found.route->proxy.type(), QNetworkProxy::NoProxy);
}

void SystemWebRoutesTest::localhostIsPrivate()
{
    Found found;
    const auto request = find("http://localhost:8080/", found);
    QTRY_COMPARE(found.calls, 1);
    QVERIFY(found.route);
    QVERIFY(!found.route->addresses.isEmpty());
    QCOMPARE(found.route->reach, WebReach::privateNetwork);
}

void SystemWebRoutesTest::aNameThatNobodyHasIsNotFound()
{
    // A label of more than 63 characters is none that a resolver could ask for.
    Found found;
    const QByteArray url = "http://" + QByteArray(64, 'a') + ".localhost/";
    const auto request = find(url.constData(), found);
    QTRY_COMPARE(found.calls, 1);
    QVERIFY(!found.route);
}

void SystemWebRoutesTest::nothingIsFoundInsideTheCall()
{
    Found found;
    const auto request = find("http://127.0.0.1/", found);
    QCOMPARE(found.calls, 0);
    QTRY_COMPARE(found.calls, 1);
}

void SystemWebRoutesTest::aProxyIsHonouredAndNoNameLookedUp()
{
    qputenv("http_proxy", "http://proxy.test:3128/");
    Found found;
    // Nobody could look this up.
    const auto request = find("http://nobody.example.invalid/", found);
    QTRY_COMPARE(found.calls, 1);
    QVERIFY(found.route);
    QCOMPARE(found.route->proxy.hostName(), QStringLiteral("proxy.test"));
    QCOMPARE(found.route->proxy.port(), 3128);
    QVERIFY(found.route->addresses.isEmpty());
    QCOMPARE(found.route->reach, WebReach::publicNetwork);
    Found router;
    const auto other = find("http://router/", router);
    QTRY_COMPARE(router.calls, 1);
    QCOMPARE(router.route->reach, WebReach::privateNetwork);
}

void SystemWebRoutesTest::exceptionsFromTheProxyAreHonoured()
{
    qputenv("http_proxy", "http://proxy.test:3128/");
    qputenv("no_proxy", "10.0.0.1");
    Found found;
    const auto request = find("http://10.0.0.1/", found);
    QTRY_COMPARE(found.calls, 1);
    QCOMPARE(found.route->proxy.type(), QNetworkProxy::NoProxy);
    QCOMPARE(found.route->addresses.size(), 1);
}

void SystemWebRoutesTest::thisComputerNeedsNoProxy()
{
    qputenv("http_proxy", "http://proxy.test:3128/");
    Found found;
    const auto request = find("http://localhost/", found);
    QTRY_COMPARE(found.calls, 1);
    QCOMPARE(found.route->proxy.type(), QNetworkProxy::NoProxy);
    QVERIFY(!found.route->addresses.isEmpty());
}

void SystemWebRoutesTest::aCancelledSearchStaysSilent()
{
    Found found;
    auto request = find("http://1.1.1.1/", found);
    auto local = find("http://localhost/", found);
    request.reset();
    local.reset();
    settle();
    QCOMPARE(found.calls, 0);
}

void SystemWebRoutesTest::aSearchMayOutliveTheRoutes()
{
    Found found;
    const auto request = find("http://1.1.1.1/", found);
    m_routes.reset();
    settle();
    QVERIFY(found.calls <= 1);
}

void SystemWebRoutesTest::aSearchMayBeDestroyedByItsCompletion()
{
    std::unique_ptr<WebRouteRequest> request;
    QString seen;
    const QString captured = QStringLiteral("the closure outlives its request");
    request = m_routes->find(QUrl(QStringLiteral("http://127.0.0.1/")), [&request, &seen, captured](const auto&) {
        request.reset();
        seen = captured;
    });
    QTRY_COMPARE(seen, captured);
}

QTEST_GUILESS_MAIN(SystemWebRoutesTest)
#include "SystemWebRoutesTest.moc"
