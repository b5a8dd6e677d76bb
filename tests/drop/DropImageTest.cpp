#include "DropImage.h"

#include "FakeDropPayload.h"

#include <QTest>

using namespace nookle;

class DropImageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aPngIsTakenBeforeATiffThatIsOfferedFirst();
    void theOrderOfPreferenceHolds();
    void theFirstFormatIsTakenWhereNoneIsPreferred();
    void aFormatThatDeliversNothingIsPassedOver();
    void bytesOfAnUnnamedKindAreAnImageIfTheyLookLikeOne();
    void aPageUnderTheNameOfAnImageIsNone();
    void whatIsNoImageByItsBytesIsNone_data();
    void whatIsNoImageByItsBytesIsNone();
    void everyKindOfImageIsOne_data();
    void everyKindOfImageIsOne();
    void aTypeOfNobodyGivesWayToThatOfTheBytes();
    void theBytesAreKeptAsDelivered();
    void theNameIsTheSources();
    void theNameMayBePromisedInUtf16();
    void theNameMayStandInTheFormat();
    void withoutANameWhatThePageSaysOfItIsTheName_data();
    void withoutANameWhatThePageSaysOfItIsTheName();
    void withoutANameTheTitleIsTheName();
    void aNameIsTakenBeforeADescription();
    void withoutAnImageNothingIsRead();
};

namespace {

const QByteArray png("\x89PNG\r\n\x1a\n and the rest of it");
const QByteArray tiff("II*\0 and the rest of it", 24);
const QByteArray gif("GIF89a and the rest of it");
const QByteArray desktopEntry("[Desktop Entry]\nType=Application\nName=Holiday\nExec=sh -c true\n");

[[nodiscard]] QString typeIn(const FakeDropPayload& payload)
{
    const auto image = loadDropImage(payload);
    return image ? image->type : QStringLiteral("none");
}

} // namespace

void DropImageTest::aPngIsTakenBeforeATiffThatIsOfferedFirst()
{
    FakeDropPayload payload;
    payload.offer("image/tiff", tiff).offer("image/png", png);
    QCOMPARE(loadDropImage(payload)->bytes, png);
    QCOMPARE(payload.read, QStringList{ QStringLiteral("image/png") });
}

void DropImageTest::theOrderOfPreferenceHolds()
{
    const QList<QByteArray> best{ "image/png", "image/jpeg", "image/gif", "image/heic", "image/webp", "image/bmp" };
    for (qsizetype left = 0; left < best.size(); ++left) {
        FakeDropPayload payload;
        for (qsizetype index = best.size() - 1; index >= left; --index)
            payload.offer(best[index].constData(), png);
        QCOMPARE(typeIn(payload), QString::fromLatin1(best[left]));
    }
}

void DropImageTest::theFirstFormatIsTakenWhereNoneIsPreferred()
{
    FakeDropPayload payload;
    payload.offer("text/plain", "words").offer("image/tiff", tiff).offer("image/bmp", png);
    QCOMPARE(typeIn(payload), QStringLiteral("image/tiff"));
}

void DropImageTest::aFormatThatDeliversNothingIsPassedOver()
{
    FakeDropPayload payload;
    payload.offer("image/png", "").offer("image/jpeg", desktopEntry).offer("image/gif", gif);
    QCOMPARE(typeIn(payload), QStringLiteral("image/gif"));
}

void DropImageTest::bytesOfAnUnnamedKindAreAnImageIfTheyLookLikeOne()
{
    QVERIFY(isImageFormat(QStringLiteral("application/octet-stream")));
    FakeDropPayload payload;
    payload.offer("application/octet-stream", png);
    QCOMPARE(typeIn(payload), QStringLiteral("image/png"));
}

void DropImageTest::aPageUnderTheNameOfAnImageIsNone()
{
    FakeDropPayload payload;
    payload.name = "picture.png";
    payload.offer("application/octet-stream;name=\"picture.png\"",
                  "<!DOCTYPE html><html><body>Not found</body></html>");
    QCOMPARE(typeIn(payload), QStringLiteral("none"));
}

void DropImageTest::whatIsNoImageByItsBytesIsNone_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("entry of the desktop") << desktopEntry;
    QTest::newRow("script") << QByteArray("#!/bin/sh\ntrue\n");
    QTest::newRow("page") << QByteArray("<!DOCTYPE html><html><body><svg></svg></body></html>");
    QTest::newRow("XML that is no drawing")
        << QByteArray("<?xml version=\"1.0\"?><!-- " + QByteArray(300, ' ') + " --><page><svg/></page>");
    QTest::newRow("words") << QByteArray("words");
    QTest::newRow("bytes of nobody") << QByteArray("\1\2\3\4\0\5", 6);
    QTest::newRow("film") << QByteArray("\0\0\0\x18"
                                        "ftypmp42",
                                        12);
}

