#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QFile>
#include <QtTest>

#include <utility>

using namespace nookle::e2e;

namespace {

inline constexpr int rightEdge = WaylandDesktop::displaySize.width();
inline constexpr int bottom = WaylandDesktop::displaySize.height();
inline constexpr int panelWidth = 112;
/// The panel's shadow ends there.
inline constexpr int leftOfPanel = rightEdge - panelWidth - 24;
inline constexpr QPoint atEdge(rightEdge - 1, WaylandDesktop::displaySize.height() / 2);

/// What differs, as one rectangle.
[[nodiscard]] QRect difference(const QImage& one, const QImage& other)
{
    QRect area;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            if (one.pixel(x, y) != other.pixel(x, y))
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

} // namespace

/// What the mouse and the keyboard do at the edge, over the panel and beside it.
class WaylandPointerTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void aTextSelectionDragToTheEdgeShowsNothing();
    void aWindowDragToTheEdgeShowsNothing();
    void theWheelAtTheEdgeReachesTheWindowBelow();
    void theScrollBarAtTheEdgeOfAMaximisedWindowWorks();
    void withTheSettingOffTheEdgeIsTheWindowsBelow();
    void theWheelScrollsTheItems_data();
    void theWheelScrollsTheItems();
    void aToolTipOpensBesideThePanelAndGoesWithThePointer();
    void theMenuIsWholeWhereverItOpens_data();
    void theMenuIsWholeWhereverItOpens();
    void aClickElsewhereClosesTheMenu();
    void theShownShelfLeavesTheKeysWhereTheyAre();
    void theActionGivesTheShelfTheKeysAndEscapeGivesThemBack();
    void thePanelStandsAboveAFullScreenWindow();
    void theSlideDoesNotShowOnTheNeighbour();

private:
    [[nodiscard]] bool setUp(int displays = 1) { return setUpDesktop(compositor(), displays) && startShelf(); }
    [[nodiscard]] bool openText();
    /// Brings the pointer to the edge, where the window below gets it.
    [[nodiscard]] bool reachWindowAtEdge();
    [[nodiscard]] bool fillShelf(int count);
    /// Whether the window below is seen where the panel would be. True where the compositor gives no pictures.
    [[nodiscard]] bool isWindowSeenAtEdge() const;
    [[nodiscard]] QImage screenLeftOfPanel() const { return m_desktop->picture(QRect(0, 0, leftOfPanel, bottom)); }
    /// The part left of the panel of the menu that a right click at a place opens.
    [[nodiscard]] QRect openMenu(const QPoint& place);
    /// Types a letter, and says whether the other program has got it.
    [[nodiscard]] bool keysReachPeer();
};

void WaylandPointerTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("%1-%2.png")
                        .arg(qEnvironmentVariable("NOOKLE_ENVIRONMENT"), QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

bool WaylandPointerTest::openText()
{
    return openPeer({ QStringLiteral("text") });
}

bool WaylandPointerTest::reachWindowAtEdge()
{
    hand().moveTo(atEdge - QPoint(20, 0));
    const qsizetype left = timesSaid("left");
    const qsizetype entered = timesSaid("entered");
    hand().moveTo(atEdge);
    if (announcesDrags())
        return holdsFor([&] { return timesSaid("left") == left; }, 300);
    return waitFor([&] { return timesSaid("left") > left; }) && waitFor([&] {
               hand().moveTo(hand().position() + QPoint(0, 1));
               return timesSaid("entered") > entered;
           });
}

bool WaylandPointerTest::fillShelf(int count)
{
    QStringList paths;
    for (int number = 0; number < count; ++number) {
        const QString name = QStringLiteral("files/a file with a long name, number %1.txt").arg(number);
        m_desktop->writeFile(name, QByteArray::number(number));
        paths.append(m_desktop->home(name));
    }
    return m_shelf->startAgain(paths) == 0 && waitFor([&] { return m_shelf->savedItems().size() == count; });
}

// Neither the window's text nor its scroll bar is there.
bool WaylandPointerTest::isWindowSeenAtEdge() const
{
    const QRect place(rightEdge - panelWidth, 600, panelWidth / 2, 1);
    return !m_desktop->hasPictures()
        || m_desktop->picture(place) == m_desktop->picture(place.translated(-3 * panelWidth, 0));
}

QRect WaylandPointerTest::openMenu(const QPoint& place)
{
    hand().moveTo(place);
    const QImage before = screenLeftOfPanel();
    hand().click(Hand::Button::right);
    QRect menu;
    // It is drawn at once, but its place may be another in its first picture.
    const auto isThere = [&] {
        const QRect now = difference(before, screenLeftOfPanel());
        const bool isAtRest = !now.isEmpty() && now == menu;
        menu = now;
        return isAtRest;
    };
    return waitFor(isThere) ? menu : QRect();
}

bool WaylandPointerTest::keysReachPeer()
{
    const qsizetype before = timesSaid("typed");
    hand().type(Hand::Key::c);
    return waitFor([&] { return timesSaid("typed") > before; }, 2000);
}

void WaylandPointerTest::aTextSelectionDragToTheEdgeShowsNothing()
{
    QVERIFY(setUp());
    QVERIFY(openText());
    hand().press();
    hand().moveTo(atEdge);
    QVERIFY(peerSays("selected"));
    QVERIFY2(holdsFor([this] { return isWindowSeenAtEdge(); }, 1000), "the panel came out");
    const qsizetype before = timesSaid("selected");
    hand().moveTo(middle + QPoint(0, 100));
    QVERIFY2(peerSays("selected", before), "the selection ended at the edge");
    hand().release();
}

void WaylandPointerTest::aWindowDragToTheEdgeShowsNothing()
{
    QVERIFY(setUp());
    QVERIFY(openPeer({ QStringLiteral("moving") }));
    hand().press();
    QVERIFY(peerSays("pressed"));
    hand().moveTo(QPoint(rightEdge - 1, middle.y()));
    QVERIFY2(holdsFor([this] { return timesSaid("dragged over") == 0; }, 700), "it is dragged as content is");
    hand().release();
    // Moved as far as the mouse, the window lies beyond the edge for the most part.
    const qsizetype before = timesSaid("entered");
    hand().moveTo(middle);
    hand().moveTo(QPoint(rightEdge - 40, middle.y()));
    QVERIFY2(peerSays("entered", before), "the window did not move to the edge");
    QVERIFY(m_shelf->savedItems().isEmpty());
}

void WaylandPointerTest::theWheelAtTheEdgeReachesTheWindowBelow()
{
    QVERIFY(setUp());
    QVERIFY(openText());
    QVERIFY(reachWindowAtEdge());
    hand().turnWheel(1);
    QVERIFY(peerSays("wheel"));
    QVERIFY(peerSays("scrolled"));
    QVERIFY(isWindowSeenAtEdge());
}

void WaylandPointerTest::theScrollBarAtTheEdgeOfAMaximisedWindowWorks()
{
    QVERIFY(setUp());
    QVERIFY(openText());
    // The bar's handle is at the top. A hand that comes across the window finds it beside the strip ...
    constexpr int inBar = 8;
    hand().moveTo(QPoint(rightEdge - inBar, 30));
    hand().press();
    hand().moveTo(QPoint(rightEdge - inBar, 200));
    QVERIFY(peerSays("scrolled"));
    // ... and may be at the very edge by the end of its movement.
    hand().moveTo(QPoint(rightEdge - 1, 200));
    const qsizetype before = timesSaid("scrolled");
    hand().moveTo(QPoint(rightEdge - 1, 400));
    QVERIFY2(peerSays("scrolled", before), "the drag of the scroll bar ends at the edge");
    hand().release();

    // One that throws the mouse against the edge finds it there.
    QVERIFY(reachWindowAtEdge());
    hand().moveTo(atEdge + QPoint(0, 60));
    const qsizetype pressed = timesSaid("pressed");
    const qsizetype scrolled = timesSaid("scrolled");
    hand().press();
    QVERIFY(peerSays("pressed", pressed));
    hand().moveTo(QPoint(rightEdge - 1, 100));
    QVERIFY2(peerSays("scrolled", scrolled), "the scroll bar cannot be used at the edge");
    hand().release();
}

void WaylandPointerTest::withTheSettingOffTheEdgeIsTheWindowsBelow()
{
    QVERIFY(setUpDesktop(compositor()));
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"), "[General]\nautoExpandOnDrag=false\n");
    QVERIFY(startShelf());
    QVERIFY(openText());
    hand().moveTo(atEdge);
    hand().click();
    QVERIFY(peerSays("pressed"));
    QCOMPARE(timesSaid("left"), 0);
}

void WaylandPointerTest::theWheelScrollsTheItems_data()
{
    QTest::addColumn<bool>("isWheel");
    QTest::newRow("a wheel") << true;
    QTest::newRow("a touchpad") << false;
}

void WaylandPointerTest::theWheelScrollsTheItems()
{
    QFETCH(const bool, isWheel);
    QVERIFY(setUp());
    QVERIFY(fillShelf(20));
    QVERIFY(showShelf());
    hand().moveTo(QPoint(rightEdge - 56, 400));
    // The light of the tile below the pointer comes at once with the pointer.
    const QRect tiles(rightEdge - panelWidth + 10, 120, panelWidth - 20, 480);
    QImage before;
    QVERIFY(waitFor([&] {
        const QImage last = std::exchange(before, m_desktop->picture(tiles));
        return !last.isNull() && last == before;
    }));
    if (isWheel)
        hand().turnWheel(3);
    else
        hand().glide(120);
    QVERIFY2(waitFor([&] { return difference(before, m_desktop->picture(tiles)).height() > 300; }),
             "nothing is scrolled");
    QVERIFY(isPanelOut());
}

void WaylandPointerTest::aToolTipOpensBesideThePanelAndGoesWithThePointer()
{
    QVERIFY(setUp());
    QVERIFY(fillShelf(1));
    QVERIFY(showShelf());
    hand().moveTo(QPoint(rightEdge - 56, 600));
    const QImage before = screenLeftOfPanel();
    hand().moveTo(firstTile());
    QRect tip;
    QVERIFY2(waitFor([&] {
                 tip = difference(before, screenLeftOfPanel());
                 return !tip.isEmpty();
             }),
             "no tool tip opens");
    QVERIFY2(tip.right() == leftOfPanel - 1 && tip.bottom() < bottom - 1, "it opens apart from its tile");
    hand().moveTo(QPoint(rightEdge - 56, 600));
    QVERIFY2(waitFor([&] { return screenLeftOfPanel() == before; }), "it stays");
}

void WaylandPointerTest::theMenuIsWholeWhereverItOpens_data()
{
    QTest::addColumn<int>("displays");
    QTest::addColumn<int>("items");
    QTest::addColumn<int>("low");
    QTest::newRow("of a tile") << 1 << 12 << bottom - 60;
    QTest::newRow("of a tile, beside another display") << 2 << 12 << bottom - 60;
    QTest::newRow("of the panel") << 1 << 1 << bottom - 40;
}

void WaylandPointerTest::theMenuIsWholeWhereverItOpens()
{
    QFETCH(const int, displays);
    QFETCH(const int, items);
    QFETCH(const int, low);
    QVERIFY(setUp(displays));
    QVERIFY(fillShelf(items));
    const auto isGone = [&] { return isPanelGone() && (displays == 1 || isPanelGone(2 * rightEdge)); };
    QVERIFY(waitFor(isGone));
    // The drag says which display's panel it is.
    QVERIFY(beginDrag(fileList()));
    QVERIFY(dragToEdge());
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    hand().release();
    QVERIFY(waitFor([&] { return m_shelf->savedItems().size() == items + 1; }));
    const int high = items == 1 ? 300 : firstTile().y();
    const QRect upper = openMenu(QPoint(rightEdge - 40, high));
    QVERIFY2(!upper.isEmpty(), "there is no menu left of the panel");
    QVERIFY2(qAbs(upper.top() - high) < 12, "it opens apart from the pointer");
    hand().type(Hand::Key::escape);
    QVERIFY(waitFor([this] { return !isMenuOpen(); }));

    const QRect lower = openMenu(QPoint(rightEdge - 40, low));
    QVERIFY2(!lower.isEmpty(), "there is no menu at the bottom");
    QCOMPARE(lower.size(), upper.size());
    QVERIFY2(lower.bottom() < bottom - 1, "it is cut off at the bottom");
}

void WaylandPointerTest::aClickElsewhereClosesTheMenu()
{
    QVERIFY(setUp());
    QVERIFY(openPeer({ QStringLiteral("trash") }));
    QVERIFY(fillShelf(1));
    QVERIFY(showShelf());
    QVERIFY(!openMenu(firstTile()).isEmpty());
    hand().moveTo(middle);
    hand().click();
    QVERIFY2(waitFor([this] { return !isMenuOpen(); }), "the menu stays");
    QVERIFY2(waitFor([this] { return isPanelGone(); }), "the panel stays without its menu");
}

void WaylandPointerTest::theShownShelfLeavesTheKeysWhereTheyAre()
{
    QVERIFY(setUp());
    QVERIFY(openText());
    hand().click();
    QVERIFY(keysReachPeer());
    QVERIFY(showShelf());
    QVERIFY2(keysReachPeer(), "the shelf took the keys");
    QVERIFY(isPanelOut());
}

void WaylandPointerTest::theActionGivesTheShelfTheKeysAndEscapeGivesThemBack()
{
    QVERIFY(setUp());
    QVERIFY(openText());
    hand().click();
    QVERIFY(keysReachPeer());
    QVERIFY(activate(QStringLiteral("focus")));
    QVERIFY(waitFor([this] { return !m_desktop->hasPictures() || !isWindowSeenAtEdge(); }));
    QVERIFY2(waitFor([&] {
                 const qsizetype typed = timesSaid("typed");
                 hand().type(Hand::Key::c);
                 return holdsFor([&] { return timesSaid("typed") == typed; }, 200);
             }),
             "the shelf does not get the keys");
    hand().type(Hand::Key::escape);
    QVERIFY2(waitFor([this] { return isWindowSeenAtEdge(); }), "Escape does not hide the shelf");
    QVERIFY2(waitFor([this] { return keysReachPeer(); }), "the keys do not come back");
}

void WaylandPointerTest::thePanelStandsAboveAFullScreenWindow()
{
    QVERIFY(setUp());
    m_peer = m_desktop->start(qEnvironmentVariable("NOOKLE_PEER"), { QStringLiteral("fullscreen") });
    const QRect place(rightEdge - 60, 500, 1, 1);
    const auto isCovered = [&] { return m_desktop->picture(place).pixelColor(0, 0) == QColor(Qt::red); };
    QVERIFY2(waitFor(isCovered), "the other program does not cover the screen");
    QVERIFY(showShelf());
    QVERIFY2(waitFor([&] { return !isCovered(); }), "the panel is below");
}

void WaylandPointerTest::theSlideDoesNotShowOnTheNeighbour()
{
    QVERIFY(setUp(2));
    hand().moveTo(middle);
    // Below the pointer, which reaches over the edge.
    const QRect strip(rightEdge, bottom - 200, panelWidth, 150);
    const auto isUntouched = [&, before = m_desktop->picture(strip)] { return m_desktop->picture(strip) == before; };
    QVERIFY(beginDrag(fileList()));
    QVERIFY(dragToEdge());
    QVERIFY2(holdsFor(isUntouched, 400), "the slide in shows on the neighbour");
    QVERIFY(isPanelOut());
    hand().moveTo(middle);
    hand().release();
    QVERIFY2(holdsFor(isUntouched, 1500), "the slide out shows on the neighbour");
    QVERIFY(isPanelGone());
}

QTEST_GUILESS_MAIN(WaylandPointerTest)
#include "WaylandPointerTest.moc"
