#include "DropCapture.h"

#include "FakeDropPayload.h"
#include "MimeDropPayload.h"

#include <QFile>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>

using namespace nookle;

namespace {

constexpr auto png = "\x89PNG\r\n\x1a\n";

} // namespace

class DropCaptureTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eachAddressIsOneElementInTheSourcesOrder();
    void anAddressOfAFileIsAFileAndAnyOtherIsALink();
    void aFileThatOffersItsPictureTooIsAFile();
    void anImageOutOfAPageIsAnImageWithItsAddress();
    void anImageWithoutAnAddressIsAnImage();
    void severalAddressesShareNoImage();
    void noTitleIsReadForAnImageOrAFile();
    void aLinkHasItsTitle();
    void aTitleBelongsToASingleLinkOnly();
    void anImageThatIsNotDeliveredLeavesTheLink();
    void whatIsNoImageByItsBytesLeavesTheLinkOrTheText();
    void textWithoutAddressesIsOneText();
    void anEmptyAddressListFallsThroughToTheText();
    void wordsInTheAddressListAreTheTextBesideIt();
    void theTransferKeyEndsAtItsNul();
    void aTransferNeedsNoNamesOfTheSources();
    void onlyWhatMayBeReadIsExpected();
    void ofThousandsOfFormatsAFewAreRead_data();
    void ofThousandsOfFormatsAFewAreRead();
    void aFileAmongThousandsOfFormatsIsTaken();
    void longNamesOfFormatsAreNeverRead();
    void nothingUsableIsNoElement();
    void whatIsOfferedIsToldWithoutReading();
    void theToolkitsDataIsReadAsItIs();
    void whatCanBeTakenIsKnownWhileItHovers_data();
    void whatCanBeTakenIsKnownWhileItHovers();
    void onlyWhatHasNoNameIsReadWhileItHovers();
};

void DropCaptureTest::eachAddressIsOneElementInTheSourcesOrder()
{
    FakeDropPayload payload;
    payload.offer("text/uri-list", "file:///b\r\nhttps://example.com/\r\nfile:///a\r\n");
    const auto items = captureDrop(payload).items;
    QCOMPARE(items.size(), std::size_t{ 3 });
    QCOMPARE(items[0].address->url, QStringLiteral("file:///b"));
    QCOMPARE(items[1].address->url, QStringLiteral("https://example.com/"));
    QCOMPARE(items[2].address->url, QStringLiteral("file:///a"));
}

void DropCaptureTest::anAddressOfAFileIsAFileAndAnyOtherIsALink()
{
    FakeDropPayload payload;
    payload.offer("text/uri-list", "file:///a\r\nftp://example.com/b\r\n");
    const auto items = captureDrop(payload).items;
    QVERIFY(items[0].hasFileURL());
    QVERIFY(!items[1].hasFileURL());
    QVERIFY(items[1].address);
    QVERIFY(!items[1].text);
}

void DropCaptureTest::aFileThatOffersItsPictureTooIsAFile()
{
    FakeDropPayload payload;
    payload.offer("image/png", "png").offer("text/uri-list", "file:///a.png");
    const auto items = captureDrop(payload).items;
    QCOMPARE(items.size(), std::size_t{ 1 });
    QVERIFY(items[0].hasFileURL());
    QVERIFY(!items[0].image);
}

void DropCaptureTest::anImageOutOfAPageIsAnImageWithItsAddress()
{
    const QTemporaryDir temporary;
    qputenv("TMPDIR", temporary.path().toUtf8());
    FakeDropPayload payload;
    payload.name = "cat.png";
    payload.offer("text/uri-list", "https://example.com/cat").offer("application/octet-stream", "\x89PNG\r\n\x1a\n");
    const auto items = captureDrop(payload).items;
    QCOMPARE(items.size(), std::size_t{ 1 });
    QVERIFY(items[0].image);
    QVERIFY(!items[0].hasFileURL());
    QCOMPARE(items[0].address->url, QStringLiteral("https://example.com/cat"));
    const auto copy = writeImageCopy(*items[0].image);
    QVERIFY(copy);
    QCOMPARE(copy->fileName(), QStringLiteral("cat.png"));
    QFile file(copy->toLocalFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("\x89PNG\r\n\x1a\n"));
}

