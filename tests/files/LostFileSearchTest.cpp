#include "LostFileSearch.h"

#include "MountList.h"
#include "Mounts.h"
#include "QtMainQueue.h"
#include "TemporaryFolder.h"

#include <QTest>

#include <chrono>
#include <memory>

using namespace nookle;
using namespace std::chrono_literals;

class LostFileSearchTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void aFileIsFoundAnywhereBelowHome_data();
    void aFileIsFoundAnywhereBelowHome();
    void nothingIsSearchedInsideTheCall();
    void filesWantedInOneTurnAreFoundInOnePass();
    void filesWantedDuringAPassAreFoundInTheNext();
    void linksAreNotFollowed();
    void aLinkItselfIsFound();
    void otherVolumesAreLeftAlone();
    void whatIsMountedBelowIsNotOpened();
    void aFolderThatCannotBeOpenedIsSkipped();
    void aMissingHomeFindsNothing();
    void whatWasNotFoundIsLeftAloneForAWhile();
    void aForgottenReferenceIsNotReported();
    void aForgottenFailureIsSearchedAgainAtOnce();
    void aDestroyedSearchReportsNothing();

private:
    [[nodiscard]] std::unique_ptr<LostFileSearch> makeSearch(const QByteArray& home)
    {
        return makeSearch(home, std::make_shared<Mounts>(home));
    }
    [[nodiscard]] std::unique_ptr<LostFileSearch> makeSearch(const QByteArray& home, std::shared_ptr<Mounts> mounts)
    {
        auto search = std::make_unique<LostFileSearch>(home, std::move(mounts), *m_queue, [this] { return m_now; });
        search->onFound = [this] { ++m_passesWithSuccess; };
        return search;
    }

    std::unique_ptr<TemporaryFolder> m_home;
    std::unique_ptr<QtMainQueue> m_queue;
    std::unique_ptr<LostFileSearch> m_search;
    std::chrono::steady_clock::time_point m_now;
    int m_passesWithSuccess = 0;
};

void LostFileSearchTest::init()
{
    m_home = std::make_unique<TemporaryFolder>();
    m_queue = std::make_unique<QtMainQueue>();
    m_now = {};
    m_passesWithSuccess = 0;
    m_search = makeSearch(m_home->path());
}

void LostFileSearchTest::cleanup()
{
    m_search.reset();
    m_queue.reset();
    m_home.reset();
}

void LostFileSearchTest::aFileIsFoundAnywhereBelowHome_data()
{
    QTest::addColumn<QByteArray>("folder");
    QTest::newRow("in home itself") << QByteArray(".");
    QTest::newRow("below") << QByteArray("a/b/c");
    QTest::newRow("hidden") << QByteArray(".hidden/.more");
    QTest::newRow("odd names") << QByteArray("a\nb/%2F/\xff\xfe");
    QTest::newRow("very deep") << QByteArray("d/").repeated(700);
}

void LostFileSearchTest::aFileIsFoundAnywhereBelowHome()
{
    QFETCH(QByteArray, folder);
    m_home->makeFolder(folder);
    m_home->makeFolder("other/folders");
    const QByteArray path = m_home->makeFile(folder + "/file");
    const auto identity = FileIdentity::of(path);
    QVERIFY(identity);
    m_search->want("reference", *identity);
    QVERIFY(m_search->isSearching());
    QTRY_VERIFY(!m_search->isSearching());
    QCOMPARE(m_passesWithSuccess, 1);
    QVERIFY(m_search->found("reference"));
    QVERIFY(FileIdentity::of(*m_search->found("reference")) == identity);
}

void LostFileSearchTest::nothingIsSearchedInsideTheCall()
{
    m_search->want("reference", *FileIdentity::of(m_home->makeFile("file")));
    QCOMPARE(m_passesWithSuccess, 0);
    QVERIFY(!m_search->found("reference"));
}

