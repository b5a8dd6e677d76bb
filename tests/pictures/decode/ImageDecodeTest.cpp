#include "ImageDecode.h"

#include "ImageFiles.h"

#include <QBuffer>
#include <QRegularExpression>
#include <QTest>

using namespace nookle;

class ImageDecodeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void hugeImageIsRefusedByItsHeader_data();
    void hugeImageIsRefusedByItsHeader();
    void ordinaryImageIsRead();
    void savedThumbnailComesInTheSizeThatWasAsked();
};

void ImageDecodeTest::hugeImageIsRefusedByItsHeader_data()
{
    QTest::addColumn<int>("purpose");
    QTest::newRow("thumbnail") << int(DecodeRequest::Purpose::thumbnail);
    QTest::newRow("conversion") << int(DecodeRequest::Purpose::conversion);
}

void ImageDecodeTest::hugeImageIsRefusedByItsHeader()
{
    QFETCH(const int, purpose);
    QBuffer file;
    file.setData(blackPng(20'000));
    QVERIFY(file.size() > 20'000);
    file.open(QIODevice::ReadOnly);
    DecodeRequest request;
    request.purpose = static_cast<DecodeRequest::Purpose>(purpose);
    request.side = 30'000;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("exceeds the current allocation limit")));
    QCOMPARE(decodeImage(file, request), DecodeReply());
    // Its pixels have not been looked at.
    QVERIFY(file.pos() < 1000);
}

void ImageDecodeTest::ordinaryImageIsRead()
{
    QBuffer file;
    file.setData(blackPng(4000));
    file.open(QIODevice::ReadOnly);
    DecodeRequest request;
    request.side = 100;
    const DecodeReply reply = decodeImage(file, request);
    QCOMPARE(QSize(reply.width, reply.height), QSize(100, 100));
    QVERIFY(reply.png.isEmpty());
}

void ImageDecodeTest::savedThumbnailComesInTheSizeThatWasAsked()
{
    QBuffer file;
    file.setData(encoded(plainImage(400, 200), "png"));
    file.open(QIODevice::ReadOnly);
    DecodeRequest request;
    request.side = 104;
    request.savedSide = 128;
    request.uri = "file:///a.png";
    const DecodeReply reply = decodeImage(file, request);
    QCOMPARE(QSize(reply.width, reply.height), QSize(104, 52));
    const QImage saved = QImage::fromData(reply.png, "png");
    QCOMPARE(saved.size(), QSize(128, 64));
    QCOMPARE(saved.text(QStringLiteral("Thumb::URI")), QStringLiteral("file:///a.png"));
}

QTEST_GUILESS_MAIN(ImageDecodeTest)
#include "ImageDecodeTest.moc"
