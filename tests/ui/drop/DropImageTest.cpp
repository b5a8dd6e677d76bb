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
    void theBytesAreKeptAsDelivered();
    void theNameIsTheSources();
    void theNameMayBePromisedInUtf16();
    void theNameMayStandInTheFormat();
    void withoutAnImageNothingIsRead();
};

namespace {

const QByteArray png("\x89PNG\r\n\x1a\n and the rest of it");

[[nodiscard]] QString typeIn(const FakeDropPayload& payload)
{
    const auto image = loadDropImage(payload);
    return image ? image->type : QStringLiteral("none");
}

} // namespace

void DropImageTest::aPngIsTakenBeforeATiffThatIsOfferedFirst()
{
    FakeDropPayload payload;
    payload.offer("image/tiff", "tiff").offer("image/png", "png");
    QCOMPARE(loadDropImage(payload)->bytes, QByteArray("png"));
    QCOMPARE(payload.read, QStringList{ QStringLiteral("image/png") });
}

void DropImageTest::theOrderOfPreferenceHolds()
{
    const QList<QByteArray> best{ "image/png", "image/jpeg", "image/gif", "image/heic", "image/webp", "image/bmp" };
    for (qsizetype left = 0; left < best.size(); ++left) {
        FakeDropPayload payload;
        for (qsizetype index = best.size() - 1; index >= left; --index)
            payload.offer(best[index].constData(), "bytes");
        QCOMPARE(typeIn(payload), QString::fromLatin1(best[left]));
    }
}

void DropImageTest::theFirstFormatIsTakenWhereNoneIsPreferred()
{
    FakeDropPayload payload;
    payload.offer("text/plain", "words").offer("image/tiff", "tiff").offer("image/bmp", "bmp");
    QCOMPARE(typeIn(payload), QStringLiteral("image/tiff"));
}

void DropImageTest::aFormatThatDeliversNothingIsPassedOver()
{
    FakeDropPayload payload;
    payload.offer("image/png", "").offer("image/gif", "").offer("image/bmp", "bmp");
    QCOMPARE(typeIn(payload), QStringLiteral("image/bmp"));
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

void DropImageTest::theBytesAreKeptAsDelivered()
{
    FakeDropPayload payload;
    payload.offer("image/png", "no png at all");
    QCOMPARE(loadDropImage(payload)->bytes, QByteArray("no png at all"));
}

void DropImageTest::theNameIsTheSources()
{
    FakeDropPayload payload;
    payload.name = "\xc3\xbc.png";
    payload.offer("image/png", png).offer("application/x-moz-file-promise-dest-filename", "x");
    QCOMPARE(loadDropImage(payload)->suggestedName, QStringLiteral("ü.png"));
    payload.name = "\xfc.png";
    QCOMPARE(loadDropImage(payload)->suggestedName, QStringLiteral("ü.png"));
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
