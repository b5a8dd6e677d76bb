#include "MimeDropItem.h"

#include <QMimeData>
#include <QtTest>

using namespace nookle;

class MimeDropItemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eachAddressOfAListIsOneElementInItsOrder();
    void aListMayBeSeparatedByBareLineFeeds();
    void commentsAndEmptyLinesAreNoElements();
    void anAddressOfAFileIsAFileAndAnyOtherIsALink();
    void bytesThatAreNotUtf8StayPercentEncoded();
    void theTitleOfALinkIsTheSecondLineOfItsType();
    void theTitleMayComeAsUtf16WithoutAMark();
    void aTitleOfWhiteSpaceIsNoTitle();
    void aTitleBelongsToASingleLinkOnly();
    void textWithoutAddressesIsOneText();
    void anEmptyAddressListFallsThroughToTheText();
    void textInUtf8IsPreferred();
    void nothingUsableIsNoElement();
    void addressesAndTextAreOffered();
};

namespace {

void setData(QMimeData& data, const char* type, const QByteArray& bytes)
{
    data.setData(QLatin1String(type), bytes);
}

} // namespace

void MimeDropItemTest::eachAddressOfAListIsOneElementInItsOrder()
{
    QMimeData data;
    setData(data, "text/uri-list", "file:///b\r\nhttps://example.com/\r\nfile:///a\r\n");
    const auto items = dropItems(data);
    QCOMPARE(items.size(), std::size_t{ 3 });
    QCOMPARE(items[0]->loadURL(), QStringLiteral("file:///b"));
    QCOMPARE(items[1]->loadURL(), QStringLiteral("https://example.com/"));
    QCOMPARE(items[2]->loadURL(), QStringLiteral("file:///a"));
}

void MimeDropItemTest::aListMayBeSeparatedByBareLineFeeds()
{
    QMimeData data;
    setData(data, "text/uri-list", "file:///a\nfile:///b");
    QCOMPARE(dropItems(data).size(), std::size_t{ 2 });
}

void MimeDropItemTest::commentsAndEmptyLinesAreNoElements()
{
    QMimeData data;
    setData(data, "text/uri-list", "# a comment\r\n\r\nfile:///a\r\n\r\n");
    const auto items = dropItems(data);
    QCOMPARE(items.size(), std::size_t{ 1 });
    QCOMPARE(items[0]->loadURL(), QStringLiteral("file:///a"));
}

void MimeDropItemTest::anAddressOfAFileIsAFileAndAnyOtherIsALink()
{
    QMimeData data;
    setData(data, "text/uri-list", "file:///a\r\nftp://example.com/b\r\n");
    const auto items = dropItems(data);
    QVERIFY(items[0]->hasFileURL());
    QVERIFY(!items[1]->hasFileURL());
    QVERIFY(items[1]->hasURL());
    QVERIFY(!items[1]->hasText());
}

void MimeDropItemTest::bytesThatAreNotUtf8StayPercentEncoded()
{
    QMimeData data;
    setData(data, "text/uri-list", "file:///%FF%20%25.txt\r\n");
    QCOMPARE(dropItems(data).front()->loadURL(), QStringLiteral("file:///%FF%20%25.txt"));
}

void MimeDropItemTest::theTitleOfALinkIsTheSecondLineOfItsType()
{
    QMimeData data;
    setData(data, "text/uri-list", "https://example.com/\r\n");
    setData(data, "_NETSCAPE_URL", "https://example.com/\n  An exämple \n");
    QCOMPARE(dropItems(data).front()->loadURLTitle(), QStringLiteral("An exämple"));
}

void MimeDropItemTest::theTitleMayComeAsUtf16WithoutAMark()
{
    QMimeData data;
    setData(data, "text/uri-list", "https://example.com/\r\n");
    const QString title = QStringLiteral("Überschrift");
    setData(data, "text/x-moz-url-desc",
            QByteArray(reinterpret_cast<const char*>(title.utf16()), title.size() * qsizetype{ sizeof(char16_t) }));
    QCOMPARE(dropItems(data).front()->loadURLTitle(), title);
}

void MimeDropItemTest::aTitleOfWhiteSpaceIsNoTitle()
{
    QMimeData data;
    setData(data, "text/uri-list", "https://example.com/\r\n");
    setData(data, "_NETSCAPE_URL", "https://example.com/\n \t ");
    QVERIFY(!dropItems(data).front()->loadURLTitle());
}

void MimeDropItemTest::aTitleBelongsToASingleLinkOnly()
{
    QMimeData data;
    setData(data, "text/uri-list", "https://example.com/\r\nhttps://example.org/\r\n");
    setData(data, "_NETSCAPE_URL", "https://example.com/\nTitle");
    for (const auto& item : dropItems(data))
        QVERIFY(!item->loadURLTitle());
}

void MimeDropItemTest::textWithoutAddressesIsOneText()
{
    QMimeData data;
    data.setText(QStringLiteral("  two\nlines "));
    const auto items = dropItems(data);
    QCOMPARE(items.size(), std::size_t{ 1 });
    QVERIFY(items[0]->hasText());
    QVERIFY(!items[0]->hasURL());
    QCOMPARE(items[0]->loadText(), QStringLiteral("  two\nlines "));
}

void MimeDropItemTest::anEmptyAddressListFallsThroughToTheText()
{
    QMimeData data;
    setData(data, "text/uri-list", "");
    setData(data, "text/plain", "words");
    const auto items = dropItems(data);
    QCOMPARE(items.size(), std::size_t{ 1 });
    QCOMPARE(items[0]->loadText(), QStringLiteral("words"));
}

void MimeDropItemTest::textInUtf8IsPreferred()
{
    QMimeData data;
    setData(data, "text/plain", "plain");
    setData(data, "text/plain;charset=utf-8", "gr\xc3\xbc\xc3\x9f");
    QCOMPARE(dropItems(data).front()->loadText(), QStringLiteral("grüß"));
}

void MimeDropItemTest::nothingUsableIsNoElement()
{
    QMimeData data;
    setData(data, "application/x-unknown", "bytes");
    QVERIFY(dropItems(data).empty());
    QVERIFY(!offersDropItems(data));
}

void MimeDropItemTest::addressesAndTextAreOffered()
{
    QMimeData addresses;
    setData(addresses, "text/uri-list", "file:///a");
    QVERIFY(offersDropItems(addresses));
    QMimeData text;
    text.setText(QStringLiteral("words"));
    QVERIFY(offersDropItems(text));
}

QTEST_GUILESS_MAIN(MimeDropItemTest)
#include "MimeDropItemTest.moc"
