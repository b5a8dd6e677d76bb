#include "FakeMainQueue.h"
#include "OfferedDrags.h"

#include <QTest>

using namespace nookle;

namespace {

class FakeDragOffers final : public DragOffers {
public:
    void ask() override { ++questions; }

    int questions = 0;
};

} // namespace

class OfferedDragsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aDragOfAnotherProgramIsUnderWayFromItsOffer_data();
    void aDragOfAnotherProgramIsUnderWayFromItsOffer();
    void aDragOfThisProgramIsNone();
    void aDragEndsWhenNobodyOwnsIt();
    void aDragEndsWithASignFromElsewhere();
    void itIsAskedAtOnceAndFourTimesASecond();
    void aRefusalAfterAnAnswerIsTheEnd();
    void aRefusalWithoutAnAnswerSaysNothing();
    void aLateAnswerChangesNothing();
    void nobodyIsAskedDuringADragOfThisProgram();
    void anotherDragBeginsAnew();
    void aDragWithoutAnEndIsForgotten();

private:
    FakeMainQueue m_queue;
    std::unique_ptr<FakeDragOffers> m_offers;
    std::unique_ptr<OfferedDrags> m_drags;
    int m_changes = 0;
};

void OfferedDragsTest::init()
{
    m_drags.reset();
    m_offers = std::make_unique<FakeDragOffers>();
    m_drags = std::make_unique<OfferedDrags>(*m_offers, m_queue);
    m_changes = 0;
    m_drags->onChanged = [this] { ++m_changes; };
}

void OfferedDragsTest::aDragOfAnotherProgramIsUnderWayFromItsOffer_data()
{
    QTest::addColumn<DragOwner>("owner");
    QTest::newRow("a Wayland program") << DragOwner::compositor;
    QTest::newRow("an X11 program") << DragOwner::otherProgram;
}

void OfferedDragsTest::aDragOfAnotherProgramIsUnderWayFromItsOffer()
{
    QFETCH(DragOwner, owner);
    QVERIFY(!m_drags->isUnderWay());
    m_offers->onOwnerChanged(owner);
    QVERIFY(m_drags->isUnderWay());
    QVERIFY(!m_drags->isKnownToGoOn());
    QCOMPARE(m_changes, 1);
}

void OfferedDragsTest::aDragOfThisProgramIsNone()
{
    m_offers->onOwnerChanged(DragOwner::thisProgram);
    QVERIFY(!m_drags->isUnderWay());
    m_queue.advance(1);
    QCOMPARE(m_offers->questions, 0);
    QCOMPARE(m_changes, 0);
}

void OfferedDragsTest::aDragEndsWhenNobodyOwnsIt()
{
    m_offers->onOwnerChanged(DragOwner::compositor);
    m_offers->onOwnerChanged(DragOwner::none);
    QVERIFY(!m_drags->isUnderWay());
    QCOMPARE(m_changes, 2);
    m_queue.advance(1);
    QCOMPARE(m_offers->questions, 1);
}

void OfferedDragsTest::aDragEndsWithASignFromElsewhere()
{
    m_offers->onOwnerChanged(DragOwner::compositor);
    m_drags->end();
    QVERIFY(!m_drags->isUnderWay());
    m_drags->end();
    QCOMPARE(m_changes, 2);
}

void OfferedDragsTest::itIsAskedAtOnceAndFourTimesASecond()
{
    m_offers->onOwnerChanged(DragOwner::compositor);
    QCOMPARE(m_offers->questions, 1);
    m_queue.advance(0.249);
    QCOMPARE(m_offers->questions, 1);
    m_queue.advance(0.001);
    QCOMPARE(m_offers->questions, 2);
    m_queue.advance(0.75);
    QCOMPARE(m_offers->questions, 5);
}

void OfferedDragsTest::aRefusalAfterAnAnswerIsTheEnd()
{
    m_offers->onOwnerChanged(DragOwner::compositor);
    m_offers->onAnswered(true);
    QVERIFY(m_drags->isKnownToGoOn());
    QVERIFY(m_drags->isUnderWay());
    m_offers->onAnswered(false);
    QVERIFY(!m_drags->isKnownToGoOn());
    QVERIFY(!m_drags->isUnderWay());
    QCOMPARE(m_changes, 2);
    m_queue.advance(1);
    QCOMPARE(m_offers->questions, 1);
}

void OfferedDragsTest::aRefusalWithoutAnAnswerSaysNothing()
{
    m_offers->onOwnerChanged(DragOwner::compositor);
    m_offers->onAnswered(false);
    QVERIFY(m_drags->isUnderWay());
    QVERIFY(!m_drags->isKnownToGoOn());
}

void OfferedDragsTest::aLateAnswerChangesNothing()
{
    m_offers->onOwnerChanged(DragOwner::compositor);
    m_drags->end();
    m_offers->onAnswered(true);
    QVERIFY(!m_drags->isUnderWay());
    QVERIFY(!m_drags->isKnownToGoOn());
}

void OfferedDragsTest::nobodyIsAskedDuringADragOfThisProgram()
{
    m_offers->onOwnerChanged(DragOwner::compositor);
    m_offers->onOwnerChanged(DragOwner::thisProgram);
    m_queue.advance(1);
    QCOMPARE(m_offers->questions, 1);
}

void OfferedDragsTest::anotherDragBeginsAnew()
{
    m_offers->onOwnerChanged(DragOwner::compositor);
    m_offers->onAnswered(true);
    m_offers->onOwnerChanged(DragOwner::compositor);
    QVERIFY(!m_drags->isKnownToGoOn());
    m_offers->onAnswered(false);
    QVERIFY(m_drags->isUnderWay());
}

void OfferedDragsTest::aDragWithoutAnEndIsForgotten()
{
    m_offers->onOwnerChanged(DragOwner::otherProgram);
    m_queue.advance(299);
    QVERIFY(m_drags->isUnderWay());
    m_queue.advance(1);
    QVERIFY(!m_drags->isUnderWay());
}

QTEST_GUILESS_MAIN(OfferedDragsTest)
#include "OfferedDragsTest.moc"
