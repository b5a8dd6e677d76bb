#include "DecoderImageConverter.h"

#include "FakeMainQueue.h"
#include "FileUrl.h"
#include "ImageDecoder.h"
#include "ImageFiles.h"
#include "TemporaryFolder.h"

#include <QTest>

using namespace nookle;

namespace {

[[nodiscard]] QByteArray drawing(const QByteArray& content)
{
    return R"(<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" width="20" height="10">)"
        + content + "</svg>";
}

} // namespace

class DecoderImageConverterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyFormatBecomesPng_data();
    void everyFormatBecomesPng();
    void fileBecomesPng();
    void iconGivesItsLargestSize();
    void drawingBecomesPng();
    void drawingWithTextBecomesPng();
    void drawingShowsImagesWithinIt();
    void drawingReachesNoOtherFile_data();
    void drawingReachesNoOtherFile();
    void drawingWithinADrawingReachesNoOtherFile();
    void animatedImageGivesItsFirstFrame();
    void imageOfTheLargestSideIsTaken();
    void largerImageIsRefused_data();
    void largerImageIsRefused();
    void whatIsNoImageIsRefused_data();
    void whatIsNoImageIsRefused();
    void textsOfTheImageStayBehind();
    void completionIsNotCalledFromWithinTheCall();
    void droppedConversionNeverCompletes();
    void conversionMayBeDroppedByItsCompletion();

private:
    /// The result of a conversion that has completed.
    [[nodiscard]] std::optional<QByteArray> converted(const ImageConverter::Source& source, int maximumSide = 1000);
    [[nodiscard]] QImage image(const ImageConverter::Source& source, int maximumSide = 1000);

    FakeMainQueue m_queue;
    ImageDecoder m_decoder{ m_queue, QStringLiteral(NOOKLE_DECODER) };
    DecoderImageConverter m_converter{ m_decoder };
};

