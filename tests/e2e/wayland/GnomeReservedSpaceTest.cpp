#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QFile>
#include <QtTest>

using namespace nookle::e2e;

/// The pinned shelf with the setting that other windows leave its space to it.
class GnomeReservedSpaceTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aMaximisedWindowEndsAtThePinnedPanel();
    void aClickOnThePinGivesTheSpaceBack();
    void theSpaceGoesAndComesWithThePanel();
    void aFileReleasedOnThePanelIsSaved_data();
    void aFileReleasedOnThePanelIsSaved();
    void aFileReleasedAtTheEdgeIsSaved_data() { aFileReleasedOnThePanelIsSaved_data(); }
    void aFileReleasedAtTheEdgeIsSaved();
    void aTileArrivesInAnotherProgram_data() { aFileReleasedOnThePanelIsSaved_data(); }
    void aTileArrivesInAnotherProgram();
    void theActionGivesThePanelTheKeysAndEscapeGivesThemBack();

private:
    static constexpr int panelWidth = 112;
    static constexpr int rightEdge = WaylandDesktop::displaySize.width();

    void chooseToolkit();
    /// Where the maximised window of the other program ends.
    [[nodiscard]] int rightOfPeer() const;
    [[nodiscard]] bool fileIsSaved() const
    {
        return waitFor([this] { return m_shelf->savedFileNames() == QStringList{ QStringLiteral("note one.txt") }; });
    }
};

void GnomeReservedSpaceTest::init()
{
    QVERIFY(setUpDesktop(WaylandDesktop::Compositor::gnome));
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"),
                         "[General]\npanelPinned=true\nreserveSpace=true\n");
    QVERIFY(startShelf());
    QVERIFY(waitFor([this] { return isPanelOut(); }));
}

void GnomeReservedSpaceTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("gnome-reserved-%1.png").arg(QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

void GnomeReservedSpaceTest::chooseToolkit()
{
    QFETCH(const bool, isX11);
    if (isX11)
        runPeersOnX11();
}

int GnomeReservedSpaceTest::rightOfPeer() const
{
    // Above the panel and its shadow, which would cover the window elsewhere.
    const int free = m_desktop->topBar() + 1;
    const QImage row = m_desktop->picture(QRect(0, free, rightEdge, 1));
    int right = 0;
    while (right < row.width() && row.pixel(right, 0) == row.pixel(0, 0))
        ++right;
    return right;
}

void GnomeReservedSpaceTest::aMaximisedWindowEndsAtThePinnedPanel()
{
    QVERIFY(openPeer({ QStringLiteral("trash") }));
    QVERIFY(waitFor([this] { return rightOfPeer() == rightEdge - panelWidth; }));
    QVERIFY2(holdsFor([this] { return isPanelOut(); }, 1200), "the panel leaves the space that it reserves");
    keepPicture(QStringLiteral("gnome-reserved.png"));
}

// The click takes the focus from the other program, which answers to that while its window is to be fitted. Qt 6.4
// sometimes draws two changes in a row in the first one's size, so that the other program is none of Qt's.
void GnomeReservedSpaceTest::aClickOnThePinGivesTheSpaceBack()
{
    QVERIFY(openGtkSource());
    QVERIFY(waitFor([this] { return rightOfPeer() == rightEdge - panelWidth; }));
    hand().moveTo(pin());
    hand().click();
    QVERIFY2(waitFor([this] { return rightOfPeer() == rightEdge; }), "the space is not given back");
}

void GnomeReservedSpaceTest::theSpaceGoesAndComesWithThePanel()
{
    QVERIFY(openPeer({ QStringLiteral("trash") }));
    for (int round = 0; round < 3; ++round) {
        QVERIFY(activate(QStringLiteral("toggle")));
        QVERIFY(waitFor([this] { return rightOfPeer() == rightEdge; }));
        QVERIFY(activate(QStringLiteral("toggle")));
        QVERIFY(waitFor([this] { return rightOfPeer() == rightEdge - panelWidth && isPanelOut(); }));
    }
}

void GnomeReservedSpaceTest::aFileReleasedOnThePanelIsSaved_data()
{
    QTest::addColumn<bool>("isX11");
    QTest::newRow("a Wayland program") << false;
    QTest::newRow("an X11 program") << true;
}

void GnomeReservedSpaceTest::aFileReleasedOnThePanelIsSaved()
{
    chooseToolkit();
    QVERIFY(beginDrag(fileList()));
    hand().moveTo(QPoint(rightEdge - panelWidth / 2, middle.y()));
    QVERIFY2(waitFor([this] { return isDropTarget(); }), "the panel does not take the drag");
    hand().release();
    QVERIFY(fileIsSaved());
    QVERIFY(waitFor([this] { return content("result") == "taken"; }));
}

void GnomeReservedSpaceTest::aFileReleasedAtTheEdgeIsSaved()
{
    chooseToolkit();
    QVERIFY(beginDrag(fileList()));
    hand().moveTo(QPoint(rightEdge - 1, middle.y()));
    QVERIFY2(waitFor([this] { return isDropTarget(); }), "the panel does not take the drag");
    hand().release();
    QVERIFY(fileIsSaved());
}

void GnomeReservedSpaceTest::aTileArrivesInAnotherProgram()
{
    QVERIFY(
        callShelf({ QStringLiteral("org.freedesktop.Application.Open"),
                    QStringLiteral("['%1']").arg(QString::fromLatin1(fileList().trimmed())), QStringLiteral("{}") }));
    QVERIFY(fileIsSaved());
    chooseToolkit();
    QVERIFY(openPeer({ QStringLiteral("take"), QStringLiteral("text/uri-list"), home("received") }));
    for (int round = 0; round < 2; ++round) {
        QFile::remove(home("received"));
        QVERIFY(dragTileToPeer());
        QVERIFY(waitFor([this] { return QFile::exists(home("received")); }));
        QCOMPARE(content("received"), fileList());
    }
}

void GnomeReservedSpaceTest::theActionGivesThePanelTheKeysAndEscapeGivesThemBack()
{
    QVERIFY(activate(QStringLiteral("toggle")));
    QVERIFY(waitFor([this] { return isPanelGone(); }));
    QVERIFY(openPeer({ QStringLiteral("trash") }));
    hand().click();
    QVERIFY(peerSays("focused"));
    QVERIFY(activate(QStringLiteral("focus")));
    QVERIFY(peerSays("unfocused"));
    QVERIFY(waitFor([this] { return rightOfPeer() == rightEdge - panelWidth; }));
    const qsizetype before = timesSaid("focused");
    hand().type(Hand::Key::escape);
    QVERIFY(peerSays("focused", before));
}

QTEST_GUILESS_MAIN(GnomeReservedSpaceTest)
#include "GnomeReservedSpaceTest.moc"
