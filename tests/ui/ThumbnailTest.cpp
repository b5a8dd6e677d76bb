#include "Thumbnail.h"

#include "FakeThumbnailGenerator.h"

#include <QImage>
#include <QPainter>
#include <QTest>

#include <memory>

using namespace nookle;

class ThumbnailTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void theThumbnailIsAskedForOnceAtThePreviewsSize();
    void anotherFileIsAskedForAndTheOldRequestDropped();
    void anotherScaleIsAskedFor();
    void theSameFileAgainKeepsItsThumbnail();
    void theIconStaysWhereThereIsNoThumbnail();
    void theThumbnailKeepsItsShape();
    void aThumbnailOfTheRightSizeKeepsItsPixels();
    void pixelsThatAreNotAllThereAreNoThumbnail();
    void aPreviewThatGoesDropsItsRequest();

private:
    [[nodiscard]] static Picture picture(int width, int height)
    {
        QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::red);
        return { width, height, QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()) };
    }

    const QUrl m_file{ QStringLiteral("file:///a.png") };
    FakeThumbnailGenerator m_thumbnails;
    int m_changes = 0;
    std::unique_ptr<Thumbnail> m_preview;
};

void ThumbnailTest::init()
{
    m_preview.reset();
    m_thumbnails.asked.clear();
    m_changes = 0;
    m_preview = std::make_unique<Thumbnail>(m_thumbnails, [this] { ++m_changes; });
    m_preview->setUrl(m_file);
}

void ThumbnailTest::theThumbnailIsAskedForOnceAtThePreviewsSize()
{
    m_preview->load(1.5);
    m_preview->load(1.5);
    QCOMPARE(m_thumbnails.asked, (QList<FakeThumbnailGenerator::Asked>{ { m_file, 52, 1.5 } }));
}

void ThumbnailTest::anotherFileIsAskedForAndTheOldRequestDropped()
{
    m_preview->load(1);
    m_preview->setUrl(QUrl(QStringLiteral("file:///b.png")));
    QCOMPARE(m_thumbnails.running(), 0);
    m_preview->load(1);
    QCOMPARE(m_thumbnails.asked.last().file, QUrl(QStringLiteral("file:///b.png")));
}

void ThumbnailTest::anotherScaleIsAskedFor()
{
    m_preview->load(1);
    m_preview->load(2);
    QCOMPARE(m_thumbnails.asked.last().scale, 2.0);
    QCOMPARE(m_thumbnails.running(), 1);
}

void ThumbnailTest::theSameFileAgainKeepsItsThumbnail()
{
    const auto number = m_thumbnails.requestCount();
    m_preview->load(1);
    QVERIFY(m_thumbnails.finish(number, picture(10, 10)));
    QCOMPARE(m_changes, 1);
    m_preview->setUrl(m_file);
    m_preview->load(1);
    QVERIFY(!m_preview->picture().isNull());
    QCOMPARE(m_thumbnails.asked.size(), 1);
}

void ThumbnailTest::theIconStaysWhereThereIsNoThumbnail()
{
    const auto number = m_thumbnails.requestCount();
    m_preview->load(1);
    QVERIFY(m_thumbnails.finish(number, std::nullopt));
    QVERIFY(m_preview->picture().isNull());
    QImage canvas(52, 52, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    const QImage empty = canvas;
    QPainter painter(&canvas);
    m_preview->paint(painter, canvas.rect());
    painter.end();
    QVERIFY(canvas != empty);
}

void ThumbnailTest::theThumbnailKeepsItsShape()
{
    const auto number = m_thumbnails.requestCount();
    m_preview->load(1);
    QVERIFY(m_thumbnails.finish(number, picture(20, 10)));
    QImage canvas(52, 52, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    m_preview->paint(painter, canvas.rect());
    painter.end();
    QCOMPARE(canvas.pixelColor(26, 26), QColor(Qt::red));
    QCOMPARE(canvas.pixelColor(2, 16), QColor(Qt::red));
    QCOMPARE(canvas.pixelColor(26, 10), QColor(Qt::transparent));
    QCOMPARE(canvas.pixelColor(26, 42), QColor(Qt::transparent));
}

void ThumbnailTest::aThumbnailOfTheRightSizeKeepsItsPixels()
{
    // Its odd height leaves half a pixel above and below.
    QImage image(52, 35, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, (x + y) % 2 == 0 ? Qt::black : Qt::white);
    }
    const auto number = m_thumbnails.requestCount();
    m_preview->load(1);
    const QByteArray pixels(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
    QVERIFY(m_thumbnails.finish(number, Picture{ image.width(), image.height(), pixels }));
    QImage canvas(52, 52, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    m_preview->paint(painter, canvas.rect());
    painter.end();
    QVERIFY(canvas.copy(0, 8, 52, 35) == image || canvas.copy(0, 9, 52, 35) == image);
}

void ThumbnailTest::pixelsThatAreNotAllThereAreNoThumbnail()
{
    const auto number = m_thumbnails.requestCount();
    m_preview->load(1);
    QVERIFY(m_thumbnails.finish(number, Picture{ 100, 100, QByteArray(100, 'a') }));
    QVERIFY(m_preview->picture().isNull());
}

void ThumbnailTest::aPreviewThatGoesDropsItsRequest()
{
    m_preview->load(1);
    QCOMPARE(m_thumbnails.running(), 1);
    m_preview.reset();
    QCOMPARE(m_thumbnails.running(), 0);
}

QTEST_MAIN(ThumbnailTest)
#include "ThumbnailTest.moc"
