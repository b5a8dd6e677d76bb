#include "ShelfView.h"

#include "CapturedLog.h"
#include "EmptyShelfView.h"
#include "ItemInteractionView.h"
#include "PinButton.h"
#include "ShelfFixture.h"
#include "ShelfItemView.h"
#include "TileList.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QScrollBar>
#include <QTest>
#include <QWindow>

#include <algorithm>
#include <memory>

using namespace nookle;

namespace {

/// Counts the windows that are shown while it lives.
class ShownWindows final : public QObject {
    Q_OBJECT

public:
    ShownWindows() { qApp->installEventFilter(this); }

    [[nodiscard]] int count() const { return m_count; }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show && watched->isWindowType())
            ++m_count;
        return false;
    }

private:
    int m_count = 0;
};

/// Lets a drag enter the shelf as the toolkit does. Returns what its source hears: whether it is accepted.
[[nodiscard]] bool entersAccepted(ShelfView& view, const QMimeData& data, Qt::DropActions actions = Qt::CopyAction)
{
    QDragEnterEvent enter({ 50, 50 }, actions, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view.windowHandle(), &enter);
    QDragMoveEvent move({ 50, 50 }, actions, &data, Qt::LeftButton, Qt::NoModifier);
    move.setAccepted(enter.isAccepted());
    QCoreApplication::sendEvent(view.windowHandle(), &move);
    return move.isAccepted();
}

} // namespace

class ShelfViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<ShelfFixture>(); }
    void cleanup();

    void noOtherWindowIsShownWhileTheViewIsMade();
    void anEmptyStoreShowsTheHintAndTheFirstDropReplacesIt();
    void aTextThatIsAnAddressCanBeOpened();
    void otherTextsCannotBeOpened_data();
    void otherTextsCannotBeOpened();
    void aMailAddressCanBeOpened();
    void anImageIsOpenedOnlyIfItsFileIsOne_data();
    void anImageIsOpenedOnlyIfItsFileIsOne();
    void aFileThatHasVanishedOffersOnlyWhatStillWorks();
    void aFileInPlaceOffersEverything();
    void anImageDraggedToTheTrashIsRemovedWithItsFile();
    void aFileThatTheDestinationMovedToTheTrashLeavesTheShelf();
    void aFileThatIsMovedToTheTrashSomeTimeAfterTheDropLeavesTheShelf();
    void aFileThatWasMovedElsewhereStays();
    void afterADragThatNobodyTookNobodyLooksInTheTrash();
    void anImageDraggedIntoAProgramStays();
    void aTextOrLinkDraggedToTheTrashIsRemovedAndTouchesNoFile();
    void aFailedMoveToTheTrashIsLoggedAndTheItemGoes();
    void theExitOfATileReportedLateLeavesTheNextOneHovered();
    void theEndOfADragClearsTheHoverAndIsReported();
    void theOperationsOfEachKind();
    void copyingReplacesTheClipboard();
    void copyingAVanishedFileLeavesTheClipboardEmpty();
    void aDragCarriesTheFilesUri();
    void aDragOfANameThatIsNotUtf8CarriesItsBytes();
    void aDragOfALinkCarriesAddressTextAndTitle();
    void aDraggedImageIsShownByItsThumbnail();
    void aDraggedFileIsShownByItsThumbnail();
    void theIconOfALinkComesAsAThumbnail();
    void anImageInADragIsOfferedToSandboxesWhereTheyCanTakeIt();
    void anImageWhoseFileIsGoneLooksMissingAndIsNotDimmed();
    void filesThatASandboxHandsOverAreRetrieved();
    void toolTips();
    void itemsOfOneNameAreToldApart();
    void theIntroductionLastsUntilTheShelfIsHidden();
    void aLongPathIsShortenedByFolders_data();
    void aLongPathIsShortenedByFolders();
    void revealShowsTheFile();
    void pinningAndRemovingFromTheMenu();
    void aDropOfAFileIsTakenAsACopy();
    void aDropThatAllowsNoCopyIsRefused();
    void aDropWithNothingToTakeIsRefusedWhileItHovers_data();
    void aDropWithNothingToTakeIsRefusedWhileItHovers();
    void aDragIsLookedAtOnce();
    void aDragThatOffersSomethingLateIsTaken();
    void aDragThatNoLongerAllowsACopyLosesTheStroke();
    void anItemOfItsOwnIsRefusedUntilItsDragHasEnded();
    void theOwnerHearsOfDropsThatHover();
    void noTileIsHighlightedWhileADropHovers();
    void theOwnerHearsOfTheFirstMenuThatOpensAndTheLastThatCloses();
    void thePinButtonTellsTheOwnerAndSaysWhatItDoes();
    void tilesExistOnlyForTheRowsInView();
    void tilesFollowTheStoresOrder();
    void tilesOfAHiddenShelfFollowWhenItIsShown();
    void tilesGrowWithTheDesktopsFont();
    void aTileKeepsItsWidgetWhenTheShelfChanges();
    void aLongNameTakesTwoLinesAndKeepsItsEnd();

