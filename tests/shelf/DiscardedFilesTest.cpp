#include "DiscardedFiles.h"

#include "ItemFiles.h"
#include "StoreFixture.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

#include <algorithm>

using namespace nookle;

/// What becomes of the files of many items that are removed at once.
class DiscardedFilesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFewImagesGoAtOnce();
    void manyImagesGoOneAfterTheOther();
    void noImageGoesBeforeTheIndexIsSaved();
    void whatAKillLeavesGoesToTheTrashAtALaterStart();
    void undoInTheMiddleBringsAllBack();
    void whatIsRemovedAgainWaitsForTheIndexAgain();
    void theEndOfTheShelfMovesTheRest();
    void theEndWaitsForASlowTrashNoLongerThanItMay();
    void imagesThatAreGoneAreNotWaitedFor();
    void whatOwnsNoImageLosesItsFolderAtOnce();

private:
    static constexpr int many = 40;

    static void addImages(const StoreFixture& fixture, ShelfStore& store, int number)
    {
        for (int each = 0; each < number; ++each) {
            fixture.write(QStringLiteral("a.png"), QByteArray::number(each));
            store.addImage(fixture.urlOf(QStringLiteral("a.png")));
        }
        QCOMPARE(store.items().size(), number);
    }

    [[nodiscard]] static int folders(const StoreFixture& fixture)
    {
        const QDir files(fixture.path(QStringLiteral("data/Files")));
        return static_cast<int>(files.entryList(QDir::Dirs | QDir::NoDotAndDotDot).size());
    }

    [[nodiscard]] static bool haveFiles(const ShelfStore& store)
    {
        return std::all_of(store.items().begin(), store.items().end(), [&](const ShelfItem& item) {
            return QFileInfo::exists(store.localURL(item).value_or(QUrl()).toLocalFile());
        });
    }

    [[nodiscard]] static qsizetype savedItems(const StoreFixture& fixture)
    {
        const auto decoded = ShelfIndex::decode(fixture.read(QStringLiteral("data/index.json")));
        const auto* index = std::get_if<ShelfIndex>(&decoded);
        return index ? index->items.size() : -1;
    }
};

void DiscardedFilesTest::aFewImagesGoAtOnce()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    addImages(fixture, *store, 10);
    store->removeUnpinned();
    QCOMPARE(fixture.trash.moved.size(), 10);
    QCOMPARE(folders(fixture), 0);
}

void DiscardedFilesTest::manyImagesGoOneAfterTheOther()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    addImages(fixture, *store, many);
    store->removeUnpinned();
    QVERIFY(store->items().isEmpty());
    QCOMPARE(fixture.trash.moved.size(), 0);
    fixture.queue.advance(0.5);
    QCOMPARE(fixture.trash.moved.size(), 1);
    fixture.queue.advance(0.005);
    QCOMPARE(fixture.trash.moved.size(), 2);
    QCOMPARE(folders(fixture), many - 2);
    fixture.queue.advance(10);
    QCOMPARE(fixture.trash.moved.size(), many);
    QCOMPARE(folders(fixture), 0);
    QCOMPARE(fixture.queue.waitingTasks(), 0);
}

void DiscardedFilesTest::noImageGoesBeforeTheIndexIsSaved()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    addImages(fixture, *store, many);
    fixture.queue.advance(1);
    QCOMPARE(savedItems(fixture), many);
    store->removeUnpinned();
    for (int step = 0; step < 100 && savedItems(fixture) == many; ++step) {
        QCOMPARE(folders(fixture), many);
        fixture.queue.advance(0.01);
    }
    QCOMPARE(savedItems(fixture), 0);
}

void DiscardedFilesTest::whatAKillLeavesGoesToTheTrashAtALaterStart()
{
    StoreFixture fixture;
    const auto killed = fixture.open();
    addImages(fixture, *killed, many);
    killed->removeUnpinned();
    fixture.queue.advance(0.55);
    const qsizetype moved = fixture.trash.moved.size();
    QVERIFY(moved > 0 && moved < many);

    // From here the first one stands still, as a killed program does.
    const auto next = fixture.open();
    QVERIFY(next->items().isEmpty());
    fixture.now = QDateTime::currentDateTimeUtc().addDays(2);
    next->removeOrphans();
    QCOMPARE(fixture.trash.moved.size(), many);
    QCOMPARE(folders(fixture), 0);
}

void DiscardedFilesTest::undoInTheMiddleBringsAllBack()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    addImages(fixture, *store, many);
    const QList<ShelfItem> items = store->items();
    store->removeUnpinned();
    fixture.queue.advance(0.55);
    QVERIFY(!fixture.trash.moved.isEmpty() && fixture.trash.moved.size() < many);
    store->undoRemove();
    QVERIFY(store->items() == items);
    QVERIFY(!store->canUndoRemove());
    fixture.queue.advance(10);
    QVERIFY(haveFiles(*store));
    QCOMPARE(folders(fixture), many);
}

void DiscardedFilesTest::whatIsRemovedAgainWaitsForTheIndexAgain()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    addImages(fixture, *store, many);
    store->removeUnpinned();
    fixture.queue.advance(0.4);
    store->undoRemove();
    fixture.queue.advance(0.05);
    store->removeUnpinned();
    fixture.queue.advance(0.45);
    QCOMPARE(fixture.trash.moved.size(), 0);
    fixture.queue.advance(10);
    QCOMPARE(fixture.trash.moved.size(), many);
}

void DiscardedFilesTest::theEndOfTheShelfMovesTheRest()
{
    StoreFixture fixture;
    auto store = fixture.open();
    addImages(fixture, *store, many);
    store->removeUnpinned();
    store->saveNow();
    store.reset();
    QCOMPARE(fixture.trash.moved.size(), many);
    QCOMPARE(folders(fixture), 0);
}

void DiscardedFilesTest::theEndWaitsForASlowTrashNoLongerThanItMay()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    addImages(fixture, *store, many);
    const ItemFiles files(fixture.urlOf(QStringLiteral("data/Files")));
    QSet<QUuid> ids;
    for (const ShelfItem& item : store->items())
        ids.insert(item.id);
    {
        DiscardedFiles discarded(
            files, [&](const QUrl& url) { return fixture.trash.moveToTrash(url); }, fixture.queue,
            std::chrono::milliseconds(0));
        discarded.discard(ids, store->items());
    }
    QCOMPARE(fixture.trash.moved.size(), 0);
    QVERIFY(haveFiles(*store));
}

void DiscardedFilesTest::imagesThatAreGoneAreNotWaitedFor()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    addImages(fixture, *store, many);
    for (const ShelfItem& item : store->items())
        QVERIFY(QFile::remove(store->localURL(item).value().toLocalFile()));
    store->removeUnpinned();
    QCOMPARE(folders(fixture), 0);
}

void DiscardedFilesTest::whatOwnsNoImageLosesItsFolderAtOnce()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addLink(*LinkUrl::parse(QStringLiteral("https://example.org/")), {});
    const QUuid link = store->items().constFirst().id;
    QVERIFY(QDir().mkpath(fixture.itemFolder(link)));
    for (int each = 0; each < many; ++each) {
        fixture.write(QStringLiteral("a.png"), "pixels");
        store->addImage(fixture.urlOf(QStringLiteral("a.png")));
    }
    store->removeUnpinned();
    QVERIFY(!QFileInfo::exists(fixture.itemFolder(link)));
    QCOMPARE(folders(fixture), many);
}

QTEST_GUILESS_MAIN(DiscardedFilesTest)
#include "DiscardedFilesTest.moc"
