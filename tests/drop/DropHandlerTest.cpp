#include "DropHandler.h"

#include "CapturedLog.h"
#include "FakeFileReferences.h"
#include "FakeFileTransfers.h"
#include "FakeLinkMetadataService.h"
#include "FakeMainQueue.h"
#include "FakeTrash.h"
#include "FileUrl.h"
#include "ShelfStore.h"

#include <QDir>
#include <QFile>
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
    void aFileThatADropNamesManyTimesIsAddedOnce();
    void aFileThatASandboxHandsOverTwiceIsAddedOnce();
    void aFileDroppedTogetherWithTextIsAddedAfterIt();
    void anImageThatTheShelfTakesOverLeavesNoTemporaryFolder();
    void anImageThatCannotBeCopiedIsLeftOutAndTold();
    void anElementWithNothingInItAddsNothing();
    void anEmptyDropIsAccepted();
    void theDropReturnsBeforeAnythingIsAdded();
    void anImageComesBeforeItsAddress();
    void aFileComesBeforeItsImage();
    void aLinkKeepsItsTitle();
    void manyElementsAreToldAsOneChange();
    void anAddressThatIsNoUrlIsLeftOut();
    void textIsHandedOverUnchanged();
    void aDropWhoseHandlerIsGoneTouchesNothing();
    void filesThatASandboxHandsOverTakeThePlaceOfItsOwnNamesForThem();
    void aTransferThatFailsLeavesTheSourcesOwnNames();
    void aTransferThatEndsAfterTheHandlerTouchesNothing();
    void aSourceThatSavesNothingIsTold();
    void aPasteIsAddedLikeADrop();
    void aPasteThatMovesAnItemToTheTopIsNoFailure();
    void aPasteWithNothingUsableIsTold_data();
    void aPasteWithNothingUsableIsTold();
    void aFullShelfIsToldOnceOfAPaste();

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
        environment.largestIndex = 100'000;
        return environment;
    }

    [[nodiscard]] static DropItem file(const QString& url) { return link(url); }

    [[nodiscard]] static DropItem link(const QString& url, const std::optional<QString>& title = {})
    {
        return { DroppedAddress{ url, title }, {}, {} };
    }

    [[nodiscard]] static DropItem text(const QString& text) { return { {}, {}, text }; }

    [[nodiscard]] static DroppedImage image()
    {
        const QByteArray pixel = QByteArray::fromBase64(
            "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNkYPhfDwAChwGA60e6kgAAAABJRU5ErkJggg==");
        return { pixel, QStringLiteral("image/png"), QStringLiteral("Shot.png") };
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
    handle({ file(QStringLiteral("file:///a")), file(QStringLiteral("file:///b")), file(QStringLiteral("file:///c")) });
    QCOMPARE(names(), QStringList({ QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c") }));
    QCOMPARE(changes.count(), 1);
}

void DropHandlerTest::aFileThatADropNamesManyTimesIsAddedOnce()
{
    DropItems items{ file(QStringLiteral("file:///b")) };
    for (int time = 0; time < 300; ++time)
        items.push_back(file(QStringLiteral("file:///a")));
    for (const char* same : { "file:///x/../a", "file://localhost/a", "file:///%61", "file:///b/" })
        items.push_back(file(QLatin1String(same)));
    items.push_back(file(QStringLiteral("file:///c")));
    handle(std::move(items));
    QCOMPARE(names(), QStringList({ QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("c") }));
}

void DropHandlerTest::aFileThatASandboxHandsOverTwiceIsAddedOnce()
{
    QVERIFY(handler->handleTransfer("key", {}));
    shelf->transfers.finish(0, QList<QUrl>{ fileUrl("/b"), fileUrl("/a"), fileUrl("/b") });
    QCOMPARE(names(), QStringList({ QStringLiteral("b"), QStringLiteral("a") }));
}

void DropHandlerTest::aFileDroppedTogetherWithTextIsAddedAfterIt()
{
    handle({ file(QStringLiteral("file:///a")), text(QStringLiteral("words")) });
    QCOMPARE(names(), QStringList({ QStringLiteral("a"), QStringLiteral("words") }));
}

void DropHandlerTest::anImageThatTheShelfTakesOverLeavesNoTemporaryFolder()
{
    const QTemporaryDir temporary;
    qputenv("TMPDIR", QFile::encodeName(temporary.path()));
    handle({ { {}, image(), {} } });
    qunsetenv("TMPDIR");
    QCOMPARE(names(), QStringList{ QStringLiteral("Shot") });
    QVERIFY(QDir(temporary.path()).isEmpty());
}

void DropHandlerTest::anImageThatCannotBeCopiedIsLeftOutAndTold()
{
    const QSignalSpy told(&shelf->store, &ShelfStore::additionFailed);
    qputenv("TMPDIR", "/nowhere");
    handle({ { {}, image(), {} }, text(QStringLiteral("words")) });
    qunsetenv("TMPDIR");
    QCOMPARE(names(), QStringList{ QStringLiteral("words") });
    QCOMPARE(told.count(), 1);
}

void DropHandlerTest::anElementWithNothingInItAddsNothing()
{
    handle({ DropItem() });
    QVERIFY(shelf->store.items().isEmpty());
}

void DropHandlerTest::anEmptyDropIsAccepted()
{
    handle({});
    QVERIFY(shelf->store.items().isEmpty());
}

void DropHandlerTest::theDropReturnsBeforeAnythingIsAdded()
{
    QVERIFY(handler->handleDrop({ text(QStringLiteral("words")) }));
    QVERIFY(shelf->store.items().isEmpty());
    shelf->queue.runPosted();
    QCOMPARE(shelf->store.items().size(), 1);
}

void DropHandlerTest::anImageComesBeforeItsAddress()
{
    DropItem item = link(QStringLiteral("https://example.com/a.png"));
    item.image = image();
    handle({ item });
    QCOMPARE(shelf->store.items().size(), 1);
    QVERIFY(std::holds_alternative<ImageContent>(shelf->store.items().first().content));
}

void DropHandlerTest::aFileComesBeforeItsImage()
{
    DropItem item = file(QStringLiteral("file:///a.png"));
    item.image = image();
    handle({ item });
    QCOMPARE(shelf->store.items().size(), 1);
    QVERIFY(std::holds_alternative<FileContent>(shelf->store.items().first().content));
}

void DropHandlerTest::aLinkKeepsItsTitle()
{
    handle({ link(QStringLiteral("https://Example.com/"), QStringLiteral("An example")),
             link(QStringLiteral("https://example.org/")) });
    const auto content = std::get<LinkContent>(shelf->store.items().last().content);
    QCOMPARE(content.url.absoluteString(), QStringLiteral("https://Example.com/"));
    QCOMPARE(content.title, QStringLiteral("An example"));
    QVERIFY(!std::get<LinkContent>(shelf->store.items().first().content).title);
}

void DropHandlerTest::manyElementsAreToldAsOneChange()
{
    DropItems items;
    for (int index = 0; index < 100; ++index)
        items.push_back(link(QStringLiteral("https://example.com/%1").arg(index)));
    items.push_back(text(QStringLiteral("milk")));
    const QSignalSpy changes(&shelf->store, &ShelfStore::itemsChanged);
    handle(std::move(items));
    QCOMPARE(shelf->store.items().size(), 101);
    QCOMPARE(changes.count(), 1);
}

void DropHandlerTest::anAddressThatIsNoUrlIsLeftOut()
{
    handle({ link(QStringLiteral("no url")), text(QStringLiteral("words")) });
    QCOMPARE(names(), QStringList{ QStringLiteral("words") });
}

void DropHandlerTest::textIsHandedOverUnchanged()
{
    handle({ text(QStringLiteral("  words \n")) });
    QCOMPARE(std::get<TextContent>(shelf->store.items().first().content).text, QStringLiteral("  words \n"));
}

void DropHandlerTest::aDropWhoseHandlerIsGoneTouchesNothing()
{
    QVERIFY(handler->handleDrop({ text(QStringLiteral("words")) }));
    handler.reset();
    shelf->queue.runPosted();
    QVERIFY(shelf->store.items().isEmpty());
}

void DropHandlerTest::filesThatASandboxHandsOverTakeThePlaceOfItsOwnNamesForThem()
{
    QVERIFY(handler->handleTransfer("key", { file(QStringLiteral("file:///run/flatpak/doc/a")) }));
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
        QVERIFY(handler->handleTransfer("key", { file(QStringLiteral("file:///a")) }));
        shelf->transfers.finish(0, answer);
        shelf->queue.runPosted();
        QCOMPARE(names(), QStringList{ QStringLiteral("a") });
    }
}

void DropHandlerTest::aTransferThatEndsAfterTheHandlerTouchesNothing()
{
    QVERIFY(handler->handleTransfer("key", { file(QStringLiteral("file:///a")) }));
    handler.reset();
    shelf->transfers.finish(0, QList<QUrl>{ fileUrl("/home/a") });
    shelf->queue.runPosted();
    QVERIFY(shelf->store.items().isEmpty());
}

void DropHandlerTest::aSourceThatSavesNothingIsTold()
{
    const CapturedLog log;
    const QSignalSpy told(&shelf->store, &ShelfStore::additionFailed);
    const QTemporaryDir folder;
    QVERIFY(handler->handleSaved(fileUrl(QFile::encodeName(folder.path()))));
    shelf->queue.advance(61);
    QCOMPARE(told.count(), 1);
    QCOMPARE(log.lines().size(), 1);
}

void DropHandlerTest::aPasteIsAddedLikeADrop()
{
    const QSignalSpy told(&shelf->store, &ShelfStore::additionFailed);
    CapturedDrop clipboard;
    clipboard.items = { text(QStringLiteral("words")), file(QStringLiteral("file:///a")),
                        link(QStringLiteral("https://example.org/")) };
    handler->handlePaste(clipboard);
    QVERIFY(shelf->store.items().isEmpty());
    shelf->queue.advance(0);
    QCOMPARE(shelf->store.items().size(), 3);
    CapturedDrop sandboxed;
    sandboxed.transferKey = "key";
    handler->handlePaste(sandboxed);
    QCOMPARE(shelf->transfers.retrieved.size(), 1);
    QCOMPARE(told.size(), 0);
}

void DropHandlerTest::aPasteThatMovesAnItemToTheTopIsNoFailure()
{
    const QSignalSpy told(&shelf->store, &ShelfStore::additionFailed);
    shelf->store.addText(QStringLiteral("words"));
    CapturedDrop clipboard;
    clipboard.items = { text(QStringLiteral("words")) };
    handler->handlePaste(clipboard);
    shelf->queue.advance(0);
    QCOMPARE(shelf->store.items().size(), 1);
    QCOMPARE(told.size(), 0);
}

void DropHandlerTest::aPasteWithNothingUsableIsTold_data()
{
    QTest::addColumn<DropItems>("items");
    QTest::newRow("nothing") << DropItems();
    QTest::newRow("only white space") << DropItems{ text(QStringLiteral(" \n")) };
    QTest::newRow("a file that is not there") << DropItems{ file(QStringLiteral("file:///absent")) };
}

void DropHandlerTest::aPasteWithNothingUsableIsTold()
{
    QFETCH(const DropItems, items);
    shelf->references.refuse(fileUrl("/absent"));
    const QSignalSpy told(&shelf->store, &ShelfStore::additionFailed);
    CapturedDrop clipboard;
    clipboard.items = items;
    handler->handlePaste(clipboard);
    shelf->queue.advance(0);
    QVERIFY(shelf->store.items().isEmpty());
    QCOMPARE(told.size(), 1);
    QCOMPARE(told.constFirst().constFirst().toString(),
             QStringLiteral("Nothing found that can be added to the shelf."));
    handler->handleDrop(items);
    shelf->queue.advance(0);
    QCOMPARE(told.size(), 1);
}

void DropHandlerTest::aFullShelfIsToldOnceOfAPaste()
{
    const QSignalSpy told(&shelf->store, &ShelfStore::additionFailed);
    CapturedDrop clipboard;
    clipboard.items = { text(QString(100'000, QLatin1Char('a'))) };
    handler->handlePaste(clipboard);
    shelf->queue.advance(0);
    QVERIFY(shelf->store.items().isEmpty());
    QCOMPARE(told.size(), 1);
}

QTEST_GUILESS_MAIN(DropHandlerTest)
#include "DropHandlerTest.moc"