private:
    /// Drags the top item out, to a program that says that it has done `operation`.
    void dragTopOut(DragOperation operation)
    {
        const ItemInteraction tile = m_fixture->view.interaction(m_fixture->top());
        QVERIFY(tile.dragItem());
        tile.onDragEnded(operation);
    }

    std::unique_ptr<ShelfFixture> m_fixture;
};

// The toolkit keeps the target of a drag that has not left it.
void ShelfViewTest::cleanup()
{
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&m_fixture->view, &leave);
    QCoreApplication::sendEvent(m_fixture->view.windowHandle(), &leave);
    m_fixture.reset();
}

void ShelfViewTest::noOtherWindowIsShownWhileTheViewIsMade()
{
    m_fixture.reset();
    const ShownWindows shown;
    m_fixture = std::make_unique<ShelfFixture>();
    QCOMPARE(shown.count(), 1);
}

void ShelfViewTest::anEmptyStoreShowsTheHintAndTheFirstDropReplacesIt()
{
    ShelfFixture& f = *m_fixture;
    auto* hint = f.view.findChild<EmptyShelfView*>();
    auto* list = f.view.findChild<TileList*>();
    QVERIFY(hint->isVisible());
    QVERIFY(!list->isVisible());
    f.store.addText(QStringLiteral("words"));
    QVERIFY(!hint->isVisible());
    QVERIFY(list->isVisible());
    QCOMPARE(list->tileCount(), 1);
}

void ShelfViewTest::aTextThatIsAnAddressCanBeOpened()
{
    ShelfFixture& f = *m_fixture;
    ShelfItem item;
    item.content = TextContent{ QStringLiteral("  https://example.com/a \n") };
    const ItemInteraction interaction = f.view.interaction(item);
    QCOMPARE(interaction.menu().front()->title, QStringLiteral("Open"));
    interaction.onClick();
    QCOMPARE(f.workspace.opened, QList<QUrl>{ QUrl(QStringLiteral("https://example.com/a")) });
}

void ShelfViewTest::otherTextsCannotBeOpened_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("another scheme") << QStringLiteral("ftp://example.com/");
    QTest::newRow("a word") << QStringLiteral("word");
    QTest::newRow("a sentence with an address") << QStringLiteral("see https://example.com/");
}

void ShelfViewTest::otherTextsCannotBeOpened()
{
    QFETCH(const QString, text);
    ShelfFixture& f = *m_fixture;
    f.store.addText(text);
    QCOMPARE(f.menu(), QStringLiteral("Copy Pin - Remove"));
    f.view.interaction(f.top()).onClick();
    QVERIFY(f.workspace.opened.isEmpty());
}

void ShelfViewTest::aMailAddressCanBeOpened()
{
    ShelfFixture& f = *m_fixture;
    f.store.addText(QStringLiteral("MAILTO:a@example.com"));
    f.view.interaction(f.top()).onClick();
    QCOMPARE(f.workspace.opened.size(), 1);
    QCOMPARE(f.workspace.opened.first().scheme(), QStringLiteral("mailto"));
}

void ShelfViewTest::anImageIsOpenedOnlyIfItsFileIsOne_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isOpened");
    const QByteArray png("\x89PNG\r\n\x1a\n");
    const QByteArray entry("[Desktop Entry]\nType=Application\nName=a\nExec=true\n");
    QTest::newRow("image") << QStringLiteral("a.png") << png << true;
    QTest::newRow("image by another name of one") << QStringLiteral("a.jpg") << png << true;
    QTest::newRow("image without an extension") << QStringLiteral("Photo") << png << true;
    QTest::newRow("entry of the desktop") << QStringLiteral("a.desktop") << entry << false;
    QTest::newRow("entry by the name of an image") << QStringLiteral("a.png") << entry << false;
    QTest::newRow("entry without a name") << QStringLiteral("a") << entry << false;
    QTest::newRow("image by the name of an entry") << QStringLiteral("a.desktop") << png << false;
    QTest::newRow("image by the name of an entry alone") << QStringLiteral(".desktop") << png << false;
}

void ShelfViewTest::anImageIsOpenedOnlyIfItsFileIsOne()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, bytes);
    QFETCH(const bool, isOpened);
    const CapturedLog log;
    ShelfFixture& f = *m_fixture;
    QFile source(f.directory.filePath(name));
    QVERIFY(source.open(QIODevice::WriteOnly));
    source.write(bytes);
    source.close();
    f.store.addImage(fileUrl(source.fileName().toUtf8()));
    f.view.interaction(f.top()).onClick();
    QCOMPARE(f.workspace.opened.size(), isOpened ? 1 : 0);
    QCOMPARE(log.lines().size(), isOpened ? 0 : 1);
}

void ShelfViewTest::aFileThatHasVanishedOffersOnlyWhatStillWorks()
{
    ShelfFixture& f = *m_fixture;
    const QUrl file = f.addFile("a.txt");
    f.references.removeFile(file);
    f.store.refreshFiles();
    QCOMPARE(f.menu(), QStringLiteral("[Copy] Pin - Remove"));
    QVERIFY(!f.view.interaction(f.top()).dragItem());
    QCOMPARE(f.view.interaction(f.top()).toolTip, QStringLiteral("a.txt"));
}

