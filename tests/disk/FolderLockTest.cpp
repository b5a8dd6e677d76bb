#include "FolderLock.h"

#include "FileDescriptor.h"
#include "TemporaryFolder.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <fcntl.h>
#include <sys/file.h>

#include <memory>

using namespace nookle;

class FolderLockTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<TemporaryFolder>(); }
    void aFolderIsHeldByOneAtATime();
    void aFolderThatDoesNotExistIsNotMade();
    void whatIsNoFolderCannotBeLocked();
    void aLinkToAFolderIsTheFolder();
    void aNeighbourWhoHasTheFolderOpenCannotLockIt();
    void anotherFileInThePlaceOfTheLockIsLockedToo();

private:
    std::unique_ptr<TemporaryFolder> m_folder;
};

void FolderLockTest::aFolderIsHeldByOneAtATime()
{
    const QByteArray path = m_folder->path("data");
    m_folder->makeFolder("data");
    auto first = std::make_unique<FolderLock>(path);
    FolderLock second(path);
    QCOMPARE(first->take(), FolderLock::State::held);
    QCOMPARE(first->take(), FolderLock::State::held);
    QCOMPARE(second.take(), FolderLock::State::heldByOther);
    first.reset();
    QCOMPARE(second.take(), FolderLock::State::held);
}

void FolderLockTest::aFolderThatDoesNotExistIsNotMade()
{
    FolderLock lock(m_folder->path("data"));
    QCOMPARE(lock.take(), FolderLock::State::noFolder);
    QVERIFY(!QFile::exists(QFile::decodeName(m_folder->path("data"))));
    m_folder->makeFolder("data");
    QCOMPARE(lock.take(), FolderLock::State::held);
}

void FolderLockTest::whatIsNoFolderCannotBeLocked()
{
    FolderLock lock(m_folder->makeFile("data"));
    QCOMPARE(lock.take(), FolderLock::State::impossible);
    QVERIFY(!lock.error().isEmpty());
}

void FolderLockTest::aLinkToAFolderIsTheFolder()
{
    m_folder->makeFolder("data");
    QVERIFY(QFile::link(QFile::decodeName(m_folder->path("data")), QFile::decodeName(m_folder->path("link"))));
    FolderLock first(m_folder->path("data"));
    FolderLock second(m_folder->path("link"));
    QCOMPARE(first.take(), FolderLock::State::held);
    QCOMPARE(second.take(), FolderLock::State::heldByOther);
}

void FolderLockTest::aNeighbourWhoHasTheFolderOpenCannotLockIt()
{
    const QByteArray path = m_folder->path("data");
    m_folder->makeFolder("data");
    const FileDescriptor neighbour(::open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    QCOMPARE(::flock(neighbour.get(), LOCK_EX | LOCK_NB), 0);
    FolderLock lock(path);
    QCOMPARE(lock.take(), FolderLock::State::held);
    const QFile file(QFile::decodeName(path + "/.lock"));
    QCOMPARE(file.permissions() & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
             QFile::Permissions());
}

void FolderLockTest::anotherFileInThePlaceOfTheLockIsLockedToo()
{
    const QByteArray path = m_folder->path("data");
    m_folder->makeFolder("data");
    FolderLock first(path);
    FolderLock second(path);
    QCOMPARE(first.take(), FolderLock::State::held);
    QVERIFY(QFile::remove(QFile::decodeName(path + "/.lock")));
    QCOMPARE(first.take(), FolderLock::State::held);
    QCOMPARE(second.take(), FolderLock::State::heldByOther);
}

QTEST_GUILESS_MAIN(FolderLockTest)
#include "FolderLockTest.moc"
