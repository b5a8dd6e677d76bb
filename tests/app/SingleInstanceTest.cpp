#include "SingleInstance.h"

#include "FileUrl.h"
#include "FolderLock.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <memory>

using namespace nookle;

class SingleInstanceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFirstClaimIsGranted();
    void aSecondClaimAsksTheFirstToShowTheShelf();
    void aSecondClaimHandsItsFilesToTheFirst();
    void aRefusalIsHandedBack();
    void whatNobodyTakesIsNotDone();
    void manyFilesAreHandedOverWhole();
    void whatIsNoRequestIsNotAnswered();
    void aRequestWithoutAnEndIsCutOff();
    void anotherDataFolderIsAnotherShelf();
    void theSameFolderByAnotherPathIsTheSameShelf();
    void theFolderIsFreeAgainOnceItsProgramIsGone();
    void theSocketGoesWithItsProgram();
    void noDataFolderIsMade();
    void twoSessionsCannotHoldOneFolder();
    void withoutARuntimeFolderTheLockDecides_data();
    void withoutARuntimeFolderTheLockDecides();
    void aSocketOfADeadProgramIsReplaced();
    void aLongRuntimeFolderIsUsed();
    void aFolderThatComesLaterIsClaimed();
    void aSecondStartLeavesTheFolderToTheFirst();
    void aFolderThatAnotherProgramTookFirstStaysItsOwn();
    void aProgramThatEndsJustNowIsWaitedFor();
    void aProgramThatEndsBeforeItsAnswerIsWaitedFor();
    void aFolderThatOthersMayReadIsClosedBeforeItIsLocked();

private:
    [[nodiscard]] static QUrl folder(const QTemporaryDir& directory)
    {
        return fileUrl(directory.path().toUtf8() + "/Nookle");
    }

    /// The claim of a second program, while the first one's event loop runs. `refusal` is set to what that was told.
    [[nodiscard]] SingleInstance::Claim claimElsewhere(const QUrl& folder, const QStringList& uris = {},
                                                       QString* refusal = nullptr) const
    {
        auto claim = SingleInstance::Claim::otherIsSilent;
        const std::unique_ptr<QThread> thread(QThread::create([&] {
            SingleInstance second(folder, runtime());
            claim = second.claim(uris);
            if (refusal)
                *refusal = second.refusal();
        }));
        thread->start();
        while (!thread->isFinished())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        return claim;
    }

    [[nodiscard]] QByteArray runtime() const { return QFile::encodeName(m_runtime.path()); }
    void leaveDeadSocket(const QString& name) const;

    /// As a session has it: nobody else gets in.
    QTemporaryDir m_runtime;
};

void SingleInstanceTest::theFirstClaimIsGranted()
{
    const QTemporaryDir directory;
    QCOMPARE(SingleInstance(folder(directory), runtime()).claim(), SingleInstance::Claim::granted);
}

void SingleInstanceTest::aSecondClaimAsksTheFirstToShowTheShelf()
{
    const QTemporaryDir directory;
    SingleInstance first(folder(directory), runtime());
    int shown = 0;
    first.onShowRequested = [&] { ++shown; };
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    QCOMPARE(claimElsewhere(folder(directory)), SingleInstance::Claim::doneByOther);
    QCOMPARE(shown, 1);
}

void SingleInstanceTest::aSecondClaimHandsItsFilesToTheFirst()
{
    const QTemporaryDir directory;
    SingleInstance first(folder(directory), runtime());
    QStringList added;
    first.onAddRequested = [&](const QStringList& uris) {
        added += uris;
        return std::optional<Failure>();
    };
    first.onShowRequested = [] { QFAIL("only asked to add"); };
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    const QStringList uris{ QStringLiteral("file:///a%20b"), QStringLiteral("https://example.com/") };
    QCOMPARE(claimElsewhere(folder(directory), uris), SingleInstance::Claim::doneByOther);
    QCOMPARE(added, uris);
}

