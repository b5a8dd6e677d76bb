#include "TestWebServer.h"
#include "WebFixture.h"

#include "IconLoad.h"
#include "LookupHelper.h"

#include <QTcpSocket>
#include <QTest>

#include <memory>

using namespace nookle;

namespace {

const QByteArray png = QByteArray("\x89PNG\r\n\x1a\n") + "the rest";

[[nodiscard]] QByteArray answer(const QByteArray& body)
{
    return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

} // namespace

class WebLinkIconTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void theBestIconIsConverted();
    void anIconLoadsOnWhenTheRequestIsGone();
    void theNextPlaceIsTriedWhenOneFails();
    void theSitesOwnIconIsTriedWhenThePageNamesNone();
    void aPageWithoutAnyIconGivesNothing();
    void anIconThatJustFitsIsConverted();
    void anIconThatIsTooLargeIsNot();
    void anErrorPageIsNoIcon();
    void anIconInADataAddressNeedsNoServer();
    void aDataAddressThatIsTooLargeIsNotConverted();
    void relativeIconsAreFoundAfterARedirect();
    void anIconMayBeRedirected();
    void anIconOfAPublicPageIsNotFetchedFromAPrivateAddress();
    void anIconRedirectedToAPrivateAddressIsRefused();
    void anIconOfAPrivatePageMayBePrivate();
    void anIconThatTakesTooLongIsGivenUp();
    void aConversionThatTakesTooLongIsGivenUp();
    void iconsWaitForTheirTurn();
    void aServiceDestroyedInFlightNeitherCallsBackNorKeepsAnything();
    void anIconMayBeAskedForAgain();

private:
    [[nodiscard]] std::unique_ptr<Lookup> page(const QByteArray& head, const char* host = "public.test")
    {
        m_server->servePage("/page", head + "<title>Page</title><body>");
        auto lookup = m_web->lookUp(m_server->url("/page", host));
        if (!QTest::qWaitFor([&] { return lookup->isDone(); }) || !lookup->metadata || !lookup->metadata->loadIcon)
            qFatal("the page was not found");
        return lookup;
    }

    [[nodiscard]] QByteArray converted(qsizetype index) const
    {
        const auto asked = m_web->converter.asked.value(index);
        return std::get<QByteArray>(asked.source);
    }

    std::unique_ptr<TestWebServer> m_server;
    std::unique_ptr<WebFixture> m_web;
};

void WebLinkIconTest::init()
{
    m_server = std::make_unique<TestWebServer>();
    m_web = std::make_unique<WebFixture>();
}

void WebLinkIconTest::cleanup()
{
    m_web.reset();
    m_server.reset();
}

void WebLinkIconTest::theBestIconIsConverted()
{
    m_server->serve("/64.png", answer(png + "64"));
    const auto lookup = page("<link rel=icon href=16.png sizes=16x16><link rel=icon href=64.png sizes=64x64>");
    const auto icon = WebFixture::loadIcon(*lookup);
    QCOMPARE(icon->calls, 0);
    QTRY_COMPARE(m_web->converter.asked.size(), 1);
    QCOMPARE(converted(0), png + "64");
    QCOMPARE(m_web->converter.asked.constFirst().maximumSide, 2048);
    QCOMPARE(icon->calls, 0);
    QVERIFY(m_web->converter.finish(0, "converted"));
    QCOMPARE(icon->calls, 1);
    QCOMPARE(icon->png, QByteArray("converted"));
    m_web->queue.advance(100);
    QCOMPARE(icon->calls, 1);
    QCOMPARE(m_server->requestsFor("/16.png"), 0);
}

void WebLinkIconTest::anIconLoadsOnWhenTheRequestIsGone()
{
    m_server->serve("/a.png", answer(png));
    const auto lookup = page("<link rel=icon href=a.png>");
    const auto icon = WebFixture::loadIcon(*lookup);
    lookup->request.reset();
    lookup->metadata.reset();
    QTRY_COMPARE(m_web->converter.asked.size(), 1);
    QVERIFY(m_web->converter.finish(0, "converted"));
    QCOMPARE(icon->png, QByteArray("converted"));
}

void WebLinkIconTest::theNextPlaceIsTriedWhenOneFails()
{
    m_server->serve("/broken.png", answer(png + "broken"));
    m_server->serve("/good.png", answer(png + "good"));
    const auto lookup = page("<link rel=icon href=missing.png sizes=56x56><link rel=icon href=broken.png sizes=64x64>"
                             "<link rel=icon href=good.png sizes=72x72>");
    const auto icon = WebFixture::loadIcon(*lookup);
    QTRY_COMPARE(m_web->converter.asked.size(), 1);
    QCOMPARE(converted(0), png + "broken");
    QVERIFY(m_web->converter.finish(0, std::nullopt));
    QTRY_COMPARE(m_web->converter.asked.size(), 2);
    QCOMPARE(converted(1), png + "good");
    QVERIFY(m_web->converter.finish(1, "converted"));
    QCOMPARE(icon->png, QByteArray("converted"));
    QCOMPARE(m_server->requestsFor("/missing.png"), 1);
}

