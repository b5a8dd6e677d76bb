#include "LinuxFileReferences.h"

#include "FakeMainQueue.h"
#include "FileDescriptor.h"
#include "FileReference.h"
#include "FileUrl.h"
#include "MountList.h"
#include "Mounts.h"
#include "OpenDescriptors.h"
#include "QtMainQueue.h"
#include "TemporaryFolder.h"

#include <QTest>

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <memory>

using namespace nookle;

namespace {

/// Notices that a folder is read, which is what has something mounted there.
class ReadingWatch final {
public:
    explicit ReadingWatch(const QByteArray& folder)
        : m_inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        if (::inotify_add_watch(m_inotify.get(), folder.constData(), IN_OPEN | IN_ACCESS) < 0)
            qFatal("no watch left");
    }

    [[nodiscard]] bool wasRead() const
    {
        std::array<char, 4096> events{};
        return ::read(m_inotify.get(), events.data(), events.size()) > 0;
    }

private:
    FileDescriptor m_inotify;
};

} // namespace

class LinuxFileReferencesTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aFileInItsPlaceIsNotStale();
    void aChangedFileIsNotStale();
    void aFileSavedThroughARenameIsFoundAndStale();
    void aDetourInTheUrlIsStraightened();
    void whatIsNotThereCannotBeReferredTo();
    void manyFilesAreReferredToInTheirOrder();
    void manyReferencesAreResolvedInTheirOrder();
    void foreignBytesResolveToNothing();
    void anyNameIsKept_data();
    void anyNameIsKept();

    void aFileMovedDuringTheRunIsFollowed();
    void aFileBelowAMovedFolderIsFollowed();
    void aFolderIsFollowed();
    void followingBeginsAgainWithResolving();

    void aRenamedFileIsFoundInItsFolder();
    void aFileWithTheSameInodeIsNotMistaken();
    void aTrashedFileIsFoundInTheTrash();
    void aDeletedFileResolvesToNothing();
    void aFileMovedBeforeTheRunIsFoundInTheBackground();
    void filesLostTogetherAreReportedOnce();
    void aFoundFileThatMovedOnIsLookedForAgain();

    void aLinkIsReferredToItself();
    void aLinkThatLeadsNowhereCountsAsNotThere();

    void aLinkToWhatMayNotAnswerLeadsSomewhere();
    void aFolderIsKnownByItsReference();

    void aDistantFileIsInItsPlaceUntilALookIsAnswered();
    void aDistantFileThatIsGoneIsToldOnceItWasLookedAt();
    void aDistantFileThatWasRenamedIsFoundInTheBackground();
    void aDistantFileIsReferredToByItsPathUntilItWasLookedAt();
    void anAnswerThatChangesNothingIsNotTold();
    void aReleasedDistantFileIsNotTold();
    void whatIsNotMountedResolvesToNothing();
    void whatIsNotMountedResolvesToNothingAmongMany();
    void aRenamedFileIsNotLookedForWhereNothingIsMounted();
    void aTrashedFileIsNotLookedForWhereNothingIsMounted();

    void theDescriptorOfADeletedFileIsClosed();
    void aFileWithAnotherNameLeftStaysFollowed();
    void releasingEndsTheFollowing();

