#include "DragOut.h"

#include "CapturedLog.h"
#include "OpenDescriptors.h"
#include "ShelfFixture.h"

#include <QFileInfo>
#include <QSignalSpy>

#include <sys/resource.h>

using namespace nookle;

class DragOutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void severalFilesAndImagesAreOneListInTheOrderOfTheShelf();
    void whatIsGoneIsLeftBehind();
    void whatHasGoneOrMovedSinceTheLastLookIsKnown();
    void imagesWhoseFileIsGoneAreLeftBehind();
    void nothingIsDraggedWhenEverythingIsGone();
    void onlyWhatAllAllowIsOffered_data();
    void onlyWhatAllAllowIsOffered();
    void eachFileThatGoesToTheTrashLeavesTheShelfAndTheOthersStay();
    void aFileThatMovedBeforeItsDragIsFollowedIntoTheTrash();
    void aTextGoesWithTheFilesOnceAllOfThemAreInTheTrash();
    void trashedItemsLeaveInOneChange();
    void textsThatWereTrashedComeBackInOneStep();
    void aDragThatEndedNowhereSendsNothingToTheTrash();
    void imagesThatAreMovedAwayAreCopiedBack();
    void moreImagesThanCanBeHeldMayNotBeMoved();
    void imagesThatCannotBeHeldMayNotBeMoved();
    void aDragOfThousandFilesHoldsNothing();
    void thePictureOfSeveralIsAFan();

private:
    [[nodiscard]] const QList<ShelfItem>& items() const { return m_shelf->store.items(); }
    [[nodiscard]] QByteArray uriList(const DragItem& drag) const
    {
        return drag.payload->data(QStringLiteral("text/uri-list")).value_or(QByteArray());
    }
    void addImages(int count) const;

    std::unique_ptr<ShelfFixture> m_shelf;
    std::unique_ptr<DragOut> m_drag;
};

namespace {

[[nodiscard]] QUrl inTrash(const char* name)
{
    return fileUrl(QByteArray("/somewhere/.Trash/") + name);
}

} // namespace

void DragOutTest::init()
{
    m_shelf = std::make_unique<ShelfFixture>();
    ShelfFixture& f = *m_shelf;
    m_drag =
        std::make_unique<DragOut>(DragOut::Services{ f.store, f.trash, f.references, f.transfers, f.queue }, f.view);
}

void DragOutTest::cleanup()
{
    m_drag.reset();
    m_shelf.reset();
}

void DragOutTest::addImages(int count) const
{
    for (int added = 0; added < count; ++added)
        (void)m_shelf->addImage();
}

void DragOutTest::severalFilesAndImagesAreOneListInTheOrderOfTheShelf()
{
    const QUrl first = m_shelf->addFile("a b.txt");
    const QUrl image = m_shelf->addImage();
    const QUrl last = m_shelf->addFile("c.txt");
    const auto drag = m_drag->begin(items());
    QVERIFY(drag);
    QCOMPARE(uriList(*drag),
             QByteArray(last.toEncoded() + "\r\n" + image.toEncoded() + "\r\n" + first.toEncoded() + "\r\n"));
}

void DragOutTest::whatIsGoneIsLeftBehind()
{
    const QUrl gone = m_shelf->addFile("gone.txt");
    const QUrl there = m_shelf->addFile("there.txt");
    m_shelf->references.removeFile(gone);
    m_shelf->store.refreshFiles();
    const auto drag = m_drag->begin(items());
    QVERIFY(drag);
    QCOMPARE(uriList(*drag), QByteArray(there.toEncoded() + "\r\n"));
    // One that is left is dragged like one that was dragged alone.
    QVERIFY(drag->payload->formats().contains(QStringLiteral("text/x-moz-url")));
}

void DragOutTest::whatHasGoneOrMovedSinceTheLastLookIsKnown()
{
    const QUrl gone = m_shelf->addFile("gone.txt");
    const QUrl moved = m_shelf->addFile("moved.txt");
    const QUrl there = m_shelf->addFile("there.txt");
    m_shelf->references.removeFile(gone);
    m_shelf->references.moveFile(moved, fileUrl("/elsewhere/moved.txt"));
    const auto drag = m_drag->begin(items());
    QVERIFY(drag);
    QCOMPARE(uriList(*drag), QByteArray(there.toEncoded() + "\r\nfile:///elsewhere/moved.txt\r\n"));
}

void DragOutTest::imagesWhoseFileIsGoneAreLeftBehind()
{
    const QUrl gone = m_shelf->addImage();
    const QUrl there = m_shelf->addImage();
    QVERIFY(QFile::remove(gone.toLocalFile()));
    const auto drag = m_drag->begin(items());
    QVERIFY(drag);
    QCOMPARE(uriList(*drag), QByteArray(there.toEncoded() + "\r\n"));
    QVERIFY(QFile::remove(there.toLocalFile()));
    QVERIFY(!m_drag->begin(items()));
    QCOMPARE(items().size(), 2);
}

