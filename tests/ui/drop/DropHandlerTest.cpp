#include "DropHandler.h"

#include "FakeDropItem.h"
#include "FakeFileReferences.h"
#include "FakeFileTransfers.h"
#include "FakeLinkMetadataService.h"
#include "FakeMainQueue.h"
#include "FakeTrash.h"
#include "FileUrl.h"
#include "ShelfStore.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <utility>

using namespace nookle;

class DropHandlerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void threeFilesAreAddedInOneCallInDropOrder();
    void aFileDroppedTogetherWithTextIsAddedAfterIt();
    void anAddressThatTurnsOutToBeAFileIsAFileAndNoTitleIsLoaded();
    void anImageThatTheShelfTakesOverLeavesNoTemporaryFolder();
    void aDropOfNothingUsableIsAcceptedAndAddsNothing();
    void anEmptyDropIsAccepted();
    void theDropReturnsBeforeAnythingIsAdded();
    void anImageComesBeforeItsAddress();
    void aFileComesBeforeItsImage();
    void aLinkKeepsItsTitle();
    void anAddressThatIsNoUrlIsLeftOut();
    void textIsHandedOverUnchanged();
    void aDropWhoseHandlerIsGoneTouchesNothing();
    void filesThatASandboxHandsOverTakeThePlaceOfItsOwnNamesForThem();
    void aTransferThatFailsLeavesTheSourcesOwnNames();
    void aTransferThatEndsAfterTheHandlerTouchesNothing();

private:
    struct Shelf {
        QTemporaryDir directory;
        FakeMainQueue queue;
        FakeFileReferences references;
        FakeTrash trash;
        FakeLinkMetadataService metadata;
        FakeFileTransfers transfers;
        ShelfStore store{
            fileUrl(directory.path().toUtf8() + "/Nookle"), environment(), references, trash, metadata, queue
        };
    };

    [[nodiscard]] static ShelfStore::Environment environment()
    {
        ShelfStore::Environment environment;
        environment.moveToTrash = [](const QUrl&) { return std::nullopt; };
        environment.fetchesLinkMetadata = false;
        return environment;
    }

    template <typename... Items> static DropItems drop(Items... items)
    {
        DropItems list;
        (list.push_back(std::make_unique<FakeDropItem>(std::move(items))), ...);
        return list;
    }

    [[nodiscard]] static FakeDropItem file(const QString& url)
    {
        FakeDropItem item;
        item.offersFile = item.offersURL = true;
        item.url = url;
        return item;
    }

    [[nodiscard]] static FakeDropItem link(const QString& url)
    {
        FakeDropItem item;
        item.offersURL = true;
        item.url = url;
        return item;
    }

    [[nodiscard]] static FakeDropItem text(const QString& text)
    {
        FakeDropItem item;
        item.offersText = true;
        item.text = text;
        return item;
    }

    [[nodiscard]] QStringList names() const
    {
        QStringList names;
        for (const ShelfItem& item : shelf->store.items())
            names.append(item.displayName());
        return names;
    }

    void handle(DropItems items)
    {
        QVERIFY(handler->handleDrop(std::move(items)));
        shelf->queue.runPosted();
    }

    std::unique_ptr<Shelf> shelf;
    std::unique_ptr<DropHandler> handler;
};

void DropHandlerTest::init()
{
    handler.reset();
    shelf = std::make_unique<Shelf>();
    handler = std::make_unique<DropHandler>(shelf->store, shelf->queue, shelf->transfers);
}