private:
    /// As if the program had been started again.
    void restart(MainQueue& queue)
    {
        m_references = std::make_unique<LinuxFileReferences>(m_home->path(), m_home->path("data"), queue);
    }
    void restart() { restart(m_idle); }
    /// The same, with a server mounted on the folder "server": as the list says, but not in truth, so that all looks
    /// are answered.
    void restartWithServer(MainQueue& queue)
    {
        MountList list;
        list.add(m_home->path("server"), "nfs");
        list.add(m_home->path("net"), "autofs");
        restartWith(list, queue);
    }
    /// The same, with what that list says to be mounted.
    void restartWith(const MountList& list, MainQueue& queue)
    {
        m_references = std::make_unique<LinuxFileReferences>(m_home->path(), m_home->path("data"), queue,
                                                             std::chrono::steady_clock::now,
                                                             std::make_shared<Mounts>(m_home->path(), list.path()));
        m_references->onFilesFound = [this] { ++m_reports; };
        m_reports = 0;
    }

    [[nodiscard]] QByteArray make(const QByteArray& path) { return m_references->make(fileUrl(path)).value_or(""); }
    [[nodiscard]] std::optional<ResolvedFile> resolve(const QByteArray& reference)
    {
        return m_references->resolve(reference);
    }
    [[nodiscard]] static std::optional<ResolvedFile> inPlace(const QByteArray& path)
    {
        return ResolvedFile{ fileUrl(path), false };
    }
    [[nodiscard]] static std::optional<ResolvedFile> moved(const QByteArray& path)
    {
        return ResolvedFile{ fileUrl(path), true };
    }

    /// Its work never runs, so nothing is ever searched in the background.
    FakeMainQueue m_idle;
    std::unique_ptr<TemporaryFolder> m_home;
    std::unique_ptr<LinuxFileReferences> m_references;
    int m_reports = 0;
};

void LinuxFileReferencesTest::init()
{
    m_home = std::make_unique<TemporaryFolder>();
    m_home->makeFolder("one");
    m_home->makeFolder("two");
    m_home->makeFolder("server");
    restart();
}

void LinuxFileReferencesTest::cleanup()
{
    m_references.reset();
    // A look on another thread may still be under way.
    QTRY_COMPARE(descriptorsBelow(m_home->path()), 0);
    m_home.reset();
}

void LinuxFileReferencesTest::aFileInItsPlaceIsNotStale()
{
    const QByteArray path = m_home->makeFile("one/file");
    const QByteArray reference = make(path);
    QCOMPARE(resolve(reference), inPlace(path));
    restart();
    QCOMPARE(resolve(reference), inPlace(path));
}

void LinuxFileReferencesTest::aChangedFileIsNotStale()
{
    const QByteArray path = m_home->makeFile("one/file");
    const QByteArray reference = make(path);
    m_home->makeFile("one/file", "quite another content");
    QCOMPARE(resolve(reference), inPlace(path));
}

void LinuxFileReferencesTest::aFileSavedThroughARenameIsFoundAndStale()
{
    const QByteArray path = m_home->makeFile("one/file");
    const QByteArray reference = make(path);
    moveFile(m_home->makeFile("one/file.new"), path);
    QCOMPARE(resolve(reference), moved(path));
    QCOMPARE(resolve(make(path)), inPlace(path));
}

void LinuxFileReferencesTest::aDetourInTheUrlIsStraightened()
{
    const QByteArray path = m_home->makeFile("one/file");
    QCOMPARE(resolve(make(m_home->path("two/../one/./file"))), inPlace(path));
    QCOMPARE(resolve(make(m_home->path("one/"))), inPlace(m_home->path("one")));
}

void LinuxFileReferencesTest::whatIsNotThereCannotBeReferredTo()
{
    QVERIFY(!m_references->make(fileUrl(m_home->path("absent"))));
    QVERIFY(!m_references->make(QUrl(QStringLiteral("https://example.org/"))));
    QVERIFY(!m_references->make(QUrl()));
}

void LinuxFileReferencesTest::manyFilesAreReferredToInTheirOrder()
{
    constexpr int count = 3000;
    QList<QUrl> urls;
    for (int number = 0; number < count; ++number) {
        const QByteArray name = "one/" + QByteArray::number(number);
        urls.append(fileUrl(number % 3 == 0 ? m_home->path(name) : m_home->makeFile(name)));
    }
    const QList<std::optional<QByteArray>> references = m_references->makeAll(urls);
    QCOMPARE(references.size(), count);
    for (int number = 0; number < count; ++number) {
        const auto& reference = references.at(number);
        QCOMPARE(reference.has_value(), number % 3 != 0);
        if (reference)
            QCOMPARE(FileReference::decode(*reference)->path, filePath(urls.at(number)));
    }
    QCOMPARE(resolve(*references.at(1)), inPlace(filePath(urls.at(1))));
}