void DropImageTest::whatIsNoImageByItsBytesIsNone()
{
    QFETCH(const QByteArray, bytes);
    for (const char* format : { "image/png", "image/svg+xml", "image/x-of-nobody", "application/octet-stream" }) {
        FakeDropPayload payload;
        payload.offer(format, bytes);
        QCOMPARE(typeIn(payload), QStringLiteral("none"));
    }
}

void DropImageTest::everyKindOfImageIsOne_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("bytes");
    const auto row = [](const char* type, const QByteArray& bytes) {
        QTest::newRow(type) << QByteArray(type) << bytes;
    };
    row("image/png", png);
    row("image/jpeg", "\xff\xd8\xff\xe0 and the rest of it");
    row("image/gif", gif);
    row("image/heic",
        QByteArray("\0\0\0\x18"
                   "ftypheic\0\0\0\0mif1heic",
                   24));
    row("image/avif",
        QByteArray("\0\0\0\x18"
                   "ftypavif\0\0\0\0mif1avif",
                   24));
    row("image/webp", QByteArray("RIFF\x24\0\0\0WEBPVP8 ", 16));
    row("image/tiff", tiff);
    row("image/bmp", QByteArray("BM\x46\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0", 18));
    row("image/vnd.microsoft.icon", QByteArray("\0\0\1\0\1\0\x10\x10\0\0\1\0\x20\0", 14));
    row("image/svg+xml", "<svg xmlns=\"http://www.w3.org/2000/svg\"/>");
    row("image/vnd.adobe.photoshop", QByteArray("8BPS\0\1\0\0\0\0\0\0", 12));
    row("image/jxl", QByteArray("\xff\x0a\xfa\x1f", 4));
    row("image/x-xpixmap", "/* XPM */\nstatic char* a[] = {};\n");
    row("image/x-portable-pixmap", "P6\n1 1\n255\nabc");
}

void DropImageTest::everyKindOfImageIsOne()
{
    QFETCH(const QByteArray, type);
    QFETCH(const QByteArray, bytes);
    FakeDropPayload payload;
    payload.offer(type.constData(), bytes);
    QCOMPARE(typeIn(payload), QString::fromLatin1(type));
}

void DropImageTest::aTypeOfNobodyGivesWayToThatOfTheBytes()
{
    FakeDropPayload payload;
    payload.offer("image/x-of-nobody", png);
    QCOMPARE(typeIn(payload), QStringLiteral("image/png"));
    FakeDropPayload drawing;
    drawing.offer("image/svg+xml", "<?xml version=\"1.0\"?><!-- " + QByteArray(300, ' ') + " --><svg/>");
    QCOMPARE(typeIn(drawing), QStringLiteral("image/svg+xml"));
}

void DropImageTest::theBytesAreKeptAsDelivered()
{
    FakeDropPayload payload;
    payload.offer("image/png", gif);
    QCOMPARE(loadDropImage(payload)->bytes, gif);
}

void DropImageTest::theNameIsTheSources()
{
    FakeDropPayload payload;
    payload.name = "\xc3\xbc.png";
    payload.offer("image/png", png).offer("application/x-moz-file-promise-dest-filename", "x");
    QCOMPARE(loadDropImage(payload)->suggestedName, QStringLiteral("ü.png"));
    payload.name = "\xfc.png";
    QCOMPARE(loadDropImage(payload)->suggestedName, QStringLiteral("ü.png"));
    // No byte-order mark: names are bytes.
    payload.name = "\xff\xfe.png";
    QCOMPARE(loadDropImage(payload)->suggestedName, QStringLiteral("ÿþ.png"));
    payload.name = QByteArray("holiday.desktop\0.png", 20);
    QCOMPARE(loadDropImage(payload)->suggestedName, QStringLiteral("holiday.desktop"));
}

void DropImageTest::theNameMayBePromisedInUtf16()
{
    const QString name = QStringLiteral("中.png");
    FakeDropPayload payload;
    payload.offer("image/png", png);
    payload.offer("application/x-moz-file-promise-dest-filename",
                  QByteArray(reinterpret_cast<const char*>(name.utf16()), name.size() * qsizetype{ 2 }));
    QCOMPARE(loadDropImage(payload)->suggestedName, name);
}

void DropImageTest::theNameMayStandInTheFormat()
{
    FakeDropPayload payload;
    payload.offer("application/octet-stream;name=\"a b.png\"", png);
    QCOMPARE(loadDropImage(payload)->suggestedName, QStringLiteral("a b.png"));
    FakeDropPayload unnamed;
    unnamed.offer("image/png", png);
    QCOMPARE(loadDropImage(unnamed)->suggestedName, QString());
}

