#include "ShelfDesktop.h"
#include "Waiting.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <memory>

using namespace nookle::e2e;

namespace {

inline constexpr int screenHeight = 700;
inline constexpr int panelHeight = screenHeight - 48;
inline constexpr int edgeZone = 3;
/// From one tile to the next, in the font of the private desktop.
inline constexpr int tileDistance = 86;

[[nodiscard]] QString variable(const char* name)
{
    return qEnvironmentVariable(name);
}

[[nodiscard]] bool hasTwoDisplays()
{
    return variable("NOOKLE_ENVIRONMENT") == QLatin1String("two_displays");
}

/// An environment is named after its window manager, but for two.
[[nodiscard]] QString windowManager()
{
    const QString environment = variable("NOOKLE_ENVIRONMENT");
    if (environment == QLatin1String("no_window_manager"))
        return {};
    return hasTwoDisplays() ? QStringLiteral("openbox") : environment;
}

[[nodiscard]] QSize screenSize()
{
    return { hasTwoDisplays() ? 1800 : 1200, screenHeight };
}

[[nodiscard]] bool isPlain(const QImage& picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != picture.pixel(0, 0))
                return false;
        }
    }
    return true;
}

} // namespace

class ShelfEndToEndTest : public QObject, protected ShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aFileDraggedToTheEdgeBringsThePanelWithinHalfASecond();
    void aDroppedFileIsSavedAndThePanelGoesOnceThePointerHasLeft();
    void threeFilesLandInTheirOrder();
    void aFolderLandsUnderItsName();
    void aFileGoesIntoAFolderOfTheFileManager();
    void aRubberBandDragToTheEdgeShowsNothing();
    void aTextSelectionDragToTheEdgeShowsNothing();
    void withTheSettingOffAFileDraggedToTheEdgeShowsNothing();
    void theTileIsBackAfterARestartAndCanBeDraggedOut();
    void aTileDroppedOnTheShelfItselfChangesNothing();
    void aTileDroppedOnATrashLeavesTheShelf();
    void thePanelStaysWhileItsMenuIsOpen();
    void aSecondStartShowsTheShelfOfTheFirstAndLeavesTheFocusAlone();
    void theShortcutShowsAndHidesTheShelfWhateverLocksAreOn_data();
    void theShortcutShowsAndHidesTheShelfWhateverLocksAreOn();
    void thePanelStandsAboveAFullScreenWindow();
    void namesOfAnyBytesComeOutAsTheyWentIn();
    void aSourceThatDeliversNothingLeavesTheShelfReadyForTheNext_data();
    void aSourceThatDeliversNothingLeavesTheShelfReadyForTheNext();
    void aTextOfTenMegabytesLandsWhole();
    void aFileThatItsSourceSavesLands();
    void aFileThatItsSourceSavesAfterTheDropLands();
    void aWaylandSessionIsSaidInOneLogLine();

protected:
    // Each of these is a piece of a test, which ends where one says false.
    [[nodiscard]] bool openFileManager();
    /// Presses on the file and drags it to a place just short of the edge zone.
    [[nodiscard]] bool dragFileNearEdge();
    /// Drops the file of the file manager on the shelf.
    [[nodiscard]] bool dropFileOnShelf();
};

void ShelfEndToEndTest::init()
{
    QVERIFY2(!variable("NOOKLE_PROGRAM").isEmpty(), "run it with ctest, which says which program is tested");
    QVERIFY(setUpDesktop({ screenSize(), windowManager(), hasTwoDisplays() }));
    QVERIFY(m_shelf->start());
}

void ShelfEndToEndTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("%1-%2.png")
                        .arg(variable("NOOKLE_ENVIRONMENT"), QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

bool ShelfEndToEndTest::openFileManager()
{
    m_files = FileManager::tryOpen(*m_desktop, m_desktop->home(QStringLiteral("files")));
    return m_files != nullptr;
}

bool ShelfEndToEndTest::dragFileNearEdge()
{
    if (!openFileManager() || !screen().beginDrag(m_files->icon()))
        return false;
    screen().moveTo(QPoint(rightEdge() - 20, 300));
    return panelIsGone();
}

bool ShelfEndToEndTest::dropFileOnShelf()
{
    if (!dragFileNearEdge() || !dropOnShelf())
        return false;
    return waitFor([this] { return m_shelf->savedFileNames() == QStringList{ QStringLiteral("note one.txt") }; });
}

void ShelfEndToEndTest::aFileDraggedToTheEdgeBringsThePanelWithinHalfASecond()
{
    QVERIFY(dragFileNearEdge());
    screen().moveTo(QPoint(rightEdge() - edgeZone, 300));
    QVERIFY2(waitFor([this] { return m_shelf->isAtRest(rightEdge()); }, 500), "the panel is late");
    QCOMPARE(m_shelf->panel()->frame, QRect(rightEdge() - 112, 24, 112, panelHeight));
    screen().release();
}

void ShelfEndToEndTest::aDroppedFileIsSavedAndThePanelGoesOnceThePointerHasLeft()
{
    QVERIFY(dropFileOnShelf());
    QVERIFY2(holdsFor([this] { return m_shelf->isAtRest(rightEdge()); }, 1200), "the panel goes under the pointer");
    screen().moveTo(QPoint(rightEdge() - 200, 320));
    QVERIFY2(holdsFor([this] { return m_shelf->isAtRest(rightEdge()); }, 250), "the panel goes too early");
    QVERIFY2(waitFor([this] { return panelIsGone(); }, 1500), "the panel stays");
    QVERIFY(QFile::exists(m_desktop->home(QStringLiteral("files/note one.txt"))));
}

void ShelfEndToEndTest::threeFilesLandInTheirOrder()
{
    const QStringList names{ QStringLiteral("note one.txt"), QStringLiteral("picture.png"), QStringLiteral("zebra") };
    for (const QString& name : names)
        m_desktop->writeFile(QStringLiteral("files/") + name, "words");
    QVERIFY(openFileManager());
    QVERIFY(m_files->selectAll(screen()));
    QVERIFY(screen().beginDrag(m_files->icon()));
    QVERIFY(dropOnShelf());
    QVERIFY(waitFor([&] { return m_shelf->savedFileNames() == names; }));
}

void ShelfEndToEndTest::aFolderLandsUnderItsName()
{
    QVERIFY(QFile::remove(m_desktop->home(QStringLiteral("files/note one.txt"))));
    QVERIFY(QDir().mkpath(m_desktop->home(QStringLiteral("files/A folder"))));
    QVERIFY(openFileManager());
    QVERIFY(screen().beginDrag(m_files->icon()));
    QVERIFY(dropOnShelf());
    QVERIFY(waitFor([&] { return m_shelf->savedFileNames() == QStringList{ QStringLiteral("A folder") }; }));
}

void ShelfEndToEndTest::aFileGoesIntoAFolderOfTheFileManager()
{
    QVERIFY(dropFileOnShelf());
    m_files.reset();
    m_desktop->writeFile(QStringLiteral("target/other.txt"), "other");
    m_files = FileManager::tryOpen(*m_desktop, m_desktop->home(QStringLiteral("target")));
    QVERIFY(m_files);
    QCOMPARE(m_shelf->startAgain(), 0);
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(rightEdge()); }));
    QVERIFY(screen().beginDrag(m_shelf->firstTile()));
    // A drop before the file manager's answer to the last movement is none, and nothing shows that it has come: a hand
    // lingers.
    constexpr int movements = 60;
    for (int movement = 0; movement < movements; ++movement)
        screen().moveTo(m_files->emptyPlace() + QPoint(movement % 2, 3));
    screen().release();
    QFile arrived(m_desktop->home(QStringLiteral("target/note one.txt")));
    QVERIFY(waitFor([&] { return arrived.exists() && arrived.size() > 0; }));
    QVERIFY(arrived.open(QIODevice::ReadOnly));
    QCOMPARE(arrived.readAll(), QByteArray("words"));
    QCOMPARE(m_shelf->savedFileNames(), QStringList{ QStringLiteral("note one.txt") });
}

void ShelfEndToEndTest::aRubberBandDragToTheEdgeShowsNothing()
{
    QVERIFY(openFileManager());
    screen().moveTo(m_files->emptyPlace());
    screen().press();
    screen().moveTo(QPoint(rightEdge() - 1, 300));
    QVERIFY2(holdsFor([this] { return panelIsGone(); }, 1000), "the panel came out");
    screen().release();
}

void ShelfEndToEndTest::aTextSelectionDragToTheEdgeShowsNothing()
{
    const auto window = openPeer({ QStringLiteral("text") });
    QVERIFY(window);
    screen().moveTo(window->frame.topLeft() + QPoint(30, 30));
    screen().press();
    screen().moveTo(QPoint(rightEdge() - 1, 300));
    QVERIFY2(holdsFor([this] { return panelIsGone(); }, 1000), "the panel came out");
    screen().release();
    QVERIFY2(waitFor([this] { return screen().hasOwner("PRIMARY"); }), "no text was selected");
}

