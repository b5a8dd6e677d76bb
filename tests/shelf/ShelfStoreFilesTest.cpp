#include "StoreFixture.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTest>

using namespace nookle;

class ShelfStoreFilesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFileMovedToTheTrashStaysWithoutUrl();
    void aFileThatVanishedStaysWithoutUrl();
    void aFileWithANewNameIsFollowed();
    void aStaleReferenceIsReplacedAndReleased();
    void aStaleReferenceThatCannotBeReplacedIsKept();
    void refreshingWithoutNewsTellsAndSavesNothing();
    void filesAreResolvedAtStart();
    void aFolderIsKnownByItsReference();
    void thereIsNoIconUrlWithoutIcon();
};

void ShelfStoreFilesTest::aFileMovedToTheTrashStaysWithoutUrl()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/home/me/a") });
    const ShelfItem item = store->items().constFirst();
    fixture.references.moveFile(fixture.file("/home/me/a"), fixture.file("/home/me/.Trash/a 2"));
    fixture.queue.advance(1);
    const QSignalSpy urlChanges(store.get(), &ShelfStore::fileURLsChanged);
    store->refreshFiles();
    QVERIFY(store->items() == QList<ShelfItem>{ item });
    QVERIFY(store->fileURLs().isEmpty());
    QVERIFY(!store->localURL(item));
    QCOMPARE(urlChanges.size(), 1);
    QCOMPARE(fixture.queue.waitingTasks(), 0);
}

void ShelfStoreFilesTest::aFileThatVanishedStaysWithoutUrl()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a"), fixture.file("/b") });
    const QList<ShelfItem> items = store->items();
    fixture.references.removeFile(fixture.file("/a"));
    store->refreshFiles();
    QVERIFY(store->items() == items);
    QVERIFY(!store->localURL(items.at(0)));
    QCOMPARE(store->localURL(items.at(1)), std::optional(fixture.file("/b")));
}

void ShelfStoreFilesTest::aFileWithANewNameIsFollowed()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/folder/old.txt"), fixture.file("/b") });
    ShelfItem expected = store->items().at(0);
    fixture.references.moveFile(fixture.file("/folder/old.txt"), fixture.file("/folder/new.txt"));
    fixture.queue.advance(1);
    const QSignalSpy changes(store.get(), &ShelfStore::itemsChanged);
    fixture.now = fixture.now.addSecs(5);
    store->refreshFiles();
    expected.content =
        FileContent{ fixture.references.make(fixture.file("/folder/new.txt")).value(), QStringLiteral("new.txt") };
    QVERIFY(store->items().at(0) == expected);
    QCOMPARE(store->localURL(expected), std::optional(fixture.file("/folder/new.txt")));
    QCOMPARE(changes.size(), 1);
    QVERIFY(QFile::remove(fixture.indexPath()));
    fixture.queue.advance(0.3);
    QVERIFY(QFile::exists(fixture.indexPath()));
    // The new place is the one by which the file is known from now on.
    store->addFiles({ fixture.file("/folder/new.txt") });
    QCOMPARE(store->items().size(), 2);
}

void ShelfStoreFilesTest::aStaleReferenceIsReplacedAndReleased()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a/name") });
    const QByteArray old = std::get<FileContent>(store->items().constFirst().content).bookmark;
    fixture.references.moveFile(fixture.file("/a/name"), fixture.file("/b/name"));
    store->refreshFiles();
    QVERIFY(std::get<FileContent>(store->items().constFirst().content).bookmark != old);
    QCOMPARE(fixture.references.released, QList<QByteArray>{ old });
    QCOMPARE(fixture.queue.waitingTasks(), 1);
}

void ShelfStoreFilesTest::aStaleReferenceThatCannotBeReplacedIsKept()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a/name") });
    const ShelfItem item = store->items().constFirst();
    fixture.references.moveFile(fixture.file("/a/name"), fixture.file("/b/name"));
    fixture.references.refuse(fixture.file("/b/name"));
    store->refreshFiles();
    QVERIFY(store->items().constFirst() == item);
    QCOMPARE(store->localURL(item), std::optional(fixture.file("/b/name")));
    QVERIFY(fixture.references.released.isEmpty());
}

void ShelfStoreFilesTest::refreshingWithoutNewsTellsAndSavesNothing()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a") });
    fixture.references.makeStale(fixture.file("/a"));
    fixture.queue.advance(1);
    const QSignalSpy itemChanges(store.get(), &ShelfStore::itemsChanged);
    const QSignalSpy urlChanges(store.get(), &ShelfStore::fileURLsChanged);
    store->refreshFiles();
    QCOMPARE(itemChanges.size(), 0);
    QCOMPARE(urlChanges.size(), 0);
    QCOMPARE(fixture.queue.waitingTasks(), 0);
}

void ShelfStoreFilesTest::filesAreResolvedAtStart()
{
    StoreFixture fixture;
    {
        const auto store = fixture.open();
        store->addFiles({ fixture.file("/a"), fixture.file("/b"), fixture.file("/c") });
        store->saveNow();
    }
    fixture.references.removeFile(fixture.file("/b"));
    const auto store = fixture.open();
    QCOMPARE(store->items().size(), 3);
    QCOMPARE(store->localURL(store->items().at(0)), std::optional(fixture.file("/a")));
    QVERIFY(!store->localURL(store->items().at(1)));
    QCOMPARE(store->fileURLs().size(), 2);
}

void ShelfStoreFilesTest::aFolderIsKnownByItsReference()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    fixture.references.makeFolder(fixture.file("/folder"));
    store->addFiles({ fixture.file("/folder"), fixture.file("/file") });
    store->addText(QStringLiteral("words"));
    QVERIFY(!store->isFolder(store->items().at(0)));
    QVERIFY(store->isFolder(store->items().at(1)));
    QVERIFY(!store->isFolder(store->items().at(2)));
}

void ShelfStoreFilesTest::thereIsNoIconUrlWithoutIcon()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addText(QStringLiteral("https://example.com/"));
    const ShelfItem item = store->items().constFirst();
    QVERIFY(QDir().mkpath(fixture.itemFolder(item.id)));
    QFile icon(fixture.itemFolder(item.id) + QStringLiteral("/icon.png"));
    QVERIFY(icon.open(QIODevice::WriteOnly));
    QVERIFY(!store->iconURL(item));
    store->addText(QStringLiteral("milk"));
    QVERIFY(!store->iconURL(store->items().constFirst()));
}

QTEST_GUILESS_MAIN(ShelfStoreFilesTest)
#include "ShelfStoreFilesTest.moc"