void WebLinkIconTest::theSitesOwnIconIsTriedWhenThePageNamesNone()
{
    const QByteArray ico = QByteArray("\0\0\1\0\1\0", 6) + "the rest";
    m_server->serve("/favicon.ico", answer(ico));
    const auto icon = WebFixture::loadIcon(*page(""));
    QTRY_COMPARE(m_web->converter.asked.size(), 1);
    QCOMPARE(converted(0), ico);
}

void WebLinkIconTest::aPageWithoutAnyIconGivesNothing()
{
    const auto lookup = page("");
    const auto icon = WebFixture::loadIcon(*lookup);
    QTRY_COMPARE(icon->calls, 1);
    QVERIFY(!icon->png);
    QCOMPARE(m_server->requestsFor("/favicon.ico"), 1);
}

void WebLinkIconTest::anIconThatJustFitsIsConverted()
{
    const QByteArray large = png + QByteArray(LookupReply::largestIcon - png.size(), 'x');
    m_server->serve("/a.png", answer(large));
    const auto icon = WebFixture::loadIcon(*page("<link rel=icon href=a.png>"));
    QTRY_COMPARE(m_web->converter.asked.size(), 1);
    QVERIFY(converted(0) == large);
}

void WebLinkIconTest::anIconThatIsTooLargeIsNot()
{
    m_server->serve("/a.png", answer(png + QByteArray(LookupReply::largestIcon, 'x')));
    const auto icon = WebFixture::loadIcon(*page("<link rel=icon href=a.png>"));
    QTRY_COMPARE(icon->calls, 1);
    QVERIFY(!icon->png);
    QVERIFY(m_web->converter.asked.isEmpty());
    QCOMPARE(m_server->requestsFor("/a.png"), 1);
}

void WebLinkIconTest::anErrorPageIsNoIcon()
{
    m_server->servePage("/a.png", "<html>Nothing here, but politely</html>");
    const auto icon = WebFixture::loadIcon(*page("<link rel=icon href=a.png>"));
    QTRY_COMPARE(icon->calls, 1);
    QVERIFY(!icon->png);
    QVERIFY(m_web->converter.asked.isEmpty());
}

void WebLinkIconTest::anIconInADataAddressNeedsNoServer()
{
    const auto lookup = page("<link rel=icon href='data:image/png;base64," + png.toBase64() + "'>");
    const auto icon = WebFixture::loadIcon(*lookup);
    QVERIFY(m_web->converter.asked.isEmpty());
    QTRY_COMPARE(m_web->converter.asked.size(), 1);
    QCOMPARE(converted(0), png);
    QCOMPARE(m_server->requests().size(), 1);
}

void WebLinkIconTest::aDataAddressThatIsTooLargeIsNotConverted()
{
    const QByteArray large = png + QByteArray(LookupReply::largestIcon, 'x');
    const auto lookup = page("<link rel=icon href='data:image/png;base64," + large.toBase64() + "'>");
    const auto icon = WebFixture::loadIcon(*lookup);
    QTRY_COMPARE(icon->calls, 1);
    QVERIFY(!icon->png);
    QVERIFY(m_web->converter.asked.isEmpty());
}

void WebLinkIconTest::relativeIconsAreFoundAfterARedirect()
{
    m_server->serveRedirect("/old", "/new/page");
    m_server->servePage("/new/page", "<link rel=icon href=a.png><title>New</title><body>");
    m_server->serve("/new/a.png", answer(png));
    const auto lookup = m_web->lookUp(m_server->url("/old", "public.test"));
    QTRY_COMPARE(lookup->title(), QStringLiteral("New"));
    const auto icon = WebFixture::loadIcon(*lookup);
    QTRY_COMPARE(m_web->converter.asked.size(), 1);
}

void WebLinkIconTest::anIconMayBeRedirected()
{
    m_server->serveRedirect("/a.png", m_server->address("/b.png", "secure.test"));
    m_server->serve("/b.png", answer(png));
    const auto icon = WebFixture::loadIcon(*page("<link rel=icon href=a.png>"));
    QTRY_COMPARE(m_web->converter.asked.size(), 1);
}

