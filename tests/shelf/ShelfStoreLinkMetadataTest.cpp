#include "CapturedLog.h"
#include "StoreFixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

using namespace nookle;

namespace {

using IconCompletion = std::function<void(std::optional<QByteArray>)>;

/// Metadata with an icon that loads when `load` is called.
[[nodiscard]] LinkMetadata metadata(const std::optional<QString>& title, IconCompletion& load)
{
    return { title, [&load](IconCompletion completion) { load = std::move(completion); } };
}

[[nodiscard]] LinkContent topLink(const ShelfStore& store)
{
    return std::get<LinkContent>(store.items().constFirst().content);
}

/// A shelf with one link, whose lookup runs.
struct LinkFixture : StoreFixture {
    LinkFixture()
        : store(open())
    {
        store->addText(QStringLiteral("https://Example.com/a"));
        queue.advance(1);
    }

    [[nodiscard]] QUuid id() const { return store->items().constFirst().id; }

    std::unique_ptr<ShelfStore> store;
};

} // namespace

class ShelfStoreLinkMetadataTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingIsLookedUpWhenLookupsAreOff();
    void aNewLinkIsLookedUpByItsUrl();
    void readdingALinkStartsNoSecondLookup();
    void aRestartStartsNoLookup();
    void aTitleReplacesTheOneThatTheLinkHas();
    void titlesAreKeptWithoutControlCharactersAndCut();
    void aTitleOfNothingButControlCharactersIsNone();
    void aFailedLookupChangesNothing();
    void aFinishedRequestIsGivenUp();
    void aResultWithoutTitleStillBringsTheIcon();
    void updatingWithNothingStoresTheLinkUnchangedAndSaves();
    void updatingWhatIsNoLinkChangesAndSavesNothing();
    void removingALinkCancelsItsLookup();
    void anIconThatArrivesAfterRemovalLeavesNothingBehind();
    void aSavedIconHasItsUrl();
    void anIconThatDoesNotLoadChangesNothing();
    void anIconWithoutAFolderIsLogged();
    void anIconThatCannotBeWrittenIsLogged_data();
    void anIconThatCannotBeWrittenIsLogged();
    void removingALinkDeletesItsIconOutright();
    void lateResultsFindAStoreThatIsGone();
};

void ShelfStoreLinkMetadataTest::nothingIsLookedUpWhenLookupsAreOff()
{
    StoreFixture fixture;
    fixture.fetchesLinkMetadata = false;
    const auto store = fixture.open();
    store->addText(QStringLiteral("https://example.com/"));
    QCOMPARE(store->items().size(), 1);
    QVERIFY(fixture.linkMetadata.started.isEmpty());
}

void ShelfStoreLinkMetadataTest::aNewLinkIsLookedUpByItsUrl()
{
    const LinkFixture fixture;
    QCOMPARE(fixture.linkMetadata.started, QList<QUrl>{ QUrl(QStringLiteral("https://example.com/a")) });
    QCOMPARE(fixture.linkMetadata.running(), 1);
}

void ShelfStoreLinkMetadataTest::readdingALinkStartsNoSecondLookup()
{
    const LinkFixture fixture;
    fixture.store->addText(QStringLiteral("https://Example.com/a"));
    QCOMPARE(fixture.linkMetadata.started.size(), 1);
    QCOMPARE(fixture.linkMetadata.running(), 1);
}

void ShelfStoreLinkMetadataTest::aRestartStartsNoLookup()
{
    LinkFixture fixture;
    fixture.store.reset();
    fixture.store = fixture.open();
    QCOMPARE(fixture.store->items().size(), 1);
    QCOMPARE(fixture.linkMetadata.started.size(), 1);
}

void ShelfStoreLinkMetadataTest::aTitleReplacesTheOneThatTheLinkHas()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addLink(LinkUrl::parse(QStringLiteral("https://example.com/")).value(), QStringLiteral("Given"));
    ShelfItem expected = store->items().constFirst();
    store->addText(QStringLiteral("milk"));
    fixture.queue.advance(1);
    const QSignalSpy changes(store.get(), &ShelfStore::itemsChanged);
    QVERIFY(fixture.linkMetadata.finish(0, LinkMetadata{ QStringLiteral("Fetched"), {} }));
    std::get<LinkContent>(expected.content).title = QStringLiteral("Fetched");
    QVERIFY(store->items().at(1) == expected);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(fixture.queue.waitingTasks(), 1);
}

