#include "PngText.h"

#include "PngBytes.h"
#include "TemporaryFolder.h"

#include <QTest>

using namespace nookle;

class PngTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theTextsOfAPictureAreRead();
    void textsBehindThePictureAreReadToo();
    void internationalTextsAreRead();
    void compressedTextsKeepTheirKeys();
    void aPictureWithoutTextsHasNone();
    void aPictureThatIsStillBeingWrittenTellsNothing_data();
    void aPictureThatIsStillBeingWrittenTellsNothing();
    void whatIsNoPictureTellsNothing_data();
    void whatIsNoPictureTellsNothing();
    void aChunkThatPretendsToBeHugeEndsTheReading();
    void nothingButEmptyChunksEndsTheReading();
    void aVeryLongTextIsPassedOver();

private:
    [[nodiscard]] std::optional<PngText> read(const QByteArray& content) const
    {
        const QByteArray path = m_folder.makeFile("picture.png", content);
        const int descriptor = ::open(path.constData(), O_RDONLY | O_CLOEXEC);
        const auto texts = readPngText(descriptor);
        ::close(descriptor);
        return texts;
    }

    TemporaryFolder m_folder;
};

void PngTextTest::theTextsOfAPictureAreRead()
{
    const auto texts = read(png(pngText("Software", "gnome-screenshot") + pngText("Title", "")));
    const PngText expected{ { "Software", "gnome-screenshot" }, { "Title", "" } };
    QVERIFY(texts == expected);
}

void PngTextTest::textsBehindThePictureAreReadToo()
{
    const auto texts =
        read(pngStart() + pngChunk("IDAT", QByteArray(100, 'x')) + pngText("screen", "DP-1") + pngChunk("IEND"));
    QVERIFY(texts == (PngText{ { "screen", "DP-1" } }));
}

void PngTextTest::internationalTextsAreRead()
{
    const QByteArray content = QByteArrayLiteral("windowTitle\0\0\0en\0Titel\0Ein Fenster");
    QVERIFY(read(png(pngChunk("iTXt", content))) == (PngText{ { "windowTitle", "Ein Fenster" } }));
    for (const QByteArray& broken : { QByteArrayLiteral("key\0"), QByteArrayLiteral("key\0\0\0en") })
        QVERIFY(read(png(pngChunk("iTXt", broken))) == (PngText{ { "key", "" } }));
}

void PngTextTest::compressedTextsKeepTheirKeys()
{
    const auto texts = read(png(pngChunk("zTXt", QByteArrayLiteral("windowTitle\0\0rubbish"))
                                + pngChunk("iTXt", QByteArrayLiteral("screen\0\1\0\0\0rubbish"))));
    QVERIFY(texts == (PngText{ { "windowTitle", "" }, { "screen", "" } }));
}

void PngTextTest::aPictureWithoutTextsHasNone()
{
    QVERIFY(read(png()) == PngText());
    QVERIFY(read(png(pngChunk("tEXt", "no end of a key") + pngChunk("tEXt", QByteArray(1, '\0')))) == PngText());
}

void PngTextTest::aPictureThatIsStillBeingWrittenTellsNothing_data()
{
    QTest::addColumn<int>("size");
    const QByteArray whole = png(pngText("Software", "gnome-screenshot"));
    QTest::newRow("nothing yet") << 0;
    QTest::newRow("half of the signature") << 4;
    QTest::newRow("the signature") << 8;
    QTest::newRow("half of a head") << 12;
    QTest::newRow("in the text") << 60;
    QTest::newRow("in the picture") << 3000;
    QTest::newRow("all but the end") << static_cast<int>(whole.size()) - 12;
}

void PngTextTest::aPictureThatIsStillBeingWrittenTellsNothing()
{
    QFETCH(const int, size);
    const QByteArray whole = png(pngText("Software", "gnome-screenshot"));
    QVERIFY(read(whole));
    QVERIFY(!read(whole.left(size)));
}

void PngTextTest::whatIsNoPictureTellsNothing_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("text") << QByteArray("gnome-screenshot");
    QTest::newRow("a damaged signature") << QByteArray("\x89PNX") + png().mid(4);
    QTest::newRow("JPEG") << QByteArray("\xff\xd8\xff\xe0JFIF");
}

void PngTextTest::whatIsNoPictureTellsNothing()
{
    QFETCH(const QByteArray, content);
    QVERIFY(!read(content));
}

void PngTextTest::aChunkThatPretendsToBeHugeEndsTheReading()
{
    for (const char* length : { "\xff\xff\xff\xff", "\x7f\xff\xff\xff" })
        QVERIFY(!read(pngStart() + QByteArray(length, 4) + "tEXt" + QByteArray(100, 'x')));
}

void PngTextTest::nothingButEmptyChunksEndsTheReading()
{
    constexpr int count = 110000;
    QVERIFY(!read(pngStart() + pngChunk("aaAa").repeated(count) + pngChunk("IEND")));
}

void PngTextTest::aVeryLongTextIsPassedOver()
{
    QVERIFY(read(png(pngText("Comment", QByteArray(100000, 'x')) + pngText("screen", "1")))
            == (PngText{ { "screen", "1" } }));
}

QTEST_GUILESS_MAIN(PngTextTest)
#include "PngTextTest.moc"
