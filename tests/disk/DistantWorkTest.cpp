#include "DistantWork.h"

#include "QtMainQueue.h"

#include <QTest>

#include <atomic>
#include <future>
#include <memory>

using namespace nookle;

class DistantWorkTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theResultComesOnTheMainThread();
    void theWorkForOneMountIsDoneOneByOne();
    void aMountThatIsSilentHoldsUpNoOther();
    void theEndWaitsForNothing();
    void whatHasNotBegunAtTheEndIsDropped();

private:
    /// Work that goes on once `signal` is given, and then adds `name` to what is done.
    [[nodiscard]] DistantWork::Work waiting(const std::shared_future<void>& signal, const QByteArray& name)
    {
        return [this, signal, name]() -> MainQueue::Work {
            signal.wait();
            return [this, name] { m_done.append(name); };
        };
    }
    [[nodiscard]] DistantWork::Work quick(const QByteArray& name)
    {
        std::promise<void> given;
        given.set_value();
        return waiting(given.get_future().share(), name);
    }

    QtMainQueue m_queue;
    QByteArrayList m_done;
};

void DistantWorkTest::theResultComesOnTheMainThread()
{
    m_done.clear();
    DistantWork work(m_queue);
    const auto isMain = [] { return QThread::currentThread() == QCoreApplication::instance()->thread(); };
    bool wasMain = true;
    bool isDone = false;
    work.run("/server", [&]() -> MainQueue::Work {
        wasMain = isMain();
        return [&] { isDone = isMain(); };
    });
    QTRY_VERIFY(isDone);
    QVERIFY(!wasMain);
}

void DistantWorkTest::theWorkForOneMountIsDoneOneByOne()
{
    m_done.clear();
    DistantWork work(m_queue);
    std::promise<void> signal;
    work.run("/server", waiting(signal.get_future().share(), "first"));
    for (const QByteArray name : { "second", "third" })
        work.run("/server", quick(name));
    work.run("/other", quick("other"));
    QTRY_COMPARE(m_done, QByteArrayList{ "other" });
    signal.set_value();
    QTRY_COMPARE(m_done, (QByteArrayList{ "other", "first", "second", "third" }));
    work.run("/server", quick("fourth"));
    QTRY_COMPARE(m_done.size(), 5);
}

void DistantWorkTest::aMountThatIsSilentHoldsUpNoOther()
{
    m_done.clear();
    DistantWork work(m_queue);
    std::promise<void> signal;
    work.run("/silent", waiting(signal.get_future().share(), "silent"));
    for (int number = 0; number < 10; ++number)
        work.run("/server" + QByteArray::number(number), quick("server"));
    QTRY_COMPARE(m_done.size(), 10);
    QVERIFY(!m_done.contains("silent"));
    signal.set_value();
    QTRY_VERIFY(m_done.contains("silent"));
}

void DistantWorkTest::theEndWaitsForNothing()
{
    m_done.clear();
    std::promise<void> signal;
    std::promise<void> begun;
    auto work = std::make_unique<DistantWork>(m_queue);
    auto ended = std::make_shared<std::promise<void>>();
    work->run("/silent", [&begun, ended, released = signal.get_future().share()]() -> MainQueue::Work {
        begun.set_value();
        released.wait();
        return [ended] { qFatal("nobody wants this any more"); };
    });
    begun.get_future().wait();
    // Would never come back if it waited.
    work.reset();
    signal.set_value();
    auto gone = ended->get_future();
    ended.reset();
    // The last owner of the promise is the thread's work, which goes when it has been posted or dropped.
    QCOMPARE(gone.wait_for(std::chrono::seconds(20)), std::future_status::ready);
    QCoreApplication::processEvents();
}

void DistantWorkTest::whatHasNotBegunAtTheEndIsDropped()
{
    m_done.clear();
    std::promise<void> signal;
    auto dropped = std::make_shared<std::promise<void>>();
    auto gone = dropped->get_future();
    auto work = std::make_unique<DistantWork>(m_queue);
    work->run("/silent", waiting(signal.get_future().share(), "first"));
    work->run("/silent", [dropped]() -> MainQueue::Work { qFatal("it is too late"); });
    work.reset();
    dropped.reset();
    signal.set_value();
    QCOMPARE(gone.wait_for(std::chrono::seconds(20)), std::future_status::ready);
    QCoreApplication::processEvents();
    QVERIFY(m_done.isEmpty());
}

QTEST_GUILESS_MAIN(DistantWorkTest)
#include "DistantWorkTest.moc"