void DropCaptureTest::anImageWithoutAnAddressIsAnImage()
{
    FakeDropPayload payload;
    payload.offer("image/png", png).offer("text/plain", "words");
    const auto items = captureDrop(payload).items;
    QCOMPARE(items.size(), std::size_t{ 1 });
    QVERIFY(items[0].image);
    QVERIFY(!items[0].address);
}

void DropCaptureTest::severalAddressesShareNoImage()
{
    FakeDropPayload payload;
    payload.offer("text/uri-list", "https://example.com/1\nhttps://example.com/2").offer("image/png", "png");
    const auto items = captureDrop(payload).items;
    QCOMPARE(items.size(), std::size_t{ 2 });
    QVERIFY(!items[0].image && !items[1].image);
}

void DropCaptureTest::noTitleIsReadForAnImageOrAFile()
{
    FakeDropPayload image;
    image.offer("text/uri-list", "https://example.com/a.png").offer("_NETSCAPE_URL", "x\nTitle");
    image.offer("image/png", png);
    image.name = "a.png";
    QVERIFY(!captureDrop(image).items[0].address->title);
    QVERIFY(!image.read.contains(QStringLiteral("_NETSCAPE_URL")));
    FakeDropPayload file;
    file.offer("text/uri-list", "file:///a").offer("_NETSCAPE_URL", "file:///a\nTitle");
    QVERIFY(!captureDrop(file).items[0].address->title);
    QVERIFY(!file.read.contains(QStringLiteral("_NETSCAPE_URL")));
}

void DropCaptureTest::aLinkHasItsTitle()
{
    FakeDropPayload payload;
    payload.offer("text/uri-list", "https://example.com/").offer("_NETSCAPE_URL", "https://example.com/\n Title ");
    QCOMPARE(captureDrop(payload).items[0].address->title, QStringLiteral("Title"));
}

void DropCaptureTest::aTitleBelongsToASingleLinkOnly()
{
    FakeDropPayload payload;
    payload.offer("text/uri-list", "https://example.com/\r\nhttps://example.org/\r\n");
    payload.offer("_NETSCAPE_URL", "https://example.com/\nTitle");
    for (const auto& item : captureDrop(payload).items)
        QVERIFY(!item.address->title);
}

void DropCaptureTest::anImageThatIsNotDeliveredLeavesTheLink()
{
    FakeDropPayload payload;
    payload.offer("text/uri-list", "https://example.com/a.png").offer("image/png", "").offer("image/jpeg", "");
    const auto items = captureDrop(payload).items;
    QVERIFY(!items[0].image);
    QVERIFY(items[0].address);
}

void DropCaptureTest::whatIsNoImageByItsBytesLeavesTheLinkOrTheText()
{
    FakeDropPayload link;
    link.offer("text/uri-list", "https://example.com/a.png").offer("image/png", "[Desktop Entry]\n");
    auto items = captureDrop(link).items;
    QVERIFY(!items[0].image);
    QVERIFY(items[0].address);
    FakeDropPayload text;
    text.offer("image/x-of-nobody", "bytes").offer("text/plain", "words");
    items = captureDrop(text).items;
    QVERIFY(!items[0].image);
    QCOMPARE(items[0].text, QStringLiteral("words"));
}

void DropCaptureTest::textWithoutAddressesIsOneText()
{
    FakeDropPayload payload;
    payload.offer("text/html", "<b>words").offer("text/plain", " words ");
    const auto items = captureDrop(payload).items;
    QCOMPARE(items.size(), std::size_t{ 1 });
    QVERIFY(items[0].text);
    QVERIFY(!items[0].address);
    QCOMPARE(items[0].text, QStringLiteral(" words "));
}

