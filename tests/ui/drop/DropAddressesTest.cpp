#include "DropAddresses.h"

#include "FakeDropPayload.h"

#include <QSysInfo>
#include <QTest>

using namespace nookle;

namespace {

[[nodiscard]] QStringList urls(const FakeDropPayload& payload)
{
    QStringList found;
    for (const DroppedAddress& address : loadDropAddresses(payload))
        found.append(address.url);
    return found;
}

[[nodiscard]] QByteArray utf16(const QString& text)
{
    return { reinterpret_cast<const char*>(text.utf16()), text.size() * qsizetype{ sizeof(char16_t) } };
}

const QString page = QStringLiteral("https://example.com/");

} // namespace

class DropAddressesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eachLineIsAnAddressInItsOrder();
    void aListMayBeSeparatedByBareLineFeedsAndEndWithANul();
    void commentsEmptyLinesAndPlainWordsAreNoAddresses();
    void onlyTheFileSchemeIsAFile();
    void bytesThatAreNotUtf8StayPercentEncoded();
    void whatTheSourceDidNotEncodeIsEncoded();
    void theNameOfThisMachineIsLeftOutAndThatOfAnotherStays();
    void aTypeWithAddressAndTitleStandsInForAMissingList();
    void theTitleIsTheSecondLineOfTheTypeThatHoldsBoth();
    void theTitleMayComeAloneInUtf16();
    void aTitleWithoutLatinLettersIsUtf16AllTheSame();
    void aTitleOfSpacesAndNewlinesIsNone();
    void whiteSpaceAroundATitleIsCutOff();
    void theAddressRepeatedIsNoTitle();
    void withoutATypeForTitlesNothingIsRead();
    void aHundredThousandAddressesAreAllThere();
};

void DropAddressesTest::eachLineIsAnAddressInItsOrder()
{
    FakeDropPayload payload;
    payload.offer("text/uri-list", "file:///b\r\nhttps://example.com/\r\nfile:///a\r\n");
    QCOMPARE(urls(payload), QStringList({ QStringLiteral("file:///b"), page, QStringLiteral("file:///a") }));
}

void DropAddressesTest::aListMayBeSeparatedByBareLineFeedsAndEndWithANul()
{
    FakeDropPayload payload;
    payload.offer("text/uri-list", QByteArray("file:///a\nfile:///b\0", 20));
    QCOMPARE(urls(payload), QStringList({ QStringLiteral("file:///a"), QStringLiteral("file:///b") }));
}

void DropAddressesTest::commentsEmptyLinesAndPlainWordsAreNoAddresses()
{
    FakeDropPayload payload;
    payload.offer("text/uri-list", "# a: comment\r\n\r\nplain words\r\n: \r\nfile:///a\r\n\r\n");
    QCOMPARE(urls(payload), QStringList{ QStringLiteral("file:///a") });
}

void DropAddressesTest::onlyTheFileSchemeIsAFile()
{
    QVERIFY((DroppedAddress{ QStringLiteral("file:///a"), {} }).isFile());
    QVERIFY((DroppedAddress{ QStringLiteral("FILE:///a"), {} }).isFile());
    QVERIFY(!(DroppedAddress{ QStringLiteral("ftp://example.com/a"), {} }).isFile());
}

void DropAddressesTest::bytesThatAreNotUtf8StayPercentEncoded()
{
    FakeDropPayload payload;
    payload.offer("text/uri-list", "file:///%FF%20%25%0A.txt\r\n");
    QCOMPARE(urls(payload), QStringList{ QStringLiteral("file:///%FF%20%25%0A.txt") });
}

void DropAddressesTest::whatTheSourceDidNotEncodeIsEncoded()
{
    FakeDropPayload payload;
    payload.offer("text/uri-list", "file:///a b\xff\xc3\xbc[1].txt\r\n");
    QCOMPARE(urls(payload), QStringList{ QStringLiteral("file:///a%20b%FF%C3%BC[1].txt") });
}