void ShelfViewTest::aFileInPlaceOffersEverything()
{
    ShelfFixture& f = *m_fixture;
    const QUrl file = f.addFile("a.txt");
    QCOMPARE(f.menu(), QStringLiteral("Open Show in Finder Copy Pin - Remove"));
    f.view.interaction(f.top()).onClick();
    QCOMPARE(f.workspace.opened, QList<QUrl>{ file });
}

void ShelfViewTest::anImageDraggedToTheTrashIsRemovedWithItsFile()
{
    ShelfFixture& f = *m_fixture;
    const QUrl file = f.addImage();
    dragTopOut(DragOperation::remove);
    QCOMPARE(f.trash.moved, QList<QUrl>{ file });
    QVERIFY(f.store.items().isEmpty());
}

void ShelfViewTest::aFileThatTheDestinationMovedToTheTrashLeavesTheShelf()
{
    ShelfFixture& f = *m_fixture;
    const QUrl file = f.addFile("a.txt");
    const ItemInteraction tile = f.view.interaction(f.top());
    QVERIFY(tile.dragItem());
    f.references.moveFile(file, fileUrl("/somewhere/.Trash/a.txt"));
    tile.onDragEnded(DragOperation::move);
    QVERIFY(f.store.items().isEmpty());
    QVERIFY(f.trash.moved.isEmpty());
    // The item would come back without its file.
    QVERIFY(!f.store.canUndoRemove());
}

void ShelfViewTest::aFileThatIsMovedToTheTrashSomeTimeAfterTheDropLeavesTheShelf()
{
    ShelfFixture& f = *m_fixture;
    const QUrl file = f.addFile("a.txt");
    const ItemInteraction tile = f.view.interaction(f.top());
    QVERIFY(tile.dragItem());
    tile.onDragEnded(DragOperation::copy);
    f.queue.advance(0.6);
    QCOMPARE(f.store.items().size(), 1);
    f.references.moveFile(file, fileUrl("/somewhere/.Trash/a.txt"));
    f.queue.advance(5);
    QVERIFY(f.store.items().isEmpty());
}

void ShelfViewTest::aFileThatWasMovedElsewhereStays()
{
    ShelfFixture& f = *m_fixture;
    const QUrl file = f.addFile("a.txt");
    const ItemInteraction tile = f.view.interaction(f.top());
    QVERIFY(tile.dragItem());
    f.references.moveFile(file, fileUrl("/elsewhere/a.txt"));
    tile.onDragEnded(DragOperation::move);
    f.queue.advance(10);
    QCOMPARE(f.store.items().size(), 1);
}

void ShelfViewTest::afterADragThatNobodyTookNobodyLooksInTheTrash()
{
    ShelfFixture& f = *m_fixture;
    const QUrl image = f.addImage();
    const QUrl trashed = fileUrl("/somewhere/.Trash/Shot.png");
    const ItemInteraction tile = f.view.interaction(f.top());
    QVERIFY(tile.dragItem());
    f.references.moveFile(image, trashed);
    tile.onDragEnded(DragOperation::none);
    f.queue.advance(10);
    QCOMPARE(f.store.items().size(), 1);
    // Those who would look for it, in the Trash and elsewhere, have let go of it.
    QCOMPARE(f.references.released.size(), 1);
}

void ShelfViewTest::anImageDraggedIntoAProgramStays()
{
    ShelfFixture& f = *m_fixture;
    const QUrl file = f.addImage();
    for (const DragOperation operation : { DragOperation::copy, DragOperation::none, DragOperation::move })
        dragTopOut(operation);
    QCOMPARE(f.store.items().size(), 1);
    QVERIFY(f.trash.moved.isEmpty());
    QVERIFY(QFileInfo::exists(file.toLocalFile()));
}

void ShelfViewTest::aTextOrLinkDraggedToTheTrashIsRemovedAndTouchesNoFile()
{
    ShelfFixture& f = *m_fixture;
    f.store.addText(QStringLiteral("words"));
    f.store.addText(QStringLiteral("https://example.com/"));
    dragTopOut(DragOperation::remove);
    dragTopOut(DragOperation::remove);
    QVERIFY(f.store.items().isEmpty());
    QVERIFY(f.trash.moved.isEmpty());
}

void ShelfViewTest::aFailedMoveToTheTrashIsLoggedAndTheItemGoes()
{
    ShelfFixture& f = *m_fixture;
    const QUrl file = f.addImage();
    f.trash.failure = Failure{ QStringLiteral("full") };
    const QString line = QStringLiteral("Nookle: moving to Trash failed for %1: full").arg(file.toLocalFile());
    QTest::ignoreMessage(QtWarningMsg, line.toUtf8().constData());
    dragTopOut(DragOperation::remove);
    QVERIFY(f.store.items().isEmpty());
}

