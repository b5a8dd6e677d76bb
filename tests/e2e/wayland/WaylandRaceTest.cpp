#include "RaceDesktop.h"
#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QFile>
#include <QtTest>

#include <memory>

using namespace nookle::e2e;

namespace {

inline constexpr int rightEdge = WaylandDesktop::displaySize.width();

} // namespace

/// What happens while something else is under way. Each ends with a shelf that can be used.
class WaylandRaceTest : public QObject, private RaceDesktop<WaylandShelfDesktop> {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void aDropOnAPanelThatIsHiddenLandsIfItIsTaken_data();
    void aDropOnAPanelThatIsHiddenLandsIfItIsTaken();
    void aDragThatComesBackToThePanelOnItsWayOutLandsIfItIsTaken();
    void anItemThatIsRemovedDuringItsDragArrivesAndStaysRemoved_data();
    void anItemThatIsRemovedDuringItsDragArrivesAndStaysRemoved();
    void filesFromTheBusDuringADropLandWithIt();
    void aMenuStandsForItsItemWhenTheShelfChanges();
    void theMenuOfAnItemThatIsGoneTouchesNoOther();
    void thePanelLeavesADisplayThatIsUnplugged_data();
    void thePanelLeavesADisplayThatIsUnplugged();
    void aFileThatGoesToTheTrashDuringItsDragTakesNothingElseAlong_data();
    void aFileThatGoesToTheTrashDuringItsDragTakesNothingElseAlong();

private:
    [[nodiscard]] bool setUp();
    [[nodiscard]] bool setUpWithAssistant();
    [[nodiscard]] bool addOverBus(const QString& name) const;
    /// Puts both files on the shelf, and shows it.
    [[nodiscard]] bool fillShelf();
    [[nodiscard]] bool openReceiver();
    /// Begins to drag the first tile, and brings it a bit out of the panel.
    void takeFirstTile();
    /// Drops what is being dragged out of the shelf on the other program, which gets that content.
    [[nodiscard]] bool dropOnPeer(const QByteArray& expected);
    void dropOnNothing();
    [[nodiscard]] bool openMenu();
    void chooseFromTheEnd(int position);
    /// What the source believes that was taken is on the shelf, and nothing else; and the panel is out of the way.
    [[nodiscard]] bool endsWell();
    [[nodiscard]] bool shelfIsUsable();
};

void WaylandRaceTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("%1-%2.png")
                        .arg(qEnvironmentVariable("NOOKLE_ENVIRONMENT"), QLatin1String(QTest::currentTestFunction())));
    endRace();
}

bool WaylandRaceTest::setUp()
{
    if (!setUpDesktop(compositor()))
        return false;
    makeFile(secondName);
    return startShelf();
}

bool WaylandRaceTest::setUpWithAssistant()
{
    if (!setUpDesktop(compositor()))
        return false;
    makeFile(secondName);
    return startAssistant() && startShelf();
}

bool WaylandRaceTest::addOverBus(const QString& name) const
{
    return callShelf({ QStringLiteral("org.nookle.Nookle1.AddToShelf"),
                       QStringLiteral("['%1']").arg(QString::fromLatin1(address(name))), QString() });
}

bool WaylandRaceTest::fillShelf()
{
    return addFiles() && showShelf();
}

bool WaylandRaceTest::openReceiver()
{
    QFile::remove(home("received"));
    QFile::remove(home("received.over"));
    return openPeer({ QStringLiteral("take"), QStringLiteral("text/uri-list"), home("received") });
}

void WaylandRaceTest::takeFirstTile()
{
    hand().moveTo(firstTile());
    hand().press();
    hand().moveTo(QPoint(rightEdge - 200, firstTile().y()));
}

bool WaylandRaceTest::dropOnPeer(const QByteArray& expected)
{
    // The other program tells of the next movement when it has said whether it would take the drop.
    constexpr qsizetype enough = 3;
    const bool isOver = waitFor([this] {
        hand().moveTo(middle + QPoint(12, 0));
        hand().moveTo(middle);
        return content("received.over").size() >= enough;
    });
    hand().release();
    return isOver && waitFor([&] { return content("received") == expected; });
}

void WaylandRaceTest::dropOnNothing()
{
    hand().moveTo(middle);
    hand().release();
}

bool WaylandRaceTest::openMenu()
{
    hand().moveTo(firstTile());
    hand().click(Hand::Button::right);
    return waitFor([this] { return isMenuOpen(); });
}

void WaylandRaceTest::chooseFromTheEnd(int position)
{
    for (int step = 0; step < position; ++step)
        hand().type(Hand::Key::up);
    hand().type(Hand::Key::enter);
}

bool WaylandRaceTest::endsWell()
{
    if (!waitFor([this] { return !content("result").isEmpty(); }))
        return false;
    const QStringList expected = content("result") == "taken" ? QStringList{ firstName } : QStringList();
    hand().moveTo(middle);
    constexpr int longerThanASave = 800;
    return shelfHas(expected) && waitFor([this] { return isPanelGone(); })
        && holdsFor([&] { return isPanelGone() && m_shelf->savedFileNames() == expected; }, longerThanASave);
}

