#include "FollowedFiles.h"

#include "FileIdentity.h"
#include "FilePlaces.h"
#include "Mounts.h"
#include "OpenDescriptors.h"
#include "TemporaryFolder.h"

#include <QTest>

#include <sys/resource.h>

#include <memory>

using namespace nookle;

namespace {

/// Lowers the number of descriptors that the process may have, while this lives.
class DescriptorLimit final {
public:
    explicit DescriptorLimit(rlim_t soft)
    {
        ::getrlimit(RLIMIT_NOFILE, &m_previous);
        const rlimit lower{ soft, m_previous.rlim_max };
        ::setrlimit(RLIMIT_NOFILE, &lower);
    }
    ~DescriptorLimit() { ::setrlimit(RLIMIT_NOFILE, &m_previous); }
    DescriptorLimit(const DescriptorLimit&) = delete;
    DescriptorLimit& operator=(const DescriptorLimit&) = delete;

private:
    rlimit m_previous{};
};

} // namespace

class FollowedFilesTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void aMovedFileIsKnown();
    void aFileThatIsNotFollowedIsUnknown();
    void aFileInItsPlaceIsKnownToBeThere();
    void anotherFileInThePlaceIsNotMistaken();
    void aLinkIsNotKnownToBeInPlace();
    void aNameThatLooksDeletedIsKnown();
    void anotherFileWithTheDeletedFilesLastNameIsNotMistaken();
    void theDescriptorOfADeletedFileIsClosed();
    void theDescriptorOfAReplacedFileIsClosed();
    void theDescriptorOfADeletedFolderIsClosedWhenItIsAskedFor();
    void aFileDeletedBeforehandIsNotFollowed();
    void otherChangesDoNotEndTheFollowing();
    void aFileWithAnotherNameLeftStaysFollowed();
    void releasingClosesTheDescriptor();
    void referencesToOneFileAreFollowedApart();
    void manyDeletionsAreAllNoticed();
    void halfOfTheDescriptorsAreLeftFree();
    void aThousandFilesAreFollowedAtMost();
    void filesOfOtherVolumesAreNotFollowed();
    void withoutAWatchNothingIsFollowed();

private:
    void follow(const QByteArray& reference, const QByteArray& path)
    {
        m_files->follow(reference, path, openInPlace(path));
    }
    [[nodiscard]] FilePlaces places() const { return FilePlaces(m_mounts->table()); }
    [[nodiscard]] int followed() const { return descriptorsBelow(m_home->path()); }

    std::unique_ptr<TemporaryFolder> m_home;
    std::unique_ptr<FollowedFiles> m_files;
    std::unique_ptr<Mounts> m_mounts;
};

void FollowedFilesTest::init()
{
    m_home = std::make_unique<TemporaryFolder>();
    m_home->makeFolder("one");
    m_home->makeFolder("two");
    m_files = std::make_unique<FollowedFiles>(m_home->path());
    m_mounts = std::make_unique<Mounts>(m_home->path());
}

void FollowedFilesTest::cleanup()
{
    m_files.reset();
    QCOMPARE(followed(), 0);
    m_home.reset();
}

void FollowedFilesTest::aMovedFileIsKnown()
{
    follow("reference", m_home->makeFile("one/file"));
    QCOMPARE(m_files->path("reference", places()), m_home->path("one/file"));
    moveFile(m_home->path("one/file"), m_home->path("two/a\n\xff"));
    QCOMPARE(m_files->path("reference", places()), m_home->path("two/a\n\xff"));
    moveFile(m_home->path("two"), m_home->path("three"));
    QCOMPARE(m_files->path("reference", places()), m_home->path("three/a\n\xff"));
}

void FollowedFilesTest::aFileThatIsNotFollowedIsUnknown()
{
    QCOMPARE(m_files->path("reference", places()), std::nullopt);
    follow("reference", m_home->path("absent"));
    QCOMPARE(m_files->path("reference", places()), std::nullopt);
}

void FollowedFilesTest::aFileInItsPlaceIsKnownToBeThere()
{
    const QByteArray path = m_home->makeFile("one/file");
    QCOMPARE(m_files->pathInPlace("reference", places()), std::nullopt);
    follow("reference", path);
    QCOMPARE(m_files->pathInPlace("reference", places()), path);
    moveFile(path, m_home->path("two/file"));
    QCOMPARE(m_files->pathInPlace("reference", places()), std::nullopt);
    moveFile(m_home->path("two/file"), path);
    QCOMPARE(m_files->pathInPlace("reference", places()), path);
}

