#include "FakeMainQueue.h"
#include "FakePointer.h"
#include "StalledDrag.h"

#include <QTest>

using namespace nookle;

class StalledDragTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aDragEndsAfterTenSecondsAtRest();
    void aMovementBeginsTheTimeAnew();
    void itIsToldOnceForEachDrag();
    void anotherDragHasTheWholeTime();
};

namespace {

struct Drag {
    FakePointer pointer;
    FakeMainQueue queue;
    StalledDrag drag{ pointer, queue };
    int stalled = 0;

    Drag()
    {
        drag.onStalled = [this] { ++stalled; };
        drag.begin();
    }
};

} // namespace

void StalledDragTest::aDragEndsAfterTenSecondsAtRest()
{
    Drag drag;
    drag.queue.advance(9.999);
    QCOMPARE(drag.stalled, 0);
    drag.queue.advance(0.001);
    QCOMPARE(drag.stalled, 1);
}

void StalledDragTest::aMovementBeginsTheTimeAnew()
{
    Drag drag;
    for (int second = 0; second < 30; ++second) {
        drag.pointer.at += QPointF(1, 0);
        drag.queue.advance(1);
    }
    QCOMPARE(drag.stalled, 0);
    drag.queue.advance(9.999);
    QCOMPARE(drag.stalled, 0);
    drag.queue.advance(0.001);
    QCOMPARE(drag.stalled, 1);
}

void StalledDragTest::itIsToldOnceForEachDrag()
{
    Drag drag;
    drag.queue.advance(60);
    QCOMPARE(drag.stalled, 1);
    QCOMPARE(drag.queue.waitingTimers(), 0);
    drag.drag.begin();
    drag.queue.advance(60);
    QCOMPARE(drag.stalled, 2);
}

void StalledDragTest::anotherDragHasTheWholeTime()
{
    Drag drag;
    drag.queue.advance(9);
    drag.drag.begin();
    drag.queue.advance(9.999);
    QCOMPARE(drag.stalled, 0);
    drag.queue.advance(0.001);
    QCOMPARE(drag.stalled, 1);
}

QTEST_GUILESS_MAIN(StalledDragTest)
#include "StalledDragTest.moc"
