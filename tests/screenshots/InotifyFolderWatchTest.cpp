#include "InotifyFolderWatch.h"

#include "FileUrl.h"
#include "MountList.h"
#include "Mounts.h"
#include "TemporaryFolder.h"

#include <QTest>

#include <sys/resource.h>

#include <filesystem>
#include <memory>

using namespace nookle;

class InotifyFolderWatchTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void theEntriesAreListedAsTheBytesThatTheyAre();
    void whatCannotBeListedIsEmpty();
    void aFolderIsToldFromAFile();
    void entriesThatComeAndGoAndChangeTheirNamesAreTold();
    void whatIsWrittenIntoAFileIsNotTold();
    void whatHappensInAFolderBelowIsNotTold();
    void whatCannotBeOpenedIsNotWatched();
    void whereNoWatchIsLeftThatIsSaid();
    void aFolderThatMayNeverAnswerIsNone();
    void aWatchThatIsGoneTellsNothing();
    void aWatchMayEndWhileItTells();
    void aFolderThatIsDeletedIsToldAndQuietAfterwards();
    void aFolderThatIsMadeAnewIsNotTheOneThatIsWatched();
    void aFolderThatIsReplacedIsToldAndQuietAfterwards();
    void aFolderWhoseParentIsReplacedIsNotInPlace();
    void fiveThousandFilesAtOnceAreToldAtLeastOnce();

private:
    /// Takes what has been told so far.
    [[nodiscard]] int takeChanges()
    {
        QCoreApplication::processEvents();
        return std::exchange(m_changes, 0);
    }
    [[nodiscard]] std::unique_ptr<FolderSubscription> watch(const QByteArray& path)
    {
        return m_watch.watch(fileUrl(path), [this] { ++m_changes; }).subscription;
    }

    std::unique_ptr<TemporaryFolder> m_folder;
    InotifyFolderWatch m_watch{ std::make_shared<Mounts>("/") };
    int m_changes = 0;
};

void InotifyFolderWatchTest::init()
{
    m_folder = std::make_unique<TemporaryFolder>();
    m_changes = 0;
}

void InotifyFolderWatchTest::theEntriesAreListedAsTheBytesThatTheyAre()
{
    m_folder->makeFile("b");
    m_folder->makeFile("caf\xe9\n");
    m_folder->makeFile(".hidden");
    m_folder->makeFolder("a");
    const std::set<QByteArray> expected{ ".hidden", "a", "b", "caf\xe9\n" };
    QVERIFY(m_watch.entryNames(fileUrl(m_folder->path())) == expected);
}

void InotifyFolderWatchTest::whatCannotBeListedIsEmpty()
{
    QVERIFY(m_watch.entryNames(fileUrl(m_folder->path("nowhere"))).empty());
    QVERIFY(m_watch.entryNames(fileUrl(m_folder->makeFile("file"))).empty());
    QVERIFY(m_watch.entryNames(QUrl(QStringLiteral("https://example.com/"))).empty());
}

void InotifyFolderWatchTest::aFolderIsToldFromAFile()
{
    QVERIFY(m_watch.isFolder(fileUrl(m_folder->path())));
    makeLink(m_folder->path(), m_folder->path("link"));
    QVERIFY(m_watch.isFolder(fileUrl(m_folder->path("link"))));
    QVERIFY(!m_watch.isFolder(fileUrl(m_folder->makeFile("file"))));
    QVERIFY(!m_watch.isFolder(fileUrl(m_folder->path("nowhere"))));
    QVERIFY(!m_watch.isFolder(QUrl()));
}

void InotifyFolderWatchTest::entriesThatComeAndGoAndChangeTheirNamesAreTold()
{
    const auto subscription = watch(m_folder->path());
    QVERIFY(subscription);
    m_folder->makeFile("a");
    QVERIFY(takeChanges() > 0);
    moveFile(m_folder->path("a"), m_folder->path("b"));
    QVERIFY(takeChanges() > 0);
    deleteFile(m_folder->path("b"));
    QVERIFY(takeChanges() > 0);
    QCOMPARE(takeChanges(), 0);
}

void InotifyFolderWatchTest::whatIsWrittenIntoAFileIsNotTold()
{
    m_folder->makeFile("a");
    const auto subscription = watch(m_folder->path());
    m_folder->makeFile("a", "other content");
    QCOMPARE(takeChanges(), 0);
}

void InotifyFolderWatchTest::whatHappensInAFolderBelowIsNotTold()
{
    m_folder->makeFolder("below");
    const auto subscription = watch(m_folder->path());
    m_folder->makeFile("below/a");
    QCOMPARE(takeChanges(), 0);
}

void InotifyFolderWatchTest::whatCannotBeOpenedIsNotWatched()
{
    QVERIFY(!watch(m_folder->path("nowhere")));
    QVERIFY(!watch(m_folder->makeFile("file")));
    QCOMPARE(m_watch.watch(QUrl(QStringLiteral("https://example.com/")), [] {}).result,
             WatchedFolder::Result::unreadable);
}

