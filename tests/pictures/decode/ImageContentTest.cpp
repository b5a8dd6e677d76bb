#include "ImageContent.h"

#include "CleanedSvg.h"

#include <QTest>

using namespace nookle;

class ImageContentTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void formatShowsInTheFirstBytes_data();
    void formatShowsInTheFirstBytes();
    void xmlShowsInItsFirstCharacter();
    void cleanedDrawingKeepsWhatItHolds();
    void cleanedDrawingLosesWhatReachesBeyondIt_data();
    void cleanedDrawingLosesWhatReachesBeyondIt();
};

void ImageContentTest::formatShowsInTheFirstBytes_data()
{
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<QByteArray>("format");
    QTest::newRow("empty") << QByteArray() << QByteArray();
    QTest::newRow("PNG") << QByteArray("\x89PNG\r\n\x1a\nrest") << QByteArray("png");
    QTest::newRow("less than a PNG") << QByteArray("\x89PNG\r\n\x1a") << QByteArray();
    QTest::newRow("WebP") << QByteArray("RIFF\x10\0\0\0WEBPVP8L", 16) << QByteArray("webp");
    QTest::newRow("sound") << QByteArray("RIFF\x10\0\0\0WAVEfmt ", 16) << QByteArray();
    QTest::newRow("less than a WebP") << QByteArray("RIFF") << QByteArray();
    QTest::newRow("bitmap") << QByteArray("BM\x10\x20\x30\x40\0\0\0\0\x36", 11) << QByteArray("bmp");
    QTest::newRow("text like a bitmap") << QByteArray("BMW is a maker of cars") << QByteArray();
    QTest::newRow("icon") << QByteArray("\0\0\1\0\2\0", 6) << QByteArray("ico");
    QTest::newRow("film like an icon") << QByteArray("\0\0\1\xba\x44\x00", 6) << QByteArray();
    QTest::newRow("page") << QByteArray("<html>") << QByteArray();
    QTest::newRow("drawing") << QByteArray("<svg/>") << QByteArray();
}

void ImageContentTest::formatShowsInTheFirstBytes()
{
    QFETCH(const QByteArray, start);
    QFETCH(const QByteArray, format);
    QCOMPARE(pixelFormat(start), format);
}

void ImageContentTest::xmlShowsInItsFirstCharacter()
{
    QVERIFY(looksLikeXml("<svg/>"));
    QVERIFY(looksLikeXml("\xef\xbb\xbf\r\n\t <?xml?>"));
    QVERIFY(!looksLikeXml("a<svg/>"));
    QVERIFY(!looksLikeXml(""));
}

void ImageContentTest::cleanedDrawingKeepsWhatItHolds()
{
    const QByteArray drawing = "<s:svg xmlns:s=\"http://www.w3.org/2000/svg\" xmlns:x=\"http://www.w3.org/1999/xlink\">"
                               "<s:style>a &lt; b</s:style><s:use x:href=\"#a\"/><s:g fill=\"url(#b)\"/></s:svg>";
    const auto cleaned = cleanedSvg("<?xml version=\"1.0\"?><!DOCTYPE svg><!-- A comment -->" + drawing);
    QVERIFY(cleaned);
    QCOMPARE(*cleaned, drawing);
}

void ImageContentTest::cleanedDrawingLosesWhatReachesBeyondIt_data()
{
    QTest::addColumn<QByteArray>("attribute");
    QTest::newRow("path") << QByteArray("href='/etc/passwd'");
    QTest::newRow("relative path") << QByteArray("href='passwd'");
    QTest::newRow("file") << QByteArray("xlink:href='file:///etc/passwd'");
    QTest::newRow("network") << QByteArray("xlink:href='http://example.com/a.png'");
    QTest::newRow("other prefix") << QByteArray("a:href='/etc/passwd'");
    QTest::newRow("resource") << QByteArray("xlink:href=':/a.png'");
    QTest::newRow("white space") << QByteArray("xlink:href='\n /etc/passwd'");
    QTest::newRow("escapes") << QByteArray("xlink:href='&#47;etc&#x2f;passwd'");
    QTest::newRow("entity") << QByteArray("xlink:href='&e;'");
    QTest::newRow("data that are no pixels") << QByteArray("xlink:href='data:image/png;base64,PHN2Zy8+'");
    QTest::newRow("path after data") << QByteArray("xlink:href='data:image/png,/etc/passwd'");
}

void ImageContentTest::cleanedDrawingLosesWhatReachesBeyondIt()
{
    QFETCH(const QByteArray, attribute);
    const auto cleaned = cleanedSvg("<!DOCTYPE svg [<!ENTITY e '/etc/passwd'>]><svg><image " + attribute + "/></svg>");
    QCOMPARE(cleaned.value_or("none"), QByteArray("<svg><image/></svg>"));
}

QTEST_GUILESS_MAIN(ImageContentTest)
#include "ImageContentTest.moc"