void DropCaptureTest::anEmptyAddressListFallsThroughToTheText()
{
    FakeDropPayload payload;
    payload.offer("text/uri-list", "").offer("text/plain", "words");
    QCOMPARE(captureDrop(payload).items[0].text, QStringLiteral("words"));
}

void DropCaptureTest::wordsInTheAddressListAreTheTextBesideIt()
{
    FakeDropPayload payload;
    payload.offer("text/uri-list", "just words").offer("text/plain", "just words");
    QCOMPARE(captureDrop(payload).items[0].text, QStringLiteral("just words"));
}

void DropCaptureTest::theTransferKeyEndsAtItsNul()
{
    FakeDropPayload payload;
    payload.offer("application/vnd.portal.filetransfer", QByteArray("1234\0", 5));
    payload.offer("text/uri-list", "file:///run/flatpak/doc/a");
    const CapturedDrop drop = captureDrop(payload);
    QCOMPARE(drop.transferKey, QByteArray("1234"));
    QCOMPARE(drop.items.size(), std::size_t{ 1 });
}

void DropCaptureTest::aTransferNeedsNoNamesOfTheSources()
{
    FakeDropPayload payload;
    payload.offer("application/vnd.portal.files", "1234").offer("text/plain", "/a\n/b");
    QVERIFY(offersDropItems(payload));
    const CapturedDrop drop = captureDrop(payload);
    QCOMPARE(drop.transferKey, QByteArray("1234"));
    QVERIFY(drop.items.empty());
}

void DropCaptureTest::onlyWhatMayBeReadIsExpected()
{
    FakeDropPayload payload;
    payload.offer("text/uri-list", "https://example.com/cat")
        .offer("", "words")
        .offer("image/bmp", "")
        .offer("image/jpeg", "")
        .offer("image/png", png)
        .offer("application/octet-stream", png)
        .offer("text/html", "<img alt=\"A cat\">")
        .offer("STRING", "words")
        .offer("UTF8_STRING", "words")
        .offer("application/x-anything", "words");
    static_cast<void>(captureDrop(payload));
    const QStringList expected{ QStringLiteral("text/uri-list"), QStringLiteral("image/jpeg"),
                                QStringLiteral("image/png"),     QStringLiteral("application/octet-stream"),
                                QStringLiteral("text/html"),     QStringLiteral("UTF8_STRING") };
    QCOMPARE(payload.expected, expected);
    for (const QString& format : std::as_const(payload.read))
        QVERIFY2(expected.contains(format), qPrintable(format));
}

void DropCaptureTest::ofThousandsOfFormatsAFewAreRead_data()
{
    QTest::addColumn<QByteArray>("type");
    for (const char* type : { "text/html", "text/plain", "application/octet-stream", "image/png", "text/uri-list" })
        QTest::newRow(type) << QByteArray(type);
}

void DropCaptureTest::ofThousandsOfFormatsAFewAreRead()
{
    QFETCH(const QByteArray, type);
    constexpr int thousands = 4000;
    constexpr int few = 20;
    FakeDropPayload payload;
    for (int number = 0; number < thousands; ++number)
        payload.offer(type + ";x=" + QByteArray::number(number), {});
    static_cast<void>(offersDropItems(payload));
    QVERIFY(payload.read.isEmpty());
    static_cast<void>(canTakeDrop(payload));
    static_cast<void>(captureDrop(payload));
    QVERIFY2(payload.read.size() <= few, qPrintable(QString::number(payload.read.size())));
    QVERIFY2(payload.expected.size() <= few, qPrintable(QString::number(payload.expected.size())));
}

