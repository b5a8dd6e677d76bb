#include "TestWebServer.h"
#include "WebFixture.h"

#include "LookupHelper.h"

#include <QTcpSocket>
#include <QTest>

#include <algorithm>
#include <memory>
#include <vector>

using namespace nookle;

class WebLinkMetadataTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void aPageGivesItsTitle();
    void aLookupEndsAfterTheCallHasReturned();
    void addressesThatAreNotOfTheWebFail_data();
    void addressesThatAreNotOfTheWebFail();
    void anUnknownHostFails();
    void errorsOfTheServerFail_data();
    void errorsOfTheServerFail();
    void whatIsNoPageHasNeitherTitleNorIcon_data();
    void whatIsNoPageHasNeitherTitleNorIcon();
    void aPageWithoutATypeIsKnownByItsBeginning();
    void aPageWithoutATitleHasAnIcon();
    void aTitleBeyondTheLimitIsNotFound();
    void theTransferStopsWhenTheHeadIsOver();
    void aPageOfWhichOneByteASecondComesFailsInTime();
    void aServerThatDoesNotAnswerFailsInTime();
    void onlyFourLookupsRunAtOnce();
    void aLookupCancelledInTheQueueNeverStarts();
    void aLookupCancelledInFlightClosesItsConnection();
    void aCancelledLookupMakesRoomForTheNext();
    void aRequestMayBeDestroyedByItsCompletion();
    void theServiceMayBeDestroyedByACompletion();
    void aServiceDestroyedInFlightClosesItsConnectionsAndStaysSilent();
    void aRequestMayOutliveTheService();

private:
    std::unique_ptr<TestWebServer> m_server;
    std::unique_ptr<WebFixture> m_web;
};

void WebLinkMetadataTest::init()
{
    m_server = std::make_unique<TestWebServer>();
    m_web = std::make_unique<WebFixture>();
}

void WebLinkMetadataTest::cleanup()
{
    m_web.reset();
    m_server.reset();
}

void WebLinkMetadataTest::aPageGivesItsTitle()
{
    m_server->servePage("/a", "<title>One</title><body>");
    const auto lookup = m_web->lookUp(m_server->url("/a", "public.test"));
    QTRY_VERIFY(lookup->isDone());
    QCOMPARE(lookup->title(), QStringLiteral("One"));
    QVERIFY(lookup->metadata->loadIcon);
    QCOMPARE(m_server->requests().size(), 1);
}

void WebLinkMetadataTest::aLookupEndsAfterTheCallHasReturned()
{
    const auto lookup = m_web->lookUp(QUrl(QStringLiteral("mailto:a@b.test")));
    QVERIFY(!lookup->isDone());
    m_web->queue.runPosted();
    QVERIFY(lookup->hasFailed());
    m_web->queue.advance(100);
    QCOMPARE(lookup->calls, 1);
}

void WebLinkMetadataTest::addressesThatAreNotOfTheWebFail_data()
{
    QTest::addColumn<QString>("url");
    for (const char* url : { "", "mailto:a@b.test", "file:///etc/hostname", "ftp://public.test/", "http:///a",
                             "http://", "data:text/html,<title>a</title>", "relative" })
        QTest::newRow(url) << QString::fromLatin1(url);
}

void WebLinkMetadataTest::addressesThatAreNotOfTheWebFail()
{
    QFETCH(QString, url);
    const auto lookup = m_web->lookUp(QUrl(url));
    m_web->queue.runPosted();
    QVERIFY(lookup->hasFailed());
    QVERIFY(m_web->service->processIds().isEmpty());
}

void WebLinkMetadataTest::anUnknownHostFails()
{
    const auto lookup = m_web->lookUp(m_server->url("/a", "unknown.test"));
    QTRY_VERIFY(lookup->hasFailed());
    QCOMPARE(m_server->acceptedConnections(), 0);
}

void WebLinkMetadataTest::errorsOfTheServerFail_data()
{
    QTest::addColumn<QByteArray>("status");
    for (const char* status : { "300 Choices", "304 Not Modified", "401 Unauthorized", "403 Forbidden", "404 Not Found",
                                "407 Proxy", "429 Slow Down", "500 Broken", "503 Away", "999 Odd" })
        QTest::newRow(status) << QByteArray(status);
}

