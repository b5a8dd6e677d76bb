#include "LookupProtocol.h"

#include <QTest>

#include <functional>

using namespace nookle;

namespace {

using Change = std::function<void(LookupReply&)>;

[[nodiscard]] QByteArray png(qsizetype size = 100)
{
    return QByteArray("\x89PNG\r\n\x1a\n").leftJustified(size, 'x');
}

[[nodiscard]] LookupReply pageReply()
{
    LookupReply reply;
    reply.isFound = true;
    reply.title = QStringLiteral("One");
    reply.places = { IconPlace{ "https://a.test/icon.png", {} }, IconPlace{ {}, png() } };
    reply.reach = WebReach::privateNetwork;
    return reply;
}

[[nodiscard]] LookupReply iconReply()
{
    LookupReply reply;
    reply.isFound = true;
    reply.icon = png();
    return reply;
}

const LookupRequest page{ LookupRequest::Purpose::page, "https://a.test/", WebReach::privateNetwork };
const LookupRequest icon{ LookupRequest::Purpose::icon, "https://a.test/a.png", WebReach::publicNetwork };

} // namespace

Q_DECLARE_METATYPE(Change)

class LookupProtocolTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void requestsSurviveTheWay();
    void requestsThatNobodyWroteAreRefused_data();
    void requestsThatNobodyWroteAreRefused();
    void repliesSurviveTheWay();
    void whatDoesNotFitAPageIsRefused_data();
    void whatDoesNotFitAPageIsRefused();
    void whatDoesNotFitAnIconIsRefused_data();
    void whatDoesNotFitAnIconIsRefused();
    void brokenRepliesAreRefused();
    void theLargestReplyFits();
};

void LookupProtocolTest::requestsSurviveTheWay()
{
    QCOMPARE(LookupRequest::decode(page.encode()), page);
    QCOMPARE(LookupRequest::decode(icon.encode()), icon);
    const LookupRequest longOne{ LookupRequest::Purpose::page, QByteArray(LookupRequest::longestUrl, 'a'), {} };
    QVERIFY(longOne.encode().size() <= qsizetype(LookupRequest::longest));
    QCOMPARE(LookupRequest::decode(longOne.encode()), longOne);
}

void LookupProtocolTest::requestsThatNobodyWroteAreRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray good = page.encode();
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("too short") << good.chopped(1);
    QTest::newRow("too long") << QByteArray(good + "x");
    QTest::newRow("another purpose") << QByteArray("\x03" + good.mid(1));
    QTest::newRow("another reach") << QByteArray(good.first(1) + "\x02" + good.mid(2));
}

void LookupProtocolTest::requestsThatNobodyWroteAreRefused()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!LookupRequest::decode(bytes));
}

void LookupProtocolTest::repliesSurviveTheWay()
{
    QCOMPARE(LookupReply::decode(pageReply().encode(), page), pageReply());
    QCOMPARE(LookupReply::decode(iconReply().encode(), icon), iconReply());
    for (const LookupRequest& request : { page, icon })
        QCOMPARE(LookupReply::decode(LookupReply().encode(), request), LookupReply());
    LookupReply noPage;
    noPage.isFound = true;
    QCOMPARE(LookupReply::decode(noPage.encode(), page), noPage);
}

void LookupProtocolTest::whatDoesNotFitAPageIsRefused_data()
{
    QTest::addColumn<Change>("change");
    const auto row = [](const char* name, Change change) { QTest::newRow(name) << std::move(change); };
    row("not found", [](LookupReply& reply) { reply.isFound = false; });
    row("icon", [](LookupReply& reply) { reply.icon = png(); });
    row("empty title", [](LookupReply& reply) { reply.title = QString(); });
    row("title of two lines", [](LookupReply& reply) { reply.title = QStringLiteral("a\nb"); });
    row("title that is turned around", [](LookupReply& reply) { reply.title = QStringLiteral("a\u202Eb"); });
    row("long title", [](LookupReply& reply) { reply.title = QString(2000, u'a'); });
    row("too many places", [](LookupReply& reply) { reply.places += reply.places + reply.places; });
    row("empty place", [](LookupReply& reply) { reply.places = { IconPlace() }; });
    row("both", [](LookupReply& reply) { reply.places = { IconPlace{ "https://a.test/", png() } }; });
    row("file", [](LookupReply& reply) { reply.places = { IconPlace{ "file:///etc/hostname", {} } }; });
    row("long address", [](LookupReply& reply) {
        reply.places = { IconPlace{ "https://" + QByteArray(LookupRequest::longestUrl, 'a'), {} } };
    });
    row("no image", [](LookupReply& reply) { reply.places = { IconPlace{ {}, "text" } }; });
    row("large image", [](LookupReply& reply) {
        reply.places = { IconPlace{ {}, png(LookupReply::largestIcon + 1) } };
    });
}

void LookupProtocolTest::whatDoesNotFitAPageIsRefused()
{
    QFETCH(Change, change);
    LookupReply reply = pageReply();
    change(reply);
    QVERIFY(!LookupReply::decode(reply.encode(), page));
}

void LookupProtocolTest::whatDoesNotFitAnIconIsRefused_data()
{
    QTest::addColumn<Change>("change");
    const auto row = [](const char* name, Change change) { QTest::newRow(name) << std::move(change); };
    row("not found", [](LookupReply& reply) { reply.isFound = false; });
    row("title", [](LookupReply& reply) { reply.title = QStringLiteral("a"); });
    row("place", [](LookupReply& reply) { reply.places = pageReply().places; });
    row("none", [](LookupReply& reply) { reply.icon.clear(); });
    row("no image", [](LookupReply& reply) { reply.icon = "text"; });
    row("large image", [](LookupReply& reply) { reply.icon = png(LookupReply::largestIcon + 1); });
}

void LookupProtocolTest::whatDoesNotFitAnIconIsRefused()
{
    QFETCH(Change, change);
    LookupReply reply = iconReply();
    change(reply);
    QVERIFY(!LookupReply::decode(reply.encode(), icon));
}

void LookupProtocolTest::brokenRepliesAreRefused()
{
    const QByteArray good = pageReply().encode();
    for (qsizetype size = 0; size < good.size(); ++size)
        QVERIFY(!LookupReply::decode(good.first(size), page));
    QVERIFY(!LookupReply::decode(good + "x", page));
}

void LookupProtocolTest::theLargestReplyFits()
{
    LookupReply reply = pageReply();
    reply.title = QString(1000, QChar(0x4e2d));
    reply.places = QList<IconPlace>(LookupReply::mostPlaces, IconPlace{ {}, png(LookupReply::largestIcon) });
    QVERIFY(reply.encode().size() <= qsizetype(LookupReply::longest));
    QCOMPARE(LookupReply::decode(reply.encode(), page), reply);
}

QTEST_GUILESS_MAIN(LookupProtocolTest)
#include "LookupProtocolTest.moc"
