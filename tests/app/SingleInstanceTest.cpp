#include "SingleInstance.h"

#include "FileUrl.h"

#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <memory>

using namespace nookle;

class SingleInstanceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFirstClaimIsGranted();
    void aSecondClaimAsksTheFirstToShowTheShelf();
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
    [[nodiscard]] static SingleInstance::Claim claimElsewhere(const QUrl& folder)
    {
        auto claim = SingleInstance::Claim::otherIsSilent;
        const std::unique_ptr<QThread> thread(QThread::create([&] { claim = SingleInstance(folder).claim(); }));
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
    QCOMPARE(claimElsewhere(folder(directory)), SingleInstance::Claim::shownByOther);
    QCOMPARE(shown, 1);
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
    QCOMPARE(claimElsewhere(fileUrl(path + "/link/../link")), SingleInstance::Claim::shownByOther);
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