void SingleInstanceTest::aRefusalIsHandedBack()
{
    const QTemporaryDir directory;
    SingleInstance first(folder(directory), runtime());
    first.onAddRequested = [](const QStringList&) {
        return std::optional(Failure{ QStringLiteral("a reason"), QStringLiteral("ein Grund\nfür den Nutzer") });
    };
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    QString refusal;
    QCOMPARE(claimElsewhere(folder(directory), { QStringLiteral("file:///a") }, &refusal),
             SingleInstance::Claim::refusedByOther);
    QCOMPARE(refusal, QStringLiteral("ein Grund für den Nutzer"));
}

void SingleInstanceTest::whatNobodyTakesIsNotDone()
{
    const QTemporaryDir directory;
    SingleInstance first(folder(directory), runtime());
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    QCOMPARE(claimElsewhere(folder(directory), { QStringLiteral("file:///a") }), SingleInstance::Claim::otherIsSilent);
}

void SingleInstanceTest::manyFilesAreHandedOverWhole()
{
    const QTemporaryDir directory;
    SingleInstance first(folder(directory), runtime());
    QStringList added;
    first.onAddRequested = [&](const QStringList& uris) {
        added += uris;
        return std::optional<Failure>();
    };
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    QStringList uris;
    for (int index = 0; index < 20000; ++index)
        uris.append(QStringLiteral("file:///a/rather/long/path/%1").arg(index));
    QCOMPARE(claimElsewhere(folder(directory), uris), SingleInstance::Claim::doneByOther);
    QCOMPARE(added, uris);
}

void SingleInstanceTest::whatIsNoRequestIsNotAnswered()
{
    const QTemporaryDir directory;
    SingleInstance first(folder(directory), runtime());
    int requests = 0;
    first.onShowRequested = [&] { ++requests; };
    first.onAddRequested = [&](const QStringList&) {
        ++requests;
        return std::optional<Failure>();
    };
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    QLocalSocket socket;
    socket.connectToServer(first.address());
    QVERIFY(socket.waitForConnected());
    socket.write("nonsense\n");
    QTRY_COMPARE(socket.bytesToWrite(), 0);
    QCOMPARE(claimElsewhere(folder(directory)), SingleInstance::Claim::doneByOther);
    QCOMPARE(requests, 1);
    QCOMPARE(socket.bytesAvailable(), 0);
}

void SingleInstanceTest::aRequestWithoutAnEndIsCutOff()
{
    const QTemporaryDir directory;
    SingleInstance first(folder(directory), runtime());
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    QLocalSocket socket;
    socket.connectToServer(first.address());
    QVERIFY(socket.waitForConnected());
    socket.write(QByteArray(9 << 20, 'x'));
    QTRY_COMPARE(socket.state(), QLocalSocket::UnconnectedState);
}

void SingleInstanceTest::anotherDataFolderIsAnotherShelf()
{
    const QTemporaryDir one;
    const QTemporaryDir other;
    SingleInstance first(folder(one), runtime());
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    QCOMPARE(SingleInstance(folder(other), runtime()).claim(), SingleInstance::Claim::granted);
}

void SingleInstanceTest::theSameFolderByAnotherPathIsTheSameShelf()
{
    const QTemporaryDir directory;
    const QByteArray path = directory.path().toUtf8();
    QVERIFY(QDir(directory.path()).mkdir(QStringLiteral("Nookle")));
    QVERIFY(QFile::link(directory.path() + QStringLiteral("/Nookle"), directory.path() + QStringLiteral("/link")));
    SingleInstance first(fileUrl(path + "/Nookle"), runtime());
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    QCOMPARE(claimElsewhere(fileUrl(path + "/link/../link")), SingleInstance::Claim::doneByOther);
}

void SingleInstanceTest::theFolderIsFreeAgainOnceItsProgramIsGone()
{
    const QTemporaryDir directory;
    auto first = std::make_unique<SingleInstance>(folder(directory), runtime());
    QCOMPARE(first->claim(), SingleInstance::Claim::granted);
    first.reset();
    QCOMPARE(SingleInstance(folder(directory), runtime()).claim(), SingleInstance::Claim::granted);
}

void SingleInstanceTest::theSocketGoesWithItsProgram()
{
    const QTemporaryDir directory;
    auto first = std::make_unique<SingleInstance>(folder(directory), runtime());
    QCOMPARE(first->claim(), SingleInstance::Claim::granted);
    const QString socket = m_runtime.filePath(QFileInfo(first->address()).fileName());
    QVERIFY(QFile::exists(socket));
    first.reset();
    QVERIFY(!QFile::exists(socket));
}