void DropAddressesTest::theNameOfThisMachineIsLeftOutAndThatOfAnotherStays()
{
    FakeDropPayload payload;
    payload.offer("text/uri-list",
                  "file://" + QSysInfo::machineHostName().toUtf8() + "/a\r\nfile://of-nobody.example/a\r\n");
    QCOMPARE(urls(payload), QStringList({ QStringLiteral("file:///a"), QStringLiteral("file://of-nobody.example/a") }));
}

void DropAddressesTest::aTypeWithAddressAndTitleStandsInForAMissingList()
{
    FakeDropPayload netscape;
    netscape.offer("text/uri-list", "").offer("_NETSCAPE_URL", "https://example.com/\nTitle");
    QCOMPARE(urls(netscape), QStringList{ page });
    FakeDropPayload mozilla;
    mozilla.offer("text/x-moz-url", utf16(page + QStringLiteral("\nTitle")));
    QCOMPARE(urls(mozilla), QStringList{ page });
    FakeDropPayload utf8;
    utf8.offer("text/x-moz-url", page.toUtf8());
    QCOMPARE(urls(utf8), QStringList{ page });
}

void DropAddressesTest::theTitleIsTheSecondLineOfTheTypeThatHoldsBoth()
{
    FakeDropPayload netscape;
    netscape.offer("_NETSCAPE_URL", "https://example.com/\nAn ex\xc3\xa4mple");
    QCOMPARE(loadDropTitle(netscape, page), QStringLiteral("An exämple"));
    FakeDropPayload mozilla;
    mozilla.offer("text/x-moz-url", utf16(page + QStringLiteral("\nAn exämple")));
    QCOMPARE(loadDropTitle(mozilla, page), QStringLiteral("An exämple"));
}

void DropAddressesTest::theTitleMayComeAloneInUtf16()
{
    FakeDropPayload payload;
    payload.offer("text/x-moz-url-desc", utf16(QStringLiteral("Überschrift")));
    QCOMPARE(loadDropTitle(payload, page), QStringLiteral("Überschrift"));
}

void DropAddressesTest::aTitleWithoutLatinLettersIsUtf16AllTheSame()
{
    FakeDropPayload payload;
    payload.offer("text/x-moz-url-desc", utf16(QStringLiteral("中中")));
    QCOMPARE(loadDropTitle(payload, page), QStringLiteral("中中"));
}

void DropAddressesTest::aTitleOfSpacesAndNewlinesIsNone()
{
    FakeDropPayload payload;
    payload.offer("_NETSCAPE_URL", "https://example.com/\n \t \n");
    payload.offer("text/x-moz-url-desc", utf16(QStringLiteral(" \n ")));
    QVERIFY(!loadDropTitle(payload, page));
}

void DropAddressesTest::whiteSpaceAroundATitleIsCutOff()
{
    FakeDropPayload payload;
    payload.offer("_NETSCAPE_URL", "https://example.com/\n  A title \t\r\n");
    QCOMPARE(loadDropTitle(payload, page), QStringLiteral("A title"));
}

void DropAddressesTest::theAddressRepeatedIsNoTitle()
{
    FakeDropPayload payload;
    payload.offer("_NETSCAPE_URL", "https://example.com/\nhttps://example.com/");
    QVERIFY(!loadDropTitle(payload, page));
}

void DropAddressesTest::withoutATypeForTitlesNothingIsRead()
{
    FakeDropPayload payload;
    payload.offer("text/uri-list", "https://example.com/");
    QVERIFY(!loadDropTitle(payload, page));
    QVERIFY(payload.read.isEmpty());
}

void DropAddressesTest::aHundredThousandAddressesAreAllThere()
{
    FakeDropPayload payload;
    payload.offer("text/uri-list", QByteArray("file:///a\r\n").repeated(100'000));
    QCOMPARE(urls(payload).size(), 100'000);
}

QTEST_GUILESS_MAIN(DropAddressesTest)
#include "DropAddressesTest.moc"
