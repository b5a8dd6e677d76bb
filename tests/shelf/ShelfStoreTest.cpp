#include "CapturedLog.h"
#include "StoreFixture.h"

#include <QDir>
#include <QSignalSpy>
#include <QTest>

using namespace nookle;

class ShelfStoreTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void filesAreAddedInTheirOrderOnTop();
    void addingAKnownFileMovesItToTheTop();
    void knownAndNewFilesKeepTheOrderOfTheCall();
    void addingNoFilesChangesAndSavesNothing();
    void aFileThatCannotBeReferredToIsSkipped();
    void filesAreComparedInStandardisedForm();
    void aUrlGivenTwiceMakesTwoItems();
    void aKnownUrlGivenTwiceMovesOneItemAndMakesAnother();
    void ofSeveralItemsForAFileTheTopmostMoves();
    void aFileThatDoesNotResolveIsAddedASecondTime();
    void manyFilesAreReaddedInLinearTime();
    void aTextOfWhiteSpaceIsNotAdded();
    void aTextThatIsAWebAddressBecomesALink();
    void theSameTextTwiceIsOneItemOnTop();
    void textsThatDifferInSpacesAreTwoItems();
    void readdingALinkMovesItToTheTopAndKeepsItsTitle();
    void linksThatDifferInLetterCaseAreTwoItems();
    void anImageIsMovedIntoTheItemsFolder();
    void anImageWhoseNameIsNotUtf8GetsANameThatIsText();
    void anImageThatCannotBeMovedIsLoggedAndNotAdded();
    void theFolderOfAnImageThatWasNotMovedStaysForADay();
    void newItemsAreUnpinnedAndDatedNow();
    void everyNewItemHasARandomId();
    void listenersSeeTheChangeAndMayChangeMore();
};

void ShelfStoreTest::filesAreAddedInTheirOrderOnTop()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addText(QStringLiteral("old"));
    store->addFiles({ fixture.file("/a"), fixture.file("/b"), fixture.file("/c") });
    QCOMPARE(StoreFixture::names(*store).join(QLatin1Char(' ')), QStringLiteral("a b c old"));
    QCOMPARE(store->fileURLs().value(store->items().at(1).id), fixture.file("/b"));
    QCOMPARE(store->localURL(store->items().at(2)), std::optional(fixture.file("/c")));
    QVERIFY(!store->localURL(store->items().at(3)));
}

void ShelfStoreTest::addingAKnownFileMovesItToTheTop()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a"), fixture.file("/b"), fixture.file("/c") });
    ShelfItem expected = store->items().at(1);
    store->togglePinned(expected.id);
    fixture.now = fixture.now.addSecs(5);
    store->addFiles({ fixture.file("/b") });
    QCOMPARE(StoreFixture::names(*store).join(QLatin1Char(' ')), QStringLiteral("b a c"));
    expected.pinned = true;
    expected.createdAt = fixture.now;
    QVERIFY(store->items().constFirst() == expected);
    QCOMPARE(store->fileURLs().size(), 3);
}

void ShelfStoreTest::knownAndNewFilesKeepTheOrderOfTheCall()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a"), fixture.file("/b"), fixture.file("/c") });
    store->addFiles({ fixture.file("/c"), fixture.file("/new"), fixture.file("/a") });
    QCOMPARE(StoreFixture::names(*store).join(QLatin1Char(' ')), QStringLiteral("c new a b"));
}

void ShelfStoreTest::addingNoFilesChangesAndSavesNothing()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    const QSignalSpy changes(store.get(), &ShelfStore::itemsChanged);
    store->addFiles({});
    QCOMPARE(changes.size(), 0);
    QCOMPARE(fixture.queue.waitingTasks(), 0);
}

