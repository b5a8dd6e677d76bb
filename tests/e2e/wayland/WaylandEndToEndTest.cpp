#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QUrl>
#include <QtTest>

using namespace nookle::e2e;

namespace {

const QByteArray address("http://127.0.0.1:9/a/?b=%C3%BC&c=1#x");
const QByteArray text(" words, \xe2\x82\xac 5\n\ttwo lines \xf0\x9f\x98\x80\n");
inline constexpr int rightEdge = WaylandDesktop::displaySize.width();

} // namespace

class WaylandEndToEndTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void aFileReleasedAtTheEdgeIsSaved();
    void aFileReleasedOnThePanelIsSaved();
    void theTileIsBackAfterARestartAndArrivesInAnotherProgram_data();
    void theTileIsBackAfterARestartAndArrivesInAnotherProgram();
    void severalItemsArriveInAnotherProgramInOneDrag_data();
    void severalItemsArriveInAnotherProgramInOneDrag();
    void theMenuOpensBesideThePanelAndEscapeClosesIt();
    void thePanelGoesHalfASecondAfterThePointer();
    void thePinnedPanelStays();
    void aClickAtTheEdgeReachesTheWindowBelow();
    void aDragThatEndsElsewhereLeavesNothing();
    void withTheSettingOffNothingIsAtTheEdge();
    void theBusActionShowsAndHidesThePanel();
    void eachDisplayHasItsEdge_data();
    void eachDisplayHasItsEdge();
    void theShelfOpensOnTheDisplayWithThePointer_data();
    void theShelfOpensOnTheDisplayWithThePointer();
    void theShelfIsSavedWhenTheCompositorDies();
    void aFileOfAnX11ProgramIsSaved();
    void aTileArrivesInAnX11Program();
    void aSourceThatDeliversNothingLeavesTheShelfReadyForTheNext_data();
    void aSourceThatDeliversNothingLeavesTheShelfReadyForTheNext();

private:
    [[nodiscard]] bool setUp(int displays = 1) { return setUpDesktop(compositor(), displays) && startShelf(); }
    [[nodiscard]] bool fileIsSaved() const
    {
        return waitFor([this] { return m_shelf->savedFileNames() == QStringList{ QStringLiteral("note one.txt") }; });
    }
};

void WaylandEndToEndTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("%1-%2.png")
                        .arg(qEnvironmentVariable("NOOKLE_ENVIRONMENT"), QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

void WaylandEndToEndTest::aFileReleasedAtTheEdgeIsSaved()
{
    QVERIFY(setUp());
    QVERIFY(beginDrag(fileList()));
    QVERIFY(dragToEdge());
    hand().release();
    QVERIFY(fileIsSaved());
    QVERIFY(waitFor([this] { return content("result") == "taken"; }));
}

void WaylandEndToEndTest::aFileReleasedOnThePanelIsSaved()
{
    QVERIFY(setUp());
    QVERIFY(beginDrag(fileList()));
    QVERIFY(isPanelGone());
    QVERIFY(dragToEdge());
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    hand().moveTo(QPoint(rightEdge - 60, middle.y()));
    // From the edge the drag comes over another window, which takes it anew.
    QVERIFY(isTaken(1));
    hand().release();
    QVERIFY(fileIsSaved());
    QVERIFY(waitFor([this] { return content("result") == "taken"; }));
}

void WaylandEndToEndTest::theTileIsBackAfterARestartAndArrivesInAnotherProgram_data()
{
    QTest::addColumn<QString>("offered");
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<QString>("taken");
    QTest::addColumn<QByteArray>("expected");
    const QString list = QStringLiteral("text/uri-list");
    const QString plain = QStringLiteral("text/plain");
    // The address of the file is known once its desktop is there.
    QTest::newRow("a file into Qt") << list << QByteArray() << list << QByteArray();
    QTest::newRow("a file into GTK 4") << list << QByteArray() << QStringLiteral("files") << QByteArray();
    QTest::newRow("a text into Qt") << plain << text << plain << text;
    QTest::newRow("a text into GTK 4") << plain << text << QStringLiteral("text") << text;
    QTest::newRow("a link into Qt") << list << address + "\r\n" << plain << address;
}

void WaylandEndToEndTest::theTileIsBackAfterARestartAndArrivesInAnotherProgram()
{
    QFETCH(QString, offered);
    QFETCH(QByteArray, payload);
    QFETCH(QString, taken);
    QFETCH(QByteArray, expected);
    QVERIFY(setUp());
    QVERIFY(putOnShelf(payload.isEmpty() ? fileList() : payload, offered));
    const QList<QJsonObject> saved = m_shelf->savedItems();
    QVERIFY(m_shelf->stop());
    QCOMPARE(m_shelf->savedItems(), saved);
    QVERIFY(startShelf());

    if (taken.contains(QLatin1Char('/')))
        QVERIFY(openPeer({ QStringLiteral("take"), taken, home("received") }));
    else
        openGtkTarget(taken);
    QVERIFY(showShelf());
    QVERIFY(dragTileToPeer());
    if (expected.isEmpty())
        expected = taken == QLatin1String("files") ? fileList().replace("\r", "") : fileList();
    QVERIFY(waitFor([this] { return QFile::exists(home("received")); }));
    QCOMPARE(content("received"), expected);
    QVERIFY2(waitFor([this] { return isPanelGone(); }), "the panel stays after the drag");
    QCOMPARE(m_shelf->savedItems(), saved);
}

void WaylandEndToEndTest::severalItemsArriveInAnotherProgramInOneDrag_data()
{
    QTest::addColumn<QString>("taken");
    QTest::newRow("Qt") << QStringLiteral("text/uri-list");
    QTest::newRow("GTK 4") << QStringLiteral("files");
}

void WaylandEndToEndTest::severalItemsArriveInAnotherProgramInOneDrag()
{
    QFETCH(const QString, taken);
    QVERIFY(setUp());
    m_desktop->writeFile(QStringLiteral("files/two.txt"), "words");
    QCOMPARE(m_shelf->startAgain({ home("files/two.txt"), home("files/note one.txt") }), 0);
    QVERIFY(waitFor([this] { return m_shelf->savedItems().size() == 2; }));
    if (taken.contains(QLatin1Char('/')))
        QVERIFY(openPeer({ QStringLiteral("take"), taken, home("received") }));
    else
        openGtkTarget(taken);
    QVERIFY(showShelf());
    QVERIFY(dragToPeer(handle()));
    QVERIFY(waitFor([this] { return QFile::exists(home("received")); }));
    const QByteArray two = QUrl::fromLocalFile(home("files/two.txt")).toEncoded() + "\r\n";
    const QByteArray expected = two + fileList();
    QCOMPARE(content("received").replace("\r", ""), QByteArray(expected).replace("\r", ""));
}

void WaylandEndToEndTest::theMenuOpensBesideThePanelAndEscapeClosesIt()
{
    QVERIFY(setUp());
    QVERIFY(putOnShelf(fileList()));
    hand().moveTo(firstTile());
    QVERIFY(!isMenuOpen());
    hand().click(Hand::Button::right);
    QVERIFY2(waitFor([this] { return isMenuOpen(); }), "there is no menu left of the panel");
    hand().moveTo(middle);
    QVERIFY2(holdsFor([this] { return isMenuOpen() && isPanelOut(); }, 1000), "the menu goes with the pointer");
    hand().type(Hand::Key::escape);
    QVERIFY2(waitFor([this] { return !isMenuOpen(); }), "the menu stays");
    QVERIFY2(waitFor([this] { return isPanelGone(); }), "the panel stays without its menu");
}

void WaylandEndToEndTest::thePanelGoesHalfASecondAfterThePointer()
{
    QVERIFY(setUp());
    QVERIFY(putOnShelf(fileList()));
    hand().moveTo(QPoint(rightEdge - 60, middle.y()));
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    QVERIFY2(holdsFor([this] { return isPanelOut(); }, 1200), "the panel goes under the pointer");
    hand().moveTo(middle);
    QVERIFY2(holdsFor([this] { return isPanelOut(); }, 250), "the panel goes too early");
    QVERIFY2(waitFor([this] { return isPanelGone(); }, 1500), "the panel stays");
}

void WaylandEndToEndTest::thePinnedPanelStays()
{
    QVERIFY(setUp());
    QVERIFY(openPeer({ QStringLiteral("trash") }));
    QVERIFY(showShelf());
    hand().moveTo(pin());
    hand().click();
    hand().moveTo(middle);
    QVERIFY2(holdsFor([this] { return isPanelOut(); }, 1200), "the panel goes although it is pinned");
    hand().moveTo(pin());
    hand().click();
    hand().moveTo(middle);
    QVERIFY2(waitFor([this] { return isPanelGone(); }), "the panel stays although it is not pinned");
}

void WaylandEndToEndTest::aClickAtTheEdgeReachesTheWindowBelow()
{
    QVERIFY(setUp());
    QVERIFY(openPeer({ QStringLiteral("trash") }));
    const qsizetype before = timesSaid("entered");
    hand().moveTo(QPoint(rightEdge - 1, middle.y()));
    if (announcesDrags()) {
        hand().click();
        QVERIFY(peerSays("pressed"));
        QCOMPARE(timesSaid("left"), 0);
        return;
    }
    QVERIFY2(peerSays("left"), "nothing is at the edge");
    QVERIFY2(waitFor([&] {
                 hand().moveTo(hand().position() + QPoint(0, 1));
                 return timesSaid("entered") > before;
             }),
             "what is at the edge does not step aside");
    hand().click();
    QVERIFY(peerSays("pressed"));
    QVERIFY(isPanelGone());
}

void WaylandEndToEndTest::aDragThatEndsElsewhereLeavesNothing()
{
    QVERIFY(setUp());
    QVERIFY(beginDrag(fileList()));
    QVERIFY(dragToEdge());
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    hand().moveTo(middle);
    hand().release();
    QVERIFY(waitFor([this] { return content("result") == "refused"; }));
    QVERIFY2(waitFor([this] { return isPanelGone(); }, 3000), "the panel stays");
    QVERIFY(m_shelf->savedItems().isEmpty());
    // The edge is ready for the next one.
    QVERIFY(putOnShelf(fileList()));
}

void WaylandEndToEndTest::withTheSettingOffNothingIsAtTheEdge()
{
    QVERIFY(setUpDesktop(compositor()));
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"), "[General]\nautoExpandOnDrag=false\n");
    QVERIFY(startShelf());
    QVERIFY(beginDrag(fileList()));
    hand().moveTo(QPoint(rightEdge - 1, middle.y()));
    QVERIFY(holdsFor([this] { return isPanelGone() && timesSaid("drag left") == 0; }, 700));
    hand().release();
    QVERIFY(waitFor([this] { return content("result") == "refused"; }));
}

void WaylandEndToEndTest::theBusActionShowsAndHidesThePanel()
{
    QVERIFY(setUp());
    QVERIFY(isPanelGone());
    QVERIFY(activate(QStringLiteral("toggle")));
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    QVERIFY(activate(QStringLiteral("toggle")));
    QVERIFY(waitFor([this] { return isPanelGone(); }));
}

void WaylandEndToEndTest::eachDisplayHasItsEdge_data()
{
    QTest::addColumn<int>("edge");
    QTest::addColumn<int>("other");
    QTest::newRow("between the displays") << rightEdge << 2 * rightEdge;
    QTest::newRow("beside the displays") << 2 * rightEdge << rightEdge;
}

void WaylandEndToEndTest::eachDisplayHasItsEdge()
{
    QFETCH(int, edge);
    QFETCH(int, other);
    QVERIFY(setUp(2));
    QVERIFY(beginDrag(fileList()));
    QVERIFY(dragToEdge(edge));
    QVERIFY(waitFor([&] { return isPanelOut(edge); }));
    QVERIFY(isPanelGone(other));
    // The panel has come between the strip and the pointer. Until it has taken the drag anew, a drop is lost.
    QVERIFY(waitFor([this] { return !m_desktop->tellsSources() || timesSaid("taken") > timesSaid("untaken"); }));
    hand().release();
    QVERIFY(fileIsSaved());
    hand().moveTo(middle);
    QVERIFY(waitFor([&] { return isPanelGone(edge); }));
}

void WaylandEndToEndTest::theShelfOpensOnTheDisplayWithThePointer_data()
{
    QTest::addColumn<int>("edge");
    QTest::addColumn<int>("other");
    QTest::newRow("the left display") << rightEdge << 2 * rightEdge;
    QTest::newRow("the right display") << 2 * rightEdge << rightEdge;
}

void WaylandEndToEndTest::theShelfOpensOnTheDisplayWithThePointer()
{
    QFETCH(int, edge);
    QFETCH(int, other);
    QVERIFY(setUp(2));
    m_desktop->writeFile(QStringLiteral("offered"), fileList());
    QVERIFY(openPeer({ QStringLiteral("offer"), home("offered"), QStringLiteral("text/uri-list"), home("result") }));
    hand().moveTo(QPoint(edge - rightEdge / 2, middle.y()));
    QVERIFY(activate(QStringLiteral("toggle")));
    QVERIFY(waitFor([&] { return isPanelOut(edge); }));
    QVERIFY(isPanelGone(other));

    hand().moveTo(middle);
    QVERIFY(beginDragOfPeer());
    hand().moveTo(QPoint(edge - 60, middle.y()));
    QVERIFY(isTaken(0));
    hand().release();
    QVERIFY(fileIsSaved());
}

void WaylandEndToEndTest::theShelfIsSavedWhenTheCompositorDies()
{
    QVERIFY(setUp());
    QVERIFY(callShelf({ QStringLiteral("org.nookle.Nookle1.AddToShelf"),
                        QStringLiteral("['%1']").arg(QString::fromLatin1(fileList().trimmed())), QString() }));
    // The shelf has the file, and saves it a moment later.
    m_desktop->killCompositor();
    QVERIFY2(waitFor([this] { return !m_shelf->isRunning(); }), "the program runs without a display");
    QVERIFY(fileIsSaved());
}

void WaylandEndToEndTest::aFileOfAnX11ProgramIsSaved()
{
    QVERIFY(setUp());
    runPeersOnX11();
    QVERIFY(beginDrag(fileList()));
    QVERIFY(dragToEdge());
    // KWin tells both sides of the other one only when the pointer moves.
    QVERIFY(holdsFor(
        [this] {
            hand().moveTo(hand().position() + QPoint(0, 1));
            return true;
        },
        500));
    hand().release();
    QVERIFY(fileIsSaved());
    QVERIFY(waitFor([this] { return content("result") == "taken"; }));
}

void WaylandEndToEndTest::aTileArrivesInAnX11Program()
{
    QVERIFY(setUp());
    QVERIFY(putOnShelf(fileList()));
    runPeersOnX11();
    QVERIFY(openPeer({ QStringLiteral("take"), QStringLiteral("text/uri-list"), home("received") }));
    QVERIFY(showShelf());
    QVERIFY(dragTileToPeer());
    QVERIFY(waitFor([this] { return QFile::exists(home("received")); }));
    QCOMPARE(content("received"), fileList());
}

void WaylandEndToEndTest::aSourceThatDeliversNothingLeavesTheShelfReadyForTheNext_data()
{
    QTest::addColumn<QString>("mode");
    QTest::newRow("it never answers") << QStringLiteral("silent");
    QTest::newRow("it dies when asked") << QStringLiteral("dying");
}

void WaylandEndToEndTest::aSourceThatDeliversNothingLeavesTheShelfReadyForTheNext()
{
    QFETCH(const QString, mode);
    QVERIFY(setUp());
    QVERIFY(beginDrag(QStringList{ mode }));
    QVERIFY(dragToEdge());
    hand().release();
    hand().moveTo(middle);
    QVERIFY2(waitFor([this] { return isPanelGone(); }), "the panel stays");
    QVERIFY(m_shelf->savedItems().isEmpty());
    QVERIFY(putOnShelf(fileList()));
    QVERIFY(fileIsSaved());
}

QTEST_GUILESS_MAIN(WaylandEndToEndTest)
#include "WaylandEndToEndTest.moc"
