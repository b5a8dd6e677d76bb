#include "MenuBarIcon.h"

#include "IconPictures.h"
#include "RegionDifference.h"

#include <QDir>
#include <QGuiApplication>
#include <QIcon>
#include <QImageReader>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QTest>

#include <cmath>
#include <cstdlib>

using namespace nookle;

class MenuBarIconTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theIconLooksAsItDid_data();
    void theIconLooksAsItDid();
    void theFrontCardHidesTheBackCardAndTheTrayHidesBoth();
    void whatLiesBelowTheIconShinesThroughIt();
    void theIconIsTintedForLightAndDarkPanels();
    void aTrayIsOfferedEverySizeThatItMayShow();
    void thePictureOfADenseDisplayIsAsSharp();
    void withoutAnythingToPaintOnNothingIsDrawn();
    void theIconOfTheThemeIsTheSame_data();
    void theIconOfTheThemeIsTheSame();
};

namespace {

/// Whether two pictures of the icon look the same in each of its parts.
[[nodiscard]] bool lookAlike(const QImage& left, const QImage& right)
{
    constexpr double largestDifference = 3;
    return largestRegionDifference(left, right, left.width() / 3).difference <= largestDifference;
}

void addSizes()
{
    QTest::addColumn<int>("size");
    for (const int size : iconPictureSizes())
        QTest::addRow("%d pixels", size) << size;
}

/// How opaque the icon is there, on its square of 18 units.
[[nodiscard]] int alphaAt(const QImage& icon, double x, double y)
{
    const double scale = icon.width() / 18.0;
    return icon.pixelColor(static_cast<int>(x * scale), static_cast<int>(y * scale)).alpha();
}

} // namespace

void MenuBarIconTest::theIconLooksAsItDid_data()
{
    addSizes();
}

void MenuBarIconTest::theIconLooksAsItDid()
{
    QFETCH(const int, size);
    const QImage kept(QDir(QStringLiteral(NOOKLE_ICON_FOLDER)).filePath(QStringLiteral("%1.png").arg(size)));
    const QImage present = iconPicture(size, Qt::black);
    QVERIFY(lookAlike(present, kept));
}

void MenuBarIconTest::theFrontCardHidesTheBackCardAndTheTrayHidesBoth()
{
    const QImage icon = iconPicture(360, Qt::black);
    // The outlines, where nothing hides them.
    QCOMPARE(alphaAt(icon, 3.85, 4), 255);
    QCOMPARE(alphaAt(icon, 11.3, 2.75), 255);
    QCOMPARE(alphaAt(icon, 9, 16), 255);
    // Inside the front card, where the back card's edge would be; and inside the tray, where the cards' edges would be.
    QCOMPARE(alphaAt(icon, 9.9, 5.5), 0);
    QCOMPARE(alphaAt(icon, 5.5, 9.7), 0);
    QCOMPARE(alphaAt(icon, 8.6, 9.3), 0);
    // Eyes and smile.
    QCOMPARE(alphaAt(icon, 6.9, 11.4), 255);
    QCOMPARE(alphaAt(icon, 11.1, 11.4), 255);
    QCOMPARE(alphaAt(icon, 9, 13.45), 255);
}

void MenuBarIconTest::whatLiesBelowTheIconShinesThroughIt()
{
    QImage picture(36, 36, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::red);
    QPainter painter(&picture);
    MenuBarIcon::draw(painter, picture.rect(), Qt::black);
    painter.end();
    // Inside the tray, beside the face.
    QCOMPARE(picture.pixelColor(8, 28), QColor(Qt::red));
}

void MenuBarIconTest::theIconIsTintedForLightAndDarkPanels()
{
    const QIcon icon = MenuBarIcon::make();
    for (const QColor& color : { QColor(Qt::white), QColor(0x20, 0x20, 0x20) }) {
        QPalette palette;
        palette.setColor(QPalette::WindowText, color);
        QGuiApplication::setPalette(palette);
        const QImage picture = icon.pixmap(64, 64).toImage().convertToFormat(QImage::Format_ARGB32);
        QVERIFY(lookAlike(picture, iconPicture(64, color)));
    }
}

void MenuBarIconTest::aTrayIsOfferedEverySizeThatItMayShow()
{
    const QIcon icon = MenuBarIcon::make();
    const QList<QSize> sizes = icon.availableSizes();
    for (const int side : { 16, 22, 24, 32, 48, 64 }) {
        QVERIFY(sizes.contains(QSize(side, side)));
        QCOMPARE(icon.pixmap(side, side).size(), QSize(side, side));
    }
}

void MenuBarIconTest::thePictureOfADenseDisplayIsAsSharp()
{
    const QPixmap pixmap = MenuBarIcon::make().pixmap(QSize(18, 18), 2);
    QCOMPARE(pixmap.size(), QSize(36, 36));
    QPalette palette;
    palette.setColor(QPalette::WindowText, Qt::black);
    QGuiApplication::setPalette(palette);
    QImage picture(36, 36, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(2);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    MenuBarIcon::draw(painter, QRectF(0, 0, 18, 18), Qt::black);
    painter.end();
    QVERIFY(lookAlike(picture, iconPicture(36, Qt::black)));
}

void MenuBarIconTest::withoutAnythingToPaintOnNothingIsDrawn()
{
    QPainter painter;
    MenuBarIcon::draw(painter, QRectF(0, 0, 18, 18), Qt::black);
    QVERIFY(!painter.isActive());
    QImage picture(18, 18, QImage::Format_ARGB32);
    picture.fill(Qt::white);
    painter.begin(&picture);
    MenuBarIcon::draw(painter, QRectF(), Qt::black);
    painter.end();
    QCOMPARE(picture.pixelColor(9, 16), QColor(Qt::white));
}

void MenuBarIconTest::theIconOfTheThemeIsTheSame_data()
{
    addSizes();
}

void MenuBarIconTest::theIconOfTheThemeIsTheSame()
{
    QFETCH(const int, size);
    QImageReader reader(QStringLiteral(NOOKLE_THEME_ICON));
    reader.setScaledSize(QSize(size, size));
    const QImage installed = reader.read();
    QVERIFY2(!installed.isNull(), qPrintable(reader.errorString()));
    // Compared by their shape: a tray chooses the colour.
    const QImage drawn = iconPicture(size, Qt::black);
    int differing = 0;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const int distance = installed.pixelColor(x, y).alpha() - drawn.pixelColor(x, y).alpha();
            differing += std::abs(distance) > 80 ? 1 : 0;
        }
    }
    QVERIFY2(differing <= size * size / 100, qPrintable(QString::number(differing)));
}

QTEST_MAIN(MenuBarIconTest)
#include "MenuBarIconTest.moc"
