#include "ScreenshotWatcher.h"

#include "CapturedLog.h"
#include "FakeFolderWatch.h"
#include "FakeMainQueue.h"
#include "FakeScreenshotSettings.h"

#include <QTest>

#include <memory>

using namespace nookle;

class ScreenshotWatcherTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void threeScreenshotsInAMomentAreReportedInOneScanInTheOrderOfTheirNames();
    void theScanComesThreeTenthsOfASecondAfterTheLastChange();
    void aFileWithoutTheMarkIsNeverReported();
    void aFileThatIsMarkedWithinOneAndAHalfSecondsIsReportedOnceAtTheRetry();
    void aFileThatIsMarkedTooLateIsNotReported();
    void aRenamedScreenshotIsReportedUnderItsNewName();
    void aNameThatComesBackIsNewAgain();
    void hiddenNamesAreNeverReported();
    void namesOfAnyBytesAreReportedAsTheyAre();
    void aLocationThatDoesNotExistLeavesTheDesktopFolder();
    void theFirstLocationThatExistsIsWatched();
    void theFolderIsChosenAnewAtEachStart();
    void startingTwiceWatchesOnce();
    void whatIsThereAtTheStartIsOld();
    void whatCameWhileStoppedIsOld();
    void aScanThatIsDueWhenStoppedStillRunsOnce();
    void aStoppedWatcherHearsOfNoChange();
    void aFolderThatCannotBeOpenedIsSaidInOneLogLineAndTriedAgainAtTheNextStart();
    void aFolderThatIsRemovedAndMadeAnewIsWatchedAgain();
    void aFolderThatIsReplacedAtOnceIsWatchedAgainAtOnce();
    void whatIsInAFolderThatTakesThePlaceOfAnotherIsNew();
    void aFolderThatIsReplacedFromAboveIsNoticedWithinAMinute();
    void aFolderThatStaysIsNotScannedAgain();
    void aStoppedWatcherDoesNotWaitForItsFolder();
    void whereNoWatchIsLeftTheReasonIsSaidOnceAndTheWatchTriedAgain();
    void whenNoWatchIsLeftForAFolderThatComesBackItIsTriedAgain();
    void aFolderThatCannotBeListedForAWhileIsNewAgainAfterwards();
    void aFileThatVanishesIsIgnored();
    void fiveThousandFilesAreLookedAtOnceAndTriedAgainOnce();
    void aWatcherThatIsGoneDoesNothing();

private:
    [[nodiscard]] QUrl file(const QString& name) const
    {
        return QUrl(QString(m_folder.toString() + QLatin1Char('/') + name));
    }
    void addScreenshot(const QString& name)
    {
        m_settings->marked.insert(file(name));
        m_folders->addEntry(m_folder, name.toUtf8());
    }

    const QUrl m_folder{ QStringLiteral("file:///home/me/Pictures/Screenshots") };
    std::unique_ptr<FakeFolderWatch> m_folders;
    std::unique_ptr<FakeScreenshotSettings> m_settings;
    std::unique_ptr<FakeMainQueue> m_queue;
    std::unique_ptr<ScreenshotWatcher> m_watcher;
    QList<QUrl> m_reported;
};

void ScreenshotWatcherTest::init()
{
    m_watcher.reset();
    m_reported.clear();
    m_queue = std::make_unique<FakeMainQueue>();
    m_folders = std::make_unique<FakeFolderWatch>();
    m_settings = std::make_unique<FakeScreenshotSettings>();
    m_settings->folders = { m_folder };
    m_folders->addFolder(m_folder);
    m_watcher = std::make_unique<ScreenshotWatcher>(*m_folders, *m_settings, *m_queue);
    m_watcher->onScreenshot = [this](const QUrl& url) { m_reported.append(url); };
}

void ScreenshotWatcherTest::threeScreenshotsInAMomentAreReportedInOneScanInTheOrderOfTheirNames()
{
    m_watcher->start();
    const int looks = m_folders->looks;
    addScreenshot(QStringLiteral("c.png"));
    m_queue->advance(0.1);
    addScreenshot(QStringLiteral("a.png"));
    m_queue->advance(0.1);
    addScreenshot(QStringLiteral("b.png"));
    m_queue->advance(1);
    QCOMPARE(
        m_reported,
        (QList<QUrl>{ file(QStringLiteral("a.png")), file(QStringLiteral("b.png")), file(QStringLiteral("c.png")) }));
    QCOMPARE(m_folders->looks, looks + 1);
}

void ScreenshotWatcherTest::theScanComesThreeTenthsOfASecondAfterTheLastChange()
{
    m_watcher->start();
    addScreenshot(QStringLiteral("a.png"));
    m_queue->advance(0.29);
    m_folders->tell();
    m_queue->advance(0.29);
    QVERIFY(m_reported.isEmpty());
    m_queue->advance(0.02);
    QCOMPARE(m_reported.size(), 1);
}

