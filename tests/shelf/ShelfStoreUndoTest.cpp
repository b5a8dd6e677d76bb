#include "ShelfIndex.h"
#include "StoreFixture.h"

#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

using namespace nookle;

class ShelfStoreUndoTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void whatWasRemovedLastComesBackFirst();
    void anItemComesBackUnchangedToItsPlace();
    void itemsRemovedTogetherComeBackTogether();
    void chosenItemsAreRemovedInOneStep();
    void placesHoldWhenOtherItemsCameMovedAndWent();
    void nothingIsUndoneAfterARestart();
    void whatHasExpiredDoesNotComeBack();
    void theTimeOffTheShelfDoesNotCount();
    void anImageComesBackOutOfTheTrash();
    void anImageThatWasDeletedFromTheTrashIsToldOf();
    void anImageThatCannotLeaveTheTrashKeepsItsStep();
    void onlyWhatCouldNotLeaveTheTrashKeepsItsStep();
    void aStepThatStaysLetsTheOneBeforeItGoFirst();
    void anImageThatTheUserHasPutBackIsTaken();
    void whatIsLostDoesNotHoldBackTheRestOfItsStep();
    void aFileThatIsGoneComesBackUnavailable();
    void aFileThatWasMovedMeanwhileIsFollowed();
    void aLinkComesBackWithItsIcon();
    void aLinkWhoseLookupWasEndedIsLookedUpAgain();
    void whatWasAddedAnewDoesNotComeTwice();
    void theStepBeforeIsUndoneIfTheLastIsThereAgain();
    void doublesThatWereThereBeforeComeBackAsDoubles();
    void anItemComesBackOnceBesideItemsOfOneId();
    void aFullShelfKeepsTheStep();
    void manyStepsDropTheOldest();
    void largeStepsDropTheOldest();
    void undoingNothingChangesAndSavesNothing();
    void removingAnUnknownIdIsNoStep();
    void undoIsToldOnceAndSaved();

private:
    static QString text(const ShelfStore& store) { return StoreFixture::names(store).join(QLatin1Char(' ')); }
    /// Adds the words, the first one on top.
    static void add(ShelfStore& store, const char* words)
    {
        const QStringList texts = QString::fromLatin1(words).split(QLatin1Char(' '));
        for (auto each = texts.crbegin(); each != texts.crend(); ++each)
            store.addText(*each);
    }
    static void remove(ShelfStore& store, const QString& name)
    {
        for (const ShelfItem& item : store.items()) {
            if (item.displayName() == name) {
                store.remove(item.id);
                return;
            }
        }
        QFAIL("no such item");
    }
};

void ShelfStoreUndoTest::whatWasRemovedLastComesBackFirst()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    add(*store, "a b c d");
    QVERIFY(!store->canUndoRemove());
    remove(*store, QStringLiteral("b"));
    remove(*store, QStringLiteral("d"));
    remove(*store, QStringLiteral("a"));
    QCOMPARE(text(*store), QStringLiteral("c"));
    store->undoRemove();
    QCOMPARE(text(*store), QStringLiteral("a c"));
    store->undoRemove();
    QCOMPARE(text(*store), QStringLiteral("a c d"));
    QVERIFY(store->canUndoRemove());
    store->undoRemove();
    QCOMPARE(text(*store), QStringLiteral("a b c d"));
    QVERIFY(!store->canUndoRemove());
}

void ShelfStoreUndoTest::anItemComesBackUnchangedToItsPlace()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a"), fixture.file("/b"), fixture.file("/c") });
    store->togglePinned(store->items().at(1).id);
    const QList<ShelfItem> before = store->items();
    const auto urls = store->fileURLs();
    store->remove(before.at(1).id);
    store->undoRemove();
    QVERIFY(store->items() == before);
    QCOMPARE(store->fileURLs(), urls);
}

