#include "DragForwarding.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QWindow>

using namespace nookle;

/// Remembers what comes over it, and takes it or not.
class Target : public QWindow {
public:
    QList<QEvent::Type> seen;
    QPointF position;
    bool takes = true;

protected:
    bool event(QEvent* event) override
    {
        const bool isDrag =
            event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove || event->type() == QEvent::Drop;
        if (!isDrag && event->type() != QEvent::DragLeave)
            return QWindow::event(event);
        seen.append(event->type());
        if (isDrag) {
            auto& drag = static_cast<QDropEvent&>(*event);
            position = drag.position();
            drag.setDropAction(Qt::CopyAction);
            drag.setAccepted(takes);
        }
        return true;
    }
};

class DragForwardingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aDragIsTakenAsTheOtherWindowTakesIt();
    void aDragBesideTheWindowIsAtItsNearestPlace_data();
    void aDragBesideTheWindowIsAtItsNearestPlace();
    void itsEndIsTold();

private:
    static constexpr QRectF frame{ 1000, 100, 112, 400 };
    QMimeData m_data;
};

void DragForwardingTest::aDragIsTakenAsTheOtherWindowTakesIt()
{
    for (const bool takes : { true, false }) {
        Target target;
        target.takes = takes;
        QDropEvent drop({ 1, 1 }, Qt::CopyAction | Qt::MoveAction, &m_data, Qt::LeftButton, Qt::NoModifier);
        drop.setDropAction(Qt::MoveAction);
        forwardDrag(drop, target, frame, { 1010, 120 });
        QCOMPARE(target.seen, QList<QEvent::Type>{ QEvent::Drop });
        QCOMPARE(target.position, QPointF(10, 20));
        QCOMPARE(drop.isAccepted(), takes);
        QCOMPARE(drop.dropAction(), takes ? Qt::CopyAction : Qt::MoveAction);
    }
}

void DragForwardingTest::aDragBesideTheWindowIsAtItsNearestPlace_data()
{
    QTest::addColumn<QPointF>("position");
    QTest::addColumn<QPointF>("expected");
    QTest::newRow("right of it") << QPointF(1150, 200) << QPointF(111, 100);
    QTest::newRow("above it") << QPointF(1050, 10) << QPointF(50, 0);
    QTest::newRow("below and left of it") << QPointF(900, 900) << QPointF(0, 399);
}

void DragForwardingTest::aDragBesideTheWindowIsAtItsNearestPlace()
{
    QFETCH(const QPointF, position);
    QFETCH(const QPointF, expected);
    Target target;
    QDragMoveEvent move({ 1, 1 }, Qt::CopyAction, &m_data, Qt::LeftButton, Qt::NoModifier);
    forwardDrag(move, target, frame, position);
    QCOMPARE(target.seen, QList<QEvent::Type>{ QEvent::DragMove });
    QCOMPARE(target.position, expected);
}

void DragForwardingTest::itsEndIsTold()
{
    Target target;
    forwardDragLeave(target);
    QCOMPARE(target.seen, QList<QEvent::Type>{ QEvent::DragLeave });
}

QTEST_MAIN(DragForwardingTest)
#include "DragForwardingTest.moc"
