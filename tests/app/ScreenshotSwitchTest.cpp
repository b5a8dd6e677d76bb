#include "ScreenshotSwitch.h"

#include "AppSettings.h"
#include "FakeFolderWatch.h"
#include "FakeMainQueue.h"
#include "FakeScreenshotSettings.h"
#include "FakeUserDefaults.h"
#include "ScreenshotWatcher.h"

#include <QTest>

#include <memory>

using namespace nookle;

class ScreenshotSwitchTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void theWatcherStartsOnlyWhenTheSettingIsOn();
    void switchingOnAndOffRepeatedlyStartsAndStopsEachTime();
    void theSettingIsActedUponLater();
    void severalChangesInARowCountAsOne();
    void afterItsEndNothingHappens();

private:
    void start() { m_switch = std::make_unique<ScreenshotSwitch>(*m_settings, *m_watcher, *m_queue); }
    [[nodiscard]] bool isWatching() const { return m_folders->subscriptions() == 1; }
    void set(bool isOn)
    {
        m_settings->setCollectScreenshots(isOn);
        m_queue->runPosted();
    }

    FakeUserDefaults m_defaults;
    std::unique_ptr<AppSettings> m_settings;
    std::unique_ptr<FakeMainQueue> m_queue;
    std::unique_ptr<FakeFolderWatch> m_folders;
    std::unique_ptr<FakeScreenshotSettings> m_screenshotSettings;
    std::unique_ptr<ScreenshotWatcher> m_watcher;
    std::unique_ptr<ScreenshotSwitch> m_switch;
};

void ScreenshotSwitchTest::init()
{
    m_switch.reset();
    m_watcher.reset();
    m_settings = std::make_unique<AppSettings>(m_defaults);
    m_settings->setCollectScreenshots(false);
    m_queue = std::make_unique<FakeMainQueue>();
    m_folders = std::make_unique<FakeFolderWatch>();
    m_screenshotSettings = std::make_unique<FakeScreenshotSettings>();
    m_folders->addFolder(m_screenshotSettings->desktopDirectory());
    m_watcher = std::make_unique<ScreenshotWatcher>(*m_folders, *m_screenshotSettings, *m_queue);
}

void ScreenshotSwitchTest::theWatcherStartsOnlyWhenTheSettingIsOn()
{
    start();
    QVERIFY(!isWatching());
    m_settings->setCollectScreenshots(true);
    start();
    QVERIFY(isWatching());
}

void ScreenshotSwitchTest::switchingOnAndOffRepeatedlyStartsAndStopsEachTime()
{
    start();
    for (int round = 0; round < 3; ++round) {
        set(true);
        QVERIFY(isWatching());
        set(false);
        QVERIFY(!isWatching());
    }
    QCOMPARE(m_folders->watched.size(), std::size_t(3));
}

void ScreenshotSwitchTest::theSettingIsActedUponLater()
{
    start();
    m_settings->setCollectScreenshots(true);
    QVERIFY(!isWatching());
    m_queue->runPosted();
    QVERIFY(isWatching());
}

void ScreenshotSwitchTest::severalChangesInARowCountAsOne()
{
    start();
    m_settings->setCollectScreenshots(true);
    m_settings->setCollectScreenshots(false);
    m_queue->runPosted();
    QVERIFY(m_folders->watched.empty());
    set(true);
    QVERIFY(isWatching());
}

void ScreenshotSwitchTest::afterItsEndNothingHappens()
{
    start();
    m_settings->setCollectScreenshots(true);
    m_switch.reset();
    m_queue->runPosted();
    QVERIFY(!isWatching());
}

QTEST_GUILESS_MAIN(ScreenshotSwitchTest)
#include "ScreenshotSwitchTest.moc"