void LinuxFileReferencesTest::manyReferencesAreResolvedInTheirOrder()
{
    constexpr int count = 2500;
    QList<QUrl> urls;
    for (int number = 0; number < count; ++number)
        urls.append(fileUrl(m_home->makeFile("one/" + QByteArray::number(number))));
    std::vector<QByteArray> references;
    for (const auto& reference : m_references->makeAll(urls))
        references.push_back(*reference);
    restart();
    const auto path = [&](int number) { return filePath(urls.at(number)); };
    const auto newPath = [&](int number) { return m_home->path("two/" + QByteArray::number(number)); };
    for (int number = 0; number < count; number += 50)
        QCOMPARE(::unlink(path(number).constData()), 0);
    // Twice: the files that are followed are looked at in another way.
    for (int time = 0; time < 2; ++time) {
        const auto files = m_references->resolveAll(references);
        QCOMPARE(files.size(), references.size());
        for (int number = 0; number < count; ++number)
            QCOMPARE(files[std::size_t(number)], number % 50 == 0 ? std::nullopt : inPlace(path(number)));
    }
    moveFile(path(1), newPath(1));
    moveFile(path(count - 1), m_home->path("one/last"));
    const auto files = m_references->resolveAll(references);
    QCOMPARE(files[1], moved(newPath(1)));
    QCOMPARE(files[2], inPlace(path(2)));
    QCOMPARE(files[count - 1], moved(m_home->path("one/last")));
}

void LinuxFileReferencesTest::foreignBytesResolveToNothing()
{
    for (const QByteArray& bytes : { QByteArray(), QByteArray("book"), QByteArray(1000, '\xff') }) {
        QVERIFY(!resolve(bytes));
        m_references->release(bytes);
    }
}

void LinuxFileReferencesTest::anyNameIsKept_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("newline") << QByteArray("a\nb");
    QTest::newRow("percent") << QByteArray("100%41%");
    QTest::newRow("not UTF-8") << QByteArray("\xff\xfe caf\xe9");
    QTest::newRow("UTF-8") << QByteArray("\xc3\xbc\xe2\x82\xac");
    QTest::newRow("query") << QByteArray("a?b#c");
    QTest::newRow("spaces and backslash") << QByteArray(" a\\b ");
    QTest::newRow("longest") << QByteArray(255, 'n');
}

void LinuxFileReferencesTest::anyNameIsKept()
{
    QFETCH(QByteArray, name);
    const QByteArray path = m_home->makeFile("one/" + name);
    const QByteArray reference = make(path);
    QCOMPARE(resolve(reference), inPlace(path));

    QByteArray elsewhere = m_home->path("two/");
    elsewhere += name;
    moveFile(path, elsewhere);
    QCOMPARE(resolve(reference), moved(elsewhere));

    moveFile(elsewhere, m_home->path("one/renamed"));
    restart();
    QCOMPARE(resolve(reference), moved(m_home->path("one/renamed")));
    moveFile(m_home->path("one/renamed"), path);
    QCOMPARE(resolve(reference), inPlace(path));
}

void LinuxFileReferencesTest::aFileMovedDuringTheRunIsFollowed()
{
    const QByteArray path = m_home->makeFile("one/file");
    const QByteArray reference = make(path);
    moveFile(path, m_home->path("two/another name"));
    QCOMPARE(resolve(reference), moved(m_home->path("two/another name")));
    moveFile(m_home->path("two/another name"), path);
    QCOMPARE(resolve(reference), inPlace(path));
}

void LinuxFileReferencesTest::aFileBelowAMovedFolderIsFollowed()
{
    m_home->makeFolder("one/deep/deeper");
    const QByteArray reference = make(m_home->makeFile("one/deep/deeper/file"));
    moveFile(m_home->path("one"), m_home->path("three"));
    QCOMPARE(resolve(reference), moved(m_home->path("three/deep/deeper/file")));
}

void LinuxFileReferencesTest::aFolderIsFollowed()
{
    const QByteArray path = m_home->makeFolder("one/folder");
    const QByteArray reference = make(path);
    QCOMPARE(resolve(reference), inPlace(path));
    m_home->makeFile("one/folder/file");
    moveFile(path, m_home->path("two/moved"));
    QCOMPARE(resolve(reference), moved(m_home->path("two/moved")));
}