void SingleInstanceTest::noDataFolderIsMade()
{
    const QTemporaryDir directory;
    SingleInstance first(folder(directory), runtime());
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    QVERIFY(!first.claimFolder());
    QVERIFY(QDir(directory.path()).isEmpty());
}

void SingleInstanceTest::twoSessionsCannotHoldOneFolder()
{
    const QTemporaryDir directory;
    const QTemporaryDir otherRuntime;
    QVERIFY(QDir(directory.path()).mkdir(QStringLiteral("Nookle")));
    SingleInstance first(folder(directory), runtime());
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    SingleInstance second(folder(directory), QFile::encodeName(otherRuntime.path()));
    QCOMPARE(second.claim(), SingleInstance::Claim::otherIsSilent);
}

void SingleInstanceTest::withoutARuntimeFolderTheLockDecides_data()
{
    QTest::addColumn<bool>("isSet");
    QTest::newRow("not set") << false;
    QTest::newRow("open to others") << true;
}

void SingleInstanceTest::withoutARuntimeFolderTheLockDecides()
{
    QFETCH(bool, isSet);
    const QTemporaryDir directory;
    const QTemporaryDir open;
    QVERIFY(QFile::setPermissions(
        open.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup));
    const QByteArray runtime = isSet ? QFile::encodeName(open.path()) : QByteArray();
    QVERIFY(QDir(directory.path()).mkdir(QStringLiteral("Nookle")));
    auto first = std::make_unique<SingleInstance>(folder(directory), runtime);
    QCOMPARE(first->claim(), SingleInstance::Claim::granted);
    QCOMPARE(SingleInstance(folder(directory), runtime).claim(), SingleInstance::Claim::otherIsSilent);
    first.reset();
    QCOMPARE(SingleInstance(folder(directory), runtime).claim(), SingleInstance::Claim::granted);
    QVERIFY(QDir(open.path()).isEmpty());
}

void SingleInstanceTest::leaveDeadSocket(const QString& name) const
{
    QLocalServer server;
    QVERIFY(server.listen(m_runtime.filePath(QStringLiteral("passing"))));
    // The program that made it ends without taking it away.
    QVERIFY(QFile::rename(server.fullServerName(), m_runtime.filePath(name)));
}

void SingleInstanceTest::aSocketOfADeadProgramIsReplaced()
{
    const QTemporaryDir directory;
    const QString name = QFileInfo(SingleInstance(folder(directory), runtime()).address()).fileName();
    leaveDeadSocket(name);
    SingleInstance first(folder(directory), runtime());
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    QCOMPARE(claimElsewhere(folder(directory)), SingleInstance::Claim::doneByOther);
}

void SingleInstanceTest::aLongRuntimeFolderIsUsed()
{
    const QTemporaryDir directory;
    const QString path = m_runtime.filePath(QString(200, QLatin1Char('x')));
    QVERIFY(QDir().mkdir(path));
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    const QByteArray runtime = QFile::encodeName(path);
    const QByteArray shortPath = QFile::encodeName(m_runtime.filePath(QStringLiteral("short")));
    QVERIFY(QFile::link(path, QFile::decodeName(shortPath)));
    SingleInstance first(folder(directory), runtime);
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    // The socket lies in the folder that was given, however it is reached.
    QLocalSocket socket;
    socket.connectToServer(QFile::decodeName(shortPath) + QLatin1Char('/') + QFileInfo(first.address()).fileName());
    QVERIFY(socket.waitForConnected());
}

void SingleInstanceTest::aFolderThatComesLaterIsClaimed()
{
    const QTemporaryDir directory;
    const QTemporaryDir otherRuntime;
    SingleInstance first(folder(directory), runtime());
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    QVERIFY(QDir(directory.path()).mkdir(QStringLiteral("Nookle")));
    QVERIFY(!first.claimFolder());
    SingleInstance second(folder(directory), QFile::encodeName(otherRuntime.path()));
    QCOMPARE(second.claim(), SingleInstance::Claim::otherIsSilent);
    // Another folder in its place is claimed as well.
    QVERIFY(QDir(directory.path()).rename(QStringLiteral("Nookle"), QStringLiteral("away")));
    QVERIFY(QDir(directory.path()).mkdir(QStringLiteral("Nookle")));
    QVERIFY(!first.claimFolder());
    QCOMPARE(second.claim(), SingleInstance::Claim::otherIsSilent);
}