void ShelfStoreLinkMetadataTest::titlesAreKeptWithoutControlCharactersAndCut()
{
    const LinkFixture fixture;
    const QString disguised = QStringLiteral("a\u202egpj.exe\x07\n");
    fixture.store->addLink(LinkUrl::parse(QStringLiteral("https://example.com/b")).value(), disguised);
    QCOMPARE(topLink(*fixture.store).title, QStringLiteral("agpj.exe "));
    fixture.store->updateLink(fixture.id(), QString(QStringLiteral("\u2066") + QString(1000, QLatin1Char('a'))), {});
    QCOMPARE(topLink(*fixture.store).title, QString(300, QLatin1Char('a')));
}

void ShelfStoreLinkMetadataTest::aTitleOfNothingButControlCharactersIsNone()
{
    const LinkFixture fixture;
    fixture.store->addLink(LinkUrl::parse(QStringLiteral("https://example.com/b")).value(), QStringLiteral("\u202e"));
    QVERIFY(!topLink(*fixture.store).title);
    fixture.store->updateLink(fixture.id(), QStringLiteral("Title"), {});
    fixture.store->updateLink(fixture.id(), QStringLiteral("\u202e\n"), {});
    QCOMPARE(topLink(*fixture.store).title, QStringLiteral("Title"));
}

void ShelfStoreLinkMetadataTest::aFailedLookupChangesNothing()
{
    LinkFixture fixture;
    const QList<ShelfItem> items = fixture.store->items();
    const CapturedLog log;
    QVERIFY(fixture.linkMetadata.finish(0, {}));
    QVERIFY(fixture.store->items() == items);
    QCOMPARE(fixture.queue.waitingTasks(), 0);
    QVERIFY(log.lines().isEmpty());
}

void ShelfStoreLinkMetadataTest::aFinishedRequestIsGivenUp()
{
    LinkFixture fixture;
    fixture.store->addText(QStringLiteral("https://example.com/b"));
    QCOMPARE(fixture.linkMetadata.held(), 2);
    QVERIFY(fixture.linkMetadata.finish(0, {}));
    QCOMPARE(fixture.linkMetadata.held(), 1);
    QVERIFY(fixture.linkMetadata.finish(1, LinkMetadata{ QStringLiteral("Title"), {} }));
    QCOMPARE(fixture.linkMetadata.held(), 0);
}

void ShelfStoreLinkMetadataTest::aResultWithoutTitleStillBringsTheIcon()
{
    LinkFixture fixture;
    IconCompletion load;
    QVERIFY(fixture.linkMetadata.finish(0, metadata({}, load)));
    QCOMPARE(fixture.queue.waitingTasks(), 0);
    load(QByteArray("PNG"));
    QVERIFY(!topLink(*fixture.store).title);
    QVERIFY(topLink(*fixture.store).hasIcon);
}

void ShelfStoreLinkMetadataTest::updatingWithNothingStoresTheLinkUnchangedAndSaves()
{
    LinkFixture fixture;
    fixture.store->updateLink(fixture.id(), QStringLiteral("Title"), true);
    fixture.queue.advance(1);
    const QList<ShelfItem> items = fixture.store->items();
    fixture.store->updateLink(fixture.id(), {}, {});
    QVERIFY(fixture.store->items() == items);
    QCOMPARE(fixture.queue.waitingTasks(), 1);
}

void ShelfStoreLinkMetadataTest::updatingWhatIsNoLinkChangesAndSavesNothing()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addText(QStringLiteral("milk"));
    fixture.queue.advance(1);
    const QList<ShelfItem> items = store->items();
    store->updateLink(items.constFirst().id, QStringLiteral("Title"), true);
    store->updateLink(QUuid::createUuid(), QStringLiteral("Title"), true);
    QVERIFY(store->items() == items);
    QCOMPARE(fixture.queue.waitingTasks(), 0);
}

void ShelfStoreLinkMetadataTest::removingALinkCancelsItsLookup()
{
    LinkFixture fixture;
    fixture.store->remove(fixture.id());
    QCOMPARE(fixture.linkMetadata.running(), 0);
    QVERIFY(!fixture.linkMetadata.finish(0, LinkMetadata{ QStringLiteral("Late"), {} }));
}

void ShelfStoreLinkMetadataTest::anIconThatArrivesAfterRemovalLeavesNothingBehind()
{
    LinkFixture fixture;
    IconCompletion load;
    QVERIFY(fixture.linkMetadata.finish(0, metadata(QStringLiteral("Title"), load)));
    const QUuid id = fixture.id();
    fixture.store->remove(id);
    load(QByteArray("PNG"));
    QVERIFY(!QFileInfo::exists(fixture.itemFolder(id)));
    QVERIFY(fixture.store->items().isEmpty());
}