void DragOutTest::nothingIsDraggedWhenEverythingIsGone()
{
    m_shelf->store.addText(QStringLiteral("words"));
    const QList<ShelfItem> before = items();
    m_shelf->store.remove(m_shelf->top().id);
    QVERIFY(!m_drag->begin(before));
    QVERIFY(!m_drag->begin({}));
}

void DragOutTest::onlyWhatAllAllowIsOffered_data()
{
    QTest::addColumn<QString>("kinds");
    QTest::addColumn<int>("allowed");
    QTest::newRow("files") << QStringLiteral("ff") << 53;
    QTest::newRow("file and image") << QStringLiteral("fi") << 33;
    QTest::newRow("file and text") << QStringLiteral("ft") << 37;
    QTest::newRow("links") << QStringLiteral("ll") << 39;
    QTest::newRow("link and text") << QStringLiteral("lt") << 37;
    QTest::newRow("one of each") << QStringLiteral("filt") << 33;
}

void DragOutTest::onlyWhatAllAllowIsOffered()
{
    QFETCH(const QString, kinds);
    QFETCH(const int, allowed);
    int count = 0;
    for (const QChar kind : kinds) {
        const QString number = QString::number(++count);
        if (kind == QLatin1Char('f'))
            (void)m_shelf->addFile(number.toLatin1());
        else if (kind == QLatin1Char('i'))
            (void)m_shelf->addImage();
        else if (kind == QLatin1Char('l'))
            m_shelf->store.addText(QStringLiteral("https://example.com/") + number);
        else
            m_shelf->store.addText(number);
    }
    const auto drag = m_drag->begin(items());
    QVERIFY(drag);
    QCOMPARE(drag->allowed.toInt(), allowed);
}

void DragOutTest::eachFileThatGoesToTheTrashLeavesTheShelfAndTheOthersStay()
{
    const QUrl first = m_shelf->addFile("first.txt");
    const QUrl second = m_shelf->addFile("second.txt");
    const QUrl third = m_shelf->addFile("third.txt");
    m_shelf->store.addText(QStringLiteral("words"));
    QVERIFY(m_drag->begin(items()));
    m_shelf->references.moveFile(first, inTrash("first.txt"));
    m_drag->end(DragOperation::move);
    QCOMPARE(items().size(), 3);
    m_shelf->references.moveFile(second, inTrash("second.txt"));
    m_shelf->queue.advance(1);
    QCOMPARE(items().size(), 2);
    m_shelf->queue.advance(100);
    QCOMPARE(items().size(), 2);
    QCOMPARE(m_shelf->store.localURL(items().last()), third);
    QVERIFY(m_shelf->trash.moved.isEmpty());
}

void DragOutTest::aFileThatMovedBeforeItsDragIsFollowedIntoTheTrash()
{
    const QUrl elsewhere = fileUrl("/elsewhere/file.txt");
    m_shelf->references.moveFile(m_shelf->addFile("file.txt"), elsewhere);
    // As a tile has it, which is older than the look at the files.
    const QList<ShelfItem> shown = items();
    QVERIFY(m_drag->begin(shown));
    m_shelf->references.moveFile(elsewhere, inTrash("file.txt"));
    m_drag->end(DragOperation::move);
    QVERIFY(items().isEmpty());
}

void DragOutTest::aTextGoesWithTheFilesOnceAllOfThemAreInTheTrash()
{
    m_shelf->store.addText(QStringLiteral("words"));
    const QUrl first = m_shelf->addFile("first.txt");
    m_shelf->store.addText(QStringLiteral("https://example.com/"));
    const QUrl second = m_shelf->addFile("second.txt");
    QVERIFY(m_drag->begin(items()));
    m_shelf->references.moveFile(first, inTrash("first.txt"));
    m_drag->end(DragOperation::move);
    QCOMPARE(items().size(), 3);
    m_shelf->references.moveFile(second, inTrash("second.txt"));
    m_shelf->queue.advance(1);
    QVERIFY(items().isEmpty());
}

void DragOutTest::trashedItemsLeaveInOneChange()
{
    QList<QUrl> files;
    for (const char* name : { "a", "b", "c" })
        files.append(m_shelf->addFile(name));
    QVERIFY(m_drag->begin(items()));
    for (const QUrl& file : files)
        m_shelf->references.moveFile(file, inTrash("a file"));
    const QSignalSpy changes(&m_shelf->store, &ShelfStore::itemsChanged);
    m_drag->end(DragOperation::move);
    QVERIFY(items().isEmpty());
    QCOMPARE(changes.count(), 1);
}

