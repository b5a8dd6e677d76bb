#include "CapturedLog.h"
#include "StoreFixture.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

using namespace nookle;

class ShelfStoreRemovalTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void togglingThePinOfAnItemDoesNotMoveIt();
    void togglingAnUnknownIdChangesAndSavesNothing();
    void expiryRemovesWhatIsStrictlyOlderAndNotPinned();
    void expiryOfManyItemsIsToldOnce();
    void expiryOfNothingSavesNothing();
    void removingAnImageTrashesItsFileAndDeletesItsFolder();
    void removingAnImageThatCannotBeTrashedDeletesIt();
    void removingAnImageWhoseFileIsGoneTrashesNothing();
    void removingReachesNothingBehindALink_data();
    void removingReachesNothingBehindALink();
    void anImageIsNotTakenOverThroughALink();
    void aFaviconIsNotWrittenThroughALink();
    void removingAFileItemLeavesTheFileAlone();
    void removingReleasesTheReferenceUnlessAnotherItemHoldsIt();
    void removingAnUnknownIdSavesAndTellsNobody();
    void anIdInsideTheStoreMayBeGivenToRemove();
};

void ShelfStoreRemovalTest::togglingThePinOfAnItemDoesNotMoveIt()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a"), fixture.file("/b"), fixture.file("/c"), fixture.file("/d") });
    const ShelfItem item = store->items().at(3);
    store->togglePinned(item.id);
    QVERIFY(store->items().at(3).pinned);
    fixture.queue.advance(1);
    const QSignalSpy changes(store.get(), &ShelfStore::itemsChanged);
    store->togglePinned(item.id);
    QVERIFY(store->items().at(3) == item);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(fixture.queue.waitingTasks(), 1);
}

void ShelfStoreRemovalTest::togglingAnUnknownIdChangesAndSavesNothing()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    const QSignalSpy changes(store.get(), &ShelfStore::itemsChanged);
    store->togglePinned(QUuid::createUuid());
    QCOMPARE(changes.size(), 0);
    QCOMPARE(fixture.queue.waitingTasks(), 0);
}

void ShelfStoreRemovalTest::expiryRemovesWhatIsStrictlyOlderAndNotPinned()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    const QDateTime present = fixture.now;
    fixture.now = present.addYears(-1);
    store->addText(QStringLiteral("pinned"));
    store->togglePinned(store->items().constFirst().id);
    fixture.now = present.addSecs(-3601);
    store->addText(QStringLiteral("older"));
    fixture.now = present.addMSecs(-3'600'001);
    store->addText(QStringLiteral("just older"));
    fixture.now = present.addSecs(-3600);
    store->addText(QStringLiteral("exactly"));
    fixture.now = present.addSecs(60);
    store->addText(QStringLiteral("ahead"));
    fixture.now = present;
    store->removeExpired(3600);
    QCOMPARE(StoreFixture::names(*store).join(QLatin1Char('|')), QStringLiteral("ahead|exactly|pinned"));
}

void ShelfStoreRemovalTest::expiryOfManyItemsIsToldOnce()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a"), fixture.file("/b"), fixture.file("/c") });
    fixture.now = fixture.now.addSecs(10);
    const QSignalSpy itemChanges(store.get(), &ShelfStore::itemsChanged);
    const QSignalSpy urlChanges(store.get(), &ShelfStore::fileURLsChanged);
    store->removeExpired(5);
    QVERIFY(store->items().isEmpty());
    QVERIFY(store->fileURLs().isEmpty());
    QCOMPARE(itemChanges.size(), 1);
    QCOMPARE(urlChanges.size(), 1);
}

void ShelfStoreRemovalTest::expiryOfNothingSavesNothing()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addText(QStringLiteral("milk"));
    fixture.queue.advance(1);
    const QSignalSpy changes(store.get(), &ShelfStore::itemsChanged);
    store->removeExpired(0);
    QCOMPARE(changes.size(), 0);
    QCOMPARE(fixture.queue.waitingTasks(), 0);
}

void ShelfStoreRemovalTest::removingAnImageTrashesItsFileAndDeletesItsFolder()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    fixture.write(QStringLiteral("a.png"), "pixels");
    store->addImage(fixture.urlOf(QStringLiteral("a.png")));
    const ShelfItem item = store->items().constFirst();
    const QUrl kept = store->localURL(item).value();
    store->remove(item.id);
    QVERIFY(store->items().isEmpty());
    QCOMPARE(fixture.trash.moved, QList<QUrl>{ kept });
    QVERIFY(!QFileInfo::exists(fixture.itemFolder(item.id)));
    QVERIFY(QFileInfo::exists(fixture.path(QStringLiteral("data/Files"))));
}

void ShelfStoreRemovalTest::removingAnImageThatCannotBeTrashedDeletesIt()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    fixture.write(QStringLiteral("a.png"), "pixels");
    store->addImage(fixture.urlOf(QStringLiteral("a.png")));
    const QUuid id = store->items().constFirst().id;
    fixture.trash.failure = Failure{ QStringLiteral("full") };
    const CapturedLog log;
    store->remove(id);
    QVERIFY(store->items().isEmpty());
    QVERIFY(!QFileInfo::exists(fixture.itemFolder(id)));
    QVERIFY(log.lines().isEmpty());
}

void ShelfStoreRemovalTest::removingAnImageWhoseFileIsGoneTrashesNothing()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    fixture.write(QStringLiteral("a.png"), "pixels");
    store->addImage(fixture.urlOf(QStringLiteral("a.png")));
    const QUuid id = store->items().constFirst().id;
    QVERIFY(QFile::remove(fixture.itemFolder(id) + QStringLiteral("/a.png")));
    store->remove(id);
    QVERIFY(fixture.trash.moved.isEmpty());
    QVERIFY(!QFileInfo::exists(fixture.itemFolder(id)));
}

