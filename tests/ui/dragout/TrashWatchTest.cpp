#include "TrashWatch.h"

#include "FakeFileReferences.h"
#include "FakeMainQueue.h"
#include "FakeTrash.h"

#include <QTest>

using namespace nookle;

class TrashWatchTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFileInPlaceIsNotInTheTrash();
    void aFileThatWasTrashedAtOnceIsFoundAtOnce();
    void aFileThatIsTrashedLaterIsFoundOnce();
    void afterSomeSecondsNobodyLooksAnyMore();
    void theNextDragEndsTheWatch();
    void whatIsInTheTrashBeforeTheNextDragIsFound();
    void withoutAReferenceThereIsNothingToWatch();
    void filesThatAreTrashedOneAfterTheOtherAreFoundOnceEach();

private:
    struct World {
        FakeFileReferences references;
        FakeTrash trash;
        FakeMainQueue queue;
        const QUrl file = fileUrl("/home/a.png");
        const QUrl trashed = fileUrl("/home/.Trash/a.png");
        TrashWatch watch{ references, trash, queue };
        QList<QByteArray> found;

        [[nodiscard]] QByteArray reference() { return references.make(file).value_or(QByteArray()); }

        void keepLooking()
        {
            watch.keepLooking([this](const QSet<QByteArray>& trashedNow) { found += trashedNow.values(); });
        }
    };
};

void TrashWatchTest::aFileInPlaceIsNotInTheTrash()
{
    World w;
    QVERIFY(w.watch.takeTrashed().isEmpty());
    w.watch.begin({ w.reference() });
    QVERIFY(w.watch.takeTrashed().isEmpty());
}

void TrashWatchTest::aFileThatWasTrashedAtOnceIsFoundAtOnce()
{
    World w;
    w.watch.begin({ w.reference() });
    w.references.moveFile(w.file, w.trashed);
    QCOMPARE(w.watch.takeTrashed(), QSet<QByteArray>{ w.reference() });
    QVERIFY(w.watch.takeTrashed().isEmpty());
}

void TrashWatchTest::aFileThatIsTrashedLaterIsFoundOnce()
{
    World w;
    w.watch.begin({ w.reference() });
    w.keepLooking();
    w.queue.advance(1);
    QVERIFY(w.found.isEmpty());
    w.references.moveFile(w.file, w.trashed);
    w.queue.advance(2);
    QCOMPARE(w.found, QList<QByteArray>{ w.reference() });
    w.queue.advance(10);
    QCOMPARE(w.found.size(), 1);
}

void TrashWatchTest::afterSomeSecondsNobodyLooksAnyMore()
{
    World w;
    w.watch.begin({ w.reference() });
    w.keepLooking();
    w.queue.advance(10);
    w.references.moveFile(w.file, w.trashed);
    w.queue.advance(100);
    QVERIFY(w.found.isEmpty());
}

void TrashWatchTest::theNextDragEndsTheWatch()
{
    World w;
    w.watch.begin({ w.reference() });
    w.keepLooking();
    w.watch.begin({ "another" });
    w.references.moveFile(w.file, w.trashed);
    w.queue.advance(10);
    QVERIFY(w.found.isEmpty());
}

void TrashWatchTest::whatIsInTheTrashBeforeTheNextDragIsFound()
{
    World w;
    w.watch.begin({ w.reference() });
    w.watch.lookNow();
    w.keepLooking();
    w.references.moveFile(w.file, w.trashed);
    w.watch.lookNow();
    QCOMPARE(w.found.size(), 1);
}

void TrashWatchTest::withoutAReferenceThereIsNothingToWatch()
{
    World w;
    w.watch.begin({});
    w.keepLooking();
    w.queue.advance(10);
    QVERIFY(w.watch.takeTrashed().isEmpty());
    QVERIFY(w.found.isEmpty());
}

void TrashWatchTest::filesThatAreTrashedOneAfterTheOtherAreFoundOnceEach()
{
    World w;
    const QUrl other = fileUrl("/home/b.png");
    const QByteArray reference = w.references.make(other).value_or(QByteArray());
    w.watch.begin({ w.reference(), reference, "of nobody" });
    w.keepLooking();
    w.references.moveFile(w.file, w.trashed);
    w.queue.advance(0.3);
    QCOMPARE(w.found, QList<QByteArray>{ w.reference() });
    w.references.moveFile(other, fileUrl("/home/.Trash/b.png"));
    w.queue.advance(1);
    QCOMPARE(w.found, QList<QByteArray>({ w.reference(), reference }));
    w.queue.advance(10);
    QCOMPARE(w.found.size(), 2);
}

QTEST_GUILESS_MAIN(TrashWatchTest)
#include "TrashWatchTest.moc"
