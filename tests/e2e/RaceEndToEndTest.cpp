#include "BusClient.h"
#include "RaceDesktop.h"
#include "ShelfDesktop.h"
#include "Waiting.h"

#include <QFile>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace nookle::e2e;

namespace {

inline constexpr QSize screenSize(1200, 700);
/// A place of the other program's window that is on the panel's way.
inline constexpr QRect underPanel(750, 250, 400, 300);
/// Where nothing is to be seen, on the left display if there are two.
inline constexpr QPoint emptyPlace(600, 600);
inline constexpr std::uint8_t rightButton = 3;

} // namespace

/// Two things at once: what is on its way is neither lost nor leaves anything behind.
class RaceEndToEndTest : public QObject, private RaceDesktop<ShelfDesktop> {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void aDropOnAPanelThatIsHiddenLandsIfItIsTaken_data();
    void aDropOnAPanelThatIsHiddenLandsIfItIsTaken();
    void aDragThatComesBackToThePanelOnItsWayOutLandsIfItIsTaken();
    void anItemThatIsRemovedDuringItsDragArrivesAndStaysRemoved_data();
    void anItemThatIsRemovedDuringItsDragArrivesAndStaysRemoved();
    void filesFromTheBusDuringADropLandWithIt();
    void aSecondDropDuringTheFirstLandsWithIt();
    void aMenuStandsForItsItemWhenTheShelfChanges_data();
    void aMenuStandsForItsItemWhenTheShelfChanges();
    void theMenuOfAnItemThatIsGoneTouchesNoOther_data();
    void theMenuOfAnItemThatIsGoneTouchesNoOther();
    void thePanelOutlivesTheWindowManager_data();
    void thePanelOutlivesTheWindowManager();
    void thePanelLeavesADisplayThatIsUnplugged_data();
    void thePanelLeavesADisplayThatIsUnplugged();
    void aFileThatGoesToTheTrashDuringItsDragTakesNothingElseAlong_data();
    void aFileThatGoesToTheTrashDuringItsDragTakesNothingElseAlong();

private:
    [[nodiscard]] bool startShelf(const QString& windowManager = QStringLiteral("openbox"));
    /// With another program that can remove items without the mouse.
    [[nodiscard]] bool startShelfWithAssistant();
    /// Puts two files on the shelf, the first on top, and waits for the panel under the pointer.
    [[nodiscard]] bool fillShelf();
    [[nodiscard]] bool showShelf();
    [[nodiscard]] QString result() const;

    /// Opens another program that offers a file and tells whether it was taken.
    [[nodiscard]] std::optional<XWindow> openSource(const QString& name);
    /// The same of a program that is asked and does not deliver yet.
    [[nodiscard]] bool dropFromSlowSource(const QString& name);
    void letSlowSourceDeliver() const { m_desktop->writeFile(QStringLiteral("gate"), {}); }
    [[nodiscard]] std::optional<XWindow> openReceiver();
    [[nodiscard]] std::optional<XWindow> place(const XWindow& window, const QRect& frame);

    [[nodiscard]] bool endsWellFor(const QString& dropped);
    [[nodiscard]] bool shelfIsUsable();
    [[nodiscard]] bool openMenu();
    void chooseFromTheEnd(int position);
    [[nodiscard]] bool showsNothing() const;

    std::unique_ptr<BusClient> m_client;
    std::unique_ptr<Program> m_otherPeer;
};

void RaceEndToEndTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("races-%1.png").arg(QLatin1String(QTest::currentTestFunction())));
    m_client.reset();
    m_otherPeer.reset();
    endRace();
}

bool RaceEndToEndTest::startShelf(const QString& windowManager)
{
    if (!setUpDesktop({ screenSize, windowManager, false }))
        return false;
    makeFile(secondName);
    return m_shelf->start();
}

bool RaceEndToEndTest::startShelfWithAssistant()
{
    if (!setUpDesktop({ screenSize, QStringLiteral("openbox"), false }))
        return false;
    makeFile(secondName);
    return startAssistant() && m_shelf->start();
}

bool RaceEndToEndTest::showShelf()
{
    return m_shelf->startAgain() == 0 && waitFor([this] { return m_shelf->isAtRest(rightEdge()); });
}

bool RaceEndToEndTest::fillShelf()
{
    screen().moveTo(QPoint(rightEdge() - 56, 600));
    return addFiles() && waitFor([this] { return m_shelf->isAtRest(rightEdge()); });
}