void ShelfViewTest::theExitOfATileReportedLateLeavesTheNextOneHovered()
{
    ShelfFixture& f = *m_fixture;
    f.store.addText(QStringLiteral("a"));
    f.store.addText(QStringLiteral("b"));
    const QUuid a = f.store.items()[1].id;
    const QUuid b = f.store.items()[0].id;
    const ItemInteraction tileA = f.view.interaction(f.store.items()[1]);
    const ItemInteraction tileB = f.view.interaction(f.store.items()[0]);
    tileA.onHover(true);
    QCOMPARE(f.view.hoveredID(), a);
    tileB.onHover(true);
    tileA.onHover(false);
    QCOMPARE(f.view.hoveredID(), b);
    tileB.onHover(false);
    QVERIFY(!f.view.hoveredID());
}

void ShelfViewTest::theEndOfADragClearsTheHoverAndIsReported()
{
    ShelfFixture& f = *m_fixture;
    QStringList log;
    f.view.onDragOutBegan = [&] { log.append(QStringLiteral("began")); };
    f.view.onDragOutEnded = [&] { log.append(QStringLiteral("ended")); };
    f.store.addText(QStringLiteral("a"));
    const ItemInteraction tile = f.view.interaction(f.top());
    tile.onHover(true);
    tile.onDragBegan();
    tile.onDragEnded(DragOperation::none);
    QVERIFY(!f.view.hoveredID());
    QCOMPARE(log.join(QLatin1Char(' ')), QStringLiteral("began ended"));
    QCOMPARE(f.store.items().size(), 1);
}

void ShelfViewTest::theOperationsOfEachKind()
{
    const auto operations = [](const ShelfItem::Content& content) {
        ShelfItem item;
        item.content = content;
        return DragOut::allowedOperations(item).toInt();
    };
    QCOMPARE(operations(FileContent{}), 53);
    QCOMPARE(operations(TextContent{}), 37);
    QCOMPARE(operations(LinkContent{ *LinkUrl::parse(QStringLiteral("https://example.com/")), {}, false }), 39);
    QCOMPARE(operations(ImageContent{}), 33);
}

void ShelfViewTest::copyingReplacesTheClipboard()
{
    ShelfFixture& f = *m_fixture;
    const QUrl file = f.addFile("a.txt");
    f.choose(QStringLiteral("Copy"));
    f.store.addText(QStringLiteral("words"));
    f.choose(QStringLiteral("Copy"));
    f.store.addText(QStringLiteral("https://Example.com/"));
    f.choose(QStringLiteral("Copy"));
    const QUrl image = f.addImage();
    f.choose(QStringLiteral("Copy"));
    const QStringList expected{
        QStringLiteral("clear"), QStringLiteral("file ") + file.toString(),
        QStringLiteral("clear"), QStringLiteral("text words"),
        QStringLiteral("clear"), QStringLiteral("link https://Example.com/"),
        QStringLiteral("clear"), QStringLiteral("image ") + image.toString(),
    };
    QCOMPARE(f.pasteboard.operations, expected);
}

// The menu may have been opened before.
void ShelfViewTest::copyingAVanishedFileLeavesTheClipboardEmpty()
{
    ShelfFixture& f = *m_fixture;
    const QUrl file = f.addFile("a.txt");
    const MenuActions menu = f.view.interaction(f.top()).menu();
    const auto copy = std::find_if(menu.begin(), menu.end(), [](const std::optional<MenuAction>& each) {
        return each && each->title == QStringLiteral("Copy");
    });
    QVERIFY(copy != menu.end());
    f.references.removeFile(file);
    f.store.refreshFiles();
    (*copy)->action();
    QCOMPARE(f.pasteboard.operations, QStringList{ QStringLiteral("clear") });
}

void ShelfViewTest::aDragCarriesTheFilesUri()
{
    ShelfFixture& f = *m_fixture;
    const QUrl file = f.addFile("a b.txt");
    const auto item = f.view.interaction(f.top()).dragItem();
    QVERIFY(item);
    QCOMPARE(item->payload->data(QStringLiteral("text/uri-list")), QByteArray(file.toEncoded() + "\r\n"));
    QVERIFY(!item->picture.isNull());
}

void ShelfViewTest::aDragOfANameThatIsNotUtf8CarriesItsBytes()
{
    ShelfFixture& f = *m_fixture;
    (void)f.addFile("\xff\xfe%\n.txt");
    const auto item = f.view.interaction(f.top()).dragItem();
    QCOMPARE(item->payload->data(QStringLiteral("text/uri-list")),
             QByteArray("file:///somewhere/%FF%FE%25%0A.txt\r\n"));
}

void ShelfViewTest::aDragOfALinkCarriesAddressTextAndTitle()
{
    ShelfFixture& f = *m_fixture;
    f.store.addLink(*LinkUrl::parse(QStringLiteral("https://example.com/a")), QStringLiteral("An example"));
    const auto item = f.view.interaction(f.top()).dragItem();
    QCOMPARE(item->payload->data(QStringLiteral("text/plain")), QByteArray("https://example.com/a"));
    QCOMPARE(item->payload->data(QStringLiteral("_NETSCAPE_URL")), QByteArray("https://example.com/a\nAn example"));
}