void WebLinkIconTest::anIconOfAPublicPageIsNotFetchedFromAPrivateAddress()
{
    m_server->serve("/a.png", answer(png));
    const QByteArray link = "<link rel=icon href='" + m_server->address("/a.png", "private.test") + "'>";
    const auto icon = WebFixture::loadIcon(*page(link));
    QTRY_COMPARE(icon->calls, 1);
    QVERIFY(!icon->png);
    QCOMPARE(m_server->requestsFor("/a.png"), 0);
    QCOMPARE(m_server->requestsFor("/favicon.ico"), 1);
}

void WebLinkIconTest::anIconRedirectedToAPrivateAddressIsRefused()
{
    m_server->serveRedirect("/a.png", m_server->address("/b.png", "private.test"));
    m_server->serve("/b.png", answer(png));
    const auto icon = WebFixture::loadIcon(*page("<link rel=icon href=a.png>"));
    QTRY_COMPARE(icon->calls, 1);
    QVERIFY(!icon->png);
    QCOMPARE(m_server->requestsFor("/a.png"), 1);
    QCOMPARE(m_server->requestsFor("/b.png"), 0);
}

void WebLinkIconTest::anIconOfAPrivatePageMayBePrivate()
{
    m_server->serve("/a.png", answer(png));
    const auto icon = WebFixture::loadIcon(*page("<link rel=icon href=a.png>", "private.test"));
    QTRY_COMPARE(m_web->converter.asked.size(), 1);
}

void WebLinkIconTest::anIconThatTakesTooLongIsGivenUp()
{
    m_server->serve("/a.png", [](QTcpSocket&) {});
    const auto icon = WebFixture::loadIcon(*page("<link rel=icon href=a.png>"));
    QTRY_COMPARE(m_server->requestsFor("/a.png"), 1);
    m_web->queue.advance(LookupHelper::longestLookup - 0.001);
    QCOMPARE(icon->calls, 0);
    m_web->queue.advance(0.001);
    QCOMPARE(icon->calls, 1);
    QVERIFY(!icon->png);
    QTRY_COMPARE(m_server->openConnections(), 0);
}

void WebLinkIconTest::aConversionThatTakesTooLongIsGivenUp()
{
    m_server->serve("/a.png", answer(png));
    const auto icon = WebFixture::loadIcon(*page("<link rel=icon href=a.png>"));
    QTRY_COMPARE(m_web->converter.asked.size(), 1);
    m_web->queue.advance(IconLoad::longestConversion);
    QCOMPARE(icon->calls, 1);
    QVERIFY(!m_web->converter.finish(0, "converted"));
    QCOMPARE(icon->calls, 1);
}

void WebLinkIconTest::iconsWaitForTheirTurn()
{
    m_server->serve("/a.png", [](QTcpSocket&) {});
    const auto lookup = page("<link rel=icon href=a.png>");
    std::vector<std::shared_ptr<LoadedIcon>> icons;
    for (int i = 0; i < 6; ++i)
        icons.push_back(WebFixture::loadIcon(*lookup));
    QTRY_COMPARE(m_server->requestsFor("/a.png"), 4);
    m_web->queue.advance(1);
    QCOMPARE(m_server->requestsFor("/a.png"), 4);
    m_web->queue.advance(LookupHelper::longestLookup);
    QTRY_COMPARE(m_server->requestsFor("/a.png"), 6);
}

void WebLinkIconTest::aServiceDestroyedInFlightNeitherCallsBackNorKeepsAnything()
{
    m_server->serve("/slow.png", [](QTcpSocket&) {});
    m_server->serve("/a.png", answer(png));
    const auto slow = WebFixture::loadIcon(*page("<link rel=icon href=slow.png>"));
    const auto converting = WebFixture::loadIcon(*page("<link rel=icon href=a.png>"));
    QTRY_COMPARE(m_web->converter.asked.size(), 1);
    QTRY_COMPARE(m_server->requestsFor("/slow.png"), 1);
    QCOMPARE(slow.use_count(), 2);
    m_web->service.reset();
    QCOMPARE(slow.use_count(), 1);
    QCOMPARE(converting.use_count(), 1);
    QVERIFY(!m_web->converter.finish(0, "converted"));
    QTRY_COMPARE(m_server->openConnections(), 0);
    m_web->queue.advance(100);
    QCOMPARE(slow->calls, 0);
    QCOMPARE(converting->calls, 0);
}

void WebLinkIconTest::anIconMayBeAskedForAgain()
{
    m_server->serve("/a.png", answer(png));
    const auto lookup = page("<link rel=icon href=a.png>");
    for (int i = 0; i < 2; ++i) {
        const auto icon = WebFixture::loadIcon(*lookup);
        QTRY_COMPARE(m_web->converter.asked.size(), i + 1);
        QVERIFY(m_web->converter.finish(i, "converted"));
        QCOMPARE(icon->calls, 1);
    }
}

QTEST_GUILESS_MAIN(WebLinkIconTest)
#include "WebLinkIconTest.moc"