QString RaceEndToEndTest::result() const
{
    QFile file(m_desktop->home(QStringLiteral("result")));
    return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()) : QString();
}

std::optional<XWindow> RaceEndToEndTest::openSource(const QString& name)
{
    QFile::remove(m_desktop->home(QStringLiteral("result")));
    m_desktop->writeFile(QStringLiteral("offered"), address(name));
    return openPeer({ QStringLiteral("offer"), m_desktop->home(QStringLiteral("offered")),
                      QStringLiteral("text/uri-list"), m_desktop->home(QStringLiteral("result")) });
}

bool RaceEndToEndTest::dropFromSlowSource(const QString& name)
{
    m_desktop->writeFile(QStringLiteral("offered slowly"), address(name));
    const QString asked = m_desktop->home(QStringLiteral("asked"));
    return dragPeerToShelf({ QStringLiteral("slow"), m_desktop->home(QStringLiteral("offered slowly")),
                             QStringLiteral("text/uri-list"), asked, m_desktop->home(QStringLiteral("gate")) })
        && waitFor([&] { return QFile::exists(asked); });
}

std::optional<XWindow> RaceEndToEndTest::openReceiver()
{
    QFile::remove(m_desktop->home(QStringLiteral("received")));
    return openPeer({ QStringLiteral("receive"), m_desktop->home(QStringLiteral("received")) });
}

std::optional<XWindow> RaceEndToEndTest::place(const XWindow& window, const QRect& frame)
{
    std::optional<XWindow> placed;
    // A window manager that has just started may place it where it was.
    const auto hasMoved = [&] {
        screen().place(window, frame);
        const auto windows = screen().windows();
        const auto found =
            std::find_if(windows.begin(), windows.end(), [&](const XWindow& each) { return each.id == window.id; });
        placed = found == windows.end() ? std::nullopt : std::optional(*found);
        return placed && placed->frame.intersects(frame) && !placed->frame.intersects(window.frame);
    };
    return waitFor(hasMoved) ? placed : std::nullopt;
}

// What the source believes that was taken is on the shelf, and nothing else; and the panel is out of the way.
bool RaceEndToEndTest::endsWellFor(const QString& dropped)
{
    if (!waitFor([this] { return !result().isEmpty(); }))
        return false;
    const QStringList expected = result() == QLatin1String("taken") ? QStringList{ dropped } : QStringList();
    screen().moveTo(emptyPlace);
    constexpr int longerThanASave = 800;
    return shelfHas(expected) && waitFor([this] { return panelIsGone(); })
        && holdsFor([&] { return panelIsGone() && m_shelf->savedFileNames() == expected; }, longerThanASave);
}

// A drag brings the panel out, which takes the drop and goes when the pointer has left.
bool RaceEndToEndTest::shelfIsUsable()
{
    makeFile(thirdName);
    return offerToShelf(address(thirdName))
        && waitFor([this] { return m_shelf->savedFileNames().value(0) == thirdName; })
        && waitFor([this] { return !m_shelf->isDropTarget(); }) && (screen().moveTo(emptyPlace), true)
        && waitFor([this] { return panelIsGone(); });
}

void RaceEndToEndTest::aDropOnAPanelThatIsHiddenLandsIfItIsTaken_data()
{
    QTest::addColumn<int>("wayOut");
    QTest::newRow("before it moves") << -1;
    QTest::newRow("once it moves") << 0;
    QTest::newRow("half way out") << 50;
    QTest::newRow("once it is out") << 1000;
}

void RaceEndToEndTest::aDropOnAPanelThatIsHiddenLandsIfItIsTaken()
{
    QFETCH(const int, wayOut);
    QVERIFY(startShelf());
    const auto source = openSource(firstName);
    QVERIFY(source && screen().beginDrag(source->frame.center()) && hoverOverShelf());
    // Over the panel for most of its way.
    screen().moveTo(QPoint(rightEdge() - 8, 320));
    QVERIFY(m_shelf->isDropTarget());
    const int atRest = m_shelf->panel()->frame.x();
    pressShortcut();
    const auto isOnItsWay = [&] {
        const auto panel = m_shelf->panel();
        return !panel || panel->frame.x() - atRest > wayOut;
    };
    QVERIFY(waitFor(isOnItsWay));
    screen().release();

    QVERIFY(endsWellFor(firstName));
    QVERIFY(showShelf());
    QVERIFY2(!m_shelf->isDropTarget(), "the panel believes that the drag is still there");
    pressShortcut();
    QVERIFY(waitFor([this] { return panelIsGone(); }));
    QVERIFY(shelfIsUsable());
}

