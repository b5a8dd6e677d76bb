#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QDir>
#include <QFile>
#include <QUrl>
#include <QtTest>

#include <cstdio>

using namespace nookle::e2e;

/// What of other programs becomes which items, and what becomes of the items.
class WaylandItemsTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void threeFilesLandInTheirOrder();
    void aFolderLandsUnderItsName();
    void namesOfAnyBytesComeOutAsTheyWentIn();
    void aTileDroppedOnTheShelfItselfChangesNothing();
    void aTileDroppedOnATrashLeavesTheShelf();

private:
    [[nodiscard]] bool shelfHas(const QStringList& names) const
    {
        return waitFor([&] { return m_shelf->savedFileNames() == names; });
    }
    [[nodiscard]] QByteArray addressOf(const char* path) const { return QUrl::fromLocalFile(home(path)).toEncoded(); }
    [[nodiscard]] bool dropOnShelf(const QByteArray& addresses);
};

void WaylandItemsTest::init()
{
    QVERIFY(setUpDesktop(compositor()) && startShelf());
}

void WaylandItemsTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("%1-%2.png")
                        .arg(qEnvironmentVariable("NOOKLE_ENVIRONMENT"), QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

bool WaylandItemsTest::dropOnShelf(const QByteArray& addresses)
{
    if (!beginDrag(addresses) || !dragToEdge())
        return false;
    // From the edge the drag comes over another window, which takes it anew.
    hand().moveTo(QPoint(WaylandDesktop::displaySize.width() - 60, middle.y()));
    const bool isOnPanel = waitFor([this] {
        // KWin tells a window that has just come of the drag only with the next movement.
        hand().moveTo(hand().position() + QPoint(0, 1));
        return timesSaid("taken") > 1;
    });
    if (!isOnPanel)
        return false;
    hand().release();
    return waitFor([this] { return content("result") == "taken"; });
}

void WaylandItemsTest::threeFilesLandInTheirOrder()
{
    m_desktop->writeFile(QStringLiteral("files/picture.png"), "words");
    m_desktop->writeFile(QStringLiteral("files/zebra"), "words");
    QVERIFY(dropOnShelf(addressOf("files/zebra") + "\r\n" + fileList() + addressOf("files/picture.png") + "\r\n"));
    QVERIFY(shelfHas({ QStringLiteral("zebra"), QStringLiteral("note one.txt"), QStringLiteral("picture.png") }));
}

void WaylandItemsTest::aFolderLandsUnderItsName()
{
    QVERIFY(QDir().mkpath(home("files/A folder")));
    QVERIFY(dropOnShelf(addressOf("files/A folder") + "/\r\n"));
    QVERIFY(shelfHas({ QStringLiteral("A folder") }));
}

void WaylandItemsTest::namesOfAnyBytesComeOutAsTheyWentIn()
{
    const QByteArray path = home("files/").toUtf8() + "r\xc3\xa9sum\xc3\xa9 50%\n\xff\xfe#?.txt";
    FILE* file = std::fopen(path.constData(), "w");
    QVERIFY(file);
    std::fclose(file);
    QVERIFY(dropOnShelf("file://" + path.toPercentEncoding("/") + "\r\n"));
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames().size() == 1; }));

    QVERIFY(openPeer({ QStringLiteral("take"), QStringLiteral("text/uri-list"), home("received") }));
    QVERIFY(showShelf());
    QVERIFY(dragTileToPeer());
    QVERIFY(waitFor([this] { return !content("received").isEmpty(); }));
    QCOMPARE(QByteArray::fromPercentEncoding(content("received").trimmed()), "file://" + path);
}

void WaylandItemsTest::aTileDroppedOnTheShelfItselfChangesNothing()
{
    m_desktop->writeFile(QStringLiteral("files/note two.txt"), "words");
    QVERIFY(dropOnShelf(fileList() + addressOf("files/note two.txt") + "\r\n"));
    const QStringList names{ QStringLiteral("note one.txt"), QStringLiteral("note two.txt") };
    QVERIFY(shelfHas(names));
    QVERIFY(showShelf());

    // Taken as a new drop, the second item would move to the top.
    constexpr QPoint toSecond(0, 86);
    hand().moveTo(firstTile() + toSecond);
    hand().press();
    hand().moveTo(firstTile() + toSecond + QPoint(0, 250));
    hand().release();
    QVERIFY2(holdsFor([&] { return m_shelf->savedFileNames() == names; }, 800), "the shelf took its own item");
}

void WaylandItemsTest::aTileDroppedOnATrashLeavesTheShelf()
{
    QVERIFY(dropOnShelf(fileList()));
    QVERIFY(openPeer({ QStringLiteral("trash") }));
    QVERIFY(showShelf());
    hand().moveTo(firstTile());
    hand().press();
    const qsizetype before = timesSaid("dragged over");
    hand().moveTo(middle);
    QVERIFY(peerSays("dragged over", before));
    // A drop before the other program's answer to the last movement is none, and nothing shows that it has come.
    constexpr int movements = 60;
    for (int movement = 0; movement < movements; ++movement)
        hand().moveTo(middle + QPoint(movement % 2, 0));
    hand().release();
    QVERIFY(waitFor([this] { return m_shelf->savedItems().isEmpty(); }));
    QVERIFY(QFile::exists(home("data/Trash/files/note one.txt")));
}

QTEST_GUILESS_MAIN(WaylandItemsTest)
#include "WaylandItemsTest.moc"
