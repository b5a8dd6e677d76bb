#include "ContentReader.h"

#include "DropCapture.h"
#include "FakeMainQueue.h"
#include "FakePasteboard.h"

#include <QTest>

using namespace nookle;

class ContentReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void nothingHappensUntilTheOwnerAnswers();
    void whatIsReadIsThereWhenItIsDone();
    void eachFormatIsAskedForOnce();
    void whatIsNotOfferedIsNotAskedFor();
    void contentWithoutFormatsIsDoneAtOnce();
    void aFormatThatIsNotDeliveredIsEmptyAndTheNextIsTried();
    void aReadingThatIsAskedForMeanwhileFollows();
    void anotherContentIsOpenedForEachReading();
    void theEndOfTheReaderEndsTheReading();

private:
    std::unique_ptr<FakeMainQueue> m_queue;
    std::unique_ptr<FakePasteboard> m_pasteboard;
    std::unique_ptr<ContentReader> m_reader;
    /// The text of the first item of each finished reading.
    QStringList m_done;
};

void ContentReaderTest::init()
{
    m_reader.reset();
    m_queue = std::make_unique<FakeMainQueue>();
    m_pasteboard = std::make_unique<FakePasteboard>(*m_queue);
    m_pasteboard->delay = 1;
    m_done.clear();
    m_reader = std::make_unique<ContentReader>(
        [this] { return m_pasteboard->contents(); },
        [](const DropPayload& payload) { static_cast<void>(captureDrop(payload)); },
        [this](const DropPayload& payload) {
            const CapturedDrop drop = captureDrop(payload);
            m_done.append(drop.items.empty() ? QString() : drop.items.front().text.value_or(QStringLiteral("other")));
        });
}

void ContentReaderTest::nothingHappensUntilTheOwnerAnswers()
{
    m_pasteboard->payload.offer("text/plain", "words");
    m_reader->read();
    m_queue->advance(1.5);
    QVERIFY(m_done.isEmpty());
    m_queue->advance(0.5);
    QCOMPARE(m_done, QStringList{ QStringLiteral("words") });
}

void ContentReaderTest::whatIsReadIsThereWhenItIsDone()
{
    m_pasteboard->payload.offer("text/uri-list", "file:///a\r\n").offer("text/plain", "a");
    m_reader->read();
    m_queue->advance(100);
    QCOMPARE(m_done, QStringList{ QStringLiteral("other") });
    QCOMPARE(m_pasteboard->payload.read, QStringList{ QStringLiteral("text/uri-list") });
}

void ContentReaderTest::eachFormatIsAskedForOnce()
{
    m_pasteboard->payload.offer("image/png", "no image").offer("UTF8_STRING", "words").offer("text/plain", "words");
    m_reader->read();
    m_queue->advance(100);
    QCOMPARE(m_done, QStringList{ QStringLiteral("words") });
    QCOMPARE(m_pasteboard->payload.read, QStringList({ QStringLiteral("image/png"), QStringLiteral("UTF8_STRING") }));
}

void ContentReaderTest::whatIsNotOfferedIsNotAskedFor()
{
    m_pasteboard->payload.offer("text/plain", "words");
    ContentReader reader([this] { return m_pasteboard->contents(); },
                         [](const DropPayload& payload) {
                             static_cast<void>(payload.data(QStringLiteral("text/uri-list")));
                             static_cast<void>(payload.data(QStringLiteral("text/plain")));
                         },
                         [this](const DropPayload&) { m_done.append(QStringLiteral("done")); });
    reader.read();
    m_queue->advance(2);
    QCOMPARE(m_done, QStringList{ QStringLiteral("done") });
    QCOMPARE(m_pasteboard->payload.read, QStringList{ QStringLiteral("text/plain") });
}

void ContentReaderTest::contentWithoutFormatsIsDoneAtOnce()
{
    m_reader->read();
    m_queue->advance(1);
    QCOMPARE(m_done, QStringList{ QString() });
}

void ContentReaderTest::aFormatThatIsNotDeliveredIsEmptyAndTheNextIsTried()
{
    m_pasteboard->payload.offer("UTF8_STRING", "").offer("text/plain", "words");
    m_reader->read();
    m_queue->advance(100);
    QCOMPARE(m_done, QStringList{ QStringLiteral("words") });
}

void ContentReaderTest::aReadingThatIsAskedForMeanwhileFollows()
{
    m_pasteboard->payload.offer("text/plain", "first");
    m_reader->read();
    m_queue->advance(1);
    for (int again = 0; again < 3; ++again)
        m_reader->read();
    m_queue->advance(1);
    QCOMPARE(m_done, QStringList{ QStringLiteral("first") });
    m_queue->advance(100);
    QCOMPARE(m_done, QStringList({ QStringLiteral("first"), QStringLiteral("first") }));
}

void ContentReaderTest::anotherContentIsOpenedForEachReading()
{
    m_pasteboard->payload.offer("text/plain", "first");
    m_reader->read();
    m_queue->advance(100);
    m_pasteboard->payload = FakeDropPayload();
    m_pasteboard->payload.offer("text/plain", "second");
    m_reader->read();
    m_queue->advance(100);
    QCOMPARE(m_done, QStringList({ QStringLiteral("first"), QStringLiteral("second") }));
}

void ContentReaderTest::theEndOfTheReaderEndsTheReading()
{
    m_pasteboard->payload.offer("text/plain", "words");
    m_reader->read();
    m_reader.reset();
    m_queue->advance(100);
    QVERIFY(m_done.isEmpty());
}

QTEST_GUILESS_MAIN(ContentReaderTest)
#include "ContentReaderTest.moc"