void ShelfStoreUndoTest::itemsRemovedTogetherComeBackTogether()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    add(*store, "a b c d e");
    store->togglePinned(store->items().at(1).id);
    store->togglePinned(store->items().at(3).id);
    store->removeUnpinned();
    QCOMPARE(text(*store), QStringLiteral("b d"));
    store->undoRemove();
    QCOMPARE(text(*store), QStringLiteral("a b c d e"));
    QVERIFY(!store->canUndoRemove());
    store->togglePinned(store->items().at(1).id);
    store->togglePinned(store->items().at(3).id);
    store->removeUnpinned();
    QVERIFY(store->items().isEmpty());
    store->removeUnpinned();
    store->undoRemove();
    QCOMPARE(text(*store), QStringLiteral("a b c d e"));
}

void ShelfStoreUndoTest::chosenItemsAreRemovedInOneStep()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    add(*store, "a b c d e");
    const QSignalSpy changes(store.get(), &ShelfStore::itemsChanged);
    store->remove({ store->items().at(0).id, store->items().at(3).id, QUuid::createUuid() });
    QCOMPARE(text(*store), QStringLiteral("b c e"));
    QCOMPARE(changes.size(), 1);
    store->undoRemove();
    QCOMPARE(text(*store), QStringLiteral("a b c d e"));
    QVERIFY(!store->canUndoRemove());
}

void ShelfStoreUndoTest::placesHoldWhenOtherItemsCameMovedAndWent()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    const QDateTime present = fixture.now;
    fixture.now = present.addSecs(-10);
    add(*store, "e");
    fixture.now = present;
    add(*store, "a b c d");
    remove(*store, QStringLiteral("b"));
    add(*store, "new");
    // The next one below "b" goes to the top, and the last one goes away.
    add(*store, "c");
    store->removeExpired(5);
    QCOMPARE(text(*store), QStringLiteral("c new a d"));
    store->undoRemove();
    QCOMPARE(text(*store), QStringLiteral("c new a b d"));
    remove(*store, QStringLiteral("d"));
    remove(*store, QStringLiteral("b"));
    store->undoRemove();
    store->undoRemove();
    QCOMPARE(text(*store), QStringLiteral("c new a b d"));
}

void ShelfStoreUndoTest::nothingIsUndoneAfterARestart()
{
    StoreFixture fixture;
    {
        const auto store = fixture.open();
        add(*store, "a b");
        remove(*store, QStringLiteral("a"));
        store->saveNow();
    }
    const auto store = fixture.open();
    QVERIFY(!store->canUndoRemove());
    store->undoRemove();
    QCOMPARE(text(*store), QStringLiteral("b"));
}

void ShelfStoreUndoTest::whatHasExpiredDoesNotComeBack()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    add(*store, "a");
    fixture.now = fixture.now.addSecs(10);
    store->removeExpired(5);
    QVERIFY(store->items().isEmpty());
    QVERIFY(!store->canUndoRemove());
}

void ShelfStoreUndoTest::theTimeOffTheShelfDoesNotCount()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    add(*store, "a");
    fixture.now = fixture.now.addSecs(4);
    remove(*store, QStringLiteral("a"));
    fixture.now = fixture.now.addSecs(1000);
    store->undoRemove();
    store->removeExpired(5);
    QCOMPARE(text(*store), QStringLiteral("a"));
    fixture.now = fixture.now.addSecs(2);
    store->removeExpired(5);
    QVERIFY(store->items().isEmpty());
}

void ShelfStoreUndoTest::anImageComesBackOutOfTheTrash()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    fixture.write(QStringLiteral("a.png"), "pixels");
    store->addImage(fixture.urlOf(QStringLiteral("a.png")));
    const ShelfItem item = store->items().constFirst();
    store->remove(item.id);
    QVERIFY(!QFileInfo::exists(fixture.itemFolder(item.id)));
    store->undoRemove();
    QVERIFY(store->items() == QList<ShelfItem>{ item });
    QFile file(fixture.itemFolder(item.id) + QStringLiteral("/a.png"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("pixels"));
    // Once more.
    store->remove(item.id);
    store->undoRemove();
    QVERIFY(QFileInfo::exists(file.fileName()));
}