void ShelfViewTest::aDraggedImageIsShownByItsThumbnail()
{
    ShelfFixture& f = *m_fixture;
    (void)f.addImage();
    f.view.grab();
    QVERIFY(f.thumbnails.finish(0, Picture{ 40, 10, QByteArray(1600, '\xff') }));
    QCOMPARE(f.view.interaction(f.top()).dragItem()->picture.size(), QSize(40, 10));
}

void ShelfViewTest::aDraggedFileIsShownByItsThumbnail()
{
    ShelfFixture& f = *m_fixture;
    (void)f.addFile("a.pdf");
    f.view.grab();
    const QSize icon = f.view.interaction(f.top()).dragItem()->picture.size();
    QVERIFY(icon != QSize(40, 10));
    QVERIFY(f.thumbnails.finish(0, Picture{ 40, 10, QByteArray(1600, '\xff') }));
    QCOMPARE(f.view.interaction(f.top()).dragItem()->picture.size(), QSize(40, 10));
}

void ShelfViewTest::theIconOfALinkComesAsAThumbnail()
{
    ShelfFixture& f = *m_fixture;
    f.store.addLink(*LinkUrl::parse(QStringLiteral("https://example.com/a")), std::nullopt);
    f.view.grab();
    QVERIFY(f.thumbnails.asked.isEmpty());
    f.store.updateLink(f.top().id, std::nullopt, true);
    const QImage withoutIcon = f.view.grab().toImage();
    QCOMPARE(f.thumbnails.asked.size(), 1);
    QCOMPARE(f.thumbnails.asked.first().file, f.store.iconURL(f.top()).value());
    QCOMPARE(f.view.interaction(f.top()).dragItem()->picture.size(), QSize(104, 104));
    QVERIFY(f.thumbnails.finish(0, Picture{ 40, 10, QByteArray(1600, '\xff') }));
    QVERIFY(f.view.grab().toImage() != withoutIcon);
    QCOMPARE(f.view.interaction(f.top()).dragItem()->picture.size(), QSize(40, 10));
}

void ShelfViewTest::anImageInADragIsOfferedToSandboxesWhereTheyCanTakeIt()
{
    ShelfFixture& f = *m_fixture;
    const QString format = QStringLiteral("application/vnd.portal.filetransfer");
    (void)f.addImage();
    QVERIFY(!f.view.interaction(f.top()).dragItem()->payload->formats().contains(format));
    f.transfers.key = "1234";
    QVERIFY(f.view.interaction(f.top()).dragItem()->payload->formats().contains(format));
}

void ShelfViewTest::anImageWhoseFileIsGoneLooksMissingAndIsNotDimmed()
{
    ShelfFixture& f = *m_fixture;
    const QUrl file = f.addImage();
    QVERIFY(QFile::remove(file.toLocalFile()));
    const qsizetype asked = f.thumbnails.asked.size();
    f.view.hide();
    f.view.show();
    f.view.grab();
    QCOMPARE(f.thumbnails.asked.size(), asked);
    QVERIFY(!ShelfItemView::isUnavailable(f.top(), false));
}

void ShelfViewTest::filesThatASandboxHandsOverAreRetrieved()
{
    ShelfFixture& f = *m_fixture;
    QMimeData data;
    data.setData(QStringLiteral("application/vnd.portal.filetransfer"), "1234");
    QDragEnterEvent enter({ 50, 50 }, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&f.view, &enter);
    QDropEvent drop({ 50, 50 }, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&f.view, &drop);
    f.transfers.finish(0, QList<QUrl>{ fileUrl("/somewhere/a.txt") });
    QCOMPARE(f.top().displayName(), QStringLiteral("a.txt"));
}

void ShelfViewTest::toolTips()
{
    ShelfFixture& f = *m_fixture;
    (void)f.addFile("a.txt");
    QCOMPARE(f.view.interaction(f.top()).toolTip, QStringLiteral("/somewhere/a.txt"));
    f.store.addText(QStringLiteral("words\nand more"));
    QCOMPARE(f.view.interaction(f.top()).toolTip, QStringLiteral("words"));
    f.store.addLink(*LinkUrl::parse(QStringLiteral("https://example.com/a")), QStringLiteral("An example"));
    QCOMPARE(f.view.interaction(f.top()).toolTip, QStringLiteral("https://example.com/a"));
}

void ShelfViewTest::itemsOfOneNameAreToldApart()
{
    ShelfFixture& f = *m_fixture;
    f.store.addText(QStringLiteral("words\nand more"));
    QVERIFY(!f.view.interaction(f.top()).distinctToolTip());
    f.store.addText(QStringLiteral("words\nand others"));
    const QString upper = f.view.interaction(f.store.items().at(0)).distinctToolTip().value_or(QString());
    const QString lower = f.view.interaction(f.store.items().at(1)).distinctToolTip().value_or(QString());
    QVERIFY2(upper.startsWith(QStringLiteral("words (1 of 2, added ")), qPrintable(upper));
    QVERIFY2(lower.startsWith(QStringLiteral("words (2 of 2, added ")), qPrintable(lower));
    // Paths tell files apart.
    f.store.addFiles({ fileUrl("/a/same.txt"), fileUrl("/b/same.txt") });
    QVERIFY(!f.view.interaction(f.top()).distinctToolTip());
}