void DropHandlerTest::threeFilesAreAddedInOneCallInDropOrder()
{
    const QSignalSpy changes(&shelf->store, &ShelfStore::itemsChanged);
    handle(
        drop(file(QStringLiteral("file:///a")), file(QStringLiteral("file:///b")), file(QStringLiteral("file:///c"))));
    QCOMPARE(names(), QStringList({ QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c") }));
    QCOMPARE(changes.count(), 1);
}

void DropHandlerTest::aFileDroppedTogetherWithTextIsAddedAfterIt()
{
    handle(drop(file(QStringLiteral("file:///a")), text(QStringLiteral("words"))));
    QCOMPARE(names(), QStringList({ QStringLiteral("a"), QStringLiteral("words") }));
}

void DropHandlerTest::anAddressThatTurnsOutToBeAFileIsAFileAndNoTitleIsLoaded()
{
    int titleLoads = 0;
    FakeDropItem item = link(QStringLiteral("file:///a"));
    item.titleLoads = &titleLoads;
    handle(drop(std::move(item)));
    QVERIFY(std::holds_alternative<FileContent>(shelf->store.items().first().content));
    QCOMPARE(titleLoads, 0);
}

void DropHandlerTest::anImageThatTheShelfTakesOverLeavesNoTemporaryFolder()
{
    const QString folder = shelf->directory.filePath(QStringLiteral("Nookle-1"));
    QVERIFY(QDir().mkpath(folder));
    QFile copy(folder + QStringLiteral("/Shot.png"));
    QVERIFY(copy.open(QIODevice::WriteOnly));
    copy.close();
    FakeDropItem item;
    item.offersImage = true;
    item.imageCopy = fileUrl(copy.fileName().toUtf8());
    handle(drop(std::move(item)));
    QCOMPARE(names(), QStringList{ QStringLiteral("Shot") });
    QVERIFY(!QFileInfo::exists(folder));
}

void DropHandlerTest::aDropOfNothingUsableIsAcceptedAndAddsNothing()
{
    FakeDropItem silent;
    silent.offersFile = silent.offersImage = silent.offersURL = silent.offersText = true;
    FakeDropItem silentImage;
    silentImage.offersImage = true;
    handle(drop(FakeDropItem(), std::move(silent), std::move(silentImage)));
    QVERIFY(shelf->store.items().isEmpty());
}

void DropHandlerTest::anEmptyDropIsAccepted()
{
    handle({});
    QVERIFY(shelf->store.items().isEmpty());
}

void DropHandlerTest::theDropReturnsBeforeAnythingIsAdded()
{
    QVERIFY(handler->handleDrop(drop(text(QStringLiteral("words")))));
    QVERIFY(shelf->store.items().isEmpty());
    shelf->queue.runPosted();
    QCOMPARE(shelf->store.items().size(), 1);
}

void DropHandlerTest::anImageComesBeforeItsAddress()
{
    FakeDropItem item = link(QStringLiteral("https://example.com/a.png"));
    item.offersImage = true;
    handle(drop(std::move(item)));
    QVERIFY(shelf->store.items().isEmpty());
}

void DropHandlerTest::aFileComesBeforeItsImage()
{
    FakeDropItem item = file(QStringLiteral("file:///a.png"));
    item.offersImage = true;
    handle(drop(std::move(item)));
    QVERIFY(std::holds_alternative<FileContent>(shelf->store.items().first().content));
}

void DropHandlerTest::aLinkKeepsItsTitle()
{
    FakeDropItem item = link(QStringLiteral("https://Example.com/"));
    item.title = QStringLiteral("An example");
    handle(drop(std::move(item), link(QStringLiteral("https://example.org/"))));
    const auto content = std::get<LinkContent>(shelf->store.items().last().content);
    QCOMPARE(content.url.absoluteString(), QStringLiteral("https://Example.com/"));
    QCOMPARE(content.title, QStringLiteral("An example"));
    QVERIFY(!std::get<LinkContent>(shelf->store.items().first().content).title);
}

void DropHandlerTest::anAddressThatIsNoUrlIsLeftOut()
{
    handle(drop(link(QStringLiteral("no url")), text(QStringLiteral("words"))));
    QCOMPARE(names(), QStringList{ QStringLiteral("words") });
}

void DropHandlerTest::textIsHandedOverUnchanged()
{
    handle(drop(text(QStringLiteral("  words \n"))));
    QCOMPARE(std::get<TextContent>(shelf->store.items().first().content).text, QStringLiteral("  words \n"));
}

void DropHandlerTest::aDropWhoseHandlerIsGoneTouchesNothing()
{
    QVERIFY(handler->handleDrop(drop(text(QStringLiteral("words")))));
    handler.reset();
    shelf->queue.runPosted();
    QVERIFY(shelf->store.items().isEmpty());
}

void DropHandlerTest::filesThatASandboxHandsOverTakeThePlaceOfItsOwnNamesForThem()
{
    QVERIFY(handler->handleTransfer("key", drop(file(QStringLiteral("file:///run/flatpak/doc/a")))));
    QVERIFY(shelf->store.items().isEmpty());
    QCOMPARE(shelf->transfers.retrieved, QList<QByteArray>{ "key" });
    shelf->transfers.finish(0, QList<QUrl>{ fileUrl("/home/a"), fileUrl("/home/b") });
    shelf->queue.runPosted();
    QCOMPARE(names(), QStringList({ QStringLiteral("a"), QStringLiteral("b") }));
    QCOMPARE(shelf->store.fileURLs().value(shelf->store.items().first().id), fileUrl("/home/a"));
}

void DropHandlerTest::aTransferThatFailsLeavesTheSourcesOwnNames()
{
    for (const auto& answer : { std::optional<QList<QUrl>>(), std::optional(QList<QUrl>()) }) {
        init();
        QVERIFY(handler->handleTransfer("key", drop(file(QStringLiteral("file:///a")))));
        shelf->transfers.finish(0, answer);
        shelf->queue.runPosted();
        QCOMPARE(names(), QStringList{ QStringLiteral("a") });
    }
}

void DropHandlerTest::aTransferThatEndsAfterTheHandlerTouchesNothing()
{
    QVERIFY(handler->handleTransfer("key", drop(file(QStringLiteral("file:///a")))));
    handler.reset();
    shelf->transfers.finish(0, QList<QUrl>{ fileUrl("/home/a") });
    shelf->queue.runPosted();
    QVERIFY(shelf->store.items().isEmpty());
}

QTEST_GUILESS_MAIN(DropHandlerTest)
#include "DropHandlerTest.moc"
