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
    void anImagesReferenceIsReleasedAndAFilesIsKept();
    void withoutAReferenceThereIsNothingToWatch();

private:
    [[nodiscard]] static ShelfItem item(ShelfItem::Content content)
    {
        ShelfItem item;
        item.content = std::move(content);
        return item;
    }

    struct World {
        FakeFileReferences references;
        FakeTrash trash;
        FakeMainQueue queue;
        const QUrl file = fileUrl("/home/a.png");
        const QUrl trashed = fileUrl("/home/.Trash/a.png");
        ShelfItem image = item(ImageContent{ QStringLiteral("a.png") });
        TrashWatch watch{ references, trash, queue };
        int found = 0;

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
    w.watch.begin(w.image, w.file);
    QVERIFY(!w.watch.isInTrash());
}

void TrashWatchTest::aFileThatWasTrashedAtOnceIsFoundAtOnce()
{
    World w;
    w.watch.begin(w.image, w.file);
    w.references.moveFile(w.file, w.trashed);
    QVERIFY(w.watch.isInTrash());
}

void TrashWatchTest::aFileThatIsTrashedLaterIsFoundOnce()
{
    World w;
    w.watch.begin(w.image, w.file);
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
    w.watch.begin(w.image, w.file);
    w.keepLooking();
    w.queue.advance(10);
    w.references.moveFile(w.file, w.trashed);
    w.queue.advance(100);
    QCOMPARE(w.found, 0);
    QCOMPARE(w.references.released.size(), 1);
}

void TrashWatchTest::theNextDragEndsTheWatch()
{
    World w;
    w.watch.begin(w.image, w.file);
    w.keepLooking();
    w.watch.begin(w.image, fileUrl("/home/b.png"));
    w.references.moveFile(w.file, w.trashed);
    w.queue.advance(10);
    QCOMPARE(w.found, 0);
}

void TrashWatchTest::whatIsInTheTrashBeforeTheNextDragIsFound()
{
    World w;
    w.watch.begin(w.image, w.file);
    w.keepLooking();
    w.references.moveFile(w.file, w.trashed);
    w.watch.begin(w.image, fileUrl("/home/b.png"));
    QCOMPARE(w.found, 1);
}

void TrashWatchTest::anImagesReferenceIsReleasedAndAFilesIsKept()
{
    World w;
    const QByteArray bookmark = *w.references.make(w.file);
    w.watch.begin(item(FileContent{ bookmark, QStringLiteral("a.png") }), w.file);
    QVERIFY(!w.watch.isInTrash());
    w.watch.begin(w.image, w.file);
    QVERIFY(w.references.released.isEmpty());
    w.watch.begin(item(FileContent{ bookmark, QStringLiteral("a.png") }), w.file);
    QCOMPARE(w.references.released.size(), 1);
}

void TrashWatchTest::withoutAReferenceThereIsNothingToWatch()
{
    World w;
    w.references.refuse(w.file);
    w.watch.begin(w.image, w.file);
    w.keepLooking();
    w.queue.advance(10);
    QVERIFY(!w.watch.isInTrash());
    QCOMPARE(w.found, 0);
}

QTEST_GUILESS_MAIN(TrashWatchTest)
#include "TrashWatchTest.moc"