void DropCaptureTest::aFileAmongThousandsOfFormatsIsTaken()
{
    constexpr int thousands = 4000;
    FakeDropPayload payload;
    for (int number = 0; number < thousands; ++number)
        payload.offer("text/html;x=" + QByteArray::number(number), "page");
    payload.offer("text/uri-list", "file:///a");
    const auto items = captureDrop(payload).items;
    QCOMPARE(items.size(), std::size_t{ 1 });
    QVERIFY(items[0].hasFileURL());
    QVERIFY(payload.expected.contains(QStringLiteral("text/uri-list")));
}

void DropCaptureTest::longNamesOfFormatsAreNeverRead()
{
    const QByteArray longName = "text/plain;x=" + QByteArray(4000, 'a');
    FakeDropPayload payload;
    payload.offer(longName, "long").offer("text/plain", "short");
    const auto items = captureDrop(payload).items;
    QCOMPARE(items.size(), std::size_t{ 1 });
    QCOMPARE(items[0].text, QStringLiteral("short"));
    QVERIFY(!payload.expected.contains(QString::fromLatin1(longName)));
    QVERIFY(!payload.read.contains(QString::fromLatin1(longName)));
}

void DropCaptureTest::nothingUsableIsNoElement()
{
    FakeDropPayload payload;
    payload.offer("application/x-unknown", "bytes").offer("text/html", "<b>");
    QVERIFY(!offersDropItems(payload));
    QVERIFY(captureDrop(payload).items.empty());
}

void DropCaptureTest::whatIsOfferedIsToldWithoutReading()
{
    for (const char* format :
         { "text/uri-list", "_NETSCAPE_URL", "text/x-moz-url", "image/tiff", "text/plain", "text/plain;charset=utf-8",
           "UTF8_STRING", "application/octet-stream", "application/vnd.portal.filetransfer" }) {
        FakeDropPayload payload;
        payload.offer("application/x-unknown", "bytes").offer(format, "bytes");
        QVERIFY2(offersDropItems(payload), format);
        QVERIFY(payload.read.isEmpty());
    }
}

void DropCaptureTest::theToolkitsDataIsReadAsItIs()
{
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"), "file:///%FF\r\n");
    const MimeDropPayload payload(data);
    QCOMPARE(captureDrop(payload).items[0].address->url, QStringLiteral("file:///%FF"));
    QVERIFY(payload.suggestedName().isEmpty());
}

void DropCaptureTest::whatCanBeTakenIsKnownWhileItHovers_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("canTake");
    QTest::newRow("a file") << QByteArray("text/uri-list") << QByteArray("file:///a\r\n") << true;
    QTest::newRow("a page") << QByteArray("_NETSCAPE_URL") << QByteArray("https://example.com/\nTitle") << true;
    QTest::newRow("a text") << QByteArray("text/plain") << QByteArray("words") << true;
    QTest::newRow("an image under no name") << QByteArray("application/octet-stream") << QByteArray(png) << true;
    QTest::newRow("not delivered yet") << QByteArray("application/octet-stream") << QByteArray() << true;
    QTest::newRow("bytes of no image") << QByteArray("application/octet-stream") << QByteArray("bytes") << false;
    QTest::newRow("nothing known") << QByteArray("text/html") << QByteArray("<b>words</b>") << false;
}

void DropCaptureTest::whatCanBeTakenIsKnownWhileItHovers()
{
    QFETCH(const QByteArray, format);
    QFETCH(const QByteArray, bytes);
    QFETCH(const bool, canTake);
    FakeDropPayload payload;
    payload.offer(format.constData(), bytes);
    QCOMPARE(canTakeDrop(payload), canTake);
}

void DropCaptureTest::onlyWhatHasNoNameIsReadWhileItHovers()
{
    for (const char* format : { "image/png", "application/vnd.portal.filetransfer", "text/uri-list", "text/plain" }) {
        FakeDropPayload payload;
        payload.offer("application/octet-stream", "bytes").offer(format, "bytes");
        QVERIFY(canTakeDrop(payload));
        QVERIFY(payload.read.isEmpty());
    }
}

QTEST_GUILESS_MAIN(DropCaptureTest)
#include "DropCaptureTest.moc"
