#include "TileHeights.h"

#include "TileMetrics.h"

#include <QtTest>

using namespace nookle;

class TileHeightsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anItemIsMeasuredOnce();
    void anotherNameStateOrWidthIsMeasuredAnew();
    void whatHasGoneIsForgotten();

private:
    [[nodiscard]] static ShelfItem file(const QString& name)
    {
        ShelfItem item;
        item.id = QUuid::createUuid();
        item.content = FileContent{ {}, name };
        return item;
    }

    const TileMetrics m_metrics;
};

void TileHeightsTest::anItemIsMeasuredOnce()
{
    TileHeights heights(m_metrics);
    const ShelfItem item = file(QStringLiteral("a.txt"));
    const int height = heights.height(item, false, 100);
    QCOMPARE(height, m_metrics.height(QStringLiteral("a.txt"), false, 100));
    QCOMPARE(heights.height(item, false, 100), height);
    QCOMPARE(heights.measurements(), 1);
}

void TileHeightsTest::anotherNameStateOrWidthIsMeasuredAnew()
{
    TileHeights heights(m_metrics);
    ShelfItem item = file(QStringLiteral("a.txt"));
    const int height = heights.height(item, false, 100);
    QVERIFY(heights.height(item, true, 100) > height);
    item.content = FileContent{ {}, QStringLiteral("a name that is too long for a single line of a tile") };
    QVERIFY(heights.height(item, false, 100) > height);
    QCOMPARE(heights.height(item, false, 1000), height);
    QCOMPARE(heights.measurements(), 4);
}

void TileHeightsTest::whatHasGoneIsForgotten()
{
    TileHeights heights(m_metrics);
    const ShelfItem first = file(QStringLiteral("a.txt"));
    (void)heights.height(first, false, 100);
    heights.trim(1);
    (void)heights.height(first, false, 100);
    QCOMPARE(heights.measurements(), 1);
    for (int number = 0; number < 2000; ++number)
        (void)heights.height(file(QStringLiteral("b.txt")), false, 100);
    heights.trim(1);
    (void)heights.height(first, false, 100);
    QCOMPARE(heights.measurements(), 2002);
}

QTEST_MAIN(TileHeightsTest)
#include "TileHeightsTest.moc"