void ShelfViewTest::theIntroductionLastsUntilTheShelfIsHidden()
{
    ShelfFixture& f = *m_fixture;
    const auto* empty = f.view.findChild<EmptyShelfView*>();
    const QImage plain = f.view.grab().toImage();
    f.view.introduce();
    QVERIFY(empty->accessibleDescription().contains(QStringLiteral("right edge")));
    QVERIFY(f.view.grab().toImage() != plain);
    f.view.hide();
    f.view.show();
    QVERIFY(empty->accessibleDescription().isEmpty());
    QCOMPARE(f.view.grab().toImage(), plain);
}

void ShelfViewTest::aLongPathIsShortenedByFolders_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("shown");
    const QString dots = QStringLiteral("\u2026");
    const QString name = QStringLiteral("n").repeated(70);
    const auto row = [](const char* tag, const QString& path, const QString& shown) {
        QTest::newRow(tag) << path << shown;
    };
    row("short", QStringLiteral("/home/a/b.txt"), QStringLiteral("/home/a/b.txt"));
    row("folders go",
        QStringLiteral(
            "/home/someone/Documents/2026/January/Accounts of the association in spring 2025/Drafts/Report.pdf"),
        QStringLiteral("/home/") + dots
            + QStringLiteral("/Accounts of the association in spring 2025/Drafts/Report.pdf"));
    row("a long name stays", QStringLiteral("/home/a/b/") + name,
        QStringLiteral("/home/") + dots + QLatin1Char('/') + name);
    row("nothing between", QStringLiteral("/home/") + name, QStringLiteral("/home/") + name);
    row("no folder", QLatin1Char('/') + name + name, QLatin1Char('/') + name + name);
}

void ShelfViewTest::aLongPathIsShortenedByFolders()
{
    QFETCH(const QString, path);
    ShelfFixture& f = *m_fixture;
    f.store.addFiles({ fileUrl(path.toUtf8()) });
    QTEST(*f.view.interaction(f.top()).toolTip, "shown");
}

void ShelfViewTest::revealShowsTheFile()
{
    ShelfFixture& f = *m_fixture;
    const QUrl file = f.addFile("a.txt");
    f.choose(QStringLiteral("Show in Finder"));
    QCOMPARE(f.workspace.revealed, QList<QList<QUrl>>{ QList<QUrl>{ file } });
}

void ShelfViewTest::pinningAndRemovingFromTheMenu()
{
    ShelfFixture& f = *m_fixture;
    f.store.addText(QStringLiteral("words"));
    f.choose(QStringLiteral("Pin"));
    QVERIFY(f.top().pinned);
    f.choose(QStringLiteral("Unpin"));
    QVERIFY(!f.top().pinned);
    f.choose(QStringLiteral("Remove"));
    QVERIFY(f.store.items().isEmpty());
}

void ShelfViewTest::aDropOfAFileIsTakenAsACopy()
{
    ShelfFixture& f = *m_fixture;
    QMimeData data;
    data.setUrls({ fileUrl("/somewhere/a.txt") });
    QDragEnterEvent enter({ 50, 50 }, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&f.view, &enter);
    QVERIFY(enter.isAccepted());
    QCOMPARE(enter.dropAction(), Qt::CopyAction);
    QDropEvent drop({ 50, 50 }, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&f.view, &drop);
    QCOMPARE(drop.dropAction(), Qt::CopyAction);
    f.queue.runPosted();
    QCOMPARE(f.top().displayName(), QStringLiteral("a.txt"));
}

void ShelfViewTest::aDropThatAllowsNoCopyIsRefused()
{
    ShelfFixture& f = *m_fixture;
    QMimeData data;
    data.setUrls({ fileUrl("/somewhere/a.txt") });
    QVERIFY(!entersAccepted(f.view, data, Qt::MoveAction));
    QVERIFY(!f.view.isDropTarget());
}

void ShelfViewTest::aDropWithNothingToTakeIsRefusedWhileItHovers_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("unknown") << QStringLiteral("application/x-unknown") << QByteArray("bytes");
    QTest::newRow("no image") << QStringLiteral("application/octet-stream") << QByteArray("bytes");
}

void ShelfViewTest::aDropWithNothingToTakeIsRefusedWhileItHovers()
{
    QFETCH(const QString, format);
    QFETCH(const QByteArray, bytes);
    ShelfFixture& f = *m_fixture;
    QMimeData data;
    data.setData(format, bytes);
    QVERIFY(!entersAccepted(f.view, data));
    QVERIFY(!f.view.isDropTarget());
    QDragMoveEvent move({ 50, 60 }, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&f.view, &move);
    QVERIFY(!move.isAccepted());
    QDropEvent drop({ 50, 60 }, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&f.view, &drop);
    QVERIFY(!drop.isAccepted());
    f.queue.runPosted();
    QVERIFY(f.store.items().isEmpty());
}