void ShelfStoreLinkMetadataTest::aSavedIconHasItsUrl()
{
    LinkFixture fixture;
    IconCompletion load;
    QVERIFY(fixture.linkMetadata.finish(0, metadata(QStringLiteral("Title"), load)));
    QVERIFY(!fixture.store->iconURL(fixture.store->items().constFirst()));
    load(QByteArray("PNG"));
    const QString path = fixture.itemFolder(fixture.id()) + QStringLiteral("/icon.png");
    QCOMPARE(fixture.store->iconURL(fixture.store->items().constFirst()),
             std::optional(fileUrl(QFile::encodeName(path))));
    QFile icon(path);
    QVERIFY(icon.open(QIODevice::ReadOnly));
    QCOMPARE(icon.readAll(), QByteArray("PNG"));
    QCOMPARE(topLink(*fixture.store).title, std::optional(QStringLiteral("Title")));
}

void ShelfStoreLinkMetadataTest::anIconThatDoesNotLoadChangesNothing()
{
    LinkFixture fixture;
    IconCompletion load;
    QVERIFY(fixture.linkMetadata.finish(0, metadata({}, load)));
    load({});
    QVERIFY(!topLink(*fixture.store).hasIcon);
    QVERIFY(!QFileInfo::exists(fixture.itemFolder(fixture.id())));
    QCOMPARE(fixture.queue.waitingTasks(), 0);
}

void ShelfStoreLinkMetadataTest::anIconWithoutAFolderIsLogged()
{
    LinkFixture fixture;
    fixture.write(QStringLiteral("data/Files"), "in the way");
    IconCompletion load;
    QVERIFY(fixture.linkMetadata.finish(0, metadata({}, load)));
    const CapturedLog log;
    load(QByteArray("PNG"));
    QVERIFY(!topLink(*fixture.store).hasIcon);
    QCOMPARE(log.lines().join(QLatin1Char('\n')), QStringLiteral("Nookle: could not save favicon: Not a directory"));
}

void ShelfStoreLinkMetadataTest::anIconThatCannotBeWrittenIsLogged_data()
{
    QTest::addColumn<bool>("hasIcon");
    QTest::newRow("a link without an icon") << false;
    QTest::newRow("a link with an icon") << true;
}

void ShelfStoreLinkMetadataTest::anIconThatCannotBeWrittenIsLogged()
{
    QFETCH(const bool, hasIcon);
    LinkFixture fixture;
    fixture.store->updateLink(fixture.id(), {}, hasIcon);
    // The folder is there, and the file cannot take its place in it.
    const QString inTheWay = fixture.itemFolder(fixture.id()) + QStringLiteral("/icon.png/inside");
    QVERIFY(QDir().mkpath(inTheWay));
    fixture.queue.advance(1);
    IconCompletion load;
    QVERIFY(fixture.linkMetadata.finish(0, metadata({}, load)));
    const QList<ShelfItem> items = fixture.store->items();
    const CapturedLog log;
    load(QByteArray("PNG"));
    QVERIFY(fixture.store->items() == items);
    QCOMPARE(topLink(*fixture.store).hasIcon, hasIcon);
    QCOMPARE(log.lines().join(QLatin1Char('\n')), QStringLiteral("Nookle: could not save favicon: Is a directory"));
    QVERIFY(QFileInfo::exists(inTheWay));
    QCOMPARE(QDir(fixture.itemFolder(fixture.id())).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{ QStringLiteral("icon.png") });
    QCOMPARE(fixture.queue.waitingTasks(), 0);
}

void ShelfStoreLinkMetadataTest::removingALinkDeletesItsIconOutright()
{
    LinkFixture fixture;
    IconCompletion load;
    QVERIFY(fixture.linkMetadata.finish(0, metadata({}, load)));
    load(QByteArray("PNG"));
    const QUuid id = fixture.id();
    QVERIFY(QFileInfo::exists(fixture.itemFolder(id)));
    fixture.store->remove(id);
    QVERIFY(!QFileInfo::exists(fixture.itemFolder(id)));
    QVERIFY(fixture.trash.moved.isEmpty());
}

void ShelfStoreLinkMetadataTest::lateResultsFindAStoreThatIsGone()
{
    LinkFixture fixture;
    IconCompletion load;
    QVERIFY(fixture.linkMetadata.finish(0, metadata({}, load)));
    fixture.store->addText(QStringLiteral("https://example.com/b"));
    const QUuid id = fixture.store->items().constLast().id;
    fixture.store.reset();
    load(QByteArray("PNG"));
    QVERIFY(!QFileInfo::exists(fixture.itemFolder(id)));
    QVERIFY(!fixture.linkMetadata.finish(1, LinkMetadata{ QStringLiteral("Late"), {} }));
}

QTEST_GUILESS_MAIN(ShelfStoreLinkMetadataTest)
#include "ShelfStoreLinkMetadataTest.moc"