void LinuxFileReferencesTest::followingBeginsAgainWithResolving()
{
    const QByteArray path = m_home->makeFile("one/file");
    const QByteArray reference = make(path);
    restart();
    QCOMPARE(resolve(reference), inPlace(path));
    moveFile(path, m_home->path("two/file"));
    QCOMPARE(resolve(reference), moved(m_home->path("two/file")));
}

void LinuxFileReferencesTest::aRenamedFileIsFoundInItsFolder()
{
    const QByteArray path = m_home->makeFile("one/file");
    const QByteArray reference = make(path);
    moveFile(path, m_home->path("one/renamed"));
    restart();
    QCOMPARE(resolve(reference), moved(m_home->path("one/renamed")));
}

void LinuxFileReferencesTest::aFileWithTheSameInodeIsNotMistaken()
{
    FileReference reference{ m_home->path("one/gone"), *FileIdentity::of(m_home->makeFile("one/present")) };
    QCOMPARE(resolve(reference.encode()), moved(m_home->path("one/present")));

    FileReference other = reference;
    other.identity.handle.clear();
    other.identity.birthTime = reference.identity.birthTime.value_or(0) + 1;
    QCOMPARE(resolve(other.encode()), std::nullopt);
}

void LinuxFileReferencesTest::aTrashedFileIsFoundInTheTrash()
{
    m_home->makeFolder("data/Trash/files");
    const QByteArray path = m_home->makeFile("one/file");
    const QByteArray reference = make(path);
    moveFile(path, m_home->path("data/Trash/files/file.2"));
    QCOMPARE(resolve(reference), moved(m_home->path("data/Trash/files/file.2")));
    restart();
    QCOMPARE(resolve(reference), moved(m_home->path("data/Trash/files/file.2")));
    // With its folder gone as well, the volume is still known.
    deleteFile(m_home->path("one"));
    QCOMPARE(resolve(reference), moved(m_home->path("data/Trash/files/file.2")));
}

void LinuxFileReferencesTest::aDeletedFileResolvesToNothing()
{
    const QByteArray path = m_home->makeFile("one/file");
    const QByteArray reference = make(path);
    deleteFile(path);
    QCOMPARE(resolve(reference), std::nullopt);

    QtMainQueue queue;
    restart(queue);
    QCOMPARE(resolve(reference), std::nullopt);
    const QByteArray movedBefore = m_home->makeFile("one/other");
    const QByteArray other = make(movedBefore);
    m_references->release(other);
    moveFile(movedBefore, m_home->path("two/other"));
    bool isFound = false;
    m_references->onFilesFound = [&] { isFound = true; };
    QCOMPARE(resolve(other), std::nullopt);
    // Both are looked for in the pass that finds the other one.
    QTRY_VERIFY(isFound);
    QCOMPARE(resolve(reference), std::nullopt);
    restart();
}

void LinuxFileReferencesTest::aFileMovedBeforeTheRunIsFoundInTheBackground()
{
    m_home->makeFolder("two/deep/\xff");
    const QByteArray path = m_home->makeFile("one/file");
    const QByteArray reference = make(path);
    moveFile(path, m_home->path("two/deep/\xff/renamed"));

    QtMainQueue queue;
    restart(queue);
    bool isFound = false;
    m_references->onFilesFound = [&] { isFound = true; };
    QCOMPARE(resolve(reference), std::nullopt);
    QVERIFY(!isFound);
    QTRY_VERIFY(isFound);
    QCOMPARE(resolve(reference), moved(m_home->path("two/deep/\xff/renamed")));
    restart();
}

void LinuxFileReferencesTest::filesLostTogetherAreReportedOnce()
{
    const QByteArray first = make(m_home->makeFile("one/first"));
    const QByteArray second = make(m_home->makeFile("one/second"));
    moveFile(m_home->path("one/first"), m_home->path("two/first"));
    moveFile(m_home->path("one/second"), m_home->path("two/second"));

    QtMainQueue queue;
    restart(queue);
    int reports = 0;
    m_references->onFilesFound = [&] { ++reports; };
    QCOMPARE(resolve(first), std::nullopt);
    QCOMPARE(resolve(second), std::nullopt);
    QTRY_VERIFY(reports > 0);
    QCOMPARE(resolve(first), moved(m_home->path("two/first")));
    QCOMPARE(resolve(second), moved(m_home->path("two/second")));
    QCOMPARE(reports, 1);
    restart();
}