void WebLinkMetadataTest::errorsOfTheServerFail()
{
    QFETCH(QByteArray, status);
    m_server->serve("/a",
                    "HTTP/1.1 " + status + "\r\nContent-Type: text/html\r\nWWW-Authenticate: Basic realm=\"x\"\r\n"
                        + "Connection: close\r\n\r\n<title>Error</title><body>");
    const auto lookup = m_web->lookUp(m_server->url("/a"));
    QTRY_VERIFY(lookup->isDone());
    QVERIFY(lookup->hasFailed());
}

void WebLinkMetadataTest::whatIsNoPageHasNeitherTitleNorIcon_data()
{
    QTest::addColumn<QByteArray>("typeLine");
    QTest::addColumn<QByteArray>("beginning");
    QTest::newRow("image") << QByteArray("Content-Type: image/png\r\n") << QByteArray("\x89PNG");
    QTest::newRow("PDF") << QByteArray("Content-Type: application/pdf\r\n") << QByteArray("%PDF-1.7");
    QTest::newRow("what looks like a page")
        << QByteArray("Content-Type: text/plain\r\n") << QByteArray("<title>No</title>");
    QTest::newRow("image without a type") << QByteArray() << QByteArray("\x89PNG").leftJustified(600, 'x');
    QTest::newRow("text without a type") << QByteArray() << QByteArray("No <title>").leftJustified(600, 'x');
}

void WebLinkMetadataTest::whatIsNoPageHasNeitherTitleNorIcon()
{
    QFETCH(QByteArray, typeLine);
    QFETCH(QByteArray, beginning);
    // The rest never comes: waiting for it would fail.
    m_server->serve("/a", [=](QTcpSocket& connection) {
        connection.write("HTTP/1.1 200 OK\r\n" + typeLine + "Content-Length: 100000000\r\n\r\n" + beginning);
    });
    const auto lookup = m_web->lookUp(m_server->url("/a"));
    QTRY_VERIFY(lookup->isDone());
    QCOMPARE(lookup->title(), QStringLiteral("(none)"));
    QVERIFY(!lookup->metadata->loadIcon);
    QTRY_COMPARE(m_server->openConnections(), 0);
}

void WebLinkMetadataTest::aPageWithoutATypeIsKnownByItsBeginning()
{
    m_server->serve("/short", "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n<title>Short</title>");
    m_server->serve("/long",
                    "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n<!DOCTYPE html>" + QByteArray(2000, ' ')
                        + "<title>Long</title>");
    m_server->serve("/empty", "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n");
    const auto shortOne = m_web->lookUp(m_server->url("/short"));
    const auto longOne = m_web->lookUp(m_server->url("/long"));
    const auto empty = m_web->lookUp(m_server->url("/empty"));
    QTRY_VERIFY(shortOne->isDone() && longOne->isDone() && empty->isDone());
    QCOMPARE(shortOne->title(), QStringLiteral("Short"));
    QCOMPARE(longOne->title(), QStringLiteral("Long"));
    QCOMPARE(empty->title(), QStringLiteral("(none)"));
    QVERIFY(!empty->metadata->loadIcon);
}

void WebLinkMetadataTest::aPageWithoutATitleHasAnIcon()
{
    m_server->servePage("/a", "<head></head><body>");
    m_server->servePage("/b", "<title> </title><body>");
    for (const char* path : { "/a", "/b" }) {
        const auto lookup = m_web->lookUp(m_server->url(path));
        QTRY_VERIFY(lookup->isDone());
        QVERIFY(lookup->metadata);
        QVERIFY(!lookup->metadata->title);
        QVERIFY(lookup->metadata->loadIcon);
    }
}