void ShelfEndToEndTest::withTheSettingOffAFileDraggedToTheEdgeShowsNothing()
{
    QVERIFY(m_shelf->stop());
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"), "[General]\nautoExpandOnDrag=false\n");
    QVERIFY(m_shelf->start());
    QVERIFY(dragFileNearEdge());
    screen().moveTo(QPoint(rightEdge() - 1, 300));
    QVERIFY(holdsFor([this] { return panelIsGone(); }, 700));
    screen().release();
}

void ShelfEndToEndTest::theTileIsBackAfterARestartAndCanBeDraggedOut()
{
    QVERIFY(dropFileOnShelf());
    const QList<QJsonObject> saved = m_shelf->savedItems();
    QVERIFY(m_shelf->stop());
    QCOMPARE(m_shelf->savedItems(), saved);
    m_files.reset();
    QVERIFY(m_shelf->start());
    const auto window = openPeer({ QStringLiteral("receive"), m_desktop->home(QStringLiteral("received")) });
    QVERIFY(window);
    QCOMPARE(m_shelf->startAgain(), 0);
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(rightEdge()); }));
    QVERIFY2(waitFor([this] {
                 return !isPlain(screen().picture(QRect(m_shelf->firstTile() - QPoint(20, 20), QSize(40, 40))));
             }),
             "there is no tile");

    dragBetween(m_shelf->firstTile(), window->frame.center());
    QVERIFY(waitFor([this] { return !received().isEmpty(); }));
    const QString path = m_desktop->home(QStringLiteral("files/note one.txt"));
    QCOMPARE(received(), "copy\n" + QUrl::fromLocalFile(path).toEncoded() + "\r\n");
    QVERIFY2(waitFor([this] { return panelIsGone(); }, 3000), "the panel stays after the drag");
    QCOMPARE(m_shelf->savedItems(), saved);
    QVERIFY(QFile::exists(path));
}

void ShelfEndToEndTest::aTileDroppedOnTheShelfItselfChangesNothing()
{
    m_desktop->writeFile(QStringLiteral("files/note two.txt"), "words");
    const QByteArray folder = QUrl::fromLocalFile(m_desktop->home(QStringLiteral("files"))).toEncoded();
    QVERIFY(offerToShelf(folder + "/note%20one.txt\r\n" + folder + "/note%20two.txt\r\n"));
    const QStringList names{ QStringLiteral("note one.txt"), QStringLiteral("note two.txt") };
    QVERIFY(waitFor([&] { return m_shelf->savedFileNames() == names; }));

    // Taken as a new drop, the second item would move to the top.
    const QPoint second = m_shelf->firstTile() + QPoint(0, tileDistance);
    dragBetween(second, second + QPoint(0, 250));
    QVERIFY2(holdsFor([&] { return m_shelf->savedFileNames() == names; }, 800), "the shelf took its own item");
}

void ShelfEndToEndTest::aTileDroppedOnATrashLeavesTheShelf()
{
    QVERIFY(dropFileOnShelf());
    m_files.reset();
    const auto window = openPeer({ QStringLiteral("trash") });
    QVERIFY(window);
    QVERIFY(m_shelf->startAgain() == 0 && waitFor([this] { return m_shelf->isAtRest(rightEdge()); }));
    dragBetween(m_shelf->firstTile(), window->frame.center());
    QVERIFY(waitFor([this] { return m_shelf->savedItems().isEmpty(); }));
    QVERIFY(QFile::exists(m_desktop->home(QStringLiteral("data/Trash/files/note one.txt"))));
}

void ShelfEndToEndTest::thePanelStaysWhileItsMenuIsOpen()
{
    QVERIFY(dropFileOnShelf());
    constexpr std::uint8_t rightButton = 3;
    screen().moveTo(m_shelf->firstTile());
    screen().press(rightButton);
    screen().release(rightButton);
    QVERIFY(waitFor([this] { return menuIsOpen(); }));
    screen().moveTo(QPoint(rightEdge() - 300, 600));
    QVERIFY2(holdsFor([&] { return m_shelf->isAtRest(rightEdge()) && menuIsOpen(); }, 1500),
             "the panel goes under its menu");
    screen().press();
    screen().release();
    QVERIFY2(waitFor([this] { return panelIsGone(); }, 3000), "the panel stays without its menu");
}