void SingleInstanceTest::aSecondStartLeavesTheFolderToTheFirst()
{
    const QTemporaryDir directory;
    SingleInstance first(folder(directory), runtime());
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    // The folder is there, and the first program is about to save for the first time.
    QVERIFY(QDir(directory.path()).mkdir(QStringLiteral("Nookle")));
    int lost = 0;
    first.onFolderLost = [&] { ++lost; };
    bool isClaimed = false;
    first.onShowRequested = [&] { isClaimed = !first.claimFolder(); };
    QCOMPARE(claimElsewhere(folder(directory)), SingleInstance::Claim::doneByOther);
    QVERIFY(isClaimed);
    QCOMPARE(lost, 0);
}

void SingleInstanceTest::aFolderThatAnotherProgramTookFirstStaysItsOwn()
{
    const QTemporaryDir directory;
    SingleInstance first(folder(directory), {});
    auto second = std::make_unique<SingleInstance>(folder(directory), QByteArray());
    int lost = 0;
    first.onFolderLost = [&] { ++lost; };
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    QCOMPARE(second->claim(), SingleInstance::Claim::granted);
    QVERIFY(QDir(directory.path()).mkdir(QStringLiteral("Nookle")));
    QVERIFY(!second->claimFolder());
    QVERIFY(first.claimFolder());
    second.reset();
    QVERIFY(first.claimFolder());
    QCOMPARE(lost, 1);
}

void SingleInstanceTest::aProgramThatEndsJustNowIsWaitedFor()
{
    const QTemporaryDir directory;
    QVERIFY(QDir(directory.path()).mkdir(QStringLiteral("Nookle")));
    auto first = std::make_unique<SingleInstance>(folder(directory), QByteArray());
    QCOMPARE(first->claim(), SingleInstance::Claim::granted);
    auto claim = SingleInstance::Claim::otherIsSilent;
    QSemaphore isAsking;
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        SingleInstance second(folder(directory), {});
        isAsking.release();
        claim = second.claim();
    }));
    thread->start();
    isAsking.acquire();
    first.reset();
    QVERIFY(thread->wait());
    QCOMPARE(claim, SingleInstance::Claim::granted);
}

void SingleInstanceTest::aProgramThatEndsBeforeItsAnswerIsWaitedFor()
{
    const QTemporaryDir directory;
    QVERIFY(QDir(directory.path()).mkdir(QStringLiteral("Nookle")));
    auto lock = std::make_unique<FolderLock>(filePath(folder(directory)));
    QCOMPARE(lock->take(), FolderLock::State::held);
    const QString name = QFileInfo(SingleInstance(folder(directory), runtime()).address()).fileName();
    QLocalServer server;
    QVERIFY(server.listen(m_runtime.filePath(name)));
    auto claim = SingleInstance::Claim::otherIsSilent;
    const std::unique_ptr<QThread> thread(
        QThread::create([&] { claim = SingleInstance(folder(directory), runtime()).claim(); }));
    thread->start();
    QVERIFY(server.waitForNewConnection(5000));
    lock.reset();
    delete server.nextPendingConnection();
    QVERIFY(thread->wait());
    QCOMPARE(claim, SingleInstance::Claim::granted);
}

void SingleInstanceTest::aFolderThatOthersMayReadIsClosedBeforeItIsLocked()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("Nookle"));
    QVERIFY(QDir().mkpath(path));
    QVERIFY(QFile::setPermissions(path, QFile::Permissions(0x7755)));
    // Another user holds the lock already.
    FolderLock other(QFile::encodeName(path));
    QCOMPARE(other.take(), FolderLock::State::held);
    SingleInstance instance(folder(directory), QByteArray());
    QVERIFY(instance.claim({}) != SingleInstance::Claim::granted);
    QCOMPARE(QFile::permissions(path) & QFile::Permissions(0x0077), QFile::Permissions());
}

QTEST_GUILESS_MAIN(SingleInstanceTest)
#include "SingleInstanceTest.moc"