std::optional<QByteArray> DecoderImageConverterTest::converted(const ImageConverter::Source& source, int maximumSide)
{
    std::optional<std::optional<QByteArray>> result;
    const auto conversion = m_converter.convertToPng(
        source, maximumSide, [&result](std::optional<QByteArray> png) { result = std::move(png); });
    const auto isDone = [this, &result] {
        m_queue.runPosted();
        return result.has_value();
    };
    if (!QTest::qWaitFor(isDone, 20'000))
        qFatal("a conversion has no end");
    return *result;
}

QImage DecoderImageConverterTest::image(const ImageConverter::Source& source, int maximumSide)
{
    const auto png = converted(source, maximumSide);
    return png ? QImage::fromData(*png, "png") : QImage();
}

void DecoderImageConverterTest::everyFormatBecomesPng_data()
{
    QTest::addColumn<QByteArray>("bytes");
    for (const char* format : { "png", "jpeg", "bmp", "ico", "webp", "tiff" })
        QTest::newRow(format) << encoded(plainImage(20, 10), format);
    QTest::newRow("gif") << animatedGif();
}

void DecoderImageConverterTest::everyFormatBecomesPng()
{
    QFETCH(const QByteArray, bytes);
    const QImage result = image(bytes);
    const bool isGif = bytes.startsWith("GIF");
    QCOMPARE(result.size(), isGif ? QSize(1, 1) : QSize(20, 10));
    const QColor colour = result.pixelColor(0, 0);
    QVERIFY(colour.red() > 250 && colour.green() < 5 && colour.blue() < 5);
}

void DecoderImageConverterTest::fileBecomesPng()
{
    const TemporaryFolder folder;
    const QByteArray path = folder.makeFile("picture\xff#1%.txt", encoded(plainImage(3, 4), "jpeg"));
    QCOMPARE(image(fileUrl(path)).size(), QSize(3, 4));
}

void DecoderImageConverterTest::iconGivesItsLargestSize()
{
    const QByteArray icon = iconFile({ plainImage(16, 16), plainImage(256, 256), plainImage(48, 48) });
    QCOMPARE(image(icon).size(), QSize(256, 256));
    QCOMPARE(image(icon, 100).size(), QSize(48, 48));
    QCOMPARE(image(icon, 10), QImage());
}

void DecoderImageConverterTest::drawingBecomesPng()
{
    const QImage result = image(drawing(R"(<rect width="20" height="10" fill="#00ff00"/>)"));
    QCOMPARE(result.size(), QSize(20, 10));
    QCOMPARE(result.pixelColor(10, 5), QColor(Qt::green));
}

void DecoderImageConverterTest::drawingWithTextBecomesPng()
{
    QCOMPARE(image(drawing(R"(<text x="0" y="10" font-size="12">Hi</text>)")).size(), QSize(20, 10));
}

void DecoderImageConverterTest::drawingShowsImagesWithinIt()
{
    const QByteArray data = encoded(plainImage(2, 2, Qt::blue), "png").toBase64();
    const QImage result =
        image(drawing(R"(<image width="20" height="10" xlink:href="data:image/png;base64,)" + data + R"("/>)"));
    QCOMPARE(result.pixelColor(10, 5), QColor(Qt::blue));
}

void DecoderImageConverterTest::drawingReachesNoOtherFile_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<bool>("isConfined");
    for (const char* before : { "", "file://", "file:" }) {
        QTest::addRow("%s in a sandbox", before) << QByteArray(before) << true;
        QTest::addRow("%s without a sandbox", before) << QByteArray(before) << false;
    }
}

void DecoderImageConverterTest::drawingReachesNoOtherFile()
{
    QFETCH(const QByteArray, before);
    QFETCH(const bool, isConfined);
    const TemporaryFolder folder;
    const QByteArray path = folder.makeFile("secret.png", encoded(plainImage(20, 10, Qt::blue), "png"));
    ImageDecoder decoder(m_queue, QStringLiteral(NOOKLE_DECODER),
                         isConfined ? ImageDecoder::Confinement::sandbox : ImageDecoder::Confinement::none);
    DecoderImageConverter converter(decoder);
    std::optional<QByteArray> png;
    const auto conversion =
        converter.convertToPng(drawing(R"(<image width="20" height="10" xlink:href=")" + before + path + R"("/>)"), 100,
                               [&png](const std::optional<QByteArray>& result) { png = result.value_or("none"); });
    QTRY_VERIFY((m_queue.runPosted(), png));
    QCOMPARE(QImage::fromData(*png).pixelColor(10, 5).alpha(), 0);
}

void DecoderImageConverterTest::drawingWithinADrawingReachesNoOtherFile()
{
    const TemporaryFolder folder;
    const QByteArray path = folder.makeFile("secret.png", encoded(plainImage(20, 10, Qt::blue), "png"));
    const QByteArray inner = drawing(R"(<image width="20" height="10" xlink:href=")" + path + R"("/>)").toBase64();
    ImageDecoder decoder(m_queue, QStringLiteral(NOOKLE_DECODER), ImageDecoder::Confinement::none);
    DecoderImageConverter converter(decoder);
    std::optional<QByteArray> png;
    const auto conversion = converter.convertToPng(
        drawing(R"(<image width="20" height="10" xlink:href="data:image/png;base64,)" + inner + R"("/>)"), 100,
        [&png](const std::optional<QByteArray>& result) { png = result.value_or("none"); });
    QTRY_VERIFY((m_queue.runPosted(), png));
    QCOMPARE(QImage::fromData(*png).pixelColor(10, 5).alpha(), 0);
}

void DecoderImageConverterTest::animatedImageGivesItsFirstFrame()
{
    QCOMPARE(image(animatedGif()).pixelColor(0, 0), QColor(Qt::red));
}

void DecoderImageConverterTest::imageOfTheLargestSideIsTaken()
{
    QCOMPARE(image(encoded(plainImage(50, 20), "png"), 50).size(), QSize(50, 20));
}

void DecoderImageConverterTest::largerImageIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("wide") << encoded(plainImage(51, 1), "png");
    QTest::newRow("high") << encoded(plainImage(1, 51), "jpeg");
    QTest::newRow("drawing") << QByteArray(R"(<svg xmlns="http://www.w3.org/2000/svg" width="51" height="51"/>)");
    QByteArray icon = iconFile({ plainImage(60, 60) });
    icon[6] = icon[7] = char(16);
    QTest::newRow("icon that says it is smaller") << icon;
}

void DecoderImageConverterTest::largerImageIsRefused()
{
    QFETCH(const QByteArray, bytes);
    QCOMPARE(converted(bytes, 50), std::nullopt);
}

void DecoderImageConverterTest::whatIsNoImageIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("text") << QByteArray("Hello");
    QTest::newRow("page") << QByteArray("<!DOCTYPE html><html><body><svg width='5' height='5'/></body></html>");
    QTest::newRow("drawing that does not end") << QByteArray("<svg width='5' height='5'><g>");
    QTest::newRow("drawing that grows without end") << QByteArray(
        "<!DOCTYPE svg [<!ENTITY a 'aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa'>"
        "<!ENTITY b '&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;'>"
        "<!ENTITY c '&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;'>"
        "<!ENTITY d '&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;'>"
        "<!ENTITY e '&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;'>]>"
        "<svg width='5' height='5'><title>&e;</title></svg>");
    QTest::newRow("truncated PNG") << encoded(plainImage(20, 10), "png").left(50);
    QTest::newRow("huge PNG") << blackPng(30'000);
}

void DecoderImageConverterTest::whatIsNoImageIsRefused()
{
    QFETCH(const QByteArray, bytes);
    QCOMPARE(converted(bytes, 10'000), std::nullopt);
}

void DecoderImageConverterTest::textsOfTheImageStayBehind()
{
    QImage source = plainImage(2, 2);
    source.setText(QStringLiteral("Author"), QStringLiteral("Somebody"));
    const QByteArray bytes = encoded(source, "png");
    QVERIFY(bytes.contains("Somebody"));
    QVERIFY(!converted(bytes)->contains("Somebody"));
}

void DecoderImageConverterTest::completionIsNotCalledFromWithinTheCall()
{
    int calls = 0;
    const auto count = [&calls](const auto& /*png*/) { ++calls; };
    const auto missing = m_converter.convertToPng(fileUrl("/does/not/exist"), 100, count);
    const auto foreign = m_converter.convertToPng(QUrl(QStringLiteral("https://example.com/a.png")), 100, count);
    const auto good = m_converter.convertToPng(encoded(plainImage(2, 2), "png"), 100, count);
    QCOMPARE(calls, 0);
    QTRY_COMPARE((m_queue.runPosted(), calls), 3);
}

void DecoderImageConverterTest::droppedConversionNeverCompletes()
{
    int calls = 0;
    const QByteArray bytes = encoded(plainImage(2, 2), "png");
    auto dropped = m_converter.convertToPng(bytes, 100, [&calls](const auto& /*png*/) { calls += 100; });
    const auto kept = m_converter.convertToPng(bytes, 100, [&calls](const auto& /*png*/) { ++calls; });
    dropped.reset();
    QTRY_COMPARE((m_queue.runPosted(), calls), 1);
    m_queue.advance(1);
    QCOMPARE(calls, 1);
}

void DecoderImageConverterTest::conversionMayBeDroppedByItsCompletion()
{
    std::unique_ptr<Cancellable> conversion;
    bool isDone = false;
    conversion = m_converter.convertToPng(encoded(plainImage(2, 2), "png"), 100, [&](const auto& /*png*/) {
        conversion.reset();
        isDone = true;
    });
    QTRY_VERIFY((m_queue.runPosted(), isDone));
}

QTEST_GUILESS_MAIN(DecoderImageConverterTest)
#include "DecoderImageConverterTest.moc"
