#include "FanPicture.h"

#include <QApplication>
#include <QImage>
#include <QPalette>
#include <QTest>

using namespace nookle;

namespace {

const QColor front(0xc0, 0x20, 0x20);
const QColor second(0x20, 0xc0, 0x20);
const QColor third(0x20, 0x20, 0xc0);
const QColor accent(0x2f, 0x7c, 0xf6);
/// The middle of the picture in front.
const QPoint middle(36, 36);

[[nodiscard]] QPixmap plain(const QColor& color)
{
    QPixmap picture(104, 104);
    picture.fill(color);
    return picture;
}

[[nodiscard]] QImage drawn(const std::vector<QColor>& colors, qsizetype count, double scale = 1)
{
    std::vector<QPixmap> pictures;
    for (const QColor& color : colors)
        pictures.push_back(plain(color));
    QPalette palette;
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return fanPicture(pictures, count, palette, scale).toImage();
}

[[nodiscard]] int pixelsOf(const QImage& image, const QColor& color)
{
    int found = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            found += image.pixelColor(x, y) == color ? 1 : 0;
    }
    return found;
}

} // namespace

class FanPictureTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFirstPictureIsInFrontOfTheOthers();
    void atMostThreePicturesAreDrawn();
    void thePictureInFrontHasSharpEdges_data();
    void thePictureInFrontHasSharpEdges();
    void theBadgeTellsTheCount();
};

void FanPictureTest::theFirstPictureIsInFrontOfTheOthers()
{
    const QImage two = drawn({ front, second }, 2);
    QCOMPARE(two.pixelColor(middle), front);
    QVERIFY(pixelsOf(two, second) > 100);
    QCOMPARE(pixelsOf(two, third), 0);
    const QImage three = drawn({ front, second, third }, 3);
    QCOMPARE(three.pixelColor(middle), front);
    QVERIFY(pixelsOf(three, second) > 100);
    QVERIFY(pixelsOf(three, third) > 100);
}

void FanPictureTest::atMostThreePicturesAreDrawn()
{
    QCOMPARE(drawn({ front, second, third, Qt::black }, 4), drawn({ front, second, third }, 4));
}

void FanPictureTest::thePictureInFrontHasSharpEdges_data()
{
    QTest::addColumn<double>("scale");
    QTest::newRow("one pixel a point") << 1.0;
    QTest::newRow("one and a half") << 1.5;
    QTest::newRow("two") << 2.0;
}

void FanPictureTest::thePictureInFrontHasSharpEdges()
{
    QFETCH(const double, scale);
    const QImage fan = drawn({ front }, 2, scale);
    QCOMPARE(fan.size(), (fanSize * scale).toSize());
    const int row = static_cast<int>(middle.y() * scale);
    int covered = 0;
    for (int x = 0; x < fan.width(); ++x) {
        const QColor color = fan.pixelColor(x, row);
        QVERIFY2(color.alpha() == 0 || color == front, qPrintable(color.name(QColor::HexArgb)));
        covered += color == front ? 1 : 0;
    }
    QCOMPARE(covered, qRound(48 * scale));
}

void FanPictureTest::theBadgeTellsTheCount()
{
    const QImage few = drawn({ front }, 3);
    const QImage many = drawn({ front }, 1234);
    QVERIFY(pixelsOf(few, accent) > 50);
    QVERIFY(few != drawn({ front }, 8));
    QVERIFY(pixelsOf(many, accent) > 1.3 * pixelsOf(few, accent));
}

QTEST_MAIN(FanPictureTest)
#include "FanPictureTest.moc"
