#include "FakeMainQueue.h"
#include "ForgottenDrags.h"

#include <QTest>

using namespace nookle;

namespace {

class FakeForeignDrags final : public ForeignDrags {
public:
    [[nodiscard]] bool watch() override { return true; }
    void dragCame() override { ++timesCame; }
    [[nodiscard]] bool isUnderWay() const override { return m_isUnderWay; }
    void begin() { change(true); }
    void end() override { change(false); }

    int timesCame = 0;

private:
    void change(bool isUnderWay)
    {
        m_isUnderWay = isUnderWay;
        onChanged();
    }

    bool m_isUnderWay = false;
};

} // namespace

class ForgottenDragsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void beginningsAndEndsAreToldOn();
    void aDragIsForgottenAfterFiveMinutes();
    void anotherDragHasItsOwnFiveMinutes();
    void nothingIsToldOfADragThatHasEnded();

private:
    FakeMainQueue m_queue;
    FakeForeignDrags* m_source = nullptr;
    std::unique_ptr<ForgottenDrags> m_drags;
    int m_changes = 0;
};

void ForgottenDragsTest::init()
{
    auto source = std::make_unique<FakeForeignDrags>();
    m_source = source.get();
    m_drags = std::make_unique<ForgottenDrags>(std::move(source), m_queue);
    m_changes = 0;
    m_drags->onChanged = [this] { ++m_changes; };
}

void ForgottenDragsTest::beginningsAndEndsAreToldOn()
{
    m_source->begin();
    QVERIFY(m_drags->isUnderWay());
    QCOMPARE(m_changes, 1);
    m_drags->end();
    QVERIFY(!m_drags->isUnderWay());
    QCOMPARE(m_changes, 2);
    m_drags->dragCame();
    QCOMPARE(m_source->timesCame, 1);
}

void ForgottenDragsTest::aDragIsForgottenAfterFiveMinutes()
{
    m_source->begin();
    m_queue.advance(299.9);
    QVERIFY(m_drags->isUnderWay());
    m_queue.advance(0.1);
    QVERIFY(!m_drags->isUnderWay());
    QCOMPARE(m_changes, 2);
}

void ForgottenDragsTest::anotherDragHasItsOwnFiveMinutes()
{
    m_source->begin();
    m_queue.advance(200);
    m_source->begin();
    m_queue.advance(299);
    QVERIFY(m_drags->isUnderWay());
    m_queue.advance(1);
    QVERIFY(!m_drags->isUnderWay());
}

void ForgottenDragsTest::nothingIsToldOfADragThatHasEnded()
{
    m_source->begin();
    m_source->end();
    m_changes = 0;
    m_queue.advance(400);
    QCOMPARE(m_changes, 0);
}

QTEST_GUILESS_MAIN(ForgottenDragsTest)
#include "ForgottenDragsTest.moc"