void LinuxFileReferencesTest::aFoundFileThatMovedOnIsLookedForAgain()
{
    const QByteArray reference = make(m_home->makeFile("one/file"));
    moveFile(m_home->path("one/file"), m_home->path("two/file"));

    QtMainQueue queue;
    restart(queue);
    int reports = 0;
    m_references->onFilesFound = [&] { ++reports; };
    QCOMPARE(resolve(reference), std::nullopt);
    QTRY_COMPARE(reports, 1);
    moveFile(m_home->path("two/file"), m_home->path("elsewhere"));
    m_home->makeFile("two/file");
    QCOMPARE(resolve(reference), std::nullopt);
    QTRY_COMPARE(reports, 2);
    QCOMPARE(resolve(reference), moved(m_home->path("elsewhere")));
    restart();
}

void LinuxFileReferencesTest::aLinkIsReferredToItself()
{
    const QByteArray target = m_home->makeFile("one/target");
    const QByteArray path = m_home->path("one/link");
    makeLink(target, path);
    const QByteArray reference = make(path);
    QCOMPARE(resolve(reference), inPlace(path));
    moveFile(path, m_home->path("two/link"));
    QCOMPARE(resolve(reference), moved(m_home->path("two/link")));
    moveFile(m_home->path("two/link"), m_home->path("one/renamed"));
    restart();
    QCOMPARE(resolve(reference), moved(m_home->path("one/renamed")));
}

void LinuxFileReferencesTest::aLinkThatLeadsNowhereCountsAsNotThere()
{
    const QByteArray path = m_home->path("one/link");
    makeLink("target", path);
    QVERIFY(!m_references->make(fileUrl(path)));

    const QByteArray target = m_home->makeFile("one/target");
    const QByteArray reference = make(path);
    deleteFile(target);
    QCOMPARE(resolve(reference), std::nullopt);
    m_home->makeFile("one/target");
    QCOMPARE(resolve(reference), inPlace(path));
    moveFile(path, m_home->path("two/link"));
    QCOMPARE(resolve(reference), std::nullopt);
}

void LinuxFileReferencesTest::aLinkToWhatMayNotAnswerLeadsSomewhere()
{
    const QByteArray path = m_home->path("one/link");
    makeLink("../server/nothing", path);
    QVERIFY(!m_references->make(fileUrl(path)));
    restartWithServer(m_idle);
    const QByteArray reference = make(path);
    QCOMPARE(resolve(reference), inPlace(path));
    QVERIFY(!m_references->isFolder(reference));
}

void LinuxFileReferencesTest::aFolderIsKnownByItsReference()
{
    makeLink("two", m_home->path("link"));
    QVERIFY(m_references->isFolder(make(m_home->path("two"))));
    QVERIFY(m_references->isFolder(make(m_home->path("link"))));
    QVERIFY(!m_references->isFolder(make(m_home->makeFile("one/file"))));
    QVERIFY(!m_references->isFolder("foreign"));
    const QByteArray distant = make(m_home->path("server"));
    restartWithServer(m_idle);
    QVERIFY(m_references->isFolder(distant));
    QVERIFY(!m_references->isFolder(make(m_home->path("server"))));
}

void LinuxFileReferencesTest::aDistantFileIsInItsPlaceUntilALookIsAnswered()
{
    const QByteArray path = m_home->makeFile("server/file");
    const QByteArray reference = make(path);
    deleteFile(path);
    QCOMPARE(resolve(reference), std::nullopt);
    // Nothing that this queue is given ever runs, so that no answer comes.
    restartWithServer(m_idle);
    QCOMPARE(resolve(reference), inPlace(path));
    QCOMPARE(m_references->resolveAll({ reference }), std::vector{ inPlace(path) });
    QCOMPARE(descriptorsBelow(m_home->path("server")), 0);
}

