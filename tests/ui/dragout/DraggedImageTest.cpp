#include "DraggedImage.h"

#include "CapturedLog.h"
#include "OpenDescriptors.h"
#include "ShelfFixture.h"

#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>

#include <filesystem>

using namespace nookle;

class DraggedImageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void imageThatWasMovedAwayIsCopiedBack();
    void imageThatIsMovedAfterAWhileIsCopiedBack();
    void imageThatStaysIsLeftAlone();
    void imageThatWasMovedToTheTrashLeavesTheShelf();
    void imageThatWasRemovedStaysRemoved();
    void dragThatEndedNowhereLooksForNothing();
    void failureIsLogged();
    void fileIsLetGoOfInTheEnd();
    void imageThatIsMovedDuringALongMenuIsCopiedBack();
    void imageThatIsMovedIsCopiedBackAfterTheNextDragToo();
    void imageThatIsMovedIsCopiedBackBeforeTheProgramEnds();
    void imageThatIsMovedIsThereForItsNextDrag();
    void imagesThatAreDraggedOneAfterTheOtherHoldOneFileEach();
    void tileOfAnImageThatWasMovedCanBeDraggedAgain();
    void tileOfAFileThatTurnsUpInTheTrashIsNotDragged();
    void imageThatCannotBeCopiedBackIsTriedAgain();
    void dragThatEndsNowhereLeavesTheWatchBeforeIt();
    void imageThatIsCopiedBackDuringItsNextDragIsWatchedOn();
    void imageStaysReferredToWhileItIsWatched();
    void imageDoesNotExpireWhileItsReceiverMayReadIt();

private:
    /// Drags the image out, to a program that says that it has done `operation`.
    void drag(DragOperation operation = DragOperation::copy);
    /// Moves the image to another folder, as a receiver does.
    void moveAway();
    [[nodiscard]] bool isInPlace() const;
    [[nodiscard]] int heldDescriptors() const;

    std::unique_ptr<ShelfFixture> m_shelf;
    QUrl m_image;
    QUuid m_id;
};