void LostFileSearchTest::filesWantedInOneTurnAreFoundInOnePass()
{
    for (const QByteArray name : { "one", "two", "three" })
        m_search->want(name, *FileIdentity::of(m_home->makeFile(name)));
    QTRY_VERIFY(!m_search->isSearching());
    QCOMPARE(m_passesWithSuccess, 1);
    for (const QByteArray name : { "one", "two", "three" })
        QCOMPARE(m_search->found(name), m_home->path(name));
}

void LostFileSearchTest::filesWantedDuringAPassAreFoundInTheNext()
{
    const auto one = FileIdentity::of(m_home->makeFile("one"));
    const auto two = FileIdentity::of(m_home->makeFile("two"));
    m_search->want("one", *one);
    // Behind the beginning of the pass in the queue, before its end.
    m_queue->post([&] { m_search->want("two", *two); });
    QTRY_COMPARE(m_passesWithSuccess, 2);
    QVERIFY(!m_search->isSearching());
    QCOMPARE(m_search->found("two"), m_home->path("two"));
    QCOMPARE(m_search->found("one"), m_home->path("one"));
}

void LostFileSearchTest::linksAreNotFollowed()
{
    const TemporaryFolder outside;
    const auto identity = FileIdentity::of(outside.makeFile("file"));
    makeLink(outside.path(), m_home->path("link"));
    makeLink(".", m_home->path("circle"));
    m_search->want("reference", *identity);
    QTRY_VERIFY(!m_search->isSearching());
    QVERIFY(!m_search->found("reference"));
}

void LostFileSearchTest::aLinkItselfIsFound()
{
    makeLink("file", m_home->path("link"));
    m_home->makeFile("file");
    m_search->want("reference", *FileIdentity::of(m_home->path("link")));
    QTRY_VERIFY(!m_search->isSearching());
    QCOMPARE(m_search->found("reference"), m_home->path("link"));
}

void LostFileSearchTest::otherVolumesAreLeftAlone()
{
    struct stat devices {};
    struct stat memory {};
    QCOMPARE(::stat("/dev", &devices), 0);
    if (::stat("/dev/shm", &memory) != 0 || devices.st_dev == memory.st_dev)
        QSKIP("no volume is mounted below another one here");

    QByteArray path = "/dev/shm/nookle-test-XXXXXX";
    const FileDescriptor file(::mkstemp(path.data()));
    QVERIFY(file.isOpen());
    const auto below = makeSearch("/dev");
    below->want("reference", *FileIdentity::of(path));
    QTRY_VERIFY(!below->isSearching());
    const auto inside = makeSearch("/dev/shm");
    inside->want("reference", *FileIdentity::of(path));
    QTRY_VERIFY(!inside->isSearching());
    deleteFile(path);
    QVERIFY(!below->found("reference"));
    QCOMPARE(inside->found("reference"), path);
}

// The list says that something is mounted where the folders are, so that opening them would find the files.
void LostFileSearchTest::whatIsMountedBelowIsNotOpened()
{
    m_home->makeFolder("disk/below");
    m_home->makeFolder("server");
    m_home->makeFolder("folder");
    makeLink(m_home->path(), m_home->path("home"));
    MountList list;
    list.add(m_home->path("disk"), "ext4");
    list.add(m_home->path("server"), "nfs");
    list.add(m_home->path("single"), "fuse.portal");
    for (const QByteArray name : { "disk/below/one", "server/two", "single", "folder/three" })
        m_home->makeFile(name);
    for (const QByteArray& home : { m_home->path(), m_home->path("home") }) {
        const auto search = makeSearch(home, std::make_shared<Mounts>(home, list.path()));
        for (const QByteArray name : { "disk/below/one", "server/two", "single", "folder/three" })
            search->want(name, *FileIdentity::of(m_home->path(name)));
        QTRY_VERIFY(!search->isSearching());
        QCOMPARE(search->found("folder/three"), QByteArray(home + "/folder/three"));
        for (const QByteArray name : { "disk/below/one", "server/two", "single" })
            QVERIFY2(!search->found(name), name);
    }
}

