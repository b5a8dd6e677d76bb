#include "DragEdgeMonitor.h"

#include "FakeDisplays.h"
#include "FakeInputMonitor.h"
#include "FakePointer.h"

#include <QTest>

using namespace nookle;

class DragEdgeMonitorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void draggingContentToTheRightEdgeFiresOncePerPress();
    void aPlainMouseDragToTheRightEdgeDoesNotFire();
    void theEdgeZoneIsTheLastThreePoints();
    void theRightEdgeOfTheLeftDisplayIsAnEdgeToo();
    void aPointerOnNoDisplayDoesNotFire();
    void onlyTheFirstDisplayUnderThePointerIsTested();
    void aFastDragOverAnInnerEdgeIsSeen();
    void aFastDragOverAGapBetweenDisplaysIsSeen();
    void theWayOnWhichTheDragOfContentBeginsCounts();
    void theWayFromThePressCounts();
    void theWayBeforeTheDragOfContentDoesNotCount();
    void theWayBeforeThePressDoesNotCount();
    void aFastDragBesideTheEdgeDoesNotFire();
    void aDragThatWasUnderWayBeforeThePressDoesNotCount();
    void aDragOfThisProgramLeavesTheCounterAloneAndDoesNotFire();
    void startingTwiceInstallsOneMonitorOfEachKind();
    void startingAgainWorksOnceTheSystemAllowsIt();
    void nothingIsWatchedAfterTheEnd();
    void theDisplaysAreLookedAtOnlyForContentThatHasNotFiredYet();

private:
    void beginContentDrag()
    {
        input->press();
        ++input->changeCount;
    }

    void dragTo(double x, double y)
    {
        pointer.at = { x, y };
        input->drag();
    }

    std::unique_ptr<FakeInputMonitor> input;
    FakePointer pointer;
    FakeDisplays displays;
    std::unique_ptr<DragEdgeMonitor> monitor;
    int fired = 0;
};

void DragEdgeMonitorTest::init()
{
    monitor.reset();
    input = std::make_unique<FakeInputMonitor>();
    pointer = FakePointer();
    displays = FakeDisplays();
    monitor = std::make_unique<DragEdgeMonitor>(*input, pointer, displays);
    fired = 0;
    monitor->onEdgeReached = [this] { ++fired; };
    monitor->start();
}

void DragEdgeMonitorTest::draggingContentToTheRightEdgeFiresOncePerPress()
{
    beginContentDrag();
    dragTo(600, 300);
    QCOMPARE(fired, 0);
    dragTo(1279, 300);
    QCOMPARE(fired, 1);
    dragTo(1200, 300);
    dragTo(1279, 310);
    QCOMPARE(fired, 1);
    beginContentDrag();
    dragTo(1279, 300);
    QCOMPARE(fired, 2);
}

void DragEdgeMonitorTest::aPlainMouseDragToTheRightEdgeDoesNotFire()
{
    input->press();
    dragTo(1279, 300);
    QCOMPARE(fired, 0);
}

void DragEdgeMonitorTest::theEdgeZoneIsTheLastThreePoints()
{
    beginContentDrag();
    dragTo(1276.5, 300);
    QCOMPARE(fired, 0);
    dragTo(1277, 300);
    QCOMPARE(fired, 1);
}

void DragEdgeMonitorTest::theRightEdgeOfTheLeftDisplayIsAnEdgeToo()
{
    displays.entries = { { { 0, 0, 800, 600 }, {} }, { { 800, 0, 800, 600 }, {} } };
    pointer.at = { 900, 300 };
    beginContentDrag();
    dragTo(800, 300);
    QCOMPARE(fired, 0);
    dragTo(797, 300);
    QCOMPARE(fired, 1);
}

void DragEdgeMonitorTest::aPointerOnNoDisplayDoesNotFire()
{
    displays.entries = { { { 0, 0, 800, 600 }, {} }, { { 800, 0, 800, 400 }, {} } };
    pointer.at = { 900, 500 };
    beginContentDrag();
    dragTo(1599, 500);
    QCOMPARE(fired, 0);
    dragTo(1599, 399);
    QCOMPARE(fired, 1);
}

void DragEdgeMonitorTest::onlyTheFirstDisplayUnderThePointerIsTested()
{
    displays.entries = { { { 0, 0, 1600, 900 }, {} }, { { 0, 0, 800, 600 }, {} } };
    beginContentDrag();
    dragTo(799, 300);
    QCOMPARE(fired, 0);
}

