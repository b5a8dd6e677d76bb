#include "WebTransfer.h"

#include "Compression.h"
#include "FakeMainQueue.h"
#include "FakeWebRoutes.h"
#include "TestWebServer.h"

#include <QSslCertificate>
#include <QSslConfiguration>
#include <QTcpSocket>
#include <QTest>
#include <QTimer>

#include <memory>
#include <optional>

#include <sys/socket.h>

using namespace nookle;

namespace {

inline constexpr qint64 limit = 64 * 1024;

/// A transfer, and what it has brought.
struct Fetch {
    Fetch(WebRoutes& routes, MainQueue& queue, const QUrl& url, WebReach from = WebReach::privateNetwork)
        : transfer(routes, queue, WebTransfer::Wish{ url, from, "text/html", limit })
    {
        transfer.onResponse = [this](const WebResponse& head) {
            response = head;
            return isBodyWanted;
        };
        transfer.onData = [this](const QByteArray& bytes) {
            body += bytes;
            return true;
        };
        transfer.onEnd = [this](WebTransfer::End how) { end = how; };
        transfer.start();
    }

    bool isBodyWanted = true;
    std::optional<WebResponse> response;
    QByteArray body;
    std::optional<WebTransfer::End> end;
    WebTransfer transfer;
};

[[nodiscard]] QByteArray answer(const QByteArray& body, const QByteArray& headers = {})
{
    return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" + headers + "\r\n" + body;
}

/// What the request says under a name, which means the same in capitals.
[[nodiscard]] QByteArray header(const QByteArray& request, const QByteArray& name)
{
    for (const QByteArray& line : request.split('\n')) {
        const qsizetype colon = line.indexOf(':');
        if (colon >= 0 && line.first(colon).compare(name, Qt::CaseInsensitive) == 0)
            return line.sliced(colon + 1).trimmed();
    }
    return {};
}

/// Closes the connection so that the other side sees a reset.
void reset(QTcpSocket& connection)
{
    connection.waitForBytesWritten(1000);
    const ::linger now{ 1, 0 };
    ::setsockopt(int(connection.socketDescriptor()), SOL_SOCKET, SO_LINGER, &now, sizeof now);
    connection.abort();
}

} // namespace

Q_DECLARE_METATYPE(nookle::Compression)

class WebTransferTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void nothingButTheRequestIsSent();
    void redirectsAreFollowed_data();
    void redirectsAreFollowed();
    void noMoreThanTenRedirectsAreFollowed();
    void aRedirectLoopFails();
    void redirectsThatLeadNowhereFail_data();
    void redirectsThatLeadNowhereFail();
    void aRedirectFromPublicToPrivateIsRefused();
    void whatAPublicPageNamesIsNotFetchedFromAPrivateAddress();
    void aPrivatePageMayRedirectToPrivate();
    void onceOnTheInternetThereIsNoWayBack();
    void theJudgedAddressIsConnectedTo();
    void theNextAddressIsTriedWhenOneRefuses();
    void theNextAddressIsTriedWhenOneTakesTooLong();
    void aProxyLooksTheNameUp();
    void tlsWithAKnownAuthorityWorks();
    void tlsWithAnUnknownAuthorityFails();
    void tlsForAnotherNameFails();
    void compressedBodiesAreDecoded_data();
    void compressedBodiesAreDecoded();
    void aBrokenOrUnknownEncodingFails_data();
    void aBrokenOrUnknownEncodingFails();
    void aBombIsNotDecoded_data();
    void aBombIsNotDecoded();
    void whatDecodesToNothingIsLimitedAsWell();
    void chunksAreJoined();
    void aBodyThatJustFitsIsComplete();
    void aBodyThatIsOneByteTooLongIsCut();
    void aVeryLargeBodyIsNotRead();
    void anUnwantedBodyIsNotRead();
    void aResetConnectionFails();
    void aBodyThatIsCutOffFails_data();
    void aBodyThatIsCutOffFails();

private:
    [[nodiscard]] std::unique_ptr<Fetch> fetch(const QUrl& url, WebReach from = WebReach::privateNetwork)
    {
        return std::make_unique<Fetch>(*m_routes, *m_queue, url, from);
    }

    QSslConfiguration m_defaults;
    std::unique_ptr<TestWebServer> m_server;
    std::unique_ptr<FakeMainQueue> m_queue;
    std::unique_ptr<FakeWebRoutes> m_routes;
    QTimer m_pump;
};