// A drag brings the panel out, which takes the drop and goes when the pointer has left.
bool WaylandRaceTest::shelfIsUsable()
{
    makeFile(thirdName);
    QFile::remove(home("result"));
    if (!beginDrag(address(thirdName)) || !dragToEdge())
        return false;
    hand().release();
    if (!waitFor([this] { return m_shelf->savedFileNames().value(0) == thirdName; }))
        return false;
    hand().moveTo(middle);
    return waitFor([this] { return isPanelGone(); });
}

void WaylandRaceTest::aDropOnAPanelThatIsHiddenLandsIfItIsTaken_data()
{
    QTest::addColumn<bool>("isOver");
    QTest::addColumn<int>("way");
    // Where the drag is, and which part of the panel is still there when it is let go.
    QTest::newRow("over the panel, as it begins to move") << true << 0;
    QTest::newRow("over the panel, on its way") << true << 1;
    QTest::newRow("over the panel, which is out") << true << 2;
    QTest::newRow("at the edge, as it begins to move") << false << 0;
    QTest::newRow("at the edge, when it is out") << false << 2;
}

void WaylandRaceTest::aDropOnAPanelThatIsHiddenLandsIfItIsTaken()
{
    QFETCH(const bool, isOver);
    QFETCH(const int, way);
    QVERIFY(setUp());
    QVERIFY(beginDrag(fileList()));
    QVERIFY(dragToEdge());
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    if (isOver) {
        hand().moveTo(QPoint(rightEdge - 8, middle.y()));
        QVERIFY(isTaken(1));
    }
    QVERIFY(activate(QStringLiteral("toggle")));
    if (way == 1)
        QVERIFY(waitFor([this] { return !isPanelOut() || isPanelGone(); }));
    if (way == 2)
        QVERIFY(waitFor([this] { return isPanelGone(); }));
    hand().release();

    QVERIFY(endsWell());
    QVERIFY(activate(QStringLiteral("toggle")));
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    QVERIFY2(!m_desktop->hasPictures() || waitFor([this] { return !isDropTarget(); }),
             "the panel believes that the drag is still there");
    QVERIFY(activate(QStringLiteral("toggle")));
    QVERIFY(waitFor([this] { return isPanelGone(); }));
    QVERIFY(shelfIsUsable());
}

void WaylandRaceTest::aDragThatComesBackToThePanelOnItsWayOutLandsIfItIsTaken()
{
    QVERIFY(setUp());
    QVERIFY(beginDrag(fileList()));
    QVERIFY(dragToEdge());
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    hand().moveTo(QPoint(rightEdge - 130, middle.y()));
    QVERIFY(waitFor([this] { return !isPanelOut() || isPanelGone(); }));
    hand().moveTo(QPoint(rightEdge - 1, middle.y()));
    hand().release();
    QVERIFY(endsWell());
    QVERIFY(shelfIsUsable());
}

void WaylandRaceTest::anItemThatIsRemovedDuringItsDragArrivesAndStaysRemoved_data()
{
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("another program") << true;
    QTest::newRow("nothing") << false;
}

void WaylandRaceTest::anItemThatIsRemovedDuringItsDragArrivesAndStaysRemoved()
{
    QFETCH(const bool, isTaken);
    QVERIFY(setUpWithAssistant());
    if (isTaken)
        QVERIFY(openReceiver());
    QVERIFY(fillShelf());
    takeFirstTile();
    QVERIFY(removeByAssistant(firstName));
    QVERIFY(shelfHas({ secondName }));
    if (isTaken)
        QVERIFY(dropOnPeer(fileList()));
    else
        dropOnNothing();
    QVERIFY2(waitFor([this] { return isPanelGone(); }), "the panel stays after the drag");
    QVERIFY(QFile::exists(path(firstName)) && QFile::exists(path(secondName)));
    QCOMPARE(m_shelf->savedFileNames(), QStringList{ secondName });

    QVERIFY(openReceiver());
    QVERIFY(showShelf());
    takeFirstTile();
    QVERIFY(dropOnPeer(address(secondName) + "\r\n"));
}