namespace {

constexpr auto content = "\x89PNG\r\n\x1a\n and the rest of it";

[[nodiscard]] QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void DraggedImageTest::init()
{
    m_shelf = std::make_unique<ShelfFixture>();
    m_image = m_shelf->addImage();
    m_id = m_shelf->top().id;
    QFile file(m_image.toLocalFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

void DraggedImageTest::cleanup()
{
    m_shelf.reset();
}

void DraggedImageTest::drag(DragOperation operation)
{
    const ItemInteraction tile = m_shelf->view.interaction(m_shelf->top());
    QVERIFY(tile.dragItem());
    tile.onDragEnded(operation);
}

void DraggedImageTest::moveAway()
{
    QVERIFY(QFile::rename(m_image.toLocalFile(), m_shelf->directory.filePath(QStringLiteral("moved.png"))));
}

bool DraggedImageTest::isInPlace() const
{
    return contentOf(m_image.toLocalFile()) == content;
}

int DraggedImageTest::heldDescriptors() const
{
    return descriptorsBelow(m_shelf->directory.path().toUtf8());
}

void DraggedImageTest::imageThatWasMovedAwayIsCopiedBack()
{
    for (const auto operation : { DragOperation::copy, DragOperation::move }) {
        drag(operation);
        moveAway();
        const QSignalSpy changes(&m_shelf->store, &ShelfStore::itemsChanged);
        m_shelf->queue.advance(1);
        QVERIFY(isInPlace());
        // The tile shows it again.
        QCOMPARE(changes.count(), 1);
        const QString moved = m_shelf->directory.filePath(QStringLiteral("moved.png"));
        QCOMPARE(contentOf(moved), QByteArray(content));
        QVERIFY(QFile::remove(moved));
    }
}

void DraggedImageTest::imageThatIsMovedAfterAWhileIsCopiedBack()
{
    drag();
    m_shelf->queue.advance(40);
    moveAway();
    m_shelf->queue.advance(20);
    QVERIFY(isInPlace());
}

void DraggedImageTest::imageThatStaysIsLeftAlone()
{
    drag();
    const QSignalSpy changes(&m_shelf->store, &ShelfStore::itemsChanged);
    m_shelf->queue.advance(100);
    QVERIFY(isInPlace());
    QCOMPARE(changes.count(), 0);
}

void DraggedImageTest::imageThatWasMovedToTheTrashLeavesTheShelf()
{
    drag();
    // Later than the watch over the Trash looks.
    m_shelf->queue.advance(20);
    moveAway();
    m_shelf->references.moveFile(m_image, fileUrl("/somewhere/.Trash/Shot.png"));
    m_shelf->queue.advance(30);
    QVERIFY(!isInPlace());
    QVERIFY(m_shelf->store.items().isEmpty());
}

void DraggedImageTest::imageThatWasRemovedStaysRemoved()
{
    drag();
    m_shelf->store.remove(m_id);
    QFile::remove(m_image.toLocalFile());
    m_shelf->queue.advance(100);
    QVERIFY(!isInPlace());
}

void DraggedImageTest::dragThatEndedNowhereLooksForNothing()
{
    drag(DragOperation::none);
    QCOMPARE(heldDescriptors(), 0);
}

void DraggedImageTest::failureIsLogged()
{
    const CapturedLog log;
    drag();
    moveAway();
    // Where the folder was, there can be none.
    const std::filesystem::path folder = std::filesystem::path(m_image.toLocalFile().toStdString()).parent_path();
    std::filesystem::remove_all(folder);
    QFile obstacle(QString::fromStdString(folder.string()));
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    obstacle.close();
    m_shelf->queue.advance(100);
    QCOMPARE(log.lines().size(), 1);
    QVERIFY(log.lines().first().contains(QStringLiteral("could not restore image: ")));
}

void DraggedImageTest::imageThatCannotBeCopiedBackIsTriedAgain()
{
    const CapturedLog log;
    drag();
    moveAway();
    const QString folder = QFileInfo(m_image.toLocalFile()).path();
    QVERIFY(QDir(folder).removeRecursively());
    QFile obstacle(folder);
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    m_shelf->queue.advance(100);
    QVERIFY(!isInPlace());
    QVERIFY(obstacle.remove());
    m_shelf->queue.advance(20);
    QVERIFY(isInPlace());
    QCOMPARE(log.lines().size(), 1);
}

void DraggedImageTest::fileIsLetGoOfInTheEnd()
{
    drag();
    QCOMPARE(heldDescriptors(), 1);
    m_shelf->queue.advance(700);
    QCOMPARE(heldDescriptors(), 0);
    drag();
    moveAway();
    m_shelf->queue.advance(1);
    QCOMPARE(heldDescriptors(), 0);
}

void DraggedImageTest::imageThatIsMovedDuringALongMenuIsCopiedBack()
{
    drag();
    m_shelf->queue.advance(5 * 60);
    moveAway();
    m_shelf->queue.advance(18);
    QVERIFY(isInPlace());
}

void DraggedImageTest::imageThatIsMovedIsCopiedBackAfterTheNextDragToo()
{
    drag();
    m_shelf->queue.advance(4);
    moveAway();
    (void)m_shelf->addFile("a.txt");
    drag();
    QVERIFY(!isInPlace());
    m_shelf->queue.advance(18);
    QVERIFY(isInPlace());
}

void DraggedImageTest::imageThatIsMovedIsCopiedBackBeforeTheProgramEnds()
{
    drag();
    moveAway();
    m_shelf->view.saveDraggedImages();
    QVERIFY(isInPlace());
    QCOMPARE(heldDescriptors(), 0);
}

void DraggedImageTest::imageThatIsMovedIsThereForItsNextDrag()
{
    drag();
    moveAway();
    QVERIFY(m_shelf->view.interaction(m_shelf->top()).dragItem());
    QVERIFY(isInPlace());
}

void DraggedImageTest::imagesThatAreDraggedOneAfterTheOtherHoldOneFileEach()
{
    for (int count = 0; count < 5; ++count)
        drag();
    QCOMPARE(heldDescriptors(), 1);
    (void)m_shelf->addFile("a.txt");
    drag();
    QCOMPARE(heldDescriptors(), 1);
    m_shelf->queue.advance(700);
    QCOMPARE(heldDescriptors(), 0);
}

// What a look at the drag before changes on the shelf replaces what the tile does, while it does it.
void DraggedImageTest::tileOfAnImageThatWasMovedCanBeDraggedAgain()
{
    int drags = 0;
    m_shelf->dragOutcome = [&] {
        ++drags;
        return DragOperation::copy;
    };
    m_shelf->dragTop();
    moveAway();
    m_shelf->dragTop();
    QCOMPARE(drags, 2);
    QVERIFY(isInPlace());
}

void DraggedImageTest::tileOfAFileThatTurnsUpInTheTrashIsNotDragged()
{
    const QUrl file = m_shelf->addFile("a.txt");
    int drags = 0;
    m_shelf->dragOutcome = [&] {
        ++drags;
        return DragOperation::move;
    };
    m_shelf->dragTop();
    QCOMPARE(drags, 1);
    m_shelf->references.moveFile(file, fileUrl("/somewhere/.Trash/a.txt"));
    m_shelf->dragTop();
    QCOMPARE(drags, 1);
    QCOMPARE(m_shelf->store.items().size(), 1);
}

void DraggedImageTest::dragThatEndsNowhereLeavesTheWatchBeforeIt()
{
    drag();
    m_shelf->queue.advance(5);
    drag(DragOperation::none);
    QCOMPARE(heldDescriptors(), 1);
    moveAway();
    m_shelf->queue.advance(20);
    QVERIFY(isInPlace());
}

void DraggedImageTest::imageThatIsCopiedBackDuringItsNextDragIsWatchedOn()
{
    drag();
    m_shelf->dragOutcome = [this] {
        moveAway();
        m_shelf->queue.advance(20);
        return DragOperation::copy;
    };
    m_shelf->dragTop();
    QVERIFY(isInPlace());
    QVERIFY(QFile::remove(m_shelf->directory.filePath(QStringLiteral("moved.png"))));
    moveAway();
    m_shelf->queue.advance(20);
    QVERIFY(isInPlace());
}

void DraggedImageTest::imageStaysReferredToWhileItIsWatched()
{
    drag();
    m_shelf->queue.advance(60);
    drag();
    m_shelf->queue.advance(60);
    QVERIFY(m_shelf->references.released.isEmpty());
    m_shelf->queue.advance(700);
    QCOMPARE(m_shelf->references.released.size(), 1);
}

void DraggedImageTest::imageDoesNotExpireWhileItsReceiverMayReadIt()
{
    m_shelf->dragOutcome = [this] {
        m_shelf->store.removeExpired(-1);
        return DragOperation::copy;
    };
    m_shelf->dragTop();
    m_shelf->queue.advance(300);
    m_shelf->store.removeExpired(-1);
    QVERIFY(isInPlace());
    m_shelf->queue.advance(400);
    m_shelf->store.removeExpired(-1);
    QVERIFY(m_shelf->store.items().isEmpty());
}

QTEST_MAIN(DraggedImageTest)
#include "DraggedImageTest.moc"