void DropImageTest::withoutANameWhatThePageSaysOfItIsTheName_data()
{
    QTest::addColumn<QByteArray>("page");
    QTest::addColumn<QString>("name");
    QTest::newRow("double quotes") << QByteArray("<meta charset=utf-8><img src=\"a.png\" alt=\"A red fox\">")
                                   << QStringLiteral("A red fox");
    QTest::newRow("single quotes") << QByteArray("<IMG ALT='A red fox' src='a'>") << QStringLiteral("A red fox");
    QTest::newRow("entities") << QByteArray("<img alt=\"Fish &amp; chips &lt;3 &quot;x&quot;\">")
                              << QStringLiteral("Fish & chips <3 \"x\"");
    QTest::newRow("a space that does not break")
        << QByteArray("<img alt=\"A&nbsp;red&#160;fox&#xA0;runs\">") << QStringLiteral("A red fox runs");
    QTest::newRow("numbers") << QByteArray("<img alt=\"Caf&#233; &#x1F98A; &#39;x&#X27;\">")
                             << QStringLiteral("Café 🦊 'x'");
    QTest::newRow("no entities after all")
        << QByteArray("<img alt=\"AT&T &amp;lt; &such; &#;&#xg;\">") << QStringLiteral("AT&T &lt; &such; &#;&#xg;");
    QTest::newRow("numbers of no character") << QByteArray("<img alt=\"a&#0;b&#xD800;c&#1114112;d&#99999999999;\">")
                                             << QStringLiteral("a\uFFFDb\uFFFDc\uFFFDd\uFFFD");
    QTest::newRow("several lines") << QByteArray("<img alt=\" A\n red  fox \">") << QStringLiteral("A red fox");
    QTest::newRow("a > in another attribute")
        << QByteArray("<img title=\"a > b\" alt=\"A red fox\">") << QStringLiteral("A red fox");
    QTest::newRow("alt inside another attribute") << QByteArray("<img title=\"x alt='no'\">") << QString();
    QTest::newRow("no alt") << QByteArray("<img src=a><p alt=\"no\">") << QString();
    QTest::newRow("empty alt") << QByteArray("<img alt=\"\">") << QString();
    QTest::newRow("no image") << QByteArray("<p>words</p>") << QString();
    QTest::newRow("a broken tag") << QByteArray("<img alt=\"never closed") << QString();
    QTest::newRow("UTF-8") << QByteArray("<img alt=\"Füchse\">") << QStringLiteral("Füchse");
    QTest::newRow("long") << QByteArray("<img alt=\"" + QByteArray(500, 'x') + "\">") << QString(80, QLatin1Char('x'));
    QTest::newRow("many tags") << QByteArray("<img x='").repeated(100'000) << QString();
}

void DropImageTest::withoutANameWhatThePageSaysOfItIsTheName()
{
    QFETCH(const QByteArray, page);
    QFETCH(const QString, name);
    FakeDropPayload payload;
    payload.offer("text/html", page).offer("image/png", png);
    QCOMPARE(loadDropImage(payload)->suggestedName, name);
}

void DropImageTest::withoutANameTheTitleIsTheName()
{
    FakeDropPayload payload;
    payload.offer("_NETSCAPE_URL", "https://example.com/a.png\nA red fox").offer("image/png", png);
    QCOMPARE(loadDropImage(payload)->suggestedName, QStringLiteral("A red fox"));
    FakeDropPayload untitled;
    untitled.offer("_NETSCAPE_URL", "https://example.com/a.png\nhttps://example.com/").offer("image/png", png);
    QCOMPARE(loadDropImage(untitled)->suggestedName, QString());
}

void DropImageTest::aNameIsTakenBeforeADescription()
{
    FakeDropPayload payload;
    payload.name = "fox.png";
    payload.offer("text/html", "<img alt=\"A red fox\">").offer("image/png", png);
    QCOMPARE(loadDropImage(payload)->suggestedName, QStringLiteral("fox.png"));
    QVERIFY(!payload.read.contains(QStringLiteral("text/html")));
}

void DropImageTest::withoutAnImageNothingIsRead()
{
    FakeDropPayload payload;
    payload.offer("text/plain", "words").offer("text/uri-list", "https://example.com/a.png");
    QCOMPARE(typeIn(payload), QStringLiteral("none"));
    QVERIFY(payload.read.isEmpty());
    QVERIFY(!isImageFormat(QStringLiteral("text/plain")));
}

QTEST_GUILESS_MAIN(DropImageTest)
#include "DropImageTest.moc"