void LinuxFileReferencesTest::aDistantFileThatIsGoneIsToldOnceItWasLookedAt()
{
    const QByteArray path = m_home->makeFile("server/file");
    const QByteArray reference = make(path);
    QtMainQueue queue;
    restartWithServer(queue);
    QCOMPARE(resolve(reference), inPlace(path));
    deleteFile(path);
    QTRY_VERIFY(resolve(reference) == std::nullopt);
    QTRY_VERIFY(m_reports > 0);
    m_home->makeFile("server/file");
    QTRY_COMPARE(resolve(reference), moved(path));
    restart();
}

void LinuxFileReferencesTest::aDistantFileThatWasRenamedIsFoundInTheBackground()
{
    const QByteArray path = m_home->makeFile("server/file");
    const QByteArray reference = make(path);
    moveFile(path, m_home->path("server/renamed"));
    QtMainQueue queue;
    restartWithServer(queue);
    QCOMPARE(resolve(reference), inPlace(path));
    QTRY_COMPARE(m_reports, 1);
    QCOMPARE(resolve(reference), moved(m_home->path("server/renamed")));
    const auto renewed = FileReference::decode(make(m_home->path("server/renamed")));
    QVERIFY(renewed && renewed->hasIdentity());
    restart();
}

void LinuxFileReferencesTest::aDistantFileIsReferredToByItsPathUntilItWasLookedAt()
{
    const QByteArray path = m_home->makeFile("server/file");
    QtMainQueue queue;
    restartWithServer(queue);
    const QByteArray first = make(path);
    QVERIFY(!FileReference::decode(first)->hasIdentity());
    QCOMPARE(resolve(first), inPlace(path));
    QTRY_COMPARE(m_reports, 1);
    QCOMPARE(resolve(first), moved(path));
    const QByteArray second = make(path);
    m_references->release(first);
    QVERIFY(FileReference::decode(second)->identity.matches(*FileIdentity::of(path)));
    QCOMPARE(resolve(second), inPlace(path));
    restart();
    QCOMPARE(resolve(second), inPlace(path));
}

void LinuxFileReferencesTest::anAnswerThatChangesNothingIsNotTold()
{
    const QByteArray staying = make(m_home->makeFile("server/staying"));
    const QByteArray going = make(m_home->makeFile("server/going"));
    deleteFile(m_home->path("server/going"));
    QtMainQueue queue;
    restartWithServer(queue);
    // The server's files are looked at in this order.
    QCOMPARE(resolve(staying), inPlace(m_home->path("server/staying")));
    QCOMPARE(resolve(going), inPlace(m_home->path("server/going")));
    QTRY_COMPARE(m_reports, 1);
    for (int time = 0; time < 3; ++time)
        QCOMPARE(resolve(staying), inPlace(m_home->path("server/staying")));
    const QByteArray last = make(m_home->path("server/nothing"));
    QVERIFY(resolve(last));
    QTRY_COMPARE(m_reports, 2);
    restart();
}

void LinuxFileReferencesTest::aReleasedDistantFileIsNotTold()
{
    const QByteArray released = make(m_home->makeFile("server/released"));
    const QByteArray kept = make(m_home->makeFile("server/kept"));
    deleteFile(m_home->path("server/released"));
    QtMainQueue queue;
    restartWithServer(queue);
    QVERIFY(resolve(released));
    m_references->release(released);
    QVERIFY(resolve(kept));
    deleteFile(m_home->path("server/kept"));
    QTRY_VERIFY(!resolve(kept));
    QTRY_COMPARE(m_reports, 1);
    restart();
}

void LinuxFileReferencesTest::whatIsNotMountedResolvesToNothing()
{
    m_home->makeFolder("net");
    const QByteArray reference = make(m_home->makeFile("net/file"));
    QtMainQueue queue;
    restartWithServer(queue);
    QCOMPARE(resolve(reference), std::nullopt);
    makeLink("net", m_home->path("link"));
    QVERIFY(!resolve(make(m_home->path("link/file"))));
    restart();
}