void ShelfViewTest::aDragIsLookedAtOnce()
{
    ShelfFixture& f = *m_fixture;
    QMimeData data;
    data.setData(QStringLiteral("application/octet-stream"), "GIF89a and the rest of it");
    QDragEnterEvent enter({ 50, 50 }, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&f.view, &enter);
    QVERIFY(enter.isAccepted());
    // Who looked again would refuse it.
    data.setData(QStringLiteral("application/octet-stream"), "bytes");
    QDragMoveEvent move({ 50, 60 }, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&f.view, &move);
    QVERIFY(move.isAccepted());
    QCOMPARE(move.dropAction(), Qt::CopyAction);
}

void ShelfViewTest::aDragThatOffersSomethingLateIsTaken()
{
    ShelfFixture& f = *m_fixture;
    QMimeData data;
    data.setData(QStringLiteral("application/x-unknown"), "bytes");
    QVERIFY(!entersAccepted(f.view, data));
    data.setText(QStringLiteral("words"));
    QDragMoveEvent move({ 50, 60 }, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(f.view.windowHandle(), &move);
    QVERIFY(move.isAccepted());
    QVERIFY(f.view.isDropTarget());
}

void ShelfViewTest::aDragThatNoLongerAllowsACopyLosesTheStroke()
{
    ShelfFixture& f = *m_fixture;
    QMimeData data;
    data.setText(QStringLiteral("words"));
    QDragEnterEvent enter({ 50, 50 }, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&f.view, &enter);
    QVERIFY(f.view.isDropTarget());
    QDragMoveEvent moves({ 50, 60 }, Qt::MoveAction, &data, Qt::LeftButton, Qt::ShiftModifier);
    QCoreApplication::sendEvent(&f.view, &moves);
    QVERIFY(!moves.isAccepted());
    QVERIFY(!f.view.isDropTarget());
    QDragMoveEvent copies({ 50, 60 }, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&f.view, &copies);
    QVERIFY(f.view.isDropTarget());
}

void ShelfViewTest::anItemOfItsOwnIsRefusedUntilItsDragHasEnded()
{
    ShelfFixture& f = *m_fixture;
    f.store.addText(QStringLiteral("words"));
    f.store.addText(QStringLiteral("more words"));
    const ItemInteraction tile = f.view.interaction(f.store.items().at(1));
    QMimeData data;
    data.setText(QStringLiteral("words"));
    tile.onDragBegan();
    QVERIFY(!entersAccepted(f.view, data));
    QVERIFY(!f.view.isDropTarget());
    QDropEvent drop({ 50, 50 }, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&f.view, &drop);
    QVERIFY(!drop.isAccepted());
    f.queue.runPosted();
    QCOMPARE(f.top().displayName(), QStringLiteral("more words"));

    tile.onDragEnded(DragOperation::none);
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(f.view.windowHandle(), &leave);
    QVERIFY(entersAccepted(f.view, data));
}

void ShelfViewTest::theOwnerHearsOfDropsThatHover()
{
    ShelfFixture& f = *m_fixture;
    QList<bool> heard;
    f.view.onDropTargetChanged = [&](bool isDropTarget) { heard.append(isDropTarget); };
    QMimeData data;
    data.setText(QStringLiteral("words"));
    QDragEnterEvent enter({ 50, 50 }, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&f.view, &enter);
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&f.view, &leave);
    QCOMPARE(heard, QList<bool>({ true, false }));
}

void ShelfViewTest::noTileIsHighlightedWhileADropHovers()
{
    ShelfFixture& f = *m_fixture;
    f.store.addText(QStringLiteral("a"));
    f.store.addText(QStringLiteral("b"));
    auto* list = f.view.findChild<TileList*>();
    const QUuid b = f.store.items()[0].id;
    const QUuid a = f.store.items()[1].id;
    f.view.interaction(f.store.items()[1]).onHover(true);
    QVERIFY(list->tile(a)->isHovered());

    QMimeData data;
    data.setText(QStringLiteral("words"));
    QDragEnterEvent enter({ 50, 50 }, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&f.view, &enter);
    QVERIFY(!list->tile(a)->isHovered());
    f.view.interaction(f.store.items()[0]).onHover(true);
    f.store.togglePinned(b);
    QVERIFY(!list->tile(b)->isHovered());

    QDropEvent drop({ 50, 50 }, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&f.view, &drop);
    QVERIFY(list->tile(b)->isHovered());
    QVERIFY(!list->tile(a)->isHovered());

    QCoreApplication::sendEvent(&f.view, &enter);
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&f.view, &leave);
    QVERIFY(!list->tile(b)->isHovered());
}

void ShelfViewTest::theOwnerHearsOfTheFirstMenuThatOpensAndTheLastThatCloses()
{
    ShelfFixture& f = *m_fixture;
    QList<bool> heard;
    f.view.onMenuOpenChanged = [&](bool isOpen) { heard.append(isOpen); };
    f.store.addText(QStringLiteral("a"));
    const ItemInteraction tile = f.view.interaction(f.top());
    tile.onMenuOpenChanged(true);
    QCOMPARE(heard, QList<bool>{ true });
    tile.onMenuOpenChanged(true);
    tile.onMenuOpenChanged(false);
    QCOMPARE(heard, QList<bool>{ true });
    tile.onMenuOpenChanged(false);
    QCOMPARE(heard, QList<bool>({ true, false }));
}