void RaceEndToEndTest::aDragThatComesBackToThePanelOnItsWayOutLandsIfItIsTaken()
{
    QVERIFY(startShelf());
    const auto source = openSource(firstName);
    QVERIFY(source && screen().beginDrag(source->frame.center()) && hoverOverShelf());
    const int atRest = m_shelf->panel()->frame.x();
    screen().moveTo(QPoint(atRest - 10, 320));
    QVERIFY(waitFor([&] { return panelIsGone() || m_shelf->panel()->frame.x() > atRest; }));
    screen().moveTo(QPoint(rightEdge() - 8, 320));
    screen().release();
    QVERIFY(endsWellFor(firstName));
    QVERIFY(shelfIsUsable());
}

void RaceEndToEndTest::anItemThatIsRemovedDuringItsDragArrivesAndStaysRemoved_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("another program") << QStringLiteral("receive");
    QTest::newRow("a Trash") << QStringLiteral("trash");
    QTest::newRow("nothing") << QString();
}

void RaceEndToEndTest::anItemThatIsRemovedDuringItsDragArrivesAndStaysRemoved()
{
    QFETCH(const QString, target);
    QVERIFY(startShelfWithAssistant() && fillShelf());
    const auto window = openPeer({ target, m_desktop->home(QStringLiteral("received")) });
    QVERIFY(window);
    QVERIFY(screen().beginDrag(m_shelf->firstTile()));
    QVERIFY(removeByAssistant(firstName));
    QVERIFY(shelfHas({ secondName }));
    screen().moveTo(target.isEmpty() ? emptyPlace : window->frame.center());
    screen().release();

    if (target == QLatin1String("receive"))
        QVERIFY(waitFor([this] { return received() == "copy\n" + address(firstName) + "\r\n"; }));
    if (target == QLatin1String("trash"))
        QVERIFY(waitFor([this] { return QFile::exists(trashed()); }));
    else
        QVERIFY(QFile::exists(path(firstName)));
    QVERIFY2(waitFor([this] { return panelIsGone(); }), "the panel stays after the drag");
    QCOMPARE(m_shelf->savedFileNames(), QStringList{ secondName });
    QVERIFY(QFile::exists(path(secondName)));

    const auto receiver = openReceiver();
    QVERIFY(receiver && showShelf());
    dragBetween(m_shelf->firstTile(), receiver->frame.center());
    QVERIFY(waitFor([this] { return received() == "copy\n" + address(secondName) + "\r\n"; }));
}

void RaceEndToEndTest::filesFromTheBusDuringADropLandWithIt()
{
    QVERIFY(startShelf());
    m_client = BusClient::tryConnect(busAddress());
    QVERIFY(m_client);
    QVERIFY(dropFromSlowSource(firstName));
    m_client->beginAddToShelf({ QString::fromLatin1(address(secondName)) }, {});
    letSlowSourceDeliver();
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames().size() == 2; }));
    QVERIFY(m_shelf->savedFileNames().contains(firstName) && m_shelf->savedFileNames().contains(secondName));
    screen().moveTo(emptyPlace);
    QVERIFY(waitFor([this] { return panelIsGone(); }));
    QVERIFY(shelfIsUsable());
}

void RaceEndToEndTest::aSecondDropDuringTheFirstLandsWithIt()
{
    QVERIFY(startShelf());
    auto second = openSource(secondName);
    QVERIFY(second);
    second = place(*second, QRect(560, 360, 400, 300));
    QVERIFY(second);
    m_otherPeer = std::move(m_peer);
    QVERIFY(dropFromSlowSource(firstName));
    QVERIFY(screen().beginDrag(second->frame.center()));
    letSlowSourceDeliver();
    QVERIFY(dropOnShelf());
    QVERIFY(shelfHas({ secondName, firstName }));
    screen().moveTo(emptyPlace);
    QVERIFY(waitFor([this] { return panelIsGone(); }));
    m_otherPeer.reset();
    QVERIFY(shelfIsUsable());
}

bool RaceEndToEndTest::openMenu()
{
    screen().moveTo(m_shelf->firstTile());
    screen().press(rightButton);
    screen().release(rightButton);
    return waitFor([this] { return menuIsOpen(); });
}

