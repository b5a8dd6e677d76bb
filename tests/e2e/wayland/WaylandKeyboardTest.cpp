#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QUrl>
#include <QtTest>

using namespace nookle::e2e;

namespace {

/// From one tile to the next.
inline constexpr QPoint nextTile{ 0, 86 };

} // namespace

/// The keyboard, which the shelf has only while the user wants it to.
class WaylandKeyboardTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void theFirstClickWithControlSelects();
    void theKeysThatWereAskedForStayUntilTheUserLeaves();
    void aMenuLeavesTheShelfTheKeys();
    void eachClickTakesTheKeysUntilTheUserIsElsewhere();
    void theKeysGoBackBeforeThePanelIsGone();

private:
    /// Shows a shelf with two files.
    [[nodiscard]] bool showTwoFiles();
    /// What another program gets that pastes.
    [[nodiscard]] QByteArray paste() const;
    /// Whether another program gets what is typed.
    [[nodiscard]] bool keysReachPeer();
};

void WaylandKeyboardTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("keyboard-%1.png").arg(QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

bool WaylandKeyboardTest::showTwoFiles()
{
    if (!setUpDesktop(compositor()) || !startShelf() || !openPeer({ QStringLiteral("trash") }))
        return false;
    m_desktop->writeFile(QStringLiteral("files/two.txt"), "words");
    return m_shelf->startAgain({ home("files/two.txt"), home("files/note one.txt") }) == 0
        && waitFor([this] { return m_shelf->savedItems().size() == 2; }) && showShelf();
}

QByteArray WaylandKeyboardTest::paste() const
{
    const auto program =
        m_desktop->start(QStringLiteral("wl-paste"), { QStringLiteral("--type"), QStringLiteral("text/uri-list") });
    return program->waitForExit() == 0 ? program->output() : QByteArray();
}

// A click without Control would open the first file, and leave the second one selected alone.
void WaylandKeyboardTest::theFirstClickWithControlSelects()
{
    QVERIFY(showTwoFiles());
    hand().moveTo(firstTile());
    hand().clickWith(Hand::Key::control);
    hand().moveTo(firstTile() + nextTile);
    hand().clickWith(Hand::Key::control);
    const QByteArray two = QUrl::fromLocalFile(home("files/two.txt")).toEncoded();
    QVERIFY(waitFor([&] {
        hand().typeWith(Hand::Key::control, Hand::Key::c);
        return paste().contains(two);
    }));
    QVERIFY(paste().contains(fileList().trimmed()));
}

void WaylandKeyboardTest::theKeysThatWereAskedForStayUntilTheUserLeaves()
{
    QVERIFY(showTwoFiles());
    QVERIFY(activate(QStringLiteral("toggle")));
    QVERIFY(waitFor([&] { return isPanelGone(); }));
    QVERIFY(activate(QStringLiteral("focus")));
    QVERIFY2(peerSays("unfocused"), "the keys do not come");
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    QVERIFY2(holdsFor([this] { return isPanelOut(); }, 1200), "the shelf loses the keys by itself");
    const qsizetype before = timesSaid("focused");
    hand().moveTo(firstTile());
    QVERIFY(holdsFor([&] { return isPanelOut() && timesSaid("focused") == before; }, 300));
    hand().moveTo(middle);
    // KWin leaves the keys where they are until a click elsewhere, which moves them. The others take them back at once.
    if (compositor() == WaylandDesktop::Compositor::kwin)
        hand().click();
    QVERIFY2(peerSays("focused", before), "the keys stay with the shelf");
    QVERIFY(waitFor([this] { return isPanelGone(); }));
}

void WaylandKeyboardTest::aMenuLeavesTheShelfTheKeys()
{
    QVERIFY(showTwoFiles());
    QVERIFY(activate(QStringLiteral("toggle")));
    QVERIFY(waitFor([&] { return isPanelGone(); }));
    QVERIFY(activate(QStringLiteral("focus")));
    QVERIFY2(peerSays("unfocused"), "the keys do not come");
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    hand().type(Hand::Key::down);
    // Where the menu opens, beside the panel and its shadow.
    constexpr QSize besidePanel(150, WaylandDesktop::displaySize.height());
    const QRect place(QPoint(WaylandDesktop::displaySize.width() - 300, 0), besidePanel);
    const auto isMenuOpen = [&, bare = m_desktop->picture(place)] { return m_desktop->picture(place) != bare; };
    const qsizetype before = timesSaid("focused");
    hand().type(Hand::Key::menu);
    QVERIFY(!m_desktop->hasPictures() || waitFor(isMenuOpen));
    hand().type(Hand::Key::escape);
    QVERIFY(!m_desktop->hasPictures() || waitFor([&] { return !isMenuOpen(); }));
    QVERIFY2(holdsFor([&] { return isPanelOut() && timesSaid("focused") == before; }, 1500), "the shelf goes");
}

bool WaylandKeyboardTest::keysReachPeer()
{
    const qsizetype before = timesSaid("typed");
    hand().type(Hand::Key::c);
    return waitFor([&] { return timesSaid("typed") > before; }, 300);
}

void WaylandKeyboardTest::eachClickTakesTheKeysUntilTheUserIsElsewhere()
{
    const QPoint besideTiles(WaylandDesktop::displaySize.width() - 50, 600);
    QVERIFY(setUpDesktop(compositor()));
    // Pinned, so that it does not go with the pointer.
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"), "[General]\npanelPinned=true\n");
    QVERIFY(startShelf());
    QVERIFY(openPeer({ QStringLiteral("text") }));
    hand().click();
    QVERIFY(waitFor([this] { return keysReachPeer(); }));
    for (int visit = 0; visit < 2; ++visit) {
        hand().moveTo(besideTiles);
        QVERIFY2(keysReachPeer(), "the keys come without a click");
        hand().click();
        QVERIFY2(waitFor([this] { return !keysReachPeer(); }), "the click does not take the keys");
        hand().moveTo(middle);
        // As above.
        if (compositor() == WaylandDesktop::Compositor::kwin)
            hand().click();
        QVERIFY2(waitFor([this] { return keysReachPeer(); }), "the keys stay with the shelf");
    }
}

// A surface that has gone gives nothing back.
void WaylandKeyboardTest::theKeysGoBackBeforeThePanelIsGone()
{
    const QString debug = QStringLiteral("WAYLAND_DEBUG");
    QVERIFY(setUpDesktop(compositor()));
    m_desktop->setVariable(debug, QStringLiteral("client"));
    QVERIFY(startShelf());
    m_desktop->setVariable(debug, QString());
    QVERIFY(openPeer({ QStringLiteral("trash") }));
    QVERIFY(activate(QStringLiteral("focus")));
    QVERIFY2(peerSays("unfocused"), "the keys do not come");
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    const auto returns = [this] { return m_shelf->log().count("set_keyboard_interactivity(0)"); };
    const qsizetype before = returns();
    hand().type(Hand::Key::escape);
    QVERIFY2(waitFor([&] { return returns() > before; }), "the keys stay with the shelf");
    QVERIFY(waitFor([this] { return isPanelGone(); }));
}

QTEST_GUILESS_MAIN(WaylandKeyboardTest)
#include "WaylandKeyboardTest.moc"
