#include "WebTransfer.h"

#include "Compression.h"
#include "LoopbackWeb.h"
#include "TestWebServer.h"

#include <QTcpSocket>
#include <QTest>

#include <curl/curl.h>
#include <sys/socket.h>

#include <atomic>
#include <memory>
#include <optional>
#include <thread>

using namespace nookle;

namespace {

inline constexpr qint64 limit = 64 * 1024;

enum class End { complete, tooLong, failed };

/// A transfer on a thread of its own, and what it has brought.
struct Fetch {
    Fetch(const WebSurroundings& web, const WebWish& wish)
        : thread([this, web, wish] {
            response = fetch(web, wish);
            isDone = true;
        })
    {
    }
    ~Fetch() { thread.join(); }

    [[nodiscard]] QByteArray body() const { return response ? response->body : QByteArray(); }
    [[nodiscard]] End end() const
    {
        if (!response)
            return End::failed;
        return response->isTooLong ? End::tooLong : End::complete;
    }

    std::optional<WebResponse> response;
    std::atomic<bool> isDone = false;
    std::thread thread;
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
    void initTestCase();
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
    void aNameThatChangesItsMindIsJudgedAgain();
    void theNextAddressIsTriedWhenOneRefuses();
    void aProxyLooksTheNameUp();
    void behindAProxyThereIsNoWayToAPrivateName();
    void thisComputerNeedsNoProxy();
    void noProxyOfTheEnvironmentIsUsedUnasked();
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
    void headersThatDoNotEndFail_data();
    void headersThatDoNotEndFail();
    void aResetConnectionFails();
    void aBodyThatIsCutOffFails_data();
    void aBodyThatIsCutOffFails();

private:
    [[nodiscard]] std::unique_ptr<Fetch> get(const QUrl& url, WebReach from = WebReach::privateNetwork)
    {
        return std::make_unique<Fetch>(m_web, WebWish{ url, from, "text/html", limit });
    }