void ShelfStoreTest::aFileThatCannotBeReferredToIsSkipped()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    fixture.references.refuse(fixture.file("/a"));
    store->addFiles({ fixture.file("/a"), QUrl(QStringLiteral("https://example.com/a")), QUrl() });
    QVERIFY(store->items().isEmpty());
    QCOMPARE(fixture.queue.waitingTasks(), 0);
    store->addFiles({ fixture.file("/a"), fixture.file("/b") });
    QCOMPARE(StoreFixture::names(*store).join(QLatin1Char(' ')), QStringLiteral("b"));
}

void ShelfStoreTest::filesAreComparedInStandardisedForm()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/home/./me/../you/a/") });
    QCOMPARE(store->fileURLs().value(store->items().constFirst().id), fixture.file("/home/you/a"));
    store->addFiles({ QUrl(QStringLiteral("file://localhost/home/you/%61")) });
    QCOMPARE(StoreFixture::names(*store).join(QLatin1Char(' ')), QStringLiteral("a"));
}

void ShelfStoreTest::aUrlGivenTwiceMakesTwoItems()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a"), fixture.file("/a") });
    QCOMPARE(store->items().size(), 2);
    QVERIFY(store->items().at(0).id != store->items().at(1).id);
    QCOMPARE(store->fileURLs().size(), 2);
}

void ShelfStoreTest::aKnownUrlGivenTwiceMovesOneItemAndMakesAnother()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a") });
    const QUuid known = store->items().constFirst().id;
    store->addFiles({ fixture.file("/a"), fixture.file("/a") });
    QCOMPARE(store->items().size(), 2);
    QCOMPARE(store->items().at(0).id, known);
}

void ShelfStoreTest::ofSeveralItemsForAFileTheTopmostMoves()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a"), fixture.file("/b"), fixture.file("/a"), fixture.file("/a") });
    QList<QUuid> ids;
    for (const ShelfItem& item : store->items())
        ids.append(item.id);

    store->addFiles({ fixture.file("/b"), fixture.file("/a"), fixture.file("/a") });
    QList<QUuid> after;
    for (const ShelfItem& item : store->items())
        after.append(item.id);
    QCOMPARE(after, QList<QUuid>({ ids.at(1), ids.at(0), ids.at(2), ids.at(3) }));
}

void ShelfStoreTest::aFileThatDoesNotResolveIsAddedASecondTime()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a") });
    fixture.references.removeFile(fixture.file("/a"));
    store->refreshFiles();
    store->addFiles({ fixture.file("/a") });
    QCOMPARE(store->items().size(), 2);
    QVERIFY(store->fileURLs().contains(store->items().at(0).id));
    QVERIFY(!store->fileURLs().contains(store->items().at(1).id));
}

// Well below a second, where a scan of the shelf for each file is longer than ctest lets a test run.
void ShelfStoreTest::manyFilesAreReaddedInLinearTime()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    QList<QUrl> urls;
    for (int i = 0; i < 10'000; ++i)
        urls.prepend(fileUrl("/folder/" + QByteArray::number(i)));
    store->addFiles(urls);
    store->addFiles(urls);
    QCOMPARE(store->items().size(), 10'000);
    QCOMPARE(store->items().constFirst().displayName(), QStringLiteral("9999"));
    QCOMPARE(store->items().constLast().displayName(), QStringLiteral("0"));
}

void ShelfStoreTest::aTextOfWhiteSpaceIsNotAdded()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addText(QStringLiteral("   \n"));
    store->addText(QString());
    QVERIFY(store->items().isEmpty());
    QCOMPARE(fixture.queue.waitingTasks(), 0);
}

void ShelfStoreTest::aTextThatIsAWebAddressBecomesALink()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addText(QStringLiteral(" https://Example.com/a \n"));
    QCOMPARE(store->items().size(), 1);
    const LinkContent link = std::get<LinkContent>(store->items().constFirst().content);
    QCOMPARE(link.url.absoluteString(), QStringLiteral("https://Example.com/a"));
    QVERIFY(!link.title);
    QVERIFY(!link.hasIcon);
}