void WaylandRaceTest::filesFromTheBusDuringADropLandWithIt()
{
    QVERIFY(setUp());
    m_desktop->writeFile(QStringLiteral("offered slowly"), address(firstName));
    QVERIFY(beginDrag({ QStringLiteral("slow"), home("offered slowly"), QStringLiteral("text/uri-list"), home("asked"),
                        home("gate") }));
    QVERIFY(dragToEdge());
    hand().release();
    QVERIFY(waitFor([this] { return QFile::exists(home("asked")); }));
    const auto call = m_desktop->start(
        QStringLiteral("gdbus"),
        { QStringLiteral("call"), QStringLiteral("--session"), QStringLiteral("-d"),
          QStringLiteral("org.nookle.Nookle"), QStringLiteral("-o"), QStringLiteral("/org/nookle/Nookle"),
          QStringLiteral("-m"), QStringLiteral("org.nookle.Nookle1.AddToShelf"),
          QStringLiteral("['%1']").arg(QString::fromLatin1(address(secondName))), QString() });
    m_desktop->writeFile(QStringLiteral("gate"), {});
    QCOMPARE(call->waitForExit(), 0);
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames().size() == 2; }));
    QVERIFY(m_shelf->savedFileNames().contains(firstName) && m_shelf->savedFileNames().contains(secondName));
    hand().moveTo(middle);
    QVERIFY(waitFor([this] { return isPanelGone(); }));
    QVERIFY(shelfIsUsable());
}

void WaylandRaceTest::aMenuStandsForItsItemWhenTheShelfChanges()
{
    QVERIFY(setUp());
    QVERIFY(fillShelf());
    QVERIFY(openMenu());
    makeFile(thirdName);
    QVERIFY(addOverBus(thirdName));
    QVERIFY(shelfHas({ thirdName, firstName, secondName }));
    QVERIFY2(isMenuOpen(), "the change closed the menu");
    chooseFromTheEnd(1);
    QVERIFY(waitFor([this] { return !isMenuOpen(); }));
    QVERIFY(shelfHas({ thirdName, secondName }));
    QVERIFY(QFile::exists(path(firstName)));
}

void WaylandRaceTest::theMenuOfAnItemThatIsGoneTouchesNoOther()
{
    QVERIFY(setUpWithAssistant());
    QVERIFY(fillShelf());
    QVERIFY(openMenu());
    QVERIFY(removeByAssistant(firstName));
    QVERIFY(shelfHas({ secondName }));
    QVERIFY2(isMenuOpen(), "the removal closed the menu");
    chooseFromTheEnd(1);
    QVERIFY(waitFor([this] { return !isMenuOpen(); }));
    hand().moveTo(middle);
    QVERIFY(waitFor([this] { return isPanelGone(); }));
    QCOMPARE(m_shelf->savedFileNames(), QStringList{ secondName });
    QVERIFY(shelfIsUsable());
}

void WaylandRaceTest::thePanelLeavesADisplayThatIsUnplugged_data()
{
    QTest::addColumn<bool>("isPinned");
    QTest::newRow("not pinned") << false;
    QTest::newRow("pinned") << true;
}

void WaylandRaceTest::thePanelLeavesADisplayThatIsUnplugged()
{
    QFETCH(const bool, isPinned);
    QVERIFY(setUpDesktop(compositor(), 2));
    QVERIFY(startShelf());
    QVERIFY(beginDrag(fileList()));
    QVERIFY(dragToEdge(2 * rightEdge));
    QVERIFY(waitFor([this] { return isPanelOut(2 * rightEdge); }));
    hand().release();
    QVERIFY(shelfHas({ firstName }));
    if (isPinned) {
        hand().moveTo(pin() + QPoint(rightEdge, 0));
        hand().click();
    }
    QVERIFY(m_desktop->unplugRightDisplay());
    QVERIFY2(waitFor([&] { return isPinned ? isPanelOut() : isPanelOut() || isPanelGone(); }),
             "the pinned panel is gone");
    QVERIFY(m_shelf->isRunning());
    hand().moveTo(middle);
    if (isPinned)
        QVERIFY(holdsFor([this] { return isPanelOut(); }, 1000));
    else
        QVERIFY(waitFor([this] { return isPanelGone(); }));
    QVERIFY(isPinned || shelfIsUsable());
}

void WaylandRaceTest::aFileThatGoesToTheTrashDuringItsDragTakesNothingElseAlong_data()
{
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("taken") << true;
    QTest::newRow("dropped on nothing") << false;
}

void WaylandRaceTest::aFileThatGoesToTheTrashDuringItsDragTakesNothingElseAlong()
{
    QFETCH(const bool, isTaken);
    QVERIFY(setUp());
    if (isTaken)
        QVERIFY(openReceiver());
    QVERIFY(fillShelf());
    takeFirstTile();
    QCOMPARE(m_desktop->start(QStringLiteral("gio"), { QStringLiteral("trash"), path(firstName) })->waitForExit(), 0);
    QVERIFY(QFile::exists(trashed()));
    if (isTaken)
        QVERIFY(dropOnPeer(fileList()));
    else
        dropOnNothing();
    QVERIFY2(waitFor([this] { return isPanelGone(); }), "the panel stays after the drag");
    QVERIFY(QFile::exists(trashed()) && QFile::exists(path(secondName)));
    // What was taken and is in the Trash has left the shelf, as if it had been dropped there.
    QVERIFY(shelfHas(isTaken ? QStringList{ secondName } : QStringList{ firstName, secondName }));
    QVERIFY(shelfIsUsable());
}

QTEST_GUILESS_MAIN(WaylandRaceTest)
#include "WaylandRaceTest.moc"