void ShelfStoreUndoTest::anImageThatWasDeletedFromTheTrashIsToldOf()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    fixture.write(QStringLiteral("Shot.png"), "pixels");
    store->addImage(fixture.urlOf(QStringLiteral("Shot.png")));
    const QUuid id = store->items().constFirst().id;
    store->remove(id);
    fixture.trash.held.clear();
    const QSignalSpy told(store.get(), &ShelfStore::additionFailed);
    store->undoRemove();
    QVERIFY(store->items().isEmpty());
    QVERIFY(!store->canUndoRemove());
    QVERIFY(!QFileInfo::exists(fixture.itemFolder(id)));
    QCOMPARE(told.size(), 1);
    QVERIFY(told.constFirst().constFirst().toString().contains(QStringLiteral("Shot")));
}

void ShelfStoreUndoTest::anImageThatCannotLeaveTheTrashKeepsItsStep()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    fixture.write(QStringLiteral("Shot.png"), "pixels");
    store->addImage(fixture.urlOf(QStringLiteral("Shot.png")));
    const ShelfItem item = store->items().constFirst();
    store->remove(item.id);
    fixture.trash.failure = Failure{ QStringLiteral("the disk is full") };
    const QSignalSpy told(store.get(), &ShelfStore::additionFailed);
    store->undoRemove();
    QVERIFY(store->items().isEmpty());
    QCOMPARE(told.size(), 1);
    QVERIFY(told.constFirst().constFirst().toString().contains(QStringLiteral("Shot")));
    QVERIFY(store->canUndoRemove());
    fixture.trash.failure.reset();
    store->undoRemove();
    QCOMPARE(store->items(), QList<ShelfItem>{ item });
    QVERIFY(store->localURL(item));
    QVERIFY(!store->canUndoRemove());
    QCOMPARE(told.size(), 1);
}

void ShelfStoreUndoTest::onlyWhatCouldNotLeaveTheTrashKeepsItsStep()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    add(*store, "a");
    fixture.write(QStringLiteral("Shot.png"), "pixels");
    store->addImage(fixture.urlOf(QStringLiteral("Shot.png")));
    add(*store, "b");
    store->removeUnpinned();
    fixture.trash.failure = Failure{ QStringLiteral("the disk is full") };
    store->undoRemove();
    QCOMPARE(text(*store), QStringLiteral("b a"));
    fixture.trash.failure.reset();
    store->undoRemove();
    QCOMPARE(store->items().size(), 3);
    QVERIFY(std::holds_alternative<ImageContent>(store->items().at(1).content));
    QVERIFY(!store->canUndoRemove());
}

void ShelfStoreUndoTest::aStepThatStaysLetsTheOneBeforeItGoFirst()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    add(*store, "a");
    remove(*store, QStringLiteral("a"));
    fixture.write(QStringLiteral("Shot.png"), "pixels");
    store->addImage(fixture.urlOf(QStringLiteral("Shot.png")));
    store->remove(store->items().constFirst().id);
    fixture.trash.failure = Failure{ QStringLiteral("the disk is full") };
    store->undoRemove();
    QVERIFY(store->items().isEmpty());
    store->undoRemove();
    QCOMPARE(text(*store), QStringLiteral("a"));
    fixture.trash.failure.reset();
    store->undoRemove();
    QCOMPARE(store->items().size(), 2);
    QVERIFY(!store->canUndoRemove());
}

void ShelfStoreUndoTest::anImageThatTheUserHasPutBackIsTaken()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    fixture.write(QStringLiteral("a.png"), "pixels");
    store->addImage(fixture.urlOf(QStringLiteral("a.png")));
    const ShelfItem item = store->items().constFirst();
    const QUrl place = store->localURL(item).value();
    store->remove(item.id);
    QVERIFY(QDir().mkpath(fixture.itemFolder(item.id)));
    QVERIFY(!fixture.trash.putBack(place));
    store->undoRemove();
    QCOMPARE(store->items().size(), 1);
    QVERIFY(QFileInfo::exists(fixture.itemFolder(item.id) + QStringLiteral("/a.png")));
}