void ShelfStoreTest::theSameTextTwiceIsOneItemOnTop()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addText(QStringLiteral("milk"));
    const QUuid id = store->items().constFirst().id;
    store->addText(QStringLiteral("bread"));
    fixture.now = fixture.now.addSecs(1);
    store->addText(QStringLiteral("milk"));
    QCOMPARE(StoreFixture::names(*store).join(QLatin1Char(' ')), QStringLiteral("milk bread"));
    QCOMPARE(store->items().constFirst().id, id);
    QCOMPARE(store->items().constFirst().createdAt, fixture.now);
}

void ShelfStoreTest::textsThatDifferInSpacesAreTwoItems()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addText(QStringLiteral(" milk"));
    store->addText(QStringLiteral("milk"));
    QCOMPARE(store->items().size(), 2);
    QCOMPARE(std::get<TextContent>(store->items().at(1).content).text, QStringLiteral(" milk"));
}

void ShelfStoreTest::readdingALinkMovesItToTheTopAndKeepsItsTitle()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    const LinkUrl url = LinkUrl::parse(QStringLiteral("https://example.com/")).value();
    store->addLink(url, QStringLiteral("First"));
    const QUuid id = store->items().constFirst().id;
    store->addText(QStringLiteral("milk"));
    fixture.now = fixture.now.addSecs(1);
    store->addLink(url, QStringLiteral("Second"));
    QCOMPARE(StoreFixture::names(*store).join(QLatin1Char(' ')), QStringLiteral("First milk"));
    QCOMPARE(store->items().constFirst().id, id);
    QCOMPARE(store->items().constFirst().createdAt, fixture.now);
}

void ShelfStoreTest::linksThatDifferInLetterCaseAreTwoItems()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addLink(LinkUrl::parse(QStringLiteral("https://example.com/")).value(), {});
    store->addLink(LinkUrl::parse(QStringLiteral("https://Example.com/")).value(), {});
    QCOMPARE(store->items().size(), 2);
}

void ShelfStoreTest::anImageIsMovedIntoTheItemsFolder()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    fixture.write(QStringLiteral("Shot 1.png"), "pixels");
    store->addImage(fixture.urlOf(QStringLiteral("Shot 1.png")));
    QCOMPARE(store->items().size(), 1);
    const ShelfItem item = store->items().constFirst();
    QCOMPARE(std::get<ImageContent>(item.content).fileName, QStringLiteral("Shot 1.png"));
    const QString kept = fixture.itemFolder(item.id) + QStringLiteral("/Shot 1.png");
    QCOMPARE(store->localURL(item), std::optional(fileUrl(QFile::encodeName(kept))));
    QVERIFY(QFile::exists(kept));
    QVERIFY(!QFile::exists(fixture.path(QStringLiteral("Shot 1.png"))));
    QCOMPARE(fixture.queue.waitingTasks(), 1);
}

void ShelfStoreTest::anImageWhoseNameIsNotUtf8GetsANameThatIsText()
{
    StoreFixture fixture;
    fixture.write(QStringLiteral("plain"), "pixels");
    const QByteArray path = QFile::encodeName(fixture.path(QStringLiteral("caf"))) + "\xe9.png";
    std::filesystem::rename(fixture.path(QStringLiteral("plain")).toStdString(), path.toStdString());
    {
        const auto store = fixture.open();
        store->addImage(fileUrl(path));
        store->saveNow();
    }
    const auto store = fixture.open();
    QCOMPARE(store->items().size(), 1);
    const ShelfItem item = store->items().constFirst();
    QCOMPARE(std::get<ImageContent>(item.content).fileName, QStringLiteral("caf_.png"));
    QVERIFY(std::filesystem::exists(filePath(store->localURL(item).value()).toStdString()));
    QVERIFY(!std::filesystem::exists(path.toStdString()));
}