void RaceEndToEndTest::chooseFromTheEnd(int position)
{
    for (int step = 0; step < position; ++step) {
        screen().pressKey(XScreen::up);
        screen().releaseKey(XScreen::up);
    }
    screen().pressKey(XScreen::enter);
    screen().releaseKey(XScreen::enter);
}

void RaceEndToEndTest::aMenuStandsForItsItemWhenTheShelfChanges_data()
{
    QTest::addColumn<int>("position");
    QTest::newRow("Remove") << 1;
    QTest::newRow("Pin") << 2;
}

void RaceEndToEndTest::aMenuStandsForItsItemWhenTheShelfChanges()
{
    QFETCH(const int, position);
    QVERIFY(startShelf() && fillShelf());
    m_client = BusClient::tryConnect(busAddress());
    QVERIFY(m_client && openMenu());
    makeFile(thirdName);
    QCOMPARE(m_client->addToShelf({ QString::fromLatin1(address(thirdName)) }, {}).type(), QDBusMessage::ReplyMessage);
    QVERIFY(shelfHas({ thirdName, firstName, secondName }));
    QVERIFY2(menuIsOpen(), "the change closed the menu");
    chooseFromTheEnd(position);

    QVERIFY(waitFor([this] { return !menuIsOpen(); }));
    const bool isRemoved = position == 1;
    QVERIFY(
        shelfHas(isRemoved ? QStringList{ thirdName, secondName } : QStringList{ thirdName, firstName, secondName }));
    const auto isPinned = [this](int row) {
        return m_shelf->savedItems().value(row).value(QLatin1String("pinned")).toBool();
    };
    QVERIFY(waitFor([&] { return isPinned(1) == !isRemoved; }));
    QVERIFY(!isPinned(0) && !isPinned(2));
    QVERIFY(QFile::exists(path(firstName)));
    screen().moveTo(emptyPlace);
    QVERIFY(waitFor([this] { return panelIsGone(); }));
}

void RaceEndToEndTest::theMenuOfAnItemThatIsGoneTouchesNoOther_data()
{
    aMenuStandsForItsItemWhenTheShelfChanges_data();
}

void RaceEndToEndTest::theMenuOfAnItemThatIsGoneTouchesNoOther()
{
    QFETCH(const int, position);
    QVERIFY(startShelfWithAssistant() && fillShelf() && openMenu());
    QVERIFY(removeByAssistant(firstName));
    QVERIFY(shelfHas({ secondName }));
    const QList<QJsonObject> saved = m_shelf->savedItems();
    QVERIFY2(menuIsOpen(), "the removal closed the menu");
    chooseFromTheEnd(position);
    QVERIFY(waitFor([this] { return !menuIsOpen(); }));
    screen().moveTo(emptyPlace);
    QVERIFY(waitFor([this] { return panelIsGone(); }));
    QCOMPARE(m_shelf->savedItems(), saved);
    QVERIFY(shelfIsUsable());
}

bool RaceEndToEndTest::showsNothing() const
{
    const auto windows = m_desktop->screen().windows();
    return std::none_of(windows.begin(), windows.end(), [](const XWindow& window) {
        return window.isMapped && window.windowClass == "nookle" && window.frame.intersects(QRect({}, screenSize));
    });
}

void RaceEndToEndTest::thePanelOutlivesTheWindowManager_data()
{
    QTest::addColumn<QString>("windowManager");
    QTest::addColumn<bool>("isReplaced");
    QTest::addColumn<bool>("isShown");
    for (const char* windowManager : { "openbox", "xfwm4" }) {
        for (const bool isReplaced : { false, true }) {
            for (const bool isShown : { false, true }) {
                QTest::addRow("%s %s while the panel is %s", windowManager, isReplaced ? "is replaced" : "crashes",
                              isShown ? "shown" : "hidden")
                    << QString::fromLatin1(windowManager) << isReplaced << isShown;
            }
        }
    }
}

