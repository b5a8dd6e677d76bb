#include "BeginningDrag.h"
#include "FakeMainQueue.h"
#include "FakePointer.h"

#include <QTest>

using namespace nookle;

class BeginningDragTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aMovementIsSeenOnceTheCompositorKnowsOfTheDrag();
    void aMovementBeforeIsNotCounted();
    void aDragAtRestIsGivenUpAfterASecond();
    void anotherDragBeginsAnew();
};

namespace {

struct Drag {
    FakePointer pointer;
    FakeMainQueue queue;
    BeginningDrag drag{ pointer, queue };
    int seen = 0;

    Drag()
    {
        drag.onSeen = [this] { ++seen; };
        drag.begin();
    }

    void moveAndWait(double seconds)
    {
        pointer.at += QPointF(5, 0);
        queue.advance(seconds);
    }
};

} // namespace

void BeginningDragTest::aMovementIsSeenOnceTheCompositorKnowsOfTheDrag()
{
    Drag drag;
    for (int look = 0; look < 3; ++look)
        drag.moveAndWait(0.05);
    QCOMPARE(drag.seen, 0);
    drag.moveAndWait(0.05);
    QCOMPARE(drag.seen, 1);
    QCOMPARE(drag.queue.waitingTimers(), 0);
}

void BeginningDragTest::aMovementBeforeIsNotCounted()
{
    Drag drag;
    drag.moveAndWait(0.05);
    drag.queue.advance(0.5);
    QCOMPARE(drag.seen, 0);
    drag.moveAndWait(0.05);
    QCOMPARE(drag.seen, 1);
}

void BeginningDragTest::aDragAtRestIsGivenUpAfterASecond()
{
    Drag drag;
    drag.queue.advance(0.999);
    QCOMPARE(drag.seen, 0);
    drag.queue.advance(0.001);
    QCOMPARE(drag.seen, 1);
    QCOMPARE(drag.queue.waitingTimers(), 0);
}

void BeginningDragTest::anotherDragBeginsAnew()
{
    Drag drag;
    drag.queue.advance(0.9);
    drag.drag.begin();
    drag.queue.advance(0.999);
    QCOMPARE(drag.seen, 0);
    drag.queue.advance(0.001);
    QCOMPARE(drag.seen, 1);
}

QTEST_GUILESS_MAIN(BeginningDragTest)
#include "BeginningDragTest.moc"
