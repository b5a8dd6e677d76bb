#include "SingleInstance.h"

#include "FileUrl.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QLocalSocket>
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
    void manyFilesAreHandedOverWhole();
    void whatIsNoRequestIsNotAnswered();
    void aRequestWithoutAnEndIsCutOff();
    void anotherDataFolderIsAnotherShelf();
    void theSameFolderByAnotherPathIsTheSameShelf();
    void theFolderIsFreeAgainOnceItsProgramIsGone();
    void noFileOrFolderIsMade();

private:
    [[nodiscard]] static QUrl folder(const QTemporaryDir& directory)
    {
        return fileUrl(directory.path().toUtf8() + "/Nookle");
    }

    /// The claim of a second program, while the first one's event loop runs.
    [[nodiscard]] static SingleInstance::Claim claimElsewhere(const QUrl& folder, const QStringList& uris = {})
    {
        auto claim = SingleInstance::Claim::otherIsSilent;
        const std::unique_ptr<QThread> thread(QThread::create([&] { claim = SingleInstance(folder).claim(uris); }));
        thread->start();
        while (!thread->isFinished())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        return claim;
    }
};

void SingleInstanceTest::theFirstClaimIsGranted()
{
    const QTemporaryDir directory;
    QCOMPARE(SingleInstance(folder(directory)).claim(), SingleInstance::Claim::granted);
}

void SingleInstanceTest::aSecondClaimAsksTheFirstToShowTheShelf()
{
    const QTemporaryDir directory;
    SingleInstance first(folder(directory));
    int shown = 0;
    first.onShowRequested = [&] { ++shown; };
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    QCOMPARE(claimElsewhere(folder(directory)), SingleInstance::Claim::doneByOther);
    QCOMPARE(shown, 1);
}

void SingleInstanceTest::aSecondClaimHandsItsFilesToTheFirst()
{
    const QTemporaryDir directory;
    SingleInstance first(folder(directory));
    QStringList added;
    first.onAddRequested = [&](const QStringList& uris) { added += uris; };
    first.onShowRequested = [] { QFAIL("only asked to add"); };
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    const QStringList uris{ QStringLiteral("file:///a%20b"), QStringLiteral("https://example.com/") };
    QCOMPARE(claimElsewhere(folder(directory), uris), SingleInstance::Claim::doneByOther);
    QCOMPARE(added, uris);
}

void SingleInstanceTest::manyFilesAreHandedOverWhole()
{
    const QTemporaryDir directory;
    SingleInstance first(folder(directory));
    QStringList added;
    first.onAddRequested = [&](const QStringList& uris) { added += uris; };
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
    SingleInstance first(folder(directory));
    int requests = 0;
    first.onShowRequested = [&] { ++requests; };
    first.onAddRequested = [&](const QStringList&) { ++requests; };
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    QLocalSocket socket;
    socket.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
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
    SingleInstance first(folder(directory));
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    QLocalSocket socket;
    socket.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    socket.connectToServer(first.address());
    QVERIFY(socket.waitForConnected());
    socket.write(QByteArray(9 << 20, 'x'));
    QTRY_COMPARE(socket.state(), QLocalSocket::UnconnectedState);
}

void SingleInstanceTest::anotherDataFolderIsAnotherShelf()
{
    const QTemporaryDir one;
    const QTemporaryDir other;
    SingleInstance first(folder(one));
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    QCOMPARE(SingleInstance(folder(other)).claim(), SingleInstance::Claim::granted);
}

void SingleInstanceTest::theSameFolderByAnotherPathIsTheSameShelf()
{
    const QTemporaryDir directory;
    const QByteArray path = directory.path().toUtf8();
    QVERIFY(QDir(directory.path()).mkdir(QStringLiteral("Nookle")));
    QVERIFY(QFile::link(directory.path() + QStringLiteral("/Nookle"), directory.path() + QStringLiteral("/link")));
    SingleInstance first(fileUrl(path + "/Nookle"));
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    QCOMPARE(claimElsewhere(fileUrl(path + "/link/../link")), SingleInstance::Claim::doneByOther);
}

void SingleInstanceTest::theFolderIsFreeAgainOnceItsProgramIsGone()
{
    const QTemporaryDir directory;
    auto first = std::make_unique<SingleInstance>(folder(directory));
    QCOMPARE(first->claim(), SingleInstance::Claim::granted);
    first.reset();
    QCOMPARE(SingleInstance(folder(directory)).claim(), SingleInstance::Claim::granted);
}

void SingleInstanceTest::noFileOrFolderIsMade()
{
    const QTemporaryDir directory;
    SingleInstance first(folder(directory));
    QCOMPARE(first.claim(), SingleInstance::Claim::granted);
    QVERIFY(QDir(directory.path()).isEmpty());
}

QTEST_GUILESS_MAIN(SingleInstanceTest)
#include "SingleInstanceTest.moc"