void ScreenshotWatcherTest::aFileWithoutTheMarkIsNeverReported()
{
    m_watcher->start();
    m_folders->addEntry(m_folder, "letter.txt");
    m_queue->advance(10);
    QVERIFY(m_reported.isEmpty());
    QCOMPARE(m_settings->asked.size(), 2);
}

void ScreenshotWatcherTest::aFileThatIsMarkedWithinOneAndAHalfSecondsIsReportedOnceAtTheRetry()
{
    m_watcher->start();
    m_folders->addEntry(m_folder, "late.png");
    m_queue->advance(0.3);
    m_settings->marked.insert(file(QStringLiteral("late.png")));
    m_queue->advance(1.49);
    QVERIFY(m_reported.isEmpty());
    m_queue->advance(0.02);
    QCOMPARE(m_reported, QList<QUrl>{ file(QStringLiteral("late.png")) });
    m_queue->advance(10);
    QCOMPARE(m_reported.size(), 1);
}

void ScreenshotWatcherTest::aFileThatIsMarkedTooLateIsNotReported()
{
    m_watcher->start();
    m_folders->addEntry(m_folder, "late.png");
    m_queue->advance(2);
    m_settings->marked.insert(file(QStringLiteral("late.png")));
    m_folders->tell();
    m_queue->advance(10);
    QVERIFY(m_reported.isEmpty());
}

void ScreenshotWatcherTest::aRenamedScreenshotIsReportedUnderItsNewName()
{
    m_watcher->start();
    addScreenshot(QStringLiteral("old.png"));
    m_queue->advance(1);
    m_folders->removeEntry(m_folder, "old.png");
    addScreenshot(QStringLiteral("new.png"));
    m_queue->advance(1);
    QCOMPARE(m_reported, (QList<QUrl>{ file(QStringLiteral("old.png")), file(QStringLiteral("new.png")) }));
}

void ScreenshotWatcherTest::aNameThatComesBackIsNewAgain()
{
    m_watcher->start();
    addScreenshot(QStringLiteral("a.png"));
    m_queue->advance(1);
    m_folders->removeEntry(m_folder, "a.png");
    m_queue->advance(1);
    addScreenshot(QStringLiteral("a.png"));
    m_queue->advance(1);
    QCOMPARE(m_reported.size(), 2);
}

void ScreenshotWatcherTest::hiddenNamesAreNeverReported()
{
    m_watcher->start();
    addScreenshot(QStringLiteral(".a.png"));
    m_queue->advance(10);
    QVERIFY(m_reported.isEmpty());
    QVERIFY(m_settings->asked.isEmpty());
}

void ScreenshotWatcherTest::namesOfAnyBytesAreReportedAsTheyAre()
{
    m_watcher->start();
    const QByteArray name("caf\xe9 \n%41?#.png");
    const QUrl url = fileUrl(filePath(m_folder) + '/' + name);
    m_settings->marked.insert(url);
    m_folders->addEntry(m_folder, name);
    m_queue->advance(1);
    QCOMPARE(m_reported, QList<QUrl>{ url });
    QVERIFY(filePath(m_reported.first()).endsWith(name));
}

void ScreenshotWatcherTest::aLocationThatDoesNotExistLeavesTheDesktopFolder()
{
    m_settings->folders = { QUrl(QStringLiteral("file:///nowhere")) };
    QCOMPARE(m_watcher->screenshotDirectory(), m_settings->desktopDirectory());
    m_folders->addFolder(m_settings->desktopDirectory());
    m_watcher->start();
    QCOMPARE(m_folders->watched, std::vector<QUrl>{ m_settings->desktopDirectory() });
}

void ScreenshotWatcherTest::theFirstLocationThatExistsIsWatched()
{
    const QUrl other(QStringLiteral("file:///other"));
    m_folders->addFolder(other);
    m_settings->folders = { QUrl(QStringLiteral("file:///nowhere")), other, m_folder };
    QCOMPARE(m_watcher->screenshotDirectory(), other);
}

void ScreenshotWatcherTest::theFolderIsChosenAnewAtEachStart()
{
    m_watcher->start();
    m_watcher->stop();
    const QUrl other(QStringLiteral("file:///other"));
    m_folders->addFolder(other);
    m_settings->folders = { other };
    m_watcher->start();
    QCOMPARE(m_folders->watched, (std::vector<QUrl>{ m_folder, other }));
}

void ScreenshotWatcherTest::startingTwiceWatchesOnce()
{
    m_watcher->start();
    m_watcher->start();
    QCOMPARE(m_folders->watched.size(), std::size_t(1));
}