// As many as are not followed: they are looked at in another way.
void LinuxFileReferencesTest::whatIsNotMountedResolvesToNothingAmongMany()
{
    m_home->makeFolder("net");
    const QByteArray away = make(m_home->makeFile("net/file"));
    std::vector<QByteArray> references;
    QList<QUrl> urls;
    for (int number = 0; number < 2500; ++number)
        urls.append(fileUrl(m_home->makeFile("one/" + QByteArray::number(number))));
    for (const auto& reference : m_references->makeAll(urls))
        references.push_back(*reference);
    references.push_back(away);
    restartWithServer(m_idle);
    // The second time, those are followed that can be.
    for (int time = 0; time < 2; ++time) {
        const auto files = m_references->resolveAll(references);
        QCOMPARE(files.front(), inPlace(m_home->path("one/0")));
        QCOMPARE(files[2499], inPlace(m_home->path("one/2499")));
        QCOMPARE(files.back(), std::nullopt);
        QCOMPARE(resolve(away), std::nullopt);
    }
    restart();
    QCOMPARE(resolve(away), inPlace(m_home->path("net/file")));
}

void LinuxFileReferencesTest::aRenamedFileIsNotLookedForWhereNothingIsMounted()
{
    const QByteArray path = m_home->makeFile("one/file");
    const QByteArray reference = make(path);
    const QByteArray renamed = m_home->path("one/renamed");
    moveFile(path, renamed);
    MountList list;
    list.add(renamed, "autofs");
    restartWith(list, m_idle);
    QCOMPARE(resolve(reference), std::nullopt);
    restart();
    QCOMPARE(resolve(reference), moved(renamed));
}

void LinuxFileReferencesTest::aTrashedFileIsNotLookedForWhereNothingIsMounted()
{
    m_home->makeFolder("net");
    m_home->makeFolder("data/Trash");
    makeLink("../../net", m_home->path("data/Trash/files"));
    const QByteArray path = m_home->makeFile("one/file");
    const QByteArray reference = make(path);
    moveFile(path, m_home->path("net/file"));
    restartWithServer(m_idle);
    const ReadingWatch watch(m_home->path("net"));
    QCOMPARE(resolve(reference), std::nullopt);
    QVERIFY(!watch.wasRead());
    restart();
    QCOMPARE(resolve(reference), moved(m_home->path("data/Trash/files/file")));
    QVERIFY(watch.wasRead());
}

void LinuxFileReferencesTest::theDescriptorOfADeletedFileIsClosed()
{
    const QByteArray path = m_home->makeFile("one/file");
    const QByteArray reference = make(path);
    QCOMPARE(descriptorsBelow(path), 1);
    deleteFile(path);
    QTRY_COMPARE(descriptorsBelow(path), 0);
    QCOMPARE(resolve(reference), std::nullopt);
}

void LinuxFileReferencesTest::aFileWithAnotherNameLeftStaysFollowed()
{
    const QByteArray path = m_home->makeFile("one/file");
    QCOMPARE(::link(path.constData(), m_home->path("one/second").constData()), 0);
    const QByteArray reference = make(path);
    const QByteArray sentinel = make(m_home->makeFile("two/sentinel"));
    deleteFile(path);
    deleteFile(m_home->path("two/sentinel"));
    // Events come in order: when the later deletion has been handled, so has the earlier one.
    QTRY_COMPARE(descriptorsBelow(m_home->path("two")), 0);
    QCOMPARE(descriptorsBelow(m_home->path("one")), 1);
    QCOMPARE(resolve(reference), moved(m_home->path("one/second")));
}

void LinuxFileReferencesTest::releasingEndsTheFollowing()
{
    const QByteArray path = m_home->makeFile("one/file");
    const QByteArray reference = make(path);
    QCOMPARE(descriptorsBelow(path), 1);
    m_references->release(reference);
    QCOMPARE(descriptorsBelow(path), 0);
    m_references->release(reference);
    QCOMPARE(resolve(reference), inPlace(path));
}

QTEST_GUILESS_MAIN(LinuxFileReferencesTest)
#include "LinuxFileReferencesTest.moc"
