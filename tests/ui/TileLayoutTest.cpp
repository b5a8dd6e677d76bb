#include "TileLayout.h"

#include <QTest>

using namespace nookle;

using Range = TileLayout::Range;

class TileLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tilesStandBelowOneAnotherWithMarginAndGap();
    void onlyRowsOfWhichSomethingLiesInViewAreNamed();
    void anEmptyColumnHasNoHeightAndNoRows();
};

void TileLayoutTest::tilesStandBelowOneAnotherWithMarginAndGap()
{
    const TileLayout layout({ 80, 90, 100 }, 6, 4);
    QCOMPARE(layout.top(0), 6);
    QCOMPARE(layout.top(1), 90);
    QCOMPARE(layout.top(2), 184);
    QCOMPARE(layout.height(1), 90);
    QCOMPARE(layout.totalHeight(), 290);
}

void TileLayoutTest::onlyRowsOfWhichSomethingLiesInViewAreNamed()
{
    const TileLayout layout({ 80, 90, 100 }, 6, 4);
    QCOMPARE(layout.rowsBetween(0, 90), (Range{ 0, 1 }));
    QCOMPARE(layout.rowsBetween(0, 91), (Range{ 0, 2 }));
    QCOMPARE(layout.rowsBetween(85, 184), (Range{ 0, 2 }));
    QCOMPARE(layout.rowsBetween(86, 185), (Range{ 1, 3 }));
    QCOMPARE(layout.rowsBetween(284, 400), (Range{ 3, 3 }));
}

void TileLayoutTest::anEmptyColumnHasNoHeightAndNoRows()
{
    const TileLayout layout({}, 6, 4);
    QCOMPARE(layout.totalHeight(), 0);
    QCOMPARE(layout.rowsBetween(0, 500), (Range{ 0, 0 }));
}

QTEST_GUILESS_MAIN(TileLayoutTest)
#include "TileLayoutTest.moc"