void RaceEndToEndTest::thePanelOutlivesTheWindowManager()
{
    QFETCH(const QString, windowManager);
    QFETCH(const bool, isReplaced);
    QFETCH(const bool, isShown);
    QVERIFY(startShelf(windowManager));
    auto window = openPeer({ QStringLiteral("text") });
    QVERIFY(window);
    if (isShown)
        QVERIFY(showShelf());
    QVERIFY(isReplaced ? m_desktop->replaceWindowManager() : m_desktop->restartWindowManager());
    if (!isShown) {
        QVERIFY2(holdsFor([this] { return showsNothing(); }, 500), "the hidden panel came into view");
        QVERIFY(showShelf());
    }

    // Another window, brought to the top by a click, with the focus.
    window = place(*window, underPanel);
    QVERIFY(window);
    screen().moveTo(window->frame.topLeft() + QPoint(30, 30));
    screen().press();
    screen().release();
    QVERIFY(waitFor([&] { return screen().focus() == window->id; }));
    screen().moveTo(QPoint(rightEdge() - 80, window->frame.center().y()));
    const auto isOnTop = [&] { return screen().windowUnderPointer() == m_shelf->panel()->id; };
    QVERIFY2(m_shelf->isAtRest(rightEdge()) && waitFor(isOnTop), "the panel is below");
    QVERIFY(holdsFor([&] { return m_shelf->isAtRest(rightEdge()) && isOnTop(); }, 300));
    QVERIFY2(screen().focus() == window->id, "the panel has the focus");
    screen().moveTo(emptyPlace);
    QVERIFY(waitFor([this] { return panelIsGone(); }));
    QVERIFY(shelfIsUsable());
}

void RaceEndToEndTest::thePanelLeavesADisplayThatIsUnplugged_data()
{
    QTest::addColumn<bool>("isPinned");
    QTest::newRow("not pinned") << false;
    QTest::newRow("pinned") << true;
}

void RaceEndToEndTest::thePanelLeavesADisplayThatIsUnplugged()
{
    QFETCH(const bool, isPinned);
    constexpr int rightOfBoth = 1800;
    QVERIFY(setUpDesktop({ QSize(rightOfBoth, 700), QStringLiteral("openbox"), true }));
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"),
                         isPinned ? "[General]\npanelPinned=true\n" : "[General]\n");
    screen().moveTo(QPoint(rightOfBoth - 300, 300));
    QVERIFY(m_shelf->start());
    QCOMPARE(m_shelf->startAgain(), 0);
    QVERIFY(waitFor([&] { return m_shelf->isAtRest(rightOfBoth); }));
    QVERIFY(m_desktop->removeDisplay());
    QVERIFY2(waitFor([this] { return m_shelf->isAtRest(rightEdge()) || panelIsGone(); }),
             "the panel stays where nobody can see it");
    QVERIFY2(!isPinned || m_shelf->isAtRest(rightEdge()), "the pinned panel is gone");

    screen().moveTo(emptyPlace);
    QVERIFY(showShelf());
    QVERIFY(offerToShelf(address(firstName)));
    QVERIFY(shelfHas({ firstName }));
    screen().moveTo(emptyPlace);
    if (isPinned)
        QVERIFY(holdsFor([this] { return m_shelf->isAtRest(rightEdge()); }, 1000));
    else
        QVERIFY(waitFor([this] { return panelIsGone(); }));
}

void RaceEndToEndTest::aFileThatGoesToTheTrashDuringItsDragTakesNothingElseAlong_data()
{
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("taken") << true;
    QTest::newRow("dropped on nothing") << false;
}

void RaceEndToEndTest::aFileThatGoesToTheTrashDuringItsDragTakesNothingElseAlong()
{
    QFETCH(const bool, isTaken);
    QVERIFY(startShelf() && fillShelf());
    const auto window = openReceiver();
    QVERIFY(window);
    QVERIFY(screen().beginDrag(m_shelf->firstTile()));
    const auto fileManager = m_desktop->start(QStringLiteral("gio"), { QStringLiteral("trash"), path(firstName) });
    QCOMPARE(fileManager->waitForExit(), 0);
    QVERIFY(QFile::exists(trashed()));
    screen().moveTo(isTaken ? window->frame.center() : emptyPlace);
    screen().release();

    if (isTaken)
        QVERIFY(waitFor([this] { return received() == "copy\n" + address(firstName) + "\r\n"; }));
    screen().moveTo(emptyPlace);
    QVERIFY2(waitFor([this] { return panelIsGone(); }), "the panel stays after the drag");
    QVERIFY(QFile::exists(trashed()) && QFile::exists(path(secondName)));
    // What was taken and is in the Trash has left the shelf, as if it had been dropped there.
    QVERIFY(shelfHas(isTaken ? QStringList{ secondName } : QStringList{ firstName, secondName }));
    QVERIFY(shelfIsUsable());
}

QTEST_GUILESS_MAIN(RaceEndToEndTest)
#include "RaceEndToEndTest.moc"