void DragEdgeMonitorTest::aFastDragOverAnInnerEdgeIsSeen()
{
    displays.entries = { { { 0, 0, 800, 600 }, {} }, { { 800, 0, 800, 600 }, {} } };
    beginContentDrag();
    dragTo(700, 100);
    QCOMPARE(fired, 0);
    dragTo(900, 500);
    QCOMPARE(fired, 1);
}

void DragEdgeMonitorTest::aFastDragOverAGapBetweenDisplaysIsSeen()
{
    displays.entries = { { { 0, 0, 1920, 1080 }, {} }, { { 3840, 0, 1920, 1080 }, {} } };
    beginContentDrag();
    dragTo(1910, 300);
    QCOMPARE(fired, 0);
    dragTo(3850, 300);
    QCOMPARE(fired, 1);
}

void DragEdgeMonitorTest::theWayOnWhichTheDragOfContentBeginsCounts()
{
    displays.entries = { { { 0, 0, 800, 600 }, {} }, { { 800, 0, 800, 600 }, {} } };
    input->press();
    dragTo(700, 300);
    ++input->changeCount;
    dragTo(900, 300);
    QCOMPARE(fired, 1);
}

void DragEdgeMonitorTest::theWayFromThePressCounts()
{
    displays.entries = { { { 0, 0, 800, 600 }, {} }, { { 800, 0, 800, 600 }, {} } };
    pointer.at = { 700, 300 };
    beginContentDrag();
    dragTo(900, 300);
    QCOMPARE(fired, 1);
}

void DragEdgeMonitorTest::theWayBeforeTheDragOfContentDoesNotCount()
{
    displays.entries = { { { 0, 0, 800, 600 }, {} }, { { 800, 0, 800, 600 }, {} } };
    input->press();
    dragTo(700, 300);
    dragTo(900, 300);
    ++input->changeCount;
    dragTo(910, 300);
    QCOMPARE(fired, 0);
}

void DragEdgeMonitorTest::theWayBeforeThePressDoesNotCount()
{
    displays.entries = { { { 0, 0, 800, 600 }, {} }, { { 800, 0, 800, 600 }, {} } };
    beginContentDrag();
    dragTo(700, 300);
    pointer.at = { 900, 300 };
    beginContentDrag();
    dragTo(910, 300);
    QCOMPARE(fired, 0);
}

void DragEdgeMonitorTest::aFastDragBesideTheEdgeDoesNotFire()
{
    displays.entries = { { { 0, 0, 800, 400 }, {} }, { { 800, 0, 800, 600 }, {} } };
    beginContentDrag();
    dragTo(700, 500);
    dragTo(900, 500);
    QCOMPARE(fired, 0);
}

void DragEdgeMonitorTest::aDragThatWasUnderWayBeforeThePressDoesNotCount()
{
    ++input->changeCount;
    input->press();
    dragTo(1279, 300);
    QCOMPARE(fired, 0);
}

void DragEdgeMonitorTest::aDragOfThisProgramLeavesTheCounterAloneAndDoesNotFire()
{
    input->press();
    dragTo(1200, 300);
    dragTo(1279, 300);
    QCOMPARE(fired, 0);
}

void DragEdgeMonitorTest::startingTwiceInstallsOneMonitorOfEachKind()
{
    monitor->start();
    QCOMPARE(input->subscriptions, 2);
}

void DragEdgeMonitorTest::nothingIsWatchedAfterTheEnd()
{
    QVERIFY(input->isWatched());
    monitor->stop();
    QVERIFY(!input->isWatched());
    beginContentDrag();
    dragTo(1919, 500);
    QCOMPARE(fired, 0);
    monitor->start();
    QVERIFY(input->isWatched());
}

void DragEdgeMonitorTest::startingAgainWorksOnceTheSystemAllowsIt()
{
    FakeInputMonitor other;
    other.refuses = true;
    DragEdgeMonitor late(other, pointer, displays);
    late.start();
    QCOMPARE(other.subscriptions, 0);
    other.refuses = false;
    late.start();
    QCOMPARE(other.subscriptions, 2);
}

void DragEdgeMonitorTest::theDisplaysAreLookedAtOnlyForContentThatHasNotFiredYet()
{
    input->press();
    dragTo(600, 300);
    QCOMPARE(displays.timesAsked, 0);
    beginContentDrag();
    dragTo(1279, 300);
    QCOMPARE(displays.timesAsked, 1);
    dragTo(1279, 301);
    QCOMPARE(displays.timesAsked, 1);
}

QTEST_GUILESS_MAIN(DragEdgeMonitorTest)
#include "DragEdgeMonitorTest.moc"