void ScreenshotWatcherTest::whatIsThereAtTheStartIsOld()
{
    addScreenshot(QStringLiteral("old.png"));
    m_watcher->start();
    m_folders->tell();
    m_queue->advance(10);
    QVERIFY(m_reported.isEmpty());
}

void ScreenshotWatcherTest::whatCameWhileStoppedIsOld()
{
    m_watcher->start();
    m_watcher->stop();
    addScreenshot(QStringLiteral("meanwhile.png"));
    m_watcher->start();
    m_folders->tell();
    m_queue->advance(10);
    QVERIFY(m_reported.isEmpty());
}

void ScreenshotWatcherTest::aScanThatIsDueWhenStoppedStillRunsOnce()
{
    m_watcher->start();
    addScreenshot(QStringLiteral("a.png"));
    m_watcher->stop();
    m_queue->advance(10);
    QCOMPARE(m_reported.size(), 1);
}

void ScreenshotWatcherTest::aStoppedWatcherHearsOfNoChange()
{
    m_watcher->start();
    m_watcher->stop();
    QCOMPARE(m_folders->subscriptions(), std::size_t(0));
    addScreenshot(QStringLiteral("a.png"));
    m_queue->advance(10);
    QVERIFY(m_reported.isEmpty());
}

void ScreenshotWatcherTest::aFolderThatCannotBeOpenedIsSaidInOneLogLineAndTriedAgainAtTheNextStart()
{
    const CapturedLog log;
    m_folders->isUnreadable = true;
    m_watcher->start();
    QCOMPARE(log.lines(),
             QStringList{ QStringLiteral("Nookle: screenshot folder not readable: /home/me/Pictures/Screenshots") });
    m_queue->advance(60);
    QCOMPARE(log.lines().size(), 1);
    m_folders->isUnreadable = false;
    m_watcher->start();
    addScreenshot(QStringLiteral("a.png"));
    m_queue->advance(1);
    QCOMPARE(m_reported.size(), 1);
}

void ScreenshotWatcherTest::aFolderThatIsRemovedAndMadeAnewIsWatchedAgain()
{
    const CapturedLog log;
    m_watcher->start();
    m_folders->removeFolder(m_folder);
    m_queue->advance(600);
    m_settings->marked.insert(file(QStringLiteral("first.png")));
    m_folders->addFolder(m_folder, { "first.png", "letter.txt" });
    m_queue->advance(10);
    QCOMPARE(m_reported, QList<QUrl>{ file(QStringLiteral("first.png")) });
    addScreenshot(QStringLiteral("second.png"));
    m_queue->advance(1);
    QCOMPARE(m_reported.size(), 2);
    QCOMPARE(m_folders->subscriptions(), std::size_t(1));
    QVERIFY(log.lines().isEmpty());
}

void ScreenshotWatcherTest::aFolderThatIsReplacedAtOnceIsWatchedAgainAtOnce()
{
    m_watcher->start();
    m_folders->removeFolder(m_folder);
    m_folders->addFolder(m_folder);
    m_queue->advance(0.4);
    addScreenshot(QStringLiteral("a.png"));
    m_queue->advance(0.4);
    QCOMPARE(m_reported, QList<QUrl>{ file(QStringLiteral("a.png")) });
}

// The tool may give the picture a name that it gave one in the folder before.
void ScreenshotWatcherTest::whatIsInAFolderThatTakesThePlaceOfAnotherIsNew()
{
    addScreenshot(QStringLiteral("a.png"));
    m_watcher->start();
    m_folders->removeFolder(m_folder);
    m_folders->addFolder(m_folder, { "a.png" });
    m_queue->advance(10);
    QCOMPARE(m_reported, QList<QUrl>{ file(QStringLiteral("a.png")) });
    m_queue->advance(600);
    QCOMPARE(m_reported.size(), 1);
}

void ScreenshotWatcherTest::aFolderThatIsReplacedFromAboveIsNoticedWithinAMinute()
{
    m_watcher->start();
    m_settings->marked.insert(file(QStringLiteral("first.png")));
    m_folders->replaceFromAbove(m_folder, { "first.png" });
    m_queue->advance(61);
    QCOMPARE(m_reported, QList<QUrl>{ file(QStringLiteral("first.png")) });
    addScreenshot(QStringLiteral("second.png"));
    m_queue->advance(1);
    QCOMPARE(m_reported.size(), 2);
    QCOMPARE(m_folders->subscriptions(), std::size_t(1));
}

