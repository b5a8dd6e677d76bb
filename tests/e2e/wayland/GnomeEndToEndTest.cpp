#include "Browser.h"
#include "Nautilus.h"
#include "Waiting.h"
#include "WaylandBrowser.h"
#include "WaylandShelfDesktop.h"
#include "WebServer.h"
#include "XScreen.h"

#include <QtTest>

using namespace nookle::e2e;

namespace {

inline constexpr int rightEdge = WaylandDesktop::displaySize.width();

/// Takes a file that is dropped anywhere on it, shows its name, and reports that and what is in it.
[[nodiscard]] QByteArray page()
{
    return "<!doctype html><meta charset=utf-8><title>The test's page</title><body><div style='" + Browser::marker()
        + "'></div><script>"
          "ondragover=e=>{e.preventDefault();fetch('/over',{method:'POST',body:'over'})};"
          "ondrop=e=>{e.preventDefault();const f=e.dataTransfer.files[0];document.body.append(f.name);"
          "fetch('/name',{method:'POST',body:f.name}).then(()=>fetch('/dropped',{method:'POST',body:f}))}"
          "</script>";
}

} // namespace

/// What is particular to GNOME, where the shelf is an X11 program among Wayland programs, and its own programs.
class GnomeEndToEndTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void aFileOfAnyProgramIsSaved_data();
    void aFileOfAnyProgramIsSaved();
    void theTileArrivesInX11Programs_data();
    void theTileArrivesInX11Programs();
    void aFileGoesFromNautilusOntoTheShelfAndIntoAnotherFolder();
    void aFileGoesIntoAPageOfFirefox();
    void aDragThatIsReleasedOverTheBareDesktopEnds();
    void theMenuClosesOnEscapeAndWhenThePointerIsAway();
    void noWindowIsOnTheDisplayWhileNothingShows();
    void theShelfShowsAboveAFullScreenProgram();
    void theShelfThatIsShownForKeysHidesOnEscape();
    void theKeysDoNotGoToTheHiddenShelfWhenTheShellWasBusy();
    void theShelfThatShowsForAMomentGoesWhereverThePointerWasLast();
    void theBackendIsTheOneThatIsAskedFor_data();
    void theBackendIsTheOneThatIsAskedFor();

private:
    [[nodiscard]] bool setUp() { return setUpDesktop(WaylandDesktop::Compositor::gnome) && startShelf(); }
    void useX11Programs();
    [[nodiscard]] bool fileIsSaved() const
    {
        return waitFor([this] { return m_shelf->savedFileNames() == QStringList{ QStringLiteral("note one.txt") }; });
    }
    /// Drags the first tile there; the button stays down.
    void dragTileTo(const QPoint& place);
    [[nodiscard]] bool isShelfOnDisplay() const;
};

void GnomeEndToEndTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("gnome-%1.png").arg(QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

void GnomeEndToEndTest::useX11Programs()
{
    m_desktop->setVariable(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    m_desktop->setVariable(QStringLiteral("GDK_BACKEND"), QStringLiteral("x11"));
}

void GnomeEndToEndTest::aFileOfAnyProgramIsSaved_data()
{
    QTest::addColumn<bool>("isGtk");
    QTest::addColumn<bool>("isX11");
    QTest::newRow("GTK 4") << true << false;
    QTest::newRow("GTK 4 on X11") << true << true;
    QTest::newRow("Qt on X11") << false << true;
}

void GnomeEndToEndTest::aFileOfAnyProgramIsSaved()
{
    QFETCH(const bool, isGtk);
    QFETCH(const bool, isX11);
    QVERIFY(setUp());
    if (isX11)
        useX11Programs();
    QVERIFY(isGtk ? beginDragFromGtk() : beginDrag(fileList()));
    QVERIFY(dragToEdge());
    hand().release();
    QVERIFY(fileIsSaved());
    QVERIFY(waitFor([this] { return content("result") == "taken"; }));
}

void GnomeEndToEndTest::theTileArrivesInX11Programs_data()
{
    QTest::addColumn<QString>("taken");
    QTest::newRow("Qt") << QStringLiteral("text/uri-list");
    QTest::newRow("GTK 4") << QStringLiteral("files");
}

void GnomeEndToEndTest::theTileArrivesInX11Programs()
{
    QFETCH(const QString, taken);
    QVERIFY(setUp());
    QVERIFY(putOnShelf(fileList()));
    useX11Programs();
    if (taken == QLatin1String("files"))
        openGtkTarget(taken);
    else
        QVERIFY(openPeer({ QStringLiteral("take"), taken, home("received") }));
    QVERIFY(showShelf());
    QVERIFY(dragTileToPeer());
    QVERIFY(waitFor([this] { return QFile::exists(home("received")); }));
    QCOMPARE(content("received").trimmed(), fileList().trimmed());
    QVERIFY2(waitFor([this] { return isPanelGone(); }), "the panel stays after the drag");
    QCOMPARE(m_shelf->savedItems().size(), 1);
}

void GnomeEndToEndTest::dragTileTo(const QPoint& place)
{
    hand().moveTo(firstTile());
    hand().press();
    hand().moveTo(place);
}

void GnomeEndToEndTest::aFileGoesFromNautilusOntoTheShelfAndIntoAnotherFolder()
{
    QVERIFY(setUp());
    m_desktop->writeFile(QStringLiteral("files/a folder/other.txt"), "other words");
    const auto nautilus = Nautilus::tryOpen(*m_desktop, home("files"));
    QVERIFY(nautilus);
    hand().moveTo(nautilus->secondIcon());
    hand().press();
    hand().moveTo(nautilus->secondIcon() + QPoint(40, 0));
    QVERIFY(waitFor([this] {
        hand().moveTo(QPoint(rightEdge - 1, middle.y() + 1));
        hand().moveTo(QPoint(rightEdge - 1, middle.y()));
        return isPanelOut();
    }));
    keepPicture(QStringLiteral("gnome-nautilus-edge.png"));
    hand().release();
    QVERIFY(fileIsSaved());
    hand().moveTo(middle);
    QVERIFY(waitFor([this] { return isPanelGone(); }));

    QVERIFY(showShelf());
    dragTileTo(nautilus->firstIcon());
    QVERIFY(waitFor([&] {
        hand().moveTo(nautilus->firstIcon() + QPoint(5, 0));
        hand().moveTo(nautilus->firstIcon());
        return nautilus->firstTakesDrop(*m_desktop);
    }));
    keepPicture(QStringLiteral("gnome-nautilus-back.png"));
    hand().release();
    QVERIFY(waitFor([this] { return content("files/a folder/note one.txt") == "words"; }));
    QCOMPARE(content("files/note one.txt"), "words");
    QCOMPARE(m_shelf->savedItems().size(), 1);
    QVERIFY2(waitFor([this] { return isPanelGone(); }), "the panel stays after the drag");
    keepPicture(QStringLiteral("gnome-nautilus-end.png"));
}

void GnomeEndToEndTest::aFileGoesIntoAPageOfFirefox()
{
    WebServer server;
    QVERIFY(server.isRunning());
    server.serve(QStringLiteral("/"), "text/html", page());
    for (const char* path : { "/over", "/name", "/dropped" })
        server.serve(QLatin1String(path), "text/plain", "thanks");
    QVERIFY(setUp());
    QVERIFY(putOnShelf(fileList()));
    m_peer.reset();
    const auto firefox = WaylandBrowser::tryOpen(QStringLiteral("firefox"), WaylandBrowser::Kind::waylandProgram,
                                                 server.url(QStringLiteral("/")), *m_desktop);
    QVERIFY(firefox);
    QVERIFY(showShelf());
    const QPoint place = firefox->at({ 200, 200 });
    dragTileTo(place);
    QVERIFY(waitFor([&] {
        hand().moveTo(place + QPoint(12, 0));
        hand().moveTo(place);
        return server.posted(QStringLiteral("/over")) == "over";
    }));
    keepPicture(QStringLiteral("gnome-firefox-over.png"));
    hand().release();
    QVERIFY(waitFor([&] { return server.posted(QStringLiteral("/dropped")) == "words"; }));
    QCOMPARE(server.posted(QStringLiteral("/name")), "note one.txt");
    keepPicture(QStringLiteral("gnome-firefox-end.png"));
}

void GnomeEndToEndTest::aDragThatIsReleasedOverTheBareDesktopEnds()
{
    QVERIFY(setUp());
    QVERIFY(putOnShelf(fileList()));
    m_peer.reset();
    QVERIFY(showShelf());
    dragTileTo(middle);
    hand().release();
    // The shell tells nobody; the drag ends ten seconds later.
    QVERIFY2(waitFor([this] { return isPanelGone(); }), "the drag goes on");
    keepPicture(QStringLiteral("gnome-bare-desktop.png"));
    QVERIFY(openPeer({ QStringLiteral("take"), QStringLiteral("text/uri-list"), home("received") }));
    QVERIFY(showShelf());
    QVERIFY(dragTileToPeer());
    QVERIFY(waitFor([this] { return content("received").trimmed() == fileList().trimmed(); }));
    QCOMPARE(m_shelf->savedItems().size(), 1);
}

void GnomeEndToEndTest::theMenuClosesOnEscapeAndWhenThePointerIsAway()
{
    QVERIFY(setUp());
    QVERIFY(putOnShelf(fileList()));
    const auto open = [this] {
        hand().moveTo(firstTile());
        hand().click(Hand::Button::right);
        return waitFor([this] { return isMenuOpen(); });
    };
    QVERIFY(!isMenuOpen());
    QVERIFY2(open(), "there is no menu left of the panel");
    keepPicture(QStringLiteral("gnome-menu.png"));
    hand().type(Hand::Key::escape);
    QVERIFY2(waitFor([this] { return !isMenuOpen(); }), "the menu stays after Escape");
    QVERIFY2(holdsFor([this] { return isPanelOut(); }, 1200), "the panel goes under the pointer");
    QVERIFY2(open(), "there is no second menu");
    hand().moveTo(middle);
    QVERIFY2(waitFor([this] { return !isMenuOpen(); }), "the menu stays without the pointer");
    QVERIFY2(waitFor([this] { return isPanelGone(); }), "the panel stays without its menu");
}

bool GnomeEndToEndTest::isShelfOnDisplay() const
{
    qputenv("XAUTHORITY", m_desktop->environment().value(QStringLiteral("XAUTHORITY")).toLocal8Bit());
    const XScreen screen(m_desktop->environment().value(QStringLiteral("DISPLAY")).toLatin1());
    const std::vector<XWindow> windows = screen.windows();
    return std::any_of(windows.begin(), windows.end(), [&](const XWindow& window) {
        return window.isMapped && window.windowClass == "nookle" && window.frame.intersects(screen.geometry());
    });
}

void GnomeEndToEndTest::noWindowIsOnTheDisplayWhileNothingShows()
{
    QVERIFY(setUp());
    QVERIFY(holdsFor([this] { return !isShelfOnDisplay(); }, 500));
    QVERIFY(putOnShelf(fileList()));
    QVERIFY2(isShelfOnDisplay(), "a window that is seen is not found");
    hand().moveTo(middle);
    QVERIFY(waitFor([this] { return isPanelGone(); }));
    QVERIFY2(waitFor([this] { return !isShelfOnDisplay(); }), "a window stays");
    // Not even a drag that goes elsewhere leaves one.
    QVERIFY(beginDrag(fileList()));
    hand().release();
    QVERIFY(waitFor([this] { return content("result") == "refused"; }));
    QVERIFY2(waitFor([this] { return !isShelfOnDisplay(); }), "a window stays after a drag");
}

void GnomeEndToEndTest::theShelfShowsAboveAFullScreenProgram()
{
    QVERIFY(setUp());
    const auto program = m_desktop->start(qEnvironmentVariable("NOOKLE_PEER"), { QStringLiteral("fullscreen") });
    const QRect corner(0, 0, 8, 8);
    QVERIFY(waitFor([&] { return m_desktop->picture(corner).pixelColor(0, 0) == QColor(Qt::red); }));
    QVERIFY(isPanelGone());
    QVERIFY(showShelf());
    keepPicture(QStringLiteral("gnome-full-screen.png"));
    QVERIFY(activate(QStringLiteral("toggle")));
    QVERIFY(waitFor([this] { return isPanelGone(); }));
    QCOMPARE(m_desktop->picture(corner).pixelColor(0, 0), QColor(Qt::red));
}

void GnomeEndToEndTest::theShelfThatIsShownForKeysHidesOnEscape()
{
    QVERIFY(setUp());
    QVERIFY(openPeer({ QStringLiteral("trash") }));
    QVERIFY(activate(QStringLiteral("focus")));
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    QVERIFY2(holdsFor([this] { return isPanelOut(); }, 1200), "the panel goes although it has the keys");
    hand().type(Hand::Key::escape);
    QVERIFY2(waitFor([this] { return isPanelGone(); }), "the panel stays");
}

void GnomeEndToEndTest::theKeysDoNotGoToTheHiddenShelfWhenTheShellWasBusy()
{
    QVERIFY(setUp());
    QVERIFY(openPeer({ QStringLiteral("trash") }));
    QVERIFY(activate(QStringLiteral("toggle")));
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    qputenv("XAUTHORITY", m_desktop->environment().value(QStringLiteral("XAUTHORITY")).toLocal8Bit());
    const XScreen screen(m_desktop->environment().value(QStringLiteral("DISPLAY")).toLatin1());
    const auto panel = screen.window("nookle", 112);
    QVERIFY(panel);
    const auto isMapped = [&] { return screen.window("nookle", 112).has_value(); };
    m_desktop->setStalled(true);
    // The window is hidden for a moment, and the keys are asked for in that moment.
    const bool isHidden = activate(QStringLiteral("toggle")) && waitFor([&] { return !isMapped(); });
    const bool isAsked = activate(QStringLiteral("focus")) && activate(QStringLiteral("toggle"));
    const bool isStalled = holdsFor([&] { return !isMapped(); }, 600);
    m_desktop->setStalled(false);
    QVERIFY(isHidden && isAsked && isStalled);
    QVERIFY(waitFor([&] { return isMapped(); }));
    const auto hasKeys = [&] { return screen.focus() == panel->id; };
    QVERIFY2(waitFor([&] { return holdsFor([&] { return !hasKeys(); }, 800); }), "the parked window has the keys");
    QVERIFY(isPanelGone());
}

// The X server keeps the pointer where it left the windows of X11 programs.
void GnomeEndToEndTest::theShelfThatShowsForAMomentGoesWhereverThePointerWasLast()
{
    QVERIFY(setUp());
    QVERIFY(openPeer({ QStringLiteral("trash") }));
    QVERIFY(showShelf());
    hand().moveTo(firstTile());
    hand().moveTo(middle);
    QVERIFY(waitFor([this] { return isPanelGone(); }));
    QCOMPARE(m_shelf->startAgain({ home("files/note one.txt") }), 0);
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    QVERIFY2(waitFor([this] { return isPanelGone(); }), "the panel takes the pointer for its own");
}

void GnomeEndToEndTest::theBackendIsTheOneThatIsAskedFor_data()
{
    QTest::addColumn<QString>("backend");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("none") << QString() << QByteArray("the display: X11 through XWayland");
    QTest::newRow("xwayland") << QStringLiteral("xwayland")
                              << QByteArray("the display: X11 through XWayland (as NOOKLE_BACKEND says)");
    QTest::newRow("wayland") << QStringLiteral("wayland")
                             << QByteArray("the display: Wayland, on which no panel can be shown");
}

void GnomeEndToEndTest::theBackendIsTheOneThatIsAskedFor()
{
    QFETCH(const QString, backend);
    QFETCH(const QByteArray, line);
    QVERIFY(setUpDesktop(WaylandDesktop::Compositor::gnome));
    if (!backend.isEmpty())
        m_desktop->setVariable(QStringLiteral("NOOKLE_BACKEND"), backend);
    QVERIFY(startShelf());
    QVERIFY2(waitFor([&] { return m_shelf->log().contains(line); }), m_shelf->log().constData());
}

QTEST_GUILESS_MAIN(GnomeEndToEndTest)
#include "GnomeEndToEndTest.moc"