void DragOutTest::textsThatWereTrashedComeBackInOneStep()
{
    m_shelf->store.addText(QStringLiteral("one"));
    m_shelf->store.addText(QStringLiteral("two"));
    const QUrl file = m_shelf->addFile("a.txt");
    QVERIFY(m_drag->begin(items()));
    m_shelf->references.moveFile(file, inTrash("a.txt"));
    m_drag->end(DragOperation::move);
    QVERIFY(items().isEmpty());
    m_shelf->store.undoRemove();
    // The file is in the Trash, so its item would be unavailable.
    QCOMPARE(items().size(), 2);
    QVERIFY(!m_shelf->store.canUndoRemove());
}

void DragOutTest::aDragThatEndedNowhereSendsNothingToTheTrash()
{
    const QUrl image = m_shelf->addImage();
    const QList<ShelfItem> imageAlone = items();
    m_shelf->store.addText(QStringLiteral("words"));
    QVERIFY(m_drag->begin(imageAlone));
    m_drag->end(DragOperation::copy);
    QVERIFY(m_drag->begin(items()));
    m_drag->end(DragOperation::none);
    // The receiver of the first drag moves the image there.
    QVERIFY(QFile::remove(image.toLocalFile()));
    m_shelf->references.moveFile(image, inTrash("Shot.png"));
    m_shelf->queue.advance(1);
    QCOMPARE(items().size(), 1);
    QCOMPARE(m_shelf->top().displayName(), QStringLiteral("words"));
}

void DragOutTest::imagesThatAreMovedAwayAreCopiedBack()
{
    const QList<QUrl> images{ m_shelf->addImage(), m_shelf->addImage(), m_shelf->addImage() };
    QVERIFY(m_drag->begin(items()));
    m_drag->end(DragOperation::move);
    for (const QUrl& image : images.first(2)) {
        const QString moved = m_shelf->directory.filePath(image.fileName() + QUuid::createUuid().toString());
        QVERIFY(QFile::rename(image.toLocalFile(), moved));
    }
    m_shelf->queue.advance(1);
    for (const QUrl& image : images)
        QVERIFY(QFileInfo::exists(image.toLocalFile()));
    m_shelf->queue.advance(700);
    QCOMPARE(descriptorsBelow(m_shelf->directory.path().toUtf8()), 0);
}

void DragOutTest::moreImagesThanCanBeHeldMayNotBeMoved()
{
    constexpr int many = DraggedImages::mostHeld;
    addImages(many);
    const auto drag = m_drag->begin(items());
    QVERIFY(drag);
    QCOMPARE(drag->allowed.toInt(), 33);
    m_drag->end(DragOperation::copy);
    QCOMPARE(descriptorsBelow(m_shelf->directory.path().toUtf8()), many);

    addImages(1);
    const auto larger = m_drag->begin(items());
    QVERIFY(larger);
    QCOMPARE(larger->allowed.toInt(), 1);
    QCOMPARE(uriList(*larger).count("\r\n"), many + 1);
    m_drag->end(DragOperation::copy);
    // Those of the drag before are still watched, and nothing was added to them.
    QCOMPARE(descriptorsBelow(m_shelf->directory.path().toUtf8()), many);
    m_shelf->queue.advance(700);
    QCOMPARE(descriptorsBelow(m_shelf->directory.path().toUtf8()), 0);
}

void DragOutTest::imagesThatCannotBeHeldMayNotBeMoved()
{
    addImages(2);
    rlimit before{};
    QCOMPARE(::getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none{ 0, before.rlim_max };
    QCOMPARE(::setrlimit(RLIMIT_NOFILE, &none), 0);
    const auto drag = m_drag->begin(items());
    QCOMPARE(::setrlimit(RLIMIT_NOFILE, &before), 0);
    QVERIFY(drag);
    QCOMPARE(drag->allowed.toInt(), 1);
    m_drag->end(DragOperation::none);
    const auto again = m_drag->begin(items());
    QVERIFY(again);
    QCOMPARE(again->allowed.toInt(), 33);
}

void DragOutTest::aDragOfThousandFilesHoldsNothing()
{
    QList<QUrl> files;
    for (int number = 0; number < 1000; ++number)
        files.append(fileUrl("/somewhere/" + QByteArray::number(number)));
    m_shelf->store.addFiles(files);
    const int before = descriptorsBelow("/");
    const auto drag = m_drag->begin(items());
    QVERIFY(drag);
    QCOMPARE(uriList(*drag).count("\r\n"), 1000);
    m_drag->end(DragOperation::copy);
    QCOMPARE(descriptorsBelow("/"), before);
}

void DragOutTest::thePictureOfSeveralIsAFan()
{
    m_shelf->store.addText(QStringLiteral("a"));
    const auto one = m_drag->begin(items());
    QCOMPARE(one->pictureSize, QSizeF(52, 52));
    m_shelf->store.addText(QStringLiteral("b"));
    const auto two = m_drag->begin(items());
    QVERIFY(two->pictureSize.width() > 52);
    QCOMPARE(two->picture.deviceIndependentSize(), two->pictureSize);
}

QTEST_MAIN(DragOutTest)
#include "DragOutTest.moc"
