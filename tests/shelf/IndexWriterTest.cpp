#include "IndexWriter.h"

#include "FakeMainQueue.h"

#include <QSemaphore>
#include <QTest>

#include <memory>

using namespace nookle;

namespace {

/// A disk that answers only when it is told to. The thread may outlive a test.
struct Disk {
    QSemaphore mayAnswer;
    QSemaphore asked;
    QList<qint64> written;
    std::optional<Failure> failure;
};

} // namespace

class IndexWriterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void nothingIsWaitedFor();
    void whatIsWrittenLastIsWhatStays();
    void finishingWaitsForAll();
    void aFailureIsToldOnceItIsKnown();
    void aFailureThatSomebodyWaitsForIsReturned();
    void aDiskThatDoesNotAnswerIsGivenUp();

private:
    [[nodiscard]] IndexWriter::Write write() const
    {
        return [disk = m_disk](const ShelfIndex& index) {
            disk->asked.release();
            disk->mayAnswer.acquire();
            disk->written.append(index.version);
            return disk->failure;
        };
    }
    [[nodiscard]] static ShelfIndex index(qint64 version) { return { version, {} }; }

    std::shared_ptr<Disk> m_disk;
    FakeMainQueue m_queue;
};

void IndexWriterTest::init()
{
    m_disk = std::make_shared<Disk>();
}

void IndexWriterTest::nothingIsWaitedFor()
{
    IndexWriter writer(write(), m_queue, std::chrono::minutes(1));
    writer.write(index(1));
    QVERIFY(writer.isBusy());
    m_disk->asked.acquire();
    m_disk->mayAnswer.release();
    QTRY_VERIFY_WITH_TIMEOUT((m_queue.advance(0.1), !writer.isBusy()), 50'000);
    QCOMPARE(m_disk->written, QList<qint64>{ 1 });
    QCOMPARE(m_queue.waitingTimers(), 0);
}

void IndexWriterTest::whatIsWrittenLastIsWhatStays()
{
    IndexWriter writer(write(), m_queue, std::chrono::minutes(1));
    for (qint64 version = 1; version <= 4; ++version)
        writer.write(index(version));
    m_disk->mayAnswer.release(4);
    QVERIFY(!writer.finish());
    QVERIFY(!writer.isBusy());
    // The first was under way, and the others have been overtaken.
    QCOMPARE(m_disk->written, (QList<qint64>{ 1, 4 }));
}

void IndexWriterTest::finishingWaitsForAll()
{
    m_disk->mayAnswer.release(2);
    {
        IndexWriter writer(write(), m_queue, std::chrono::minutes(1));
        writer.write(index(1));
        writer.write(index(2));
    }
    QCOMPARE(m_disk->written.constLast(), 2);
}

void IndexWriterTest::aFailureIsToldOnceItIsKnown()
{
    IndexWriter writer(write(), m_queue, std::chrono::minutes(1));
    QStringList told;
    writer.onFailed = [&](const Failure& failure) { told.append(failure.description); };
    m_disk->failure = Failure{ QStringLiteral("full") };
    writer.write(index(1));
    m_disk->mayAnswer.release();
    QTRY_VERIFY_WITH_TIMEOUT((m_queue.advance(0.1), !writer.isBusy()), 50'000);
    QCOMPARE(told, QStringList{ QStringLiteral("full") });
}

void IndexWriterTest::aFailureThatSomebodyWaitsForIsReturned()
{
    IndexWriter writer(write(), m_queue, std::chrono::minutes(1));
    writer.onFailed = [](const Failure&) { QFAIL("told twice"); };
    m_disk->failure = Failure{ QStringLiteral("full") };
    writer.write(index(1));
    m_disk->mayAnswer.release();
    const auto failure = writer.finish();
    QVERIFY(failure && failure->description == QStringLiteral("full"));
}

void IndexWriterTest::aDiskThatDoesNotAnswerIsGivenUp()
{
    auto writer = std::make_unique<IndexWriter>(write(), m_queue, std::chrono::milliseconds(1));
    writer->write(index(1));
    QVERIFY(writer->finish());
    QVERIFY(writer->finish());
    writer.reset();
    m_disk->mayAnswer.release();
}

QTEST_GUILESS_MAIN(IndexWriterTest)
#include "IndexWriterTest.moc"