void ShelfStoreRemovalTest::removingReachesNothingBehindALink_data()
{
    QTest::addColumn<bool>("linksAll");
    QTest::newRow("the item's folder") << false;
    QTest::newRow("the folder of all items") << true;
}

void ShelfStoreRemovalTest::removingReachesNothingBehindALink()
{
    QFETCH(bool, linksAll);
    StoreFixture fixture;
    fixture.write(QStringLiteral("a.png"), "pixels");
    const auto store = fixture.open();
    store->addImage(fixture.urlOf(QStringLiteral("a.png")));
    const ShelfItem item = store->items().constFirst();
    // The user's own folder takes the place of the shelf's.
    const QString linked = linksAll ? fixture.path(QStringLiteral("data/Files")) : fixture.itemFolder(item.id);
    QVERIFY(QDir().rename(linked, fixture.path(QStringLiteral("mine"))));
    QVERIFY(QFile::link(fixture.path(QStringLiteral("mine")), linked));
    QVERIFY(!store->localURL(item));
    fixture.now = fixture.now.addYears(1);
    store->removeExpired(1);
    QVERIFY(store->items().isEmpty());
    QVERIFY(fixture.trash.moved.isEmpty());
    const QString below = linksAll
        ? QString(QStringLiteral("mine/") + QFileInfo(fixture.itemFolder(item.id)).fileName())
        : QStringLiteral("mine");
    QCOMPARE(fixture.read(below + QStringLiteral("/a.png")), QByteArray("pixels"));

    store->saveNow();
    store->removeOrphans();
    QCOMPARE(fixture.read(below + QStringLiteral("/a.png")), QByteArray("pixels"));
    QVERIFY(fixture.trash.moved.isEmpty());
}

void ShelfStoreRemovalTest::anImageIsNotTakenOverThroughALink()
{
    StoreFixture fixture;
    QVERIFY(QDir().mkpath(fixture.path(QStringLiteral("data"))));
    QVERIFY(QDir().mkpath(fixture.path(QStringLiteral("mine"))));
    QVERIFY(QFile::link(fixture.path(QStringLiteral("mine")), fixture.path(QStringLiteral("data/Files"))));
    fixture.write(QStringLiteral("a.png"), "pixels");
    const CapturedLog log;
    const auto store = fixture.open();
    store->addImage(fixture.urlOf(QStringLiteral("a.png")));
    QVERIFY(store->items().isEmpty());
    QVERIFY(QFile::exists(fixture.path(QStringLiteral("a.png"))));
    QVERIFY(QDir(fixture.path(QStringLiteral("mine"))).isEmpty());
}

void ShelfStoreRemovalTest::aFaviconIsNotWrittenThroughALink()
{
    StoreFixture fixture;
    QVERIFY(QDir().mkpath(fixture.path(QStringLiteral("mine"))));
    fixture.write(QStringLiteral("mine/icon.png"), "mine");
    const auto store = fixture.open();
    store->addLink(*LinkUrl::parse(QStringLiteral("https://example.org/")), {});
    const QUuid id = store->items().constFirst().id;
    QVERIFY(QDir().mkpath(fixture.path(QStringLiteral("data/Files"))));
    QVERIFY(QFile::link(fixture.path(QStringLiteral("mine")), fixture.itemFolder(id)));
    const CapturedLog log;
    LinkMetadata metadata;
    metadata.loadIcon = [](const auto& completion) { completion(QByteArray("icon")); };
    QVERIFY(fixture.linkMetadata.finish(0, metadata));
    QCOMPARE(fixture.read(QStringLiteral("mine/icon.png")), QByteArray("mine"));
    QCOMPARE(log.lines().size(), 1);
}

void ShelfStoreRemovalTest::removingAFileItemLeavesTheFileAlone()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    fixture.write(QStringLiteral("mine.txt"), "mine");
    store->addFiles({ fixture.urlOf(QStringLiteral("mine.txt")) });
    const QSignalSpy urlChanges(store.get(), &ShelfStore::fileURLsChanged);
    store->remove(store->items().constFirst().id);
    QVERIFY(store->items().isEmpty());
    QVERIFY(store->fileURLs().isEmpty());
    QCOMPARE(urlChanges.size(), 1);
    QCOMPARE(fixture.read(QStringLiteral("mine.txt")), QByteArray("mine"));
    QVERIFY(fixture.trash.moved.isEmpty());
}

void ShelfStoreRemovalTest::removingReleasesTheReferenceUnlessAnotherItemHoldsIt()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a"), fixture.file("/a") });
    const QByteArray bookmark = std::get<FileContent>(store->items().constFirst().content).bookmark;
    store->remove(store->items().constFirst().id);
    QVERIFY(fixture.references.released.isEmpty());
    store->remove(store->items().constFirst().id);
    QCOMPARE(fixture.references.released, QList<QByteArray>{ bookmark });
}

void ShelfStoreRemovalTest::removingAnUnknownIdSavesAndTellsNobody()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    const QSignalSpy changes(store.get(), &ShelfStore::itemsChanged);
    store->remove(QUuid::createUuid());
    QCOMPARE(changes.size(), 0);
    QCOMPARE(fixture.queue.waitingTasks(), 1);
}

void ShelfStoreRemovalTest::anIdInsideTheStoreMayBeGivenToRemove()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a"), fixture.file("/b") });
    store->remove(store->items().at(0).id);
    QCOMPARE(StoreFixture::names(*store).join(QLatin1Char(' ')), QStringLiteral("b"));
    QCOMPARE(store->fileURLs().size(), 1);
}

QTEST_GUILESS_MAIN(ShelfStoreRemovalTest)
#include "ShelfStoreRemovalTest.moc"