void ShelfStoreUndoTest::whatIsLostDoesNotHoldBackTheRestOfItsStep()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    add(*store, "a");
    fixture.write(QStringLiteral("Shot.png"), "pixels");
    store->addImage(fixture.urlOf(QStringLiteral("Shot.png")));
    add(*store, "b");
    store->removeUnpinned();
    fixture.trash.held.clear();
    const QSignalSpy told(store.get(), &ShelfStore::additionFailed);
    store->undoRemove();
    QCOMPARE(text(*store), QStringLiteral("b a"));
    QCOMPARE(told.size(), 1);
}

void ShelfStoreUndoTest::aFileThatIsGoneComesBackUnavailable()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a") });
    const ShelfItem item = store->items().constFirst();
    store->remove(item.id);
    fixture.references.removeFile(fixture.file("/a"));
    store->undoRemove();
    QVERIFY(store->items() == QList<ShelfItem>{ item });
    QVERIFY(store->fileURLs().isEmpty());
}

void ShelfStoreUndoTest::aFileThatWasMovedMeanwhileIsFollowed()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a") });
    store->remove(store->items().constFirst().id);
    fixture.references.moveFile(fixture.file("/a"), fixture.file("/b"));
    store->undoRemove();
    QCOMPARE(text(*store), QStringLiteral("b"));
    QCOMPARE(store->localURL(store->items().constFirst()), fixture.file("/b"));
}

void ShelfStoreUndoTest::aLinkComesBackWithItsIcon()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addLink(*LinkUrl::parse(QStringLiteral("https://example.org/")), {});
    LinkMetadata metadata;
    metadata.title = QStringLiteral("Example");
    metadata.loadIcon = [](const auto& completion) { completion(QByteArray("icon")); };
    QVERIFY(fixture.linkMetadata.finish(0, metadata));
    const ShelfItem item = store->items().constFirst();
    store->remove(item.id);
    QVERIFY(!QFileInfo::exists(fixture.itemFolder(item.id)));
    store->undoRemove();
    QVERIFY(store->items() == QList<ShelfItem>{ item });
    QFile icon(QFile::decodeName(filePath(store->iconURL(item).value())));
    QVERIFY(icon.open(QIODevice::ReadOnly));
    QCOMPARE(icon.readAll(), QByteArray("icon"));
    QCOMPARE(fixture.linkMetadata.started.size(), 1);
}

void ShelfStoreUndoTest::aLinkWhoseLookupWasEndedIsLookedUpAgain()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addLink(*LinkUrl::parse(QStringLiteral("https://example.org/")), {});
    store->remove(store->items().constFirst().id);
    store->undoRemove();
    QCOMPARE(fixture.linkMetadata.started.size(), 2);
}

void ShelfStoreUndoTest::whatWasAddedAnewDoesNotComeTwice()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a"), fixture.file("/b") });
    add(*store, "text more");
    store->addLink(*LinkUrl::parse(QStringLiteral("https://example.org/")), {});
    store->removeUnpinned();
    store->addFiles({ fixture.file("/a") });
    add(*store, "text");
    store->addLink(*LinkUrl::parse(QStringLiteral("https://example.org/")), {});
    store->undoRemove();
    QCOMPARE(text(*store), QStringLiteral("example.org text a more b"));
}

void ShelfStoreUndoTest::theStepBeforeIsUndoneIfTheLastIsThereAgain()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    add(*store, "a b");
    remove(*store, QStringLiteral("b"));
    remove(*store, QStringLiteral("a"));
    add(*store, "a");
    store->undoRemove();
    QCOMPARE(text(*store), QStringLiteral("a b"));
}

void ShelfStoreUndoTest::doublesThatWereThereBeforeComeBackAsDoubles()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a"), fixture.file("/a") });
    store->remove(store->items().at(1).id);
    store->undoRemove();
    QCOMPARE(text(*store), QStringLiteral("a a"));
}