void ShelfEndToEndTest::aSecondStartShowsTheShelfOfTheFirstAndLeavesTheFocusAlone()
{
    const auto window = openPeer({ QStringLiteral("text") });
    QVERIFY(window);
    screen().moveTo(window->frame.center());
    screen().press();
    screen().release();
    QVERIFY(waitFor([&] { return screen().focus() == window->id; }));
    QCOMPARE(m_shelf->startAgain(), 0);
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(rightEdge()); }));
    QVERIFY2(holdsFor([&] { return screen().focus() == window->id; }, 300), "the shelf took the focus");
    QCOMPARE(m_shelf->startAgain(), 0);
    QVERIFY(m_shelf->isAtRest(rightEdge()));
}

void ShelfEndToEndTest::theShortcutShowsAndHidesTheShelfWhateverLocksAreOn_data()
{
    QTest::addColumn<QList<uint>>("locks");
    QTest::newRow("none") << QList<uint>();
    QTest::newRow("Num Lock") << QList<uint>{ XScreen::numLock };
    QTest::newRow("Caps Lock") << QList<uint>{ XScreen::capsLock };
    QTest::newRow("both") << QList<uint>{ XScreen::numLock, XScreen::capsLock };
}

void ShelfEndToEndTest::theShortcutShowsAndHidesTheShelfWhateverLocksAreOn()
{
    QFETCH(const QList<uint>, locks);
    const auto window = openPeer({ QStringLiteral("text") });
    QVERIFY(window);
    screen().moveTo(window->frame.center());
    screen().press();
    screen().release();
    QVERIFY(waitFor([&] { return screen().focus() == window->id; }));
    for (const uint lock : locks) {
        screen().pressKey(lock);
        screen().releaseKey(lock);
    }
    pressShortcut();
    QVERIFY2(waitFor([this] { return m_shelf->isAtRest(rightEdge()); }), "the shortcut does not show the shelf");
    QVERIFY(screen().focus() == window->id);
    pressShortcut();
    QVERIFY2(waitFor([this] { return panelIsGone(); }), "the shortcut does not hide the shelf");
}

void ShelfEndToEndTest::thePanelStandsAboveAFullScreenWindow()
{
    screen().moveTo(QPoint(300, 300));
    m_peer = m_desktop->start(variable("NOOKLE_PEER"), { QStringLiteral("fullscreen") });
    const QRect place(rightEdge() - 60, 400, 1, 1);
    const auto isCovered = [&] { return screen().picture(place).pixelColor(0, 0) == QColor(Qt::red); };
    QVERIFY2(waitFor(isCovered), "the other program does not cover the screen");
    screen().press();
    screen().release();
    QCOMPARE(m_shelf->startAgain(), 0);
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(rightEdge()); }));
    QVERIFY2(waitFor([&] { return !isCovered(); }, 1000), "the panel is below");
}

void ShelfEndToEndTest::namesOfAnyBytesComeOutAsTheyWentIn()
{
    const QByteArray name("r\xc3\xa9sum\xc3\xa9 50%\n\xff\xfe#?.txt");
    const QByteArray path = m_desktop->home(QStringLiteral("files/")).toUtf8() + name;
    FILE* file = std::fopen(path.constData(), "w");
    QVERIFY(file);
    std::fclose(file);
    QVERIFY(offerToShelf("file://" + path.toPercentEncoding("/") + "\r\n"));
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames().size() == 1; }));

    const auto target = openPeer({ QStringLiteral("receive"), m_desktop->home(QStringLiteral("received")) });
    QVERIFY(target);
    QVERIFY(m_shelf->isAtRest(rightEdge()));
    dragBetween(m_shelf->firstTile(), target->frame.center());
    QVERIFY(waitFor([this] { return !received().isEmpty(); }));
    const QByteArray address = received().mid(received().indexOf('\n') + 1).trimmed();
    QCOMPARE(QByteArray::fromPercentEncoding(address), "file://" + path);
}

void ShelfEndToEndTest::aSourceThatDeliversNothingLeavesTheShelfReadyForTheNext_data()
{
    QTest::addColumn<QString>("mode");
    QTest::newRow("never answers") << QStringLiteral("silent");
    QTest::newRow("dies when it is asked") << QStringLiteral("dying");
}

void ShelfEndToEndTest::aSourceThatDeliversNothingLeavesTheShelfReadyForTheNext()
{
    QFETCH(const QString, mode);
    QVERIFY(dragPeerToShelf({ mode }));
    QCOMPARE(m_shelf->startAgain(), 0);
    m_peer->kill();
    screen().moveTo(QPoint(rightEdge() - 300, 600));
    QVERIFY(waitFor([this] { return panelIsGone(); }));
    QVERIFY(offerToShelf(QUrl::fromLocalFile(m_desktop->home(QStringLiteral("files/note one.txt"))).toEncoded()));
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames().size() == 1; }));
}