void ShelfStoreTest::anImageThatCannotBeMovedIsLoggedAndNotAdded()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    // A file in the place of the files folder.
    QVERIFY(QDir().mkpath(fixture.path(QStringLiteral("data"))));
    fixture.write(QStringLiteral("data/Files"), "in the way");
    fixture.write(QStringLiteral("a.png"), "pixels");
    const CapturedLog log;
    store->addImage(fixture.urlOf(QStringLiteral("a.png")));
    store->addImage(QUrl(QStringLiteral("https://example.com/")));
    QVERIFY(store->items().isEmpty());
    QCOMPARE(fixture.queue.waitingTasks(), 0);
    QCOMPARE(fixture.read(QStringLiteral("a.png")), QByteArray("pixels"));
    QCOMPARE(log.lines().size(), 2);
    QCOMPARE(log.lines().at(0), QStringLiteral("Nookle: could not take over image: Not a directory"));
}

void ShelfStoreTest::theFolderOfAnImageThatWasNotMovedStaysForADay()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addText(QStringLiteral("milk"));
    store->saveNow();
    const CapturedLog log;
    store->addImage(fixture.urlOf(QStringLiteral("missing.png")));
    QCOMPARE(log.lines().join(QLatin1Char('\n')),
             QStringLiteral("Nookle: could not take over image: No such file or directory"));
    QCOMPARE(StoreFixture::names(*store), QStringList{ QStringLiteral("milk") });
    QCOMPARE(fixture.queue.waitingTasks(), 0);
    const QDir files(fixture.path(QStringLiteral("data/Files")));
    const QStringList folders = files.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QCOMPARE(folders.size(), 1);
    QVERIFY(!QUuid::fromString(folders.constFirst()).isNull());
    QVERIFY(QDir(files.filePath(folders.constFirst())).isEmpty());

    fixture.now = QDateTime::currentDateTimeUtc().addSecs(3600);
    const auto soon = fixture.open();
    soon->removeOrphans();
    QVERIFY(!files.isEmpty());
    fixture.now = QDateTime::currentDateTimeUtc().addDays(2);
    soon->removeOrphans();
    QVERIFY(files.isEmpty());
    QVERIFY(fixture.trash.moved.isEmpty());
}

void ShelfStoreTest::newItemsAreUnpinnedAndDatedNow()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    fixture.now = fixture.now.toOffsetFromUtc(7200);
    store->addFiles({ fixture.file("/a") });
    store->addText(QStringLiteral("milk"));
    store->addText(QStringLiteral("https://example.com/"));
    QCOMPARE(store->items().size(), 3);
    for (const ShelfItem& item : store->items()) {
        QVERIFY(!item.pinned);
        QVERIFY(!item.id.isNull());
        QCOMPARE(item.createdAt, fixture.now);
        QCOMPARE(item.createdAt.timeSpec(), Qt::UTC);
    }
}

void ShelfStoreTest::everyNewItemHasARandomId()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    QList<QUrl> urls;
    for (int number = 0; number < 100; ++number)
        urls.append(fixture.file(QByteArray("/" + QByteArray::number(number)).constData()));
    store->addFiles(urls);
    QSet<QUuid> ids;
    for (const ShelfItem& item : store->items()) {
        QCOMPARE(item.id.version(), QUuid::Random);
        QCOMPARE(item.id.variant(), QUuid::DCE);
        ids.insert(item.id);
    }
    QCOMPARE(ids.size(), 100);
}

void ShelfStoreTest::listenersSeeTheChangeAndMayChangeMore()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    QList<qsizetype> seen;
    connect(store.get(), &ShelfStore::fileURLsChanged, this, [&] { seen.append(store->items().size()); });
    connect(store.get(), &ShelfStore::itemsChanged, this, [&] {
        seen.append(store->items().size());
        if (store->items().size() == 1)
            store->remove(store->items().constFirst().id);
    });
    store->addFiles({ fixture.file("/a") });
    QVERIFY(store->items().isEmpty());
    QCOMPARE(seen, QList<qsizetype>({ 1, 1, 0, 0 }));
}

QTEST_GUILESS_MAIN(ShelfStoreTest)
#include "ShelfStoreTest.moc"