void ShelfStoreUndoTest::anItemComesBackOnceBesideItemsOfOneId()
{
    StoreFixture fixture;
    const QUuid doubled = QUuid::createUuid();
    const auto item = [&](const QUuid& id, const QString& words) {
        return ShelfItem{ id, fixture.now, TextContent{ words }, false };
    };
    ShelfIndex index;
    index.items = { item(QUuid::createUuid(), QStringLiteral("a")), item(doubled, QStringLiteral("b")),
                    item(doubled, QStringLiteral("c")) };
    QVERIFY(QDir().mkpath(fixture.path(QStringLiteral("data"))));
    fixture.write(QStringLiteral("data/index.json"), index.encode());
    const auto store = fixture.open();
    remove(*store, QStringLiteral("a"));
    store->undoRemove();
    QCOMPARE(text(*store), QStringLiteral("a b c"));
}

void ShelfStoreUndoTest::aFullShelfKeepsTheStep()
{
    StoreFixture fixture;
    fixture.largestIndex = 20'000;
    const auto store = fixture.open();
    store->addText(QString(10'000, QLatin1Char('a')));
    const QUuid id = store->items().constFirst().id;
    store->remove(id);
    store->addText(QString(10'000, QLatin1Char('b')));
    const QSignalSpy told(store.get(), &ShelfStore::additionFailed);
    store->undoRemove();
    QCOMPARE(store->items().size(), 1);
    QCOMPARE(told.size(), 1);
    QVERIFY(store->canUndoRemove());
    fixture.now = fixture.now.addSecs(10);
    store->removeExpired(5);
    store->undoRemove();
    QCOMPARE(store->items().size(), 1);
    QCOMPARE(store->items().constFirst().id, id);
}

void ShelfStoreUndoTest::manyStepsDropTheOldest()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    for (int number = 0; number < 60; ++number)
        store->addText(QString::number(number));
    while (!store->items().isEmpty())
        store->remove(store->items().constFirst().id);
    while (store->canUndoRemove())
        store->undoRemove();
    // The first ten removals are forgotten.
    QCOMPARE(store->items().size(), 50);
    QCOMPARE(store->items().constFirst().displayName(), QStringLiteral("49"));
}

void ShelfStoreUndoTest::largeStepsDropTheOldest()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    for (const char letter : { 'a', 'b', 'c' })
        store->addText(QString(5'000'000, QLatin1Char(letter)));
    while (!store->items().isEmpty())
        store->remove(store->items().constFirst().id);
    int steps = 0;
    for (; store->canUndoRemove(); ++steps)
        store->undoRemove();
    QVERIFY(steps > 0);
    QVERIFY(steps < 3);
}

void ShelfStoreUndoTest::undoingNothingChangesAndSavesNothing()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    const QSignalSpy changes(store.get(), &ShelfStore::itemsChanged);
    store->undoRemove();
    QCOMPARE(changes.size(), 0);
    QCOMPARE(fixture.queue.waitingTasks(), 0);
}

void ShelfStoreUndoTest::removingAnUnknownIdIsNoStep()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    add(*store, "a");
    store->remove(QUuid::createUuid());
    QVERIFY(!store->canUndoRemove());
}

void ShelfStoreUndoTest::undoIsToldOnceAndSaved()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a"), fixture.file("/b") });
    store->removeUnpinned();
    fixture.queue.advance(1);
    const QSignalSpy itemChanges(store.get(), &ShelfStore::itemsChanged);
    const QSignalSpy urlChanges(store.get(), &ShelfStore::fileURLsChanged);
    store->undoRemove();
    QCOMPARE(itemChanges.size(), 1);
    QCOMPARE(urlChanges.size(), 1);
    fixture.queue.advance(0.3);
    QCOMPARE(fixture.open()->items().size(), 2);
}

QTEST_GUILESS_MAIN(ShelfStoreUndoTest)
#include "ShelfStoreUndoTest.moc"