void ShelfEndToEndTest::aTextOfTenMegabytesLandsWhole()
{
    // The toolkit that offers it here cannot deliver more than sixteen.
    constexpr qsizetype size = 10'000'000;
    QByteArray text(size, 'a');
    for (qsizetype line = 79; line < size; line += 80)
        text[line] = '\n';
    QVERIFY(offerToShelf(text, QStringLiteral("text/plain")));
    QVERIFY(waitFor([this] { return !m_shelf->savedItems().isEmpty(); }));
    const QJsonObject content = m_shelf->savedItems().first().value(QLatin1String("content")).toObject();
    QCOMPARE(content.value(QLatin1String("text")).toObject().value(QLatin1String("_0")).toString().size(), size);
}

void ShelfEndToEndTest::aFileThatItsSourceSavesLands()
{
    m_desktop->writeFile(QStringLiteral("archive/report 100%.txt"), "words");
    QVERIFY(dragPeerToShelf({ QStringLiteral("save"), m_desktop->home(QStringLiteral("archive/report 100%.txt")) }));
    QVERIFY(waitFor([&] { return m_shelf->savedFileNames() == QStringList{ QStringLiteral("report 100%.txt") }; }));
    QFile saved(m_desktop->home(QStringLiteral("Downloads/report 100%/report 100%.txt")));
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QCOMPARE(saved.readAll(), QByteArray("words"));
}

void ShelfEndToEndTest::aFileThatItsSourceSavesAfterTheDropLands()
{
    const QString longerThanADropMayTake = QStringLiteral("1500");
    m_desktop->writeFile(QStringLiteral("archive/.profile"), "words");
    QVERIFY(dragPeerToShelf(
        { QStringLiteral("save"), m_desktop->home(QStringLiteral("archive/.profile")), longerThanADropMayTake }));
    QVERIFY(waitFor([&] { return m_shelf->savedFileNames() == QStringList{ QStringLiteral(".profile") }; }));
    QVERIFY(QFile::exists(m_desktop->home(QStringLiteral("Downloads/profile/.profile"))));
}

void ShelfEndToEndTest::aWaylandSessionIsSaidInOneLogLine()
{
    QVERIFY(m_shelf->stop());
    PrivateDesktop::Options options;
    const auto other = PrivateDesktop::tryCreate(options);
    QVERIFY(other);
    other->setVariable(QStringLiteral("WAYLAND_DISPLAY"), QStringLiteral("wayland-of-nobody"));
    other->setVariable(QStringLiteral("NOOKLE_BACKEND"), QStringLiteral("xwayland"));
    Shelf shelf(*other, variable("NOOKLE_PROGRAM"));
    // The X server gives it no keys there, which would show that it has started.
    shelf.launch();
    const QByteArray line("Nookle: the display: X11 through XWayland (as NOOKLE_BACKEND says)\n");
    QVERIFY(waitFor([&] { return shelf.log().startsWith(line); }));
    QCOMPARE(shelf.startAgain(), 0);
    QVERIFY(waitFor([&] { return shelf.isAtRest(1280); }));
    QCOMPARE(shelf.log().count("the display:"), 1);
}

/// What holds only where one display borders on another.
class TwoDisplaysEndToEndTest final : public ShelfEndToEndTest {
    Q_OBJECT

private Q_SLOTS:
    void theSlideDoesNotShowOnTheNeighbour();
};

void TwoDisplaysEndToEndTest::theSlideDoesNotShowOnTheNeighbour()
{
    const QRect strip(rightEdge(), 0, 112, screenHeight);
    const auto isUntouched = [&, before = screen().picture(strip)] { return screen().picture(strip) == before; };
    screen().moveTo(QPoint(rightEdge() - 300, 300));
    QCOMPARE(m_shelf->startAgain(), 0);
    QVERIFY2(holdsFor(isUntouched, 400), "the slide in shows on the neighbour");
    QVERIFY(m_shelf->isAtRest(rightEdge()));
    screen().moveTo(QPoint(rightEdge() - 56, 300));
    screen().moveTo(QPoint(rightEdge() - 300, 300));
    QVERIFY2(holdsFor([&] { return isUntouched() && !panelIsGone(); }, 400), "the panel goes too early");
    QVERIFY2(waitFor([&] { return !isUntouched() || panelIsGone(); }), "the panel stays");
    QVERIFY2(panelIsGone(), "the slide out shows on the neighbour");
}

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    if (hasTwoDisplays()) {
        TwoDisplaysEndToEndTest test;
        return QTest::qExec(&test, argc, argv);
    }
    ShelfEndToEndTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "ShelfEndToEndTest.moc"