void InotifyFolderWatchTest::whereNoWatchIsLeftThatIsSaid()
{
    rlimit before{};
    QCOMPARE(::getrlimit(RLIMIT_NOFILE, &before), 0);
    // Each kind of inotify's limits has the same sign for the caller as this one, which can be set here.
    const rlimit none{ 0, before.rlim_max };
    QCOMPARE(::setrlimit(RLIMIT_NOFILE, &none), 0);
    const WatchedFolder watched = m_watch.watch(fileUrl(m_folder->path()), [] {});
    QCOMPARE(::setrlimit(RLIMIT_NOFILE, &before), 0);
    QVERIFY(!watched.subscription);
    QCOMPARE(watched.result, WatchedFolder::Result::noWatchLeft);
}

void InotifyFolderWatchTest::aFolderThatMayNeverAnswerIsNone()
{
    const QUrl server = fileUrl(m_folder->makeFolder("server"));
    m_folder->makeFile("server/a");
    MountList list;
    list.add(m_folder->path("server"), "nfs");
    InotifyFolderWatch watch(std::make_shared<Mounts>("/", list.path()));
    QVERIFY(watch.isFolder(fileUrl(m_folder->path())));
    QVERIFY(!watch.isFolder(server));
    QVERIFY(watch.entryNames(server).empty());
    QCOMPARE(watch.watch(server, [] {}).result, WatchedFolder::Result::unreadable);
}

void InotifyFolderWatchTest::aWatchThatIsGoneTellsNothing()
{
    auto subscription = watch(m_folder->path());
    m_folder->makeFile("a");
    subscription.reset();
    QCOMPARE(takeChanges(), 0);
}

void InotifyFolderWatchTest::aWatchMayEndWhileItTells()
{
    std::unique_ptr<FolderSubscription> subscription;
    const auto end = [&] {
        subscription.reset();
        ++m_changes;
    };
    subscription = m_watch.watch(fileUrl(m_folder->path()), end).subscription;
    m_folder->makeFile("a");
    QCOMPARE(takeChanges(), 1);
}

void InotifyFolderWatchTest::aFolderThatIsDeletedIsToldAndQuietAfterwards()
{
    const QByteArray path = m_folder->makeFolder("shots");
    m_folder->makeFile("shots/a");
    const auto subscription = watch(path);
    QVERIFY(subscription->isInPlace());
    std::filesystem::remove_all(path.toStdString());
    QVERIFY(takeChanges() > 0);
    QVERIFY(!subscription->isInPlace());
    QCOMPARE(takeChanges(), 0);
    QVERIFY(m_watch.entryNames(fileUrl(path)).empty());
}

// The new folder may well get the number of the old one.
void InotifyFolderWatchTest::aFolderThatIsMadeAnewIsNotTheOneThatIsWatched()
{
    const QByteArray path = m_folder->makeFolder("shots");
    const auto subscription = watch(path);
    deleteFile(path);
    m_folder->makeFolder("shots");
    QVERIFY(takeChanges() > 0);
    QVERIFY(!subscription->isInPlace());
}

void InotifyFolderWatchTest::aFolderThatIsReplacedIsToldAndQuietAfterwards()
{
    const QByteArray path = m_folder->makeFolder("shots");
    const auto subscription = watch(path);
    moveFile(path, m_folder->path("old shots"));
    m_folder->makeFolder("shots");
    QVERIFY(takeChanges() > 0);
    QVERIFY(!subscription->isInPlace());
    m_folder->makeFile("shots/a");
    QCOMPARE(takeChanges(), 0);
}

void InotifyFolderWatchTest::aFolderWhoseParentIsReplacedIsNotInPlace()
{
    m_folder->makeFolder("pictures");
    const auto subscription = watch(m_folder->makeFolder("pictures/shots"));
    moveFile(m_folder->path("pictures"), m_folder->path("old pictures"));
    QVERIFY(!subscription->isInPlace());
    m_folder->makeFolder("pictures");
    m_folder->makeFolder("pictures/shots");
    QVERIFY(!subscription->isInPlace());
    QCOMPARE(takeChanges(), 0);
}

void InotifyFolderWatchTest::fiveThousandFilesAtOnceAreToldAtLeastOnce()
{
    constexpr int count = 5000;
    const auto subscription = watch(m_folder->path());
    for (int index = 0; index < count; ++index)
        m_folder->makeFile(QByteArray::number(index), "");
    QVERIFY(takeChanges() > 0);
    QCOMPARE(takeChanges(), 0);
    QCOMPARE(m_watch.entryNames(fileUrl(m_folder->path())).size(), std::size_t(count));
}

QTEST_GUILESS_MAIN(InotifyFolderWatchTest)
#include "InotifyFolderWatchTest.moc"