void WebLinkMetadataTest::aTitleBeyondTheLimitIsNotFound()
{
    const QByteArray filler = "<!--" + QByteArray(2 * 1024 * 1024, 'x') + "-->";
    m_server->servePage("/late", filler + "<title>Late</title>");
    m_server->servePage("/early", "<title>Early</title>" + filler);
    const auto late = m_web->lookUp(m_server->url("/late"));
    const auto early = m_web->lookUp(m_server->url("/early"));
    QTRY_VERIFY(late->isDone() && early->isDone());
    QCOMPARE(late->title(), QStringLiteral("(none)"));
    QCOMPARE(early->title(), QStringLiteral("Early"));
}

void WebLinkMetadataTest::theTransferStopsWhenTheHeadIsOver()
{
    // The server says that there is more, and keeps the connection open.
    m_server->serve("/a", [](QTcpSocket& connection) {
        connection.write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nContent-Length: 9999\r\n\r\n"
                         "<head><title>One</title></head>");
    });
    const auto lookup = m_web->lookUp(m_server->url("/a"));
    QTRY_COMPARE(lookup->title(), QStringLiteral("One"));
    QTRY_COMPARE(m_server->openConnections(), 0);
}

void WebLinkMetadataTest::aPageOfWhichOneByteASecondComesFailsInTime()
{
    QPointer<QTcpSocket> connection;
    m_server->serve("/a", [&](QTcpSocket& accepted) {
        connection = &accepted;
        accepted.write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n<");
    });
    const auto lookup = m_web->lookUp(m_server->url("/a"));
    QTRY_VERIFY(connection);
    for (int second = 1; second < int(LookupHelper::longestLookup); ++second) {
        m_web->queue.advance(1);
        connection->write("a");
        QTRY_COMPARE(connection->bytesToWrite(), 0);
        QVERIFY(!lookup->isDone());
    }
    m_web->queue.advance(0.999);
    QVERIFY(!lookup->isDone());
    m_web->queue.advance(0.001);
    QVERIFY(lookup->hasFailed());
    QTRY_COMPARE(m_server->openConnections(), 0);
}

void WebLinkMetadataTest::aServerThatDoesNotAnswerFailsInTime()
{
    m_server->serve("/silent", [](QTcpSocket&) {});
    m_server->serve("/slow", [](QTcpSocket& connection) { connection.write("HTTP/1.1 200 OK\r\nContent-Ty"); });
    const auto silent = m_web->lookUp(m_server->url("/silent"));
    const auto slow = m_web->lookUp(m_server->url("/slow"));
    QTRY_COMPARE(m_server->requests().size(), 2);
    m_web->queue.advance(LookupHelper::longestLookup - 0.001);
    QVERIFY(!silent->isDone() && !slow->isDone());
    m_web->queue.advance(0.001);
    QVERIFY(silent->hasFailed() && slow->hasFailed());
    QTRY_COMPARE(m_server->openConnections(), 0);
}

void WebLinkMetadataTest::onlyFourLookupsRunAtOnce()
{
    QList<QPointer<QTcpSocket>> waiting;
    m_server->serve("/a", [&](QTcpSocket& connection) { waiting.append(&connection); });
    m_server->servePage("/last", "<title>Last</title><body>");
    std::vector<std::unique_ptr<Lookup>> lookups;
    for (int i = 0; i < 4; ++i)
        lookups.push_back(m_web->lookUp(m_server->url("/a")));
    const auto fifth = m_web->lookUp(m_server->url("/last"));
    const auto sixth = m_web->lookUp(m_server->url("/last"));
    QTRY_COMPARE(waiting.size(), 4);
    m_web->queue.advance(1);
    QCOMPARE(m_web->service->processIds().size(), 4);

    waiting.constFirst()->write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n<title>First</title><body>");
    QTRY_VERIFY(fifth->isDone() && sixth->isDone());
    QCOMPARE(fifth->title(), QStringLiteral("Last"));
    QCOMPARE(std::count_if(lookups.begin(), lookups.end(), [](const auto& lookup) { return lookup->isDone(); }), 1);
    QCOMPARE(m_server->requestsFor("/a"), 4);
}

