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
    void pinningSeveralIsOneChange();
    void pinningWhatIsPinnedChangesAndSavesNothing();
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
    void removingAnUnknownIdRemovesItsFolder();
    void removingAnIdThatTwoItemsHaveRemovesBoth_data();
    void removingAnIdThatTwoItemsHaveRemovesBoth();
    void expiryOfOneOfTwoItemsOfAnIdRemovesBoth();
    void pinningAnIdThatTwoItemsHavePinsTheFirst();
    void anIdInsideTheStoreMayBeGivenToRemove();
};

namespace {

const QUuid doubled = QUuid::fromString(QStringLiteral("1B4E28BA-2FA1-11D2-883F-B9A761BDE3FB"));

/// An index with an image and a text of the same id, and another text between them.
void installDoubledId(const StoreFixture& fixture, bool isImageFirst)
{
    const ShelfItem image{ doubled, fixture.now, ImageContent{ QStringLiteral("a.png") }, false };
    const ShelfItem text{ doubled, fixture.now, TextContent{ QStringLiteral("bread") }, false };
    const ShelfItem between{ QUuid::createUuid(), fixture.now, TextContent{ QStringLiteral("milk") }, false };
    ShelfIndex index;
    index.items = { isImageFirst ? image : text, between, isImageFirst ? text : image };
    QVERIFY(QDir().mkpath(fixture.path(QStringLiteral("data"))));
    fixture.write(QStringLiteral("data/index.json"), index.encode());
}

} // namespace

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

void ShelfStoreRemovalTest::pinningSeveralIsOneChange()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a"), fixture.file("/b"), fixture.file("/c") });
    const QSet<QUuid> ids{ store->items().at(0).id, store->items().at(2).id, QUuid::createUuid() };
    fixture.queue.advance(1);
    const QSignalSpy changes(store.get(), &ShelfStore::itemsChanged);
    store->setPinned(ids, true);
    QVERIFY(store->items().at(0).pinned);
    QVERIFY(!store->items().at(1).pinned);
    QVERIFY(store->items().at(2).pinned);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(fixture.queue.waitingTasks(), 1);
    store->setPinned(ids, false);
    QVERIFY(!store->items().at(0).pinned);
    QVERIFY(!store->items().at(2).pinned);
    QCOMPARE(changes.size(), 2);
}

void ShelfStoreRemovalTest::pinningWhatIsPinnedChangesAndSavesNothing()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a") });
    store->togglePinned(store->items().constFirst().id);
    fixture.queue.advance(1);
    const QSignalSpy changes(store.get(), &ShelfStore::itemsChanged);
    store->setPinned({ store->items().constFirst().id, QUuid::createUuid() }, true);
    QVERIFY(store->items().constFirst().pinned);
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

void ShelfStoreRemovalTest::removingAnUnknownIdRemovesItsFolder()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addText(QStringLiteral("milk"));
    const QUuid unknown = QUuid::createUuid();
    QVERIFY(QDir().mkpath(fixture.itemFolder(unknown) + QStringLiteral("/inside")));
    store->remove(unknown);
    QVERIFY(!QFileInfo::exists(fixture.itemFolder(unknown)));
    QCOMPARE(store->items().size(), 1);
    QVERIFY(fixture.trash.moved.isEmpty());
}

void ShelfStoreRemovalTest::removingAnIdThatTwoItemsHaveRemovesBoth_data()
{
    QTest::addColumn<bool>("isImageFirst");
    QTest::newRow("the image is the first") << true;
    QTest::newRow("the image is the second") << false;
}

void ShelfStoreRemovalTest::removingAnIdThatTwoItemsHaveRemovesBoth()
{
    QFETCH(const bool, isImageFirst);
    StoreFixture fixture;
    installDoubledId(fixture, isImageFirst);
    QVERIFY(QDir().mkpath(fixture.itemFolder(doubled)));
    fixture.write(QStringLiteral("data/Files/1B4E28BA-2FA1-11D2-883F-B9A761BDE3FB/a.png"), "pixels");
    const auto store = fixture.open();
    QCOMPARE(store->items().size(), 3);
    store->remove(doubled);
    QCOMPARE(StoreFixture::names(*store), QStringList{ QStringLiteral("milk") });
    // The first item says what becomes of the file.
    QCOMPARE(fixture.trash.moved.size(), isImageFirst ? 1 : 0);
    QVERIFY(!QFileInfo::exists(fixture.itemFolder(doubled)));
    fixture.queue.advance(0.3);
    QCOMPARE(fixture.open()->items().size(), 1);
}

void ShelfStoreRemovalTest::expiryOfOneOfTwoItemsOfAnIdRemovesBoth()
{
    StoreFixture fixture;
    installDoubledId(fixture, true);
    const auto store = fixture.open();
    // It is the first one that is found by the id.
    store->togglePinned(doubled);
    fixture.now = store->items().constFirst().createdAt.addSecs(10);
    store->removeExpired(5);
    QVERIFY(store->items().isEmpty());
}

void ShelfStoreRemovalTest::pinningAnIdThatTwoItemsHavePinsTheFirst()
{
    StoreFixture fixture;
    installDoubledId(fixture, true);
    const auto store = fixture.open();
    store->togglePinned(doubled);
    QVERIFY(store->items().at(0).pinned);
    QVERIFY(!store->items().at(2).pinned);
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
