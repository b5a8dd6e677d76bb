#include "InotifyFolderWatch.h"

#include "FileUrl.h"
#include "TemporaryFolder.h"

#include <QTest>

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
    void aWatchThatIsGoneTellsNothing();
    void aWatchMayEndWhileItTells();
    void aFolderThatIsDeletedIsQuietAfterwards();
    void aFolderThatIsReplacedIsQuietAfterwards();
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
        return m_watch.watch(fileUrl(path), [this] { ++m_changes; });
    }

    std::unique_ptr<TemporaryFolder> m_folder;
    InotifyFolderWatch m_watch;
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
    QVERIFY(!m_watch.watch(QUrl(QStringLiteral("https://example.com/")), [] {}));
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
    subscription = m_watch.watch(fileUrl(m_folder->path()), [&] {
        subscription.reset();
        ++m_changes;
    });
    m_folder->makeFile("a");
    QCOMPARE(takeChanges(), 1);
}

void InotifyFolderWatchTest::aFolderThatIsDeletedIsQuietAfterwards()
{
    const QByteArray path = m_folder->makeFolder("shots");
    m_folder->makeFile("shots/a");
    const auto subscription = watch(path);
    std::filesystem::remove_all(path.toStdString());
    QVERIFY(takeChanges() > 0);
    QCOMPARE(takeChanges(), 0);
    QVERIFY(m_watch.entryNames(fileUrl(path)).empty());
}

void InotifyFolderWatchTest::aFolderThatIsReplacedIsQuietAfterwards()
{
    const QByteArray path = m_folder->makeFolder("shots");
    const auto subscription = watch(path);
    moveFile(path, m_folder->path("old shots"));
    m_folder->makeFolder("shots");
    (void)takeChanges();
    m_folder->makeFile("shots/a");
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