void FollowedFilesTest::anotherFileInThePlaceIsNotMistaken()
{
    const QByteArray path = m_home->makeFile("one/file");
    follow("reference", path);
    moveFile(path, m_home->path("two/file"));
    m_home->makeFile("one/file");
    QCOMPARE(m_files->pathInPlace("reference", places()), std::nullopt);
}

void FollowedFilesTest::aLinkIsNotKnownToBeInPlace()
{
    makeLink(m_home->makeFile("one/file"), m_home->path("one/link"));
    follow("reference", m_home->path("one/link"));
    QCOMPARE(m_files->pathInPlace("reference", places()), std::nullopt);
    QCOMPARE(m_files->path("reference", places()), m_home->path("one/link"));
}

void FollowedFilesTest::aNameThatLooksDeletedIsKnown()
{
    follow("reference", m_home->makeFile("one/file"));
    moveFile(m_home->path("one/file"), m_home->path("two/file (deleted)"));
    QCOMPARE(m_files->path("reference", places()), m_home->path("two/file (deleted)"));
}

void FollowedFilesTest::anotherFileWithTheDeletedFilesLastNameIsNotMistaken()
{
    follow("reference", m_home->makeFile("one/file"));
    // A second name keeps the file alive and its descriptor open.
    QCOMPARE(::link(m_home->path("one/file").constData(), m_home->path("two/second").constData()), 0);
    deleteFile(m_home->path("one/file"));
    m_home->makeFile("one/file (deleted)");
    QCOMPARE(m_files->path("reference", places()), std::nullopt);
    QCOMPARE(followed(), 1);
}

void FollowedFilesTest::theDescriptorOfADeletedFileIsClosed()
{
    follow("reference", m_home->makeFile("one/file"));
    QCOMPARE(followed(), 1);
    deleteFile(m_home->path("one/file"));
    QTRY_COMPARE(followed(), 0);
    QCOMPARE(m_files->path("reference", places()), std::nullopt);
}

void FollowedFilesTest::theDescriptorOfAReplacedFileIsClosed()
{
    follow("reference", m_home->makeFile("one/file"));
    moveFile(m_home->makeFile("two/new"), m_home->path("one/file"));
    QTRY_COMPARE(followed(), 0);
    QCOMPARE(m_files->path("reference", places()), std::nullopt);
}

void FollowedFilesTest::theDescriptorOfADeletedFolderIsClosedWhenItIsAskedFor()
{
    follow("reference", m_home->makeFolder("one/folder"));
    QCOMPARE(m_files->path("reference", places()), m_home->path("one/folder"));
    deleteFile(m_home->path("one/folder"));
    QCOMPARE(m_files->path("reference", places()), std::nullopt);
    QCOMPARE(followed(), 0);
}

void FollowedFilesTest::aFileDeletedBeforehandIsNotFollowed()
{
    const QByteArray path = m_home->makeFile("one/file");
    FileDescriptor descriptor = openInPlace(path);
    deleteFile(path);
    m_files->follow("reference", path, std::move(descriptor));
    QCOMPARE(followed(), 0);
}

void FollowedFilesTest::otherChangesDoNotEndTheFollowing()
{
    follow("reference", m_home->makeFile("one/file"));
    follow("sentinel", m_home->makeFile("one/sentinel"));
    QCOMPARE(::chmod(m_home->path("one/file").constData(), 0644), 0);
    m_home->makeFile("one/file", "another content");
    deleteFile(m_home->path("one/sentinel"));
    // Events come in order: when the deletion has been handled, so has what was before it.
    QTRY_COMPARE(followed(), 1);
    QCOMPARE(m_files->path("reference", places()), m_home->path("one/file"));
}

void FollowedFilesTest::aFileWithAnotherNameLeftStaysFollowed()
{
    follow("reference", m_home->makeFile("one/file"));
    follow("sentinel", m_home->makeFile("one/sentinel"));
    QCOMPARE(::link(m_home->path("one/file").constData(), m_home->path("two/second").constData()), 0);
    deleteFile(m_home->path("two/second"));
    deleteFile(m_home->path("one/sentinel"));
    QTRY_COMPARE(followed(), 1);
    QCOMPARE(m_files->path("reference", places()), m_home->path("one/file"));
}

