#include "ExpirySweep.h"

#include "AppSettings.h"
#include "FakeUserDefaults.h"
#include "StoreFixture.h"

#include <QTest>

#include <memory>

using namespace nookle;

class ExpirySweepTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void withExpiryNeverNeitherTheStartNorAnyTickRemovesAnything();
    void theStartRemovesWhatIsTooOld();
    void eachMinuteRemovesWhatHasBecomeTooOld();
    void aChangedSettingCountsAtTheNextTick();
    void afterItsEndNothingIsRemoved();

private:
    void start() { m_sweep = std::make_unique<ExpirySweep>(*m_settings, *m_store, m_fixture->queue); }
    /// Lets that much time pass, for the clock as for the timer.
    void pass(double seconds)
    {
        m_fixture->now = m_fixture->now.addMSecs(static_cast<qint64>(seconds * 1000));
        m_fixture->queue.advance(seconds);
    }

    std::unique_ptr<StoreFixture> m_fixture;
    std::unique_ptr<ShelfStore> m_store;
    FakeUserDefaults m_defaults;
    std::unique_ptr<AppSettings> m_settings;
    std::unique_ptr<ExpirySweep> m_sweep;
};

void ExpirySweepTest::init()
{
    m_fixture = std::make_unique<StoreFixture>();
    m_store = m_fixture->open();
    m_store->addText(QStringLiteral("words"));
    m_settings = std::make_unique<AppSettings>(m_defaults);
    m_settings->setExpiry(AppSettings::Expiry::hour);
}

void ExpirySweepTest::cleanup()
{
    m_sweep.reset();
    m_store.reset();
    m_fixture.reset();
}

void ExpirySweepTest::withExpiryNeverNeitherTheStartNorAnyTickRemovesAnything()
{
    m_settings->setExpiry(AppSettings::Expiry::never);
    pass(1e6);
    start();
    QCOMPARE(m_store->items().size(), 1);
    pass(3600);
    QCOMPARE(m_store->items().size(), 1);
}

void ExpirySweepTest::theStartRemovesWhatIsTooOld()
{
    pass(3601);
    start();
    QVERIFY(m_store->items().isEmpty());
}

void ExpirySweepTest::eachMinuteRemovesWhatHasBecomeTooOld()
{
    start();
    pass(3600);
    QCOMPARE(m_store->items().size(), 1);
    pass(59);
    QCOMPARE(m_store->items().size(), 1);
    pass(1);
    QVERIFY(m_store->items().isEmpty());
}

void ExpirySweepTest::aChangedSettingCountsAtTheNextTick()
{
    m_settings->setExpiry(AppSettings::Expiry::week);
    start();
    pass(7200);
    QCOMPARE(m_store->items().size(), 1);
    m_settings->setExpiry(AppSettings::Expiry::hour);
    QCOMPARE(m_store->items().size(), 1);
    pass(60);
    QVERIFY(m_store->items().isEmpty());
}

void ExpirySweepTest::afterItsEndNothingIsRemoved()
{
    start();
    m_sweep.reset();
    pass(1e6);
    QCOMPARE(m_store->items().size(), 1);
}

QTEST_GUILESS_MAIN(ExpirySweepTest)
#include "ExpirySweepTest.moc"