void WebLinkMetadataTest::aLookupCancelledInTheQueueNeverStarts()
{
    m_server->serve("/a", [](QTcpSocket&) {});
    std::vector<std::unique_ptr<Lookup>> lookups;
    for (int i = 0; i < 4; ++i)
        lookups.push_back(m_web->lookUp(m_server->url("/a")));
    const auto cancelled = m_web->lookUp(m_server->url("/cancelled"));
    cancelled->request.reset();
    m_server->servePage("/last", "<title>Last</title><body>");
    const auto last = m_web->lookUp(m_server->url("/last"));
    QTRY_COMPARE(m_server->requestsFor("/a"), 4);
    lookups.clear();
    QTRY_VERIFY(last->isDone());
    QCOMPARE(m_server->requestsFor("/cancelled"), 0);
    QVERIFY(!cancelled->isDone());
}

void WebLinkMetadataTest::aLookupCancelledInFlightClosesItsConnection()
{
    m_server->serve("/a", [](QTcpSocket& connection) {
        connection.write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n<title>One");
    });
    const auto lookup = m_web->lookUp(m_server->url("/a"));
    QTRY_COMPARE(m_server->requests().size(), 1);
    QCOMPARE(m_server->openConnections(), 1);
    lookup->request.reset();
    QTRY_COMPARE(m_server->openConnections(), 0);
    m_web->queue.advance(100);
    QVERIFY(!lookup->isDone());
}

void WebLinkMetadataTest::aCancelledLookupMakesRoomForTheNext()
{
    m_server->serve("/a", [](QTcpSocket&) {});
    m_server->servePage("/last", "<title>Last</title><body>");
    std::vector<std::unique_ptr<Lookup>> lookups;
    for (int i = 0; i < 4; ++i)
        lookups.push_back(m_web->lookUp(m_server->url("/a")));
    const auto last = m_web->lookUp(m_server->url("/last"));
    QTRY_COMPARE(m_server->requestsFor("/a"), 4);
    lookups.front()->request.reset();
    QTRY_COMPARE(last->title(), QStringLiteral("Last"));
}

void WebLinkMetadataTest::aRequestMayBeDestroyedByItsCompletion()
{
    m_server->servePage("/a", "<title>One</title><body>");
    std::unique_ptr<Cancellable> request;
    QString seen;
    const QString captured = QStringLiteral("the closure outlives its request");
    request = m_web->service->start(m_server->url("/a"), [&request, &seen, captured](const auto& metadata) {
        request.reset();
        seen = captured + metadata->title.value();
    });
    QTRY_COMPARE(seen, captured + QStringLiteral("One"));
    QVERIFY(!request);
}

void WebLinkMetadataTest::theServiceMayBeDestroyedByACompletion()
{
    m_server->servePage("/a", "<title>One</title><body>");
    QString seen;
    const QString captured = QStringLiteral("the closure outlives the service");
    const auto request = m_web->service->start(m_server->url("/a"), [this, &seen, captured](const auto& metadata) {
        m_web->service.reset();
        seen = captured;
        // There is nobody any more who could load it.
        metadata->loadIcon([](const auto&) { QFAIL("an icon from a service that is gone"); });
    });
    QTRY_COMPARE(seen, captured);
    m_web->queue.advance(100);
}

void WebLinkMetadataTest::aServiceDestroyedInFlightClosesItsConnectionsAndStaysSilent()
{
    m_server->serve("/a", [](QTcpSocket& connection) {
        connection.write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n<title>One");
    });
    std::vector<std::unique_ptr<Lookup>> lookups;
    for (int i = 0; i < 6; ++i)
        lookups.push_back(m_web->lookUp(m_server->url("/a")));
    QTRY_COMPARE(m_server->openConnections(), 4);
    m_web->service.reset();
    QTRY_COMPARE(m_server->openConnections(), 0);
    m_web->queue.advance(100);
    for (const auto& lookup : lookups)
        QVERIFY(!lookup->isDone());
    QCOMPARE(m_web->queue.waitingTasks(), 0);
}

void WebLinkMetadataTest::aRequestMayOutliveTheService()
{
    const auto lookup = m_web->lookUp(m_server->url("/a"));
    m_web->service.reset();
    m_web->queue.advance(100);
    lookup->request.reset();
    QVERIFY(!lookup->isDone());
}

QTEST_GUILESS_MAIN(WebLinkMetadataTest)
#include "WebLinkMetadataTest.moc"
