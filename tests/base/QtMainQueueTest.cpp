#include "QtMainQueue.h"

#include <QElapsedTimer>
#include <QTest>
#include <QThread>

#include <memory>
#include <vector>

using namespace nookle;

class QtMainQueueTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void delayedWorkRunsOnceWhenItsTimeHasCome();
    void delayedWorkNeverRunsInsideTheCall();
    void destroyingATaskCancelsIt();
    void aTaskMayBeDestroyedByItsOwnWork();
    void repeatedWorkRunsAgainAndAgain();
    void destroyingATimerStopsIt();
    void aTimerMayBeDestroyedByItsOwnWork();
    void postedWorkRunsInOrderAfterTheCall();
    void workPostedByAnotherThreadRunsOnTheMainThread();
    void workThatIsStillWaitingDiesWithTheQueue();
};

void QtMainQueueTest::delayedWorkRunsOnceWhenItsTimeHasCome()
{
    QtMainQueue queue;
    QElapsedTimer clock;
    clock.start();
    std::vector<qint64> times;
    const auto task = queue.after(0.03, [&] { times.push_back(clock.elapsed()); });
    bool isLater = false;
    const auto later = queue.after(0.1, [&] { isLater = true; });
    QTRY_VERIFY(isLater);
    QCOMPARE(times.size(), 1U);
    QVERIFY2(times.front() >= 29, qPrintable(QString::number(times.front())));
}

void QtMainQueueTest::delayedWorkNeverRunsInsideTheCall()
{
    QtMainQueue queue;
    int runs = 0;
    const auto now = queue.after(0, [&] { ++runs; });
    const auto past = queue.after(-1, [&] { ++runs; });
    QCOMPARE(runs, 0);
    QTRY_COMPARE(runs, 2);
}

void QtMainQueueTest::destroyingATaskCancelsIt()
{
    QtMainQueue queue;
    bool isCancelledRun = false;
    bool isLater = false;
    auto cancelled = queue.after(0.001, [&] { isCancelledRun = true; });
    const auto later = queue.after(0.02, [&] { isLater = true; });
    cancelled.reset();
    QTRY_VERIFY(isLater);
    QVERIFY(!isCancelledRun);
}

void QtMainQueueTest::aTaskMayBeDestroyedByItsOwnWork()
{
    QtMainQueue queue;
    std::unique_ptr<Cancellable> task;
    QString seen;
    const QString captured = QStringLiteral("the closure outlives its task");
    task = queue.after(0, [&task, &seen, captured] {
        task.reset();
        seen = captured;
    });
    QTRY_COMPARE(seen, captured);
    QVERIFY(!task);
}

void QtMainQueueTest::repeatedWorkRunsAgainAndAgain()
{
    QtMainQueue queue;
    int runs = 0;
    const auto timer = queue.every(0.002, [&] { ++runs; });
    QCOMPARE(runs, 0);
    QTRY_VERIFY(runs >= 3);
}

void QtMainQueueTest::destroyingATimerStopsIt()
{
    QtMainQueue queue;
    int runs = 0;
    auto timer = queue.every(0.002, [&] { ++runs; });
    QTRY_VERIFY(runs >= 1);
    timer.reset();
    const int runsBefore = runs;
    bool isLater = false;
    const auto later = queue.after(0.02, [&] { isLater = true; });
    QTRY_VERIFY(isLater);
    QCOMPARE(runs, runsBefore);
}

void QtMainQueueTest::aTimerMayBeDestroyedByItsOwnWork()
{
    QtMainQueue queue;
    std::unique_ptr<Cancellable> timer;
    QString seen;
    const QString captured = QStringLiteral("the closure outlives its timer");
    timer = queue.every(0.001, [&timer, &seen, captured] {
        timer.reset();
        seen += captured;
    });
    bool isLater = false;
    const auto later = queue.after(0.02, [&] { isLater = true; });
    QTRY_VERIFY(isLater);
    QCOMPARE(seen, captured);
}

void QtMainQueueTest::postedWorkRunsInOrderAfterTheCall()
{
    QtMainQueue queue;
    std::vector<int> order;
    queue.post([&] {
        order.push_back(1);
        queue.post([&] { order.push_back(3); });
        order.push_back(2);
    });
    QVERIFY(order.empty());
    QTRY_COMPARE(order, std::vector<int>({ 1, 2, 3 }));
}

void QtMainQueueTest::workPostedByAnotherThreadRunsOnTheMainThread()
{
    QtMainQueue queue;
    const QThread* ranOn = nullptr;
    const std::unique_ptr<QThread> thread(
        QThread::create([&] { queue.post([&] { ranOn = QThread::currentThread(); }); }));
    thread->start();
    thread->wait();
    QCOMPARE(ranOn, nullptr);
    QTRY_COMPARE(ranOn, QThread::currentThread());
}

void QtMainQueueTest::workThatIsStillWaitingDiesWithTheQueue()
{
    auto queue = std::make_unique<QtMainQueue>();
    bool isRun = false;
    queue->post([&] { isRun = true; });
    queue.reset();
    QtMainQueue other;
    bool isLater = false;
    other.post([&] { isLater = true; });
    QTRY_VERIFY(isLater);
    QVERIFY(!isRun);
}

QTEST_GUILESS_MAIN(QtMainQueueTest)
#include "QtMainQueueTest.moc"