void ScreenshotWatcherTest::aFolderThatStaysIsNotScannedAgain()
{
    m_watcher->start();
    const int looks = m_folders->looks;
    m_queue->advance(600);
    QCOMPARE(m_folders->looks, looks);
    m_watcher->stop();
    QCOMPARE(m_queue->waitingTimers(), 0);
}

void ScreenshotWatcherTest::aStoppedWatcherDoesNotWaitForItsFolder()
{
    m_watcher->start();
    m_folders->removeFolder(m_folder);
    m_queue->advance(10);
    m_watcher->stop();
    QCOMPARE(m_queue->waitingTasks(), 0);
    m_folders->addFolder(m_folder);
    m_queue->advance(60);
    QCOMPARE(m_folders->subscriptions(), std::size_t(0));
    m_watcher->start();
    QCOMPARE(m_folders->subscriptions(), std::size_t(1));
}

void ScreenshotWatcherTest::whereNoWatchIsLeftTheReasonIsSaidOnceAndTheWatchTriedAgain()
{
    const CapturedLog log;
    const QString line =
        QStringLiteral("Nookle: no watch left for the screenshot folder, other programs have them all: "
                       "/home/me/Pictures/Screenshots");
    addScreenshot(QStringLiteral("old.png"));
    m_folders->hasNoWatchLeft = true;
    m_watcher->start();
    m_watcher->start();
    m_queue->advance(600);
    QCOMPARE(log.lines(), QStringList{ line });
    addScreenshot(QStringLiteral("meanwhile.png"));
    m_folders->hasNoWatchLeft = false;
    m_queue->advance(61);
    addScreenshot(QStringLiteral("new.png"));
    m_queue->advance(1);
    QCOMPARE(m_reported, (QList<QUrl>{ file(QStringLiteral("meanwhile.png")), file(QStringLiteral("new.png")) }));
    QCOMPARE(log.lines().size(), 1);
}

void ScreenshotWatcherTest::whenNoWatchIsLeftForAFolderThatComesBackItIsTriedAgain()
{
    const CapturedLog log;
    m_watcher->start();
    m_folders->hasNoWatchLeft = true;
    m_folders->removeFolder(m_folder);
    m_folders->addFolder(m_folder);
    m_queue->advance(30);
    QCOMPARE(log.lines().size(), 1);
    m_folders->hasNoWatchLeft = false;
    m_queue->advance(60);
    addScreenshot(QStringLiteral("a.png"));
    m_queue->advance(1);
    QCOMPARE(m_reported, QList<QUrl>{ file(QStringLiteral("a.png")) });
}

void ScreenshotWatcherTest::aFolderThatCannotBeListedForAWhileIsNewAgainAfterwards()
{
    addScreenshot(QStringLiteral("old.png"));
    m_folders->addEntry(m_folder, "letter.txt");
    m_watcher->start();
    m_folders->isUnreadable = true;
    m_folders->tell();
    m_queue->advance(1);
    m_folders->isUnreadable = false;
    m_folders->tell();
    m_queue->advance(10);
    QCOMPARE(m_reported, QList<QUrl>{ file(QStringLiteral("old.png")) });
}

void ScreenshotWatcherTest::aFileThatVanishesIsIgnored()
{
    m_watcher->start();
    m_folders->addEntry(m_folder, "a.png");
    m_queue->advance(0.5);
    m_folders->removeEntry(m_folder, "a.png");
    m_queue->advance(10);
    QVERIFY(m_reported.isEmpty());
}

void ScreenshotWatcherTest::fiveThousandFilesAreLookedAtOnceAndTriedAgainOnce()
{
    constexpr int count = 5000;
    m_watcher->start();
    const int looks = m_folders->looks;
    for (int index = 0; index < count; ++index)
        m_folders->addEntry(m_folder, QByteArray::number(index));
    m_queue->advance(0.3);
    QCOMPARE(m_folders->looks, looks + 1);
    QCOMPARE(m_settings->asked.size(), count);
    QCOMPARE(m_queue->waitingTasks(), 1);
    m_queue->advance(10);
    QCOMPARE(m_settings->asked.size(), 2 * count);
    QCOMPARE(m_queue->waitingTasks(), 0);
}

void ScreenshotWatcherTest::aWatcherThatIsGoneDoesNothing()
{
    m_watcher->start();
    m_folders->addEntry(m_folder, "a.png");
    m_queue->advance(0.5);
    addScreenshot(QStringLiteral("b.png"));
    m_watcher.reset();
    QCOMPARE(m_folders->subscriptions(), std::size_t(0));
    QCOMPARE(m_queue->waitingTasks(), 0);
    m_queue->advance(10);
    QVERIFY(m_reported.isEmpty());
}

QTEST_GUILESS_MAIN(ScreenshotWatcherTest)
#include "ScreenshotWatcherTest.moc"
