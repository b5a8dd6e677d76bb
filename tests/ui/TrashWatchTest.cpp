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

private:
    struct World {
        FakeFileReferences references;
        FakeTrash trash;
        FakeMainQueue queue;
        const QUrl file = fileUrl("/home/a.png");
        const QUrl trashed = fileUrl("/home/.Trash/a.png");
        TrashWatch watch{ references, trash, queue };
        int found = 0;

        [[nodiscard]] QByteArray reference() { return references.make(file).value_or(QByteArray()); }

        void keepLooking()
        {
            watch.keepLooking([this] { ++found; });
        }
    };
};

void TrashWatchTest::aFileInPlaceIsNotInTheTrash()
{
    World w;
    QVERIFY(!w.watch.isInTrash());
    w.watch.begin(w.reference());
    QVERIFY(!w.watch.isInTrash());
}

void TrashWatchTest::aFileThatWasTrashedAtOnceIsFoundAtOnce()
{
    World w;
    w.watch.begin(w.reference());
    w.references.moveFile(w.file, w.trashed);
    QVERIFY(w.watch.isInTrash());
}

void TrashWatchTest::aFileThatIsTrashedLaterIsFoundOnce()
{
    World w;
    w.watch.begin(w.reference());
    w.keepLooking();
    w.queue.advance(1);
    QCOMPARE(w.found, 0);
    w.references.moveFile(w.file, w.trashed);
    w.queue.advance(2);
    QCOMPARE(w.found, 1);
    w.queue.advance(10);
    QCOMPARE(w.found, 1);
}

void TrashWatchTest::afterSomeSecondsNobodyLooksAnyMore()
{
    World w;
    w.watch.begin(w.reference());
    w.keepLooking();
    w.queue.advance(10);
    w.references.moveFile(w.file, w.trashed);
    w.queue.advance(100);
    QCOMPARE(w.found, 0);
}

void TrashWatchTest::theNextDragEndsTheWatch()
{
    World w;
    w.watch.begin(w.reference());
    w.keepLooking();
    w.watch.begin("another");
    w.references.moveFile(w.file, w.trashed);
    w.queue.advance(10);
    QCOMPARE(w.found, 0);
}

void TrashWatchTest::whatIsInTheTrashBeforeTheNextDragIsFound()
{
    World w;
    w.watch.begin(w.reference());
    w.keepLooking();
    w.references.moveFile(w.file, w.trashed);
    w.watch.begin("another");
    QCOMPARE(w.found, 1);
}

void TrashWatchTest::withoutAReferenceThereIsNothingToWatch()
{
    World w;
    w.watch.begin({});
    w.keepLooking();
    w.queue.advance(10);
    QVERIFY(!w.watch.isInTrash());
    QCOMPARE(w.found, 0);
}

QTEST_GUILESS_MAIN(TrashWatchTest)
#include "TrashWatchTest.moc"
