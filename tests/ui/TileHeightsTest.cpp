#include "TileHeights.h"

#include "TileMetrics.h"

#include <QFontMetrics>
#include <QTest>

using namespace nookle;

class TileHeightsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theHeightIsThatOfTheLinesThatAreDrawn();
    void textOfAnyScriptIsMeasured();
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

void TileHeightsTest::theHeightIsThatOfTheLinesThatAreDrawn()
{
    const QFontMetrics caption(m_metrics.captionFont());
    for (const char* word : { "AV", "il", "Holiday ", "\u00e4", "\u6f22" }) {
        for (int count = 1; count < 40; ++count) {
            const QString name = QString::fromUtf8(word).repeated(count);
            const auto lines = static_cast<int>(m_metrics.nameLines(name, 100 - 2 * TileMetrics::padding).size());
            const int rest = m_metrics.height(QString(), false, 100) - caption.height();
            QCOMPARE(m_metrics.height(name, false, 100), rest + lines * caption.height());
        }
    }
}

void TileHeightsTest::textOfAnyScriptIsMeasured()
{
    for (const char* sign : { "a", "\u00e4", "\u6f22" }) {
        const QString name = QString::fromUtf8(sign);
        QCOMPARE(m_metrics.nameLines(name, 100).size(), 1);
        QCOMPARE(m_metrics.nameLines(name.repeated(100), 100).size(), 2);
    }
}

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