void WebTransferTest::init()
{
    m_defaults = QSslConfiguration::defaultConfiguration();
    m_server = std::make_unique<TestWebServer>();
    m_queue = std::make_unique<FakeMainQueue>();
    m_routes = std::make_unique<FakeWebRoutes>(*m_queue);
    m_routes->add("private.test", WebReach::privateNetwork);
    m_routes->add("public.test", WebReach::publicNetwork);
    m_pump.callOnTimeout(m_server.get(), [this] { m_queue->runPosted(); });
    m_pump.start(1);
}

void WebTransferTest::cleanup()
{
    m_pump.stop();
    m_routes.reset();
    m_queue.reset();
    m_server.reset();
    QSslConfiguration::setDefaultConfiguration(m_defaults);
}

void WebTransferTest::nothingButTheRequestIsSent()
{
    m_server->serve("/a",
                    "HTTP/1.1 302 Found\r\nSet-Cookie: id=1; Path=/\r\nLocation: /b?c=d\r\nContent-Length: 0\r\n\r\n");
    m_server->serve("/b?c=d", answer("done"));
    QUrl url = m_server->url("/a#fragment", "public.test");
    url.setUserName(QStringLiteral("user"));
    url.setPassword(QStringLiteral("secret"));
    const auto done = fetch(url);
    QTRY_VERIFY(done->end);
    QCOMPARE(done->body, "done");
    QCOMPARE(m_server->requests().size(), 2);
    const QByteArray host = "public.test:" + QByteArray::number(m_server->serverPort());
    for (const QByteArray& request : m_server->requests()) {
        QCOMPARE(header(request, "host"), host);
        QCOMPARE(header(request, "user-agent"), "Mozilla/5.0 (compatible; Nookle; link preview)");
        for (const char* forbidden : { "cookie", "authorization", "referer", "user", "secret", "fragment", "cache",
                                       "if-modified", "if-none", "127.0.0.1" })
            QVERIFY2(!request.toLower().replace("user-agent", "").contains(forbidden), request.constData());
    }
}

void WebTransferTest::redirectsAreFollowed_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("location");
    for (const int status : { 301, 302, 303, 307, 308 })
        QTest::addRow("%d", status) << status << QByteArray("/b");
    QTest::newRow("relative") << 302 << QByteArray("b");
    QTest::newRow("without a scheme") << 302 << QByteArray("//public.test:PORT/b");
    QTest::newRow("absolute") << 302 << QByteArray("http://public.test:PORT/b");
    QTest::newRow("with a name and a password") << 302 << QByteArray("http://a:b@public.test:PORT/b");
}

