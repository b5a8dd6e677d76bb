#include "TrayFinder.h"

#include "CapturedLog.h"
#include "FakeMainQueue.h"
#include "FakeTrayHost.h"

#include <QTest>

using namespace nookle;

class TrayFinderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aTrayThatDrawsIconsItselfIsTakenAtOnce();
    void aTrayThatDrawsIconsItselfIsTakenWhenItComesLater();
    void anEmbeddingTrayIsTakenAfterAWhile();
    void anEmbeddingTrayThatComesLaterIsTakenAfterAWhile();
    void theBetterTrayIsTakenWhenItComesInTime();
    void anEmbeddingTrayThatIsGoneAgainIsNotTaken();
    void aTrayIsFoundOnlyOnce();
    void aDisplayServerWithoutEmbeddingTraysWaitsForTheOther();
    void aDesktopWithoutATrayIsSaidInOneLogLine();

private:
    FakeTrayHost m_notifier;
    FakeTrayHost m_embedding;
    std::unique_ptr<FakeMainQueue> m_queue;
    std::unique_ptr<TrayFinder> m_finder;
    int m_found = 0;
};

void TrayFinderTest::init()
{
    m_finder.reset();
    m_queue = std::make_unique<FakeMainQueue>();
    m_notifier.setPresent(false);
    m_embedding.setPresent(false);
    m_found = 0;
    m_finder = std::make_unique<TrayFinder>(m_notifier, &m_embedding, *m_queue);
    m_finder->onFound = [this] { ++m_found; };
}

void TrayFinderTest::aTrayThatDrawsIconsItselfIsTakenAtOnce()
{
    m_notifier.setPresent(true);
    m_finder->start();
    QCOMPARE(m_found, 1);
}

void TrayFinderTest::aTrayThatDrawsIconsItselfIsTakenWhenItComesLater()
{
    const CapturedLog log;
    m_finder->start();
    m_queue->advance(3600);
    QCOMPARE(m_found, 0);
    m_notifier.setPresent(true);
    QCOMPARE(m_found, 1);
}

void TrayFinderTest::anEmbeddingTrayIsTakenAfterAWhile()
{
    const CapturedLog log;
    m_embedding.setPresent(true);
    m_finder->start();
    m_queue->advance(4.9);
    QCOMPARE(m_found, 0);
    m_queue->advance(0.2);
    QCOMPARE(m_found, 1);
    QVERIFY(log.lines().isEmpty());
}

void TrayFinderTest::anEmbeddingTrayThatComesLaterIsTakenAfterAWhile()
{
    const CapturedLog log;
    m_finder->start();
    m_queue->advance(3600);
    m_embedding.setPresent(true);
    QCOMPARE(m_found, 0);
    m_queue->advance(5.1);
    QCOMPARE(m_found, 1);
}

void TrayFinderTest::theBetterTrayIsTakenWhenItComesInTime()
{
    m_embedding.setPresent(true);
    m_finder->start();
    m_queue->advance(4);
    m_notifier.setPresent(true);
    QCOMPARE(m_found, 1);
    QCOMPARE(m_queue->waitingTasks(), 0);
}

void TrayFinderTest::anEmbeddingTrayThatIsGoneAgainIsNotTaken()
{
    const CapturedLog log;
    m_finder->start();
    m_queue->advance(10);
    m_embedding.setPresent(true);
    m_queue->advance(1);
    m_embedding.setPresent(false);
    m_queue->advance(10);
    QCOMPARE(m_found, 0);
}

void TrayFinderTest::aTrayIsFoundOnlyOnce()
{
    m_notifier.setPresent(true);
    m_finder->start();
    m_notifier.setPresent(false);
    m_embedding.setPresent(true);
    m_notifier.setPresent(true);
    m_queue->advance(10);
    QCOMPARE(m_found, 1);
}

void TrayFinderTest::aDisplayServerWithoutEmbeddingTraysWaitsForTheOther()
{
    const CapturedLog log;
    TrayFinder finder(m_notifier, nullptr, *m_queue);
    int found = 0;
    finder.onFound = [&found] { ++found; };
    finder.start();
    m_queue->advance(10);
    QCOMPARE(found, 0);
    QCOMPARE(log.lines().size(), 1);
    m_notifier.setPresent(true);
    QCOMPARE(found, 1);
}

void TrayFinderTest::aDesktopWithoutATrayIsSaidInOneLogLine()
{
    const CapturedLog log;
    m_finder->start();
    m_queue->advance(4.9);
    QVERIFY(log.lines().isEmpty());
    m_queue->advance(0.2);
    QCOMPARE(log.lines().size(), 1);
    m_embedding.setPresent(true);
    m_embedding.setPresent(false);
    m_queue->advance(10);
    QCOMPARE(log.lines().size(), 1);
}

QTEST_GUILESS_MAIN(TrayFinderTest)
#include "TrayFinderTest.moc"