void ShelfViewTest::thePinButtonTellsTheOwnerAndSaysWhatItDoes()
{
    ShelfFixture& f = *m_fixture;
    int toggles = 0;
    f.view.onTogglePin = [&] { ++toggles; };
    auto* button = f.view.findChild<PinButton*>();
    QCOMPARE(button->toolTip(), QStringLiteral("Keep Shelf Open"));
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(toggles, 1);
    f.pinning.setPinned(true);
    QCOMPARE(button->toolTip(), QStringLiteral("Allow Shelf to Hide"));
    QCOMPARE(button->size(), QSize(22, 22));
}

void ShelfViewTest::tilesExistOnlyForTheRowsInView()
{
    ShelfFixture& f = *m_fixture;
    QList<QUrl> files;
    for (int number = 0; number < 1000; ++number)
        files.append(fileUrl("/somewhere/" + QByteArray::number(number)));
    f.store.addFiles(files);
    auto* list = f.view.findChild<TileList*>();
    QVERIFY(list->tileCount() > 4);
    QVERIFY(list->tileCount() < 15);
    QVERIFY(list->tile(f.store.items()[0].id));
    list->verticalScrollBar()->setValue(list->verticalScrollBar()->maximum());
    QVERIFY(list->tileCount() < 15);
    QVERIFY(!list->tile(f.store.items()[0].id));
    QVERIFY(list->tile(f.store.items()[999].id));
}

void ShelfViewTest::tilesFollowTheStoresOrder()
{
    ShelfFixture& f = *m_fixture;
    f.store.addText(QStringLiteral("a"));
    f.store.addText(QStringLiteral("b"));
    auto* list = f.view.findChild<TileList*>();
    const QUuid a = f.store.items()[1].id;
    const QUuid b = f.store.items()[0].id;
    QCOMPARE(list->tile(b)->y(), 6);
    QCOMPARE(list->tile(a)->y(), 6 + list->tile(b)->height() + 4);
    f.store.addText(QStringLiteral("a"));
    QCOMPARE(list->tile(a)->y(), 6);
    QVERIFY(list->tile(b)->y() > list->tile(a)->y());
}

void ShelfViewTest::tilesOfAHiddenShelfFollowWhenItIsShown()
{
    ShelfFixture& f = *m_fixture;
    f.store.addText(QStringLiteral("one"));
    f.store.addText(QStringLiteral("two"));
    const auto* list = f.view.findChild<TileList*>();
    f.view.hide();
    f.store.remove(f.top().id);
    f.store.addText(QStringLiteral("three"));
    f.store.remove(f.store.items().last().id);
    f.view.resize(112, 400);
    QCOMPARE(list->tileCount(), 2);

    f.view.show();
    QCOMPARE(list->tileCount(), 1);
    QVERIFY(list->tile(f.top().id));
}

void ShelfViewTest::tilesGrowWithTheDesktopsFont()
{
    ShelfFixture& f = *m_fixture;
    f.store.addText(QStringLiteral("a"));
    const ShelfItemView* tile = f.view.findChild<TileList*>()->tile(f.top().id);
    const int height = tile->height();
    const QFont usual = QApplication::font();
    QFont font = usual;
    font.setPointSizeF(4);
    // The toolkit tells its widgets only while the application runs.
    const auto change = [&](const QFont& to) {
        QApplication::setFont(to);
        QEvent event(QEvent::ApplicationFontChange);
        QCoreApplication::sendEvent(&f.view, &event);
    };
    change(font);
    QVERIFY(tile->height() < height);
    change(usual);
    QCOMPARE(tile->height(), height);
}

void ShelfViewTest::aTileKeepsItsWidgetWhenTheShelfChanges()
{
    ShelfFixture& f = *m_fixture;
    f.store.addText(QStringLiteral("a"));
    auto* list = f.view.findChild<TileList*>();
    const ShelfItemView* tile = list->tile(f.top().id);
    const QUuid id = f.top().id;
    f.store.addText(QStringLiteral("b"));
    QCOMPARE(list->tile(id), tile);
}

void ShelfViewTest::aLongNameTakesTwoLinesAndKeepsItsEnd()
{
    const TileMetrics metrics;
    const QString name = QStringLiteral("a very long name that does not fit at all into two lines of a tile.tar.gz");
    const QStringList lines = metrics.nameLines(name, 88);
    QCOMPARE(lines.size(), 2);
    QVERIFY(name.startsWith(lines[0]));
    QVERIFY(lines[1].endsWith(QStringLiteral(".gz")));
    const QStringList huge = metrics.nameLines(QString(1'000'000, QLatin1Char('a')) + QStringLiteral(".gz"), 88);
    QCOMPARE(huge.size(), 2);
    QVERIFY2(huge[1].endsWith(QStringLiteral(".gz")), qPrintable(huge[1]));
    QCOMPARE(metrics.nameLines(QStringLiteral("a\nb"), 88), QStringList{ QStringLiteral("a b") });
}

QTEST_MAIN(ShelfViewTest)
#include "ShelfViewTest.moc"
