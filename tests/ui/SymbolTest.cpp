#include "Symbol.h"

#include <QImage>
#include <QPainter>
#include <QTest>

using namespace nookle;

class SymbolTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theNeedleOfThePinCoversWholePixels_data();
    void theNeedleOfThePinCoversWholePixels();
    void aPinIsSymmetric();
    void aSymbolIsAsLargeAsItsBox();

private:
    [[nodiscard]] static QImage drawn(Symbol symbol, double side, double scale)
    {
        constexpr int canvas = 22;
        QImage image(QSize(canvas, canvas) * scale, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        QRectF box(0, 0, side, side);
        box.moveCenter(QRectF(0, 0, canvas, canvas).center());
        drawSymbol(painter, symbol, SymbolWeight::medium, box, Qt::black);
        return image;
    }

    [[nodiscard]] static QRect extent(const QImage& image)
    {
        QRect covered;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (qAlpha(image.pixel(x, y)) > 0)
                    covered |= QRect(x, y, 1, 1);
            }
        }
        return covered;
    }
};

void SymbolTest::theNeedleOfThePinCoversWholePixels_data()
{
    QTest::addColumn<double>("side");
    QTest::addColumn<double>("scale");
    QTest::newRow("header") << 16.0 << 1.0;
    QTest::newRow("an odd size") << 15.0 << 1.0;
    QTest::newRow("badge") << 12.0 << 1.0;
    QTest::newRow("one and a half pixels a point") << 16.0 << 1.5;
    QTest::newRow("two pixels a point") << 16.0 << 2.0;
}

void SymbolTest::theNeedleOfThePinCoversWholePixels()
{
    QFETCH(const double, side);
    QFETCH(const double, scale);
    const QImage image = drawn(Symbol::pin, side, scale);
    // The needle is all that there is just above the lowest pixels, which are round.
    const int row = extent(image).bottom() - static_cast<int>(2 * scale);
    int covered = 0;
    for (int x = 0; x < image.width(); ++x) {
        const int alpha = qAlpha(image.pixel(x, row));
        QVERIFY2(alpha == 0 || alpha == 255, qPrintable(QString::number(alpha)));
        covered += alpha == 255 ? 1 : 0;
    }
    QVERIFY2(covered >= 1 && covered <= 3, qPrintable(QString::number(covered)));
}

void SymbolTest::aPinIsSymmetric()
{
    const QImage image = drawn(Symbol::pinFill, 16, 1);
    const QImage pin = image.copy(extent(image));
    QCOMPARE(pin, pin.mirrored(true, false));
}

void SymbolTest::aSymbolIsAsLargeAsItsBox()
{
    const QRect small = extent(drawn(Symbol::missingFile, 11, 2));
    const QRect large = extent(drawn(Symbol::missingFile, 22, 2));
    QVERIFY(large.width() > 1.8 * small.width());
    QVERIFY(large.height() > 1.8 * small.height());
}

QTEST_MAIN(SymbolTest)
#include "SymbolTest.moc"
