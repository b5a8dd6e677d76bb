#include "PictureFormat.h"

#include <QTest>

using namespace nookle;

class PictureFormatTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void formatShowsInTheFirstBytes_data();
    void formatShowsInTheFirstBytes();
    void xmlShowsInItsFirstCharacter();
    void pngShowsInItsSignature();
};

void PictureFormatTest::formatShowsInTheFirstBytes_data()
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

void PictureFormatTest::formatShowsInTheFirstBytes()
{
    QFETCH(const QByteArray, start);
    QFETCH(const QByteArray, format);
    QCOMPARE(pixelFormat(start), format);
}

void PictureFormatTest::xmlShowsInItsFirstCharacter()
{
    QVERIFY(looksLikeXml("<svg/>"));
    QVERIFY(looksLikeXml("\xef\xbb\xbf\r\n\t <?xml?>"));
    QVERIFY(!looksLikeXml("a<svg/>"));
    QVERIFY(!looksLikeXml(""));
}

void PictureFormatTest::pngShowsInItsSignature()
{
    QVERIFY(isPngStart("\x89PNG\r\n\x1a\n"));
    QVERIFY(!isPngStart("\x89PNG\r\n\x1a"));
    QVERIFY(!isPngStart("\xff\xd8\xff"));
}

QTEST_GUILESS_MAIN(PictureFormatTest)
#include "PictureFormatTest.moc"