    std::unique_ptr<TestWebServer> m_server;
    WebSurroundings m_web;
};

void WebTransferTest::initTestCase()
{
    QCOMPARE(::curl_global_init(CURL_GLOBAL_DEFAULT), CURLE_OK);
}

void WebTransferTest::init()
{
    m_server = std::make_unique<TestWebServer>();
    m_web = loopbackWeb();
}

void WebTransferTest::cleanup()
{
    m_server.reset();
}

void WebTransferTest::nothingButTheRequestIsSent()
{
    m_server->serve("/a",
                    "HTTP/1.1 302 Found\r\nSet-Cookie: id=1; Path=/\r\nLocation: /b?c=d\r\nContent-Length: 0\r\n\r\n");
    m_server->serve("/b?c=d", answer("done"));
    QUrl url = m_server->url("/a#fragment", "public.test");
    url.setUserName(QStringLiteral("user"));
    url.setPassword(QStringLiteral("secret"));
    const auto done = get(url);
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->body(), "done");
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
    const auto done = get(m_server->url("/a", "public.test"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::complete);
    QCOMPARE(done->body(), "done");
    QCOMPARE(done->response->url, m_server->url("/b", "public.test"));
    QCOMPARE(done->response->contentType, "a/b");
    QCOMPARE(done->response->reach, WebReach::publicNetwork);
}

void WebTransferTest::noMoreThanTenRedirectsAreFollowed()
{
    for (int i = 0; i < 11; ++i)
        m_server->serveRedirect("/" + QByteArray::number(i), "/" + QByteArray::number(i + 1));
    m_server->serve("/11", answer("done"));
    const auto ten = get(m_server->url("/1"));
    const auto eleven = get(m_server->url("/0"));
    QTRY_VERIFY(ten->isDone && eleven->isDone);
    QCOMPARE(ten->body(), "done");
    QCOMPARE(eleven->end(), End::failed);
    QCOMPARE(m_server->requestsFor("/11"), 1);
}

void WebTransferTest::aRedirectLoopFails()
{
    m_server->serveRedirect("/a", "/b");
    m_server->serveRedirect("/b", "/a");
    const auto done = get(m_server->url("/a"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::failed);
    QCOMPARE(m_server->requests().size(), maximumRedirects + 1);
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
    const auto done = get(m_server->url("/a"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::failed);
    QVERIFY(!done->response);
    QCOMPARE(m_server->requests().size(), 1);
}

void WebTransferTest::aRedirectFromPublicToPrivateIsRefused()
{
    m_server->serveRedirect("/a", m_server->address("/b", "private.test"));
    m_server->serve("/b", answer("secret"));
    const auto done = get(m_server->url("/a", "public.test"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::failed);
    QVERIFY(done->body().isEmpty());
    QCOMPARE(m_server->requestsFor("/b"), 0);
    QCOMPARE(m_server->acceptedConnections(), 1);
}

void WebTransferTest::whatAPublicPageNamesIsNotFetchedFromAPrivateAddress()
{
    m_server->serve("/b", answer("secret"));
    const auto done = get(m_server->url("/b", "private.test"), WebReach::publicNetwork);
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::failed);
    QCOMPARE(m_server->acceptedConnections(), 0);
}

void WebTransferTest::aPrivatePageMayRedirectToPrivate()
{
    m_server->serveRedirect("/a", m_server->address("/b", "other.test"));
    m_server->serve("/b", answer("done"));
    const auto done = get(m_server->url("/a", "private.test"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->body(), "done");
    QCOMPARE(done->response->reach, WebReach::privateNetwork);
}

void WebTransferTest::onceOnTheInternetThereIsNoWayBack()
{
    m_server->serveRedirect("/a", m_server->address("/b", "public.test"));
    m_server->serveRedirect("/b", m_server->address("/c", "private.test"));
    m_server->serve("/c", answer("secret"));
    const auto done = get(m_server->url("/a", "private.test"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::failed);
    QCOMPARE(m_server->requestsFor("/b"), 1);
    QCOMPARE(m_server->requestsFor("/c"), 0);
}

void WebTransferTest::aNameThatChangesItsMindIsJudgedAgain()
{
    // The second time, the same name leads to an address of another kind.
    m_web.reachOf = [asked = std::make_shared<int>(0)](const WebAddress&) {
        return ++*asked <= 1 ? WebReach::publicNetwork : WebReach::privateNetwork;
    };
    m_server->serveRedirect("/a", "/b");
    m_server->serve("/b", answer("secret"));
    const auto done = get(m_server->url("/a"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::failed);
    QCOMPARE(m_server->requestsFor("/a"), 1);
    QCOMPARE(m_server->acceptedConnections(), 1);
}

void WebTransferTest::theNextAddressIsTriedWhenOneRefuses()
{
    // The name stands for an address of either family, and the server has only one of them.
    m_server->serve("/a", answer("done"));
    const auto done = get(m_server->url("/a", "two.test"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->body(), "done");
}

void WebTransferTest::aProxyLooksTheNameUp()
{
    m_web.proxyFor = [proxy = m_server->address("", "127.0.0.1")](const QUrl&) { return proxy; };
    m_server->serve("http://nobody.test/a", answer("done"));
    const auto done = get(QUrl(QStringLiteral("http://nobody.test/a")));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->body(), "done");
    QCOMPARE(done->response->reach, WebReach::publicNetwork);
}

void WebTransferTest::behindAProxyThereIsNoWayToAPrivateName()
{
    m_web.proxyFor = [proxy = m_server->address("", "127.0.0.1")](const QUrl&) { return proxy; };
    m_server->serveRedirect("http://nobody.test/a", "http://router/b");
    m_server->serve("http://router/b", answer("secret"));
    const auto done = get(QUrl(QStringLiteral("http://nobody.test/a")));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::failed);
    QCOMPARE(m_server->requests().size(), 1);
}

void WebTransferTest::thisComputerNeedsNoProxy()
{
    m_web.proxyFor = [](const QUrl&) { return QByteArray("http://127.0.0.9:1/"); };
    m_server->serve("/a", answer("done"));
    const auto done = get(m_server->url("/a", "127.0.0.1"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->body(), "done");
}

void WebTransferTest::noProxyOfTheEnvironmentIsUsedUnasked()
{
    qputenv("http_proxy", "http://127.0.0.9:1/");
    m_server->serve("/a", answer("done"));
    const auto done = get(m_server->url("/a"));
    QTRY_VERIFY(done->isDone);
    qunsetenv("http_proxy");
    QCOMPARE(done->body(), "done");
}

void WebTransferTest::tlsWithAKnownAuthorityWorks()
{
    m_web.authorities = TestWebServer::authority();
    TestWebServer server(TestWebServer::Security::tls);
    server.serve("/a", answer("done"));
    const auto done = get(server.url("/a", "secure.test"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->body(), "done");
}

void WebTransferTest::tlsWithAnUnknownAuthorityFails()
{
    TestWebServer server(TestWebServer::Security::tls);
    server.serve("/a", answer("done"));
    const auto done = get(server.url("/a", "secure.test"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::failed);
    QVERIFY(server.requests().isEmpty());
}

void WebTransferTest::tlsForAnotherNameFails()
{
    m_web.authorities = TestWebServer::authority();
    TestWebServer server(TestWebServer::Security::tls);
    server.serve("/a", answer("done"));
    const auto done = get(server.url("/a", "public.test"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::failed);
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
    // In chunks of a few bytes, and after a single one where the encoding can be told by that.
    const qsizetype first = compression == Compression::rawDeflate ? 2 : 1;
    QByteArray chunks = QByteArray::number(first) + "\r\n" + sent.first(first) + "\r\n";
    for (qsizetype at = first; at < sent.size(); at += 7) {
        const QByteArray chunk = sent.mid(at, 7);
        chunks += QByteArray::number(chunk.size()) + "\r\n" + chunk + "\r\n";
    }
    m_server->serve("/a",
                    "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\nContent-Encoding: " + encoding + "\r\n\r\n"
                        + chunks + "0\r\n\r\n");
    const auto done = get(m_server->url("/a"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::complete);
    QVERIFY(done->body() == body);
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
    const auto done = get(m_server->url("/a"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::failed);
    QVERIFY(done->body().isEmpty());
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
    const auto done = get(m_server->url("/a"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::tooLong);
    QCOMPARE(done->body().size(), limit);
}

void WebTransferTest::whatDecodesToNothingIsLimitedAsWell()
{
    // Blocks of deflate that are empty, without end.
    const QByteArray nothing = QByteArray("\0\0\0\xff\xff", 5).repeated(limit);
    m_server->serve("/a", answer(nothing, "Content-Encoding: deflate\r\n"));
    const auto done = get(m_server->url("/a"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::tooLong);
    QVERIFY(done->body().isEmpty());
}

void WebTransferTest::chunksAreJoined()
{
    m_server->serve(
        "/a", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2\r\ndo\r\n1;x=y\r\nn\r\n1\r\ne\r\n0\r\n\r\n");
    const auto done = get(m_server->url("/a"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::complete);
    QCOMPARE(done->body(), "done");
}

void WebTransferTest::aBodyThatJustFitsIsComplete()
{
    m_server->serve("/a", answer(QByteArray(limit, 'x')));
    const auto done = get(m_server->url("/a"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::complete);
    QCOMPARE(done->body().size(), limit);
}

void WebTransferTest::aBodyThatIsOneByteTooLongIsCut()
{
    m_server->serve("/a", answer(QByteArray(limit + 1, 'x')));
    const auto done = get(m_server->url("/a"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::tooLong);
    QCOMPARE(done->body().size(), limit);
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
    const auto done = get(m_server->url("/a"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::tooLong);
    QCOMPARE(done->body().size(), limit);
    QTRY_COMPARE(m_server->openConnections(), 0);
    // What the system's own buffers hold was sent, and no more.
    QVERIFY2(sent < size / 5, QByteArray::number(sent).constData());
}

void WebTransferTest::anUnwantedBodyIsNotRead()
{
    m_server->serve(
        "/a", [](QTcpSocket& connection) { connection.write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n"); });
    WebWish wish{ m_server->url("/a"), WebReach::privateNetwork, "text/html", limit };
    wish.isEnough = [](const WebResponse&) { return true; };
    const Fetch done(m_web, wish);
    QTRY_VERIFY(done.isDone);
    QCOMPARE(done.end(), End::complete);
    QVERIFY(done.body().isEmpty());
    QTRY_COMPARE(m_server->openConnections(), 0);
}

void WebTransferTest::headersThatDoNotEndFail_data()
{
    QTest::addColumn<QByteArray>("beginning");
    QTest::addColumn<QByteArray>("part");
    const QByteArray ok = "HTTP/1.1 200 OK\r\n";
    QTest::newRow("long ones") << ok << "X: " + QByteArray(1000, 'x') + "\r\n";
    QTest::newRow("short ones") << ok << QByteArray("X: y\r\n");
    QTest::newRow("one line") << QByteArray(ok + "X: ") << QByteArray(1000, 'x');
    QTest::newRow("a status line") << QByteArray("HTTP/1.1 200 ") << QByteArray(1000, 'x');
    QTest::newRow("interim responses") << QByteArray() << QByteArray("HTTP/1.1 100 Continue\r\n\r\n");
    QTest::newRow("trailers") << ok + "Transfer-Encoding: chunked\r\n\r\n3\r\nxxx\r\n0\r\n" << QByteArray("X: y\r\n");
}

void WebTransferTest::headersThatDoNotEndFail()
{
    QFETCH(QByteArray, beginning);
    QFETCH(QByteArray, part);
    qint64 sent = 0;
    m_server->serve("/a", [&](QTcpSocket& connection) {
        connection.write(beginning);
        const QByteArray parts = part.repeated(1 + 100'000 / part.size());
        const auto go = [&connection, &sent, parts] { sent += connection.write(parts); };
        connect(&connection, &QTcpSocket::bytesWritten, &connection, [go, &connection] {
            if (connection.bytesToWrite() == 0)
                go();
        });
        go();
    });
    const auto done = get(m_server->url("/a"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::failed);
    QTRY_COMPARE(m_server->openConnections(), 0);
    QVERIFY2(sent < 20'000'000, QByteArray::number(sent).constData());
}

void WebTransferTest::aResetConnectionFails()
{
    m_server->serve("/before", [](QTcpSocket& connection) { reset(connection); });
    m_server->serve("/within", [](QTcpSocket& connection) {
        connection.write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nxxx");
        reset(connection);
    });
    const auto before = get(m_server->url("/before"));
    const auto within = get(m_server->url("/within"));
    QTRY_VERIFY(before->isDone && within->isDone);
    QCOMPARE(before->end(), End::failed);
    QCOMPARE(within->end(), End::failed);
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
    const auto done = get(m_server->url("/a"));
    QTRY_VERIFY(done->isDone);
    QCOMPARE(done->end(), End::failed);
}

QTEST_GUILESS_MAIN(WebTransferTest)
#include "WebTransferTest.moc"