void WebTransferTest::redirectsAreFollowed()
{
    QFETCH(int, status);
    QFETCH(QByteArray, location);
    location.replace("PORT", QByteArray::number(m_server->serverPort()));
    m_server->serveRedirect("/a", location, status);
    m_server->serve("/b", answer("done", "Content-Type: a/b\r\n"));
    const auto done = fetch(m_server->url("/a", "public.test"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->end, WebTransfer::End::complete);
    QCOMPARE(done->body, "done");
    QCOMPARE(done->response->url, m_server->url("/b", "public.test"));
    QCOMPARE(done->response->contentType, "a/b");
    QCOMPARE(done->response->reach, WebReach::publicNetwork);
}

void WebTransferTest::noMoreThanTenRedirectsAreFollowed()
{
    for (int i = 0; i < 11; ++i)
        m_server->serveRedirect("/" + QByteArray::number(i), "/" + QByteArray::number(i + 1));
    m_server->serve("/11", answer("done"));
    const auto ten = fetch(m_server->url("/1"));
    const auto eleven = fetch(m_server->url("/0"));
    QTRY_VERIFY(ten->end && eleven->end);
    QCOMPARE(ten->body, "done");
    QCOMPARE(eleven->end, WebTransfer::End::failed);
    QCOMPARE(m_server->requestsFor("/11"), 1);
}

void WebTransferTest::aRedirectLoopFails()
{
    m_server->serveRedirect("/a", "/b");
    m_server->serveRedirect("/b", "/a");
    const auto done = fetch(m_server->url("/a"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->end, WebTransfer::End::failed);
    QCOMPARE(m_server->requests().size(), WebTransfer::maximumRedirects + 1);
}

void WebTransferTest::redirectsThatLeadNowhereFail_data()
{
    QTest::addColumn<QByteArray>("location");
    for (const char* location : { "", "file:///etc/hostname", "ftp://public.test/", "data:text/html,a", "qrc:/a",
                                  "javascript:a", "http://", "http:///a", "http://[broken", "http://unknown.test/" })
        QTest::newRow(location) << QByteArray(location);
}

void WebTransferTest::redirectsThatLeadNowhereFail()
{
    QFETCH(QByteArray, location);
    m_server->serveRedirect("/a", location);
    const auto done = fetch(m_server->url("/a"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->end, WebTransfer::End::failed);
    QVERIFY(!done->response);
    QCOMPARE(m_server->requests().size(), 1);
}

void WebTransferTest::aRedirectFromPublicToPrivateIsRefused()
{
    m_server->serveRedirect("/a", m_server->address("/b", "private.test"));
    m_server->serve("/b", answer("secret"));
    const auto done = fetch(m_server->url("/a", "public.test"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->end, WebTransfer::End::failed);
    QVERIFY(done->body.isEmpty());
    QCOMPARE(m_server->requestsFor("/b"), 0);
    QCOMPARE(m_server->acceptedConnections(), 1);
}

void WebTransferTest::whatAPublicPageNamesIsNotFetchedFromAPrivateAddress()
{
    m_server->serve("/b", answer("secret"));
    const auto done = fetch(m_server->url("/b", "private.test"), WebReach::publicNetwork);
    QTRY_VERIFY(done->end);
    QCOMPARE(done->end, WebTransfer::End::failed);
    QCOMPARE(m_server->acceptedConnections(), 0);
}

void WebTransferTest::aPrivatePageMayRedirectToPrivate()
{
    m_routes->add("other.test", WebReach::privateNetwork);
    m_server->serveRedirect("/a", m_server->address("/b", "other.test"));
    m_server->serve("/b", answer("done"));
    const auto done = fetch(m_server->url("/a", "private.test"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->body, "done");
    QCOMPARE(done->response->reach, WebReach::privateNetwork);
}

void WebTransferTest::onceOnTheInternetThereIsNoWayBack()
{
    m_server->serveRedirect("/a", m_server->address("/b", "public.test"));
    m_server->serveRedirect("/b", m_server->address("/c", "private.test"));
    m_server->serve("/c", answer("secret"));
    const auto done = fetch(m_server->url("/a", "private.test"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->end, WebTransfer::End::failed);
    QCOMPARE(m_server->requestsFor("/b"), 1);
    QCOMPARE(m_server->requestsFor("/c"), 0);
}

void WebTransferTest::theJudgedAddressIsConnectedTo()
{
    // The system's own resolver says that this name is 127.0.0.1, where nobody listens on this port.
    m_server->close();
    QVERIFY(m_server->listen(QHostAddress(QStringLiteral("127.0.0.7"))));
    m_server->serve("/a", answer("done"));
    m_routes->add("localhost", WebReach::publicNetwork, QHostAddress(QStringLiteral("127.0.0.7")));
    const auto done = fetch(m_server->url("/a", "localhost"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->body, "done");
    QVERIFY(header(m_server->requests().constFirst(), "host").startsWith("localhost:"));
}

void WebTransferTest::theNextAddressIsTriedWhenOneRefuses()
{
    WebRoute route;
    route.addresses = { QHostAddress(QStringLiteral("127.0.0.8")), QHostAddress(QHostAddress::LocalHost) };
    m_routes->add("two.test", route);
    m_server->serve("/a", answer("done"));
    const auto done = fetch(m_server->url("/a", "two.test"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->body, "done");
}

void WebTransferTest::theNextAddressIsTriedWhenOneTakesTooLong()
{
    QSslConfiguration trusting = m_defaults;
    trusting.addCaCertificate(QSslCertificate(TestWebServer::authority()));
    QSslConfiguration::setDefaultConfiguration(trusting);
    TestWebServer server(TestWebServer::Security::tls);
    server.serve("/a", answer("done"));
    // It accepts, but never answers the greeting of TLS.
    QTcpServer silent;
    QVERIFY(silent.listen(QHostAddress(QStringLiteral("127.0.0.8")), server.serverPort()));
    WebRoute route;
    route.addresses = { silent.serverAddress(), server.serverAddress() };
    m_routes->add("secure.test", route);
    const auto done = fetch(server.url("/a", "secure.test"));
    QTRY_VERIFY(silent.hasPendingConnections());
    m_queue->advance(WebTransfer::connectSeconds - 0.001);
    QCOMPARE(server.acceptedConnections(), 0);
    m_queue->advance(0.001);
    QTRY_VERIFY(done->end);
    QCOMPARE(done->body, "done");
}

void WebTransferTest::aProxyLooksTheNameUp()
{
    WebRoute route;
    route.proxy = QNetworkProxy(QNetworkProxy::HttpProxy, m_server->serverAddress().toString(), m_server->serverPort());
    m_routes->add("nobody.test", route);
    m_server->serve("http://nobody.test/a", answer("done"));
    const auto done = fetch(QUrl(QStringLiteral("http://nobody.test/a")));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->body, "done");
}

void WebTransferTest::tlsWithAKnownAuthorityWorks()
{
    QSslConfiguration trusting = m_defaults;
    trusting.addCaCertificate(QSslCertificate(TestWebServer::authority()));
    QSslConfiguration::setDefaultConfiguration(trusting);
    TestWebServer server(TestWebServer::Security::tls);
    server.serve("/a", answer("done"));
    m_routes->add("secure.test", WebReach::publicNetwork);
    const auto done = fetch(server.url("/a", "secure.test"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->body, "done");
}

void WebTransferTest::tlsWithAnUnknownAuthorityFails()
{
    TestWebServer server(TestWebServer::Security::tls);
    server.serve("/a", answer("done"));
    m_routes->add("secure.test", WebReach::publicNetwork);
    const auto done = fetch(server.url("/a", "secure.test"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->end, WebTransfer::End::failed);
    QVERIFY(server.requests().isEmpty());
}

void WebTransferTest::tlsForAnotherNameFails()
{
    QSslConfiguration trusting = m_defaults;
    trusting.addCaCertificate(QSslCertificate(TestWebServer::authority()));
    QSslConfiguration::setDefaultConfiguration(trusting);
    TestWebServer server(TestWebServer::Security::tls);
    server.serve("/a", answer("done"));
    const auto done = fetch(server.url("/a", "public.test"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->end, WebTransfer::End::failed);
    QVERIFY(server.requests().isEmpty());
}

void WebTransferTest::compressedBodiesAreDecoded_data()
{
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<Compression>("compression");
    QTest::newRow("gzip") << QByteArray("gzip") << Compression::gzip;
    QTest::newRow("x-gzip") << QByteArray("X-GZIP") << Compression::gzip;
    QTest::newRow("deflate") << QByteArray("deflate") << Compression::zlib;
    QTest::newRow("deflate without a header") << QByteArray("deflate") << Compression::rawDeflate;
    QTest::newRow("brotli") << QByteArray("br") << Compression::brotli;
}

void WebTransferTest::compressedBodiesAreDecoded()
{
    QFETCH(QByteArray, encoding);
    QFETCH(Compression, compression);
    QByteArray body;
    for (int i = 0; body.size() < limit - 100; ++i)
        body += QByteArray::number(i * i);
    const QByteArray sent = compressed(body, compression);
    // In chunks of a few bytes, and after a single one.
    QByteArray chunks = "1\r\n" + sent.first(1) + "\r\n";
    for (qsizetype at = 1; at < sent.size(); at += 7) {
        const QByteArray chunk = sent.mid(at, 7);
        chunks += QByteArray::number(chunk.size()) + "\r\n" + chunk + "\r\n";
    }
    m_server->serve("/a",
                    "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\nContent-Encoding: " + encoding + "\r\n\r\n"
                        + chunks + "0\r\n\r\n");
    const auto done = fetch(m_server->url("/a"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->end, WebTransfer::End::complete);
    QVERIFY(done->body == body);
    QCOMPARE(header(m_server->requests().constFirst(), "accept-encoding"), "gzip, deflate, br");
}

void WebTransferTest::aBrokenOrUnknownEncodingFails_data()
{
    QTest::addColumn<QByteArray>("encoding");
    for (const char* encoding : { "gzip", "deflate", "br", "zstd", "gzip, br" })
        QTest::newRow(encoding) << QByteArray(encoding);
}

void WebTransferTest::aBrokenOrUnknownEncodingFails()
{
    QFETCH(QByteArray, encoding);
    m_server->serve("/a", answer(QByteArray(1000, '\xff'), "Content-Encoding: " + encoding + "\r\n"));
    const auto done = fetch(m_server->url("/a"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->end, WebTransfer::End::failed);
    QVERIFY(done->body.isEmpty());
}

void WebTransferTest::aBombIsNotDecoded_data()
{
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<Compression>("compression");
    QTest::newRow("gzip") << QByteArray("gzip") << Compression::gzip;
    QTest::newRow("brotli") << QByteArray("br") << Compression::brotli;
}

void WebTransferTest::aBombIsNotDecoded()
{
    QFETCH(QByteArray, encoding);
    QFETCH(Compression, compression);
    const QByteArray bomb = compressed(QByteArray(qsizetype(32) * 1024 * 1024, ' '), compression);
    QVERIFY(bomb.size() < limit);
    m_server->serve("/a", answer(bomb, "Content-Encoding: " + encoding + "\r\n"));
    const auto done = fetch(m_server->url("/a"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->end, WebTransfer::End::tooLong);
    QCOMPARE(done->body.size(), limit);
}

void WebTransferTest::whatDecodesToNothingIsLimitedAsWell()
{
    // Blocks of deflate that are empty, without end.
    const QByteArray nothing = QByteArray("\0\0\0\xff\xff", 5).repeated(limit);
    m_server->serve("/a", answer(nothing, "Content-Encoding: deflate\r\n"));
    const auto done = fetch(m_server->url("/a"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->end, WebTransfer::End::tooLong);
    QVERIFY(done->body.isEmpty());
}

void WebTransferTest::chunksAreJoined()
{
    m_server->serve(
        "/a", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2\r\ndo\r\n1;x=y\r\nn\r\n1\r\ne\r\n0\r\n\r\n");
    const auto done = fetch(m_server->url("/a"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->end, WebTransfer::End::complete);
    QCOMPARE(done->body, "done");
}

void WebTransferTest::aBodyThatJustFitsIsComplete()
{
    m_server->serve("/a", answer(QByteArray(limit, 'x')));
    const auto done = fetch(m_server->url("/a"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->end, WebTransfer::End::complete);
    QCOMPARE(done->body.size(), limit);
}

void WebTransferTest::aBodyThatIsOneByteTooLongIsCut()
{
    m_server->serve("/a", answer(QByteArray(limit + 1, 'x')));
    const auto done = fetch(m_server->url("/a"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->end, WebTransfer::End::tooLong);
    QCOMPARE(done->body.size(), limit);
}

void WebTransferTest::aVeryLargeBodyIsNotRead()
{
    const qint64 size = qint64(100) * 1024 * 1024;
    qint64 sent = 0;
    m_server->serve("/a", [&](QTcpSocket& connection) {
        connection.write("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(size) + "\r\n\r\n");
        connect(&connection, &QTcpSocket::bytesWritten, &connection, [&] {
            if (connection.bytesToWrite() == 0 && sent < size)
                sent += connection.write(QByteArray(limit, 'x'));
        });
    });
    const auto done = fetch(m_server->url("/a"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->end, WebTransfer::End::tooLong);
    QCOMPARE(done->body.size(), limit);
    QTRY_COMPARE(m_server->openConnections(), 0);
    // What the system's own buffers hold was sent, and no more.
    QVERIFY2(sent < size / 5, QByteArray::number(sent).constData());
}

void WebTransferTest::anUnwantedBodyIsNotRead()
{
    m_server->serve(
        "/a", [](QTcpSocket& connection) { connection.write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nxxx"); });
    const auto done = fetch(m_server->url("/a"));
    done->isBodyWanted = false;
    QTRY_VERIFY(done->end);
    QCOMPARE(done->end, WebTransfer::End::complete);
    QVERIFY(done->body.isEmpty());
    QTRY_COMPARE(m_server->openConnections(), 0);
}

void WebTransferTest::aResetConnectionFails()
{
    m_server->serve("/before", [](QTcpSocket& connection) { reset(connection); });
    m_server->serve("/within", [](QTcpSocket& connection) {
        connection.write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nxxx");
        reset(connection);
    });
    const auto before = fetch(m_server->url("/before"));
    const auto within = fetch(m_server->url("/within"));
    QTRY_VERIFY(before->end && within->end);
    QCOMPARE(before->end, WebTransfer::End::failed);
    QCOMPARE(within->end, WebTransfer::End::failed);
}

void WebTransferTest::aBodyThatIsCutOffFails_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("headers") << QByteArray("HTTP/1.1 200 OK\r\nContent-Le");
    QTest::newRow("body") << QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nxxx");
    QTest::newRow("chunks") << QByteArray("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nxxx\r\n");
    QTest::newRow("no HTTP") << QByteArray("220 mail.test ESMTP\r\n");
}

void WebTransferTest::aBodyThatIsCutOffFails()
{
    QFETCH(QByteArray, bytes);
    m_server->serve("/a", bytes);
    const auto done = fetch(m_server->url("/a"));
    QTRY_VERIFY(done->end);
    QCOMPARE(done->end, WebTransfer::End::failed);
}

QTEST_GUILESS_MAIN(WebTransferTest)
#include "WebTransferTest.moc"