void FollowedFilesTest::releasingClosesTheDescriptor()
{
    follow("reference", m_home->makeFile("one/file"));
    m_files->release("reference");
    QCOMPARE(followed(), 0);
    QCOMPARE(m_files->path("reference", places()), std::nullopt);
    m_files->release("reference");
}

void FollowedFilesTest::referencesToOneFileAreFollowedApart()
{
    const QByteArray path = m_home->makeFile("one/file");
    for (const QByteArray reference : { "first", "second", "third" })
        follow(reference, path);
    follow("second", path);
    QCOMPARE(followed(), 3);
    follow("sentinel", m_home->makeFile("one/sentinel"));
    m_files->release("first");
    deleteFile(m_home->path("one/sentinel"));
    // Events come in order: when the deletion has been handled, so has what the release brought about.
    QTRY_COMPARE(followed(), 2);
    QCOMPARE(m_files->path("second", places()), path);
    deleteFile(path);
    QTRY_COMPARE(followed(), 0);
}

void FollowedFilesTest::manyDeletionsAreAllNoticed()
{
    for (int number = 0; number < 1000; ++number)
        follow(QByteArray::number(number), m_home->makeFile("one/" + QByteArray::number(number)));
    QCOMPARE(followed(), 1000);
    for (int number = 0; number < 1000; ++number)
        deleteFile(m_home->path("one/" + QByteArray::number(number)));
    QTRY_COMPARE(followed(), 0);
}

void FollowedFilesTest::halfOfTheDescriptorsAreLeftFree()
{
    const DescriptorLimit limit(100);
    m_files = std::make_unique<FollowedFiles>(m_home->path());
    m_mounts = std::make_unique<Mounts>(m_home->path());
    for (int number = 0; number < 80; ++number)
        follow(QByteArray::number(number), m_home->makeFile("one/" + QByteArray::number(number)));
    QCOMPARE(followed(), 50);
    QVERIFY(m_files->path("49", places()));
    QVERIFY(!m_files->path("50", places()));

    m_files->release("49");
    follow("79", m_home->path("one/79"));
    QVERIFY(m_files->path("79", places()));
    QCOMPARE(followed(), 50);
}

void FollowedFilesTest::aThousandFilesAreFollowedAtMost()
{
    const DescriptorLimit limit(3000);
    m_files = std::make_unique<FollowedFiles>(m_home->path());
    m_mounts = std::make_unique<Mounts>(m_home->path());
    for (int number = 0; number < 1001; ++number)
        follow(QByteArray::number(number), m_home->makeFile("one/" + QByteArray::number(number)));
    QVERIFY(m_files->path("999", places()));
    QVERIFY(!m_files->path("1000", places()));
    QCOMPARE(m_files->room(), std::size_t(0));
}

void FollowedFilesTest::filesOfOtherVolumesAreNotFollowed()
{
    QByteArray path = "/dev/shm/nookle-test-XXXXXX";
    const FileDescriptor file(::mkstemp(path.data()));
    struct stat home {};
    struct stat other {};
    QCOMPARE(::stat(m_home->path().constData(), &home), 0);
    if (!file.isOpen() || ::fstat(file.get(), &other) != 0 || home.st_dev == other.st_dev)
        QSKIP("there is no second volume here");
    follow("reference", path);
    const int open = descriptorsBelow(path);
    deleteFile(path);
    QCOMPARE(open, 1);
}

void FollowedFilesTest::withoutAWatchNothingIsFollowed()
{
    std::unique_ptr<FollowedFiles> blind;
    {
        // Too few descriptors for the one that all watches need.
        const DescriptorLimit limit(1);
        blind = std::make_unique<FollowedFiles>(m_home->path());
    }
    const QByteArray path = m_home->makeFile("one/file");
    blind->follow("reference", path, openInPlace(path));
    QCOMPARE(followed(), 0);
    QCOMPARE(blind->path("reference", places()), std::nullopt);
}

QTEST_GUILESS_MAIN(FollowedFilesTest)
#include "FollowedFilesTest.moc"