void LostFileSearchTest::aFolderThatCannotBeOpenedIsSkipped()
{
    // A chain of folders whose path is longer than the system takes.
    FileDescriptor folder(::open(m_home->path().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const QByteArray name(200, 'x');
    for (int depth = 0; depth < 30; ++depth) {
        QCOMPARE(::mkdirat(folder.get(), name.constData(), 0700), 0);
        folder = FileDescriptor(::openat(folder.get(), name.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    }
    // Files in folders made before and after it, as nothing says in which order folders are read.
    for (const QByteArray name2 : { "a", "z" }) {
        m_home->makeFolder(name2);
        m_search->want(name2, *FileIdentity::of(m_home->makeFile(name2 + "/file")));
    }
    m_search->want("never", FileIdentity{ 1, S_IFREG, 1, 1, 1, 0, {} });
    QTRY_VERIFY(!m_search->isSearching());
    QCOMPARE(m_search->found("a"), m_home->path("a/file"));
    QCOMPARE(m_search->found("z"), m_home->path("z/file"));
}

void LostFileSearchTest::aMissingHomeFindsNothing()
{
    const auto identity = FileIdentity::of(m_home->makeFile("file"));
    const auto search = makeSearch(m_home->path("absent"));
    search->want("reference", *identity);
    QTRY_VERIFY(!search->isSearching());
    QVERIFY(!search->found("reference"));
}

void LostFileSearchTest::whatWasNotFoundIsLeftAloneForAWhile()
{
    const TemporaryFolder outside;
    const auto identity = FileIdentity::of(outside.makeFile("file"));
    m_search->want("reference", *identity);
    QTRY_VERIFY(!m_search->isSearching());
    QVERIFY(!m_search->found("reference"));

    moveFile(outside.path("file"), m_home->path("back"));
    m_now += LostFileSearch::pauseAfterFailure - 1ms;
    m_search->want("reference", *identity);
    QVERIFY(!m_search->isSearching());

    m_now += 1ms;
    m_search->want("reference", *identity);
    QVERIFY(m_search->isSearching());
    QTRY_VERIFY(!m_search->isSearching());
    QCOMPARE(m_search->found("reference"), m_home->path("back"));
}

void LostFileSearchTest::aForgottenReferenceIsNotReported()
{
    const auto identity = FileIdentity::of(m_home->makeFile("file"));
    m_search->want("early", *identity);
    m_search->forget("early");
    QVERIFY(!m_search->isSearching());

    m_search->want("late", *identity);
    // Behind the beginning of the pass in the queue, before its end.
    m_queue->post([this] { m_search->forget("late"); });
    QTRY_VERIFY(!m_search->isSearching());
    QCOMPARE(m_passesWithSuccess, 0);
    QVERIFY(!m_search->found("early"));
    QVERIFY(!m_search->found("late"));
}

void LostFileSearchTest::aForgottenFailureIsSearchedAgainAtOnce()
{
    const TemporaryFolder outside;
    const auto identity = FileIdentity::of(outside.makeFile("file"));
    m_search->want("reference", *identity);
    QTRY_VERIFY(!m_search->isSearching());
    m_search->forget("reference");
    m_search->want("reference", *identity);
    QVERIFY(m_search->isSearching());
    QTRY_VERIFY(!m_search->isSearching());
}

void LostFileSearchTest::aDestroyedSearchReportsNothing()
{
    const auto identity = FileIdentity::of(m_home->makeFile("file"));
    bool isDestroyedInTime = false;
    m_search->want("reference", *identity);
    // Behind the beginning of the pass in the queue, before its end.
    m_queue->post([&] {
        isDestroyedInTime = m_search->isSearching();
        m_search.reset();
    });
    QTRY_VERIFY(!m_search);
    QVERIFY(isDestroyedInTime);

    // The first pass would have been reported before one that begins later.
    const auto other = makeSearch(m_home->path());
    other->onFound = nullptr;
    other->want("reference", *identity);
    QTRY_VERIFY(!other->isSearching());
    QVERIFY(other->found("reference"));
    QCOMPARE(m_passesWithSuccess, 0);
}

QTEST_GUILESS_MAIN(LostFileSearchTest)
#include "LostFileSearchTest.moc"
