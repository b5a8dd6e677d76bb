#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QColor>
#include <QtTest>

#include <algorithm>

using namespace nookle::e2e;

namespace {

inline constexpr QRect display(QPoint(), WaylandDesktop::displaySize);
inline constexpr int leftOfPanel = display.width() - 112;
/// How far the panel is from the ends of the area that it may use.
inline constexpr int margin = 24;
inline constexpr int shadowWidth = 24;
/// On the shadow, where nothing else is.
inline constexpr QPoint beside(leftOfPanel - 6, 500);

/// How many surfaces the program has taken back that belonged to others, as libwayland writes it down.
[[nodiscard]] qsizetype subsurfacesDestroyed(const QByteArray& log)
{
    const QList<QByteArray> lines = log.split('\n');
    return std::count_if(lines.begin(), lines.end(), [](const QByteArray& line) {
        return line.contains("wl_subsurface") && line.contains(".destroy()");
    });
}

} // namespace

/// The shadow around the panel. Each compositor's run names the functions that hold there.
class WaylandShadowTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void whatLiesAroundThePanelIsDarker();
    void theShadowGoesAndComesWithThePanel();
    void aMenuLeavesTheShadowAsItWas();
    void aClickOnTheShadowReachesTheWindowBelow();
    void aDropOnTheShadowReachesTheWindowBelow();
    void theHiddenShelfHoldsNoPictureOfIt();
    void nothingIsDrawnAtRest();
    void nothingLiesAroundThePanel();

private:
    /// Has the program write down what it tells the compositor.
    [[nodiscard]] bool startAgainWithWireLog();
    [[nodiscard]] bool toggle() { return activate(QStringLiteral("toggle")); }
    /// What the user sees of an area once nothing moves there any more.
    [[nodiscard]] QImage settled(const QRect& area) const;
    /// Where nothing but the shadow, the panel and the other program's window is seen.
    [[nodiscard]] QRect area() const { return display.adjusted(0, m_desktop->topBar(), 0, 0); }
    [[nodiscard]] QRect leftShadow() const
    {
        return { leftOfPanel - shadowWidth, area().top(), shadowWidth, area().height() };
    }
    [[nodiscard]] QImage shadow() const { return m_desktop->picture(leftShadow()); }
};

void WaylandShadowTest::init()
{
    QVERIFY(setUpDesktop(compositor()));
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"), "[General]\npanelPinned=true\n");
    QVERIFY(startShelf());
    // Nothing is darker than the bare desktop.
    QVERIFY(openPeer({ QStringLiteral("trash") }));
    QVERIFY(waitFor([this] { return isPanelOut(); }));
}

void WaylandShadowTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("%1-%2.png")
                        .arg(qEnvironmentVariable("NOOKLE_ENVIRONMENT"), QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

bool WaylandShadowTest::startAgainWithWireLog()
{
    tearDownDesktop();
    if (!setUpDesktop(compositor()))
        return false;
    m_desktop->setVariable(QStringLiteral("WAYLAND_DEBUG"), QStringLiteral("client"));
    return startShelf() && toggle() && waitFor([this] { return isPanelOut(); });
}

QImage WaylandShadowTest::settled(const QRect& area) const
{
    // Some frames' time on a busy machine.
    constexpr int longEnough = 300;
    QImage last;
    const bool isSettled = waitFor([&] {
        last = m_desktop->picture(area);
        return holdsFor([&] { return m_desktop->picture(area) == last; }, longEnough);
    });
    return isSettled ? last : QImage();
}

void WaylandShadowTest::whatLiesAroundThePanelIsDarker()
{
    QVERIFY(toggle());
    QVERIFY(waitFor([this] { return isPanelGone(); }));
    const QImage without = settled(area());
    QVERIFY(toggle());
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    const QImage with = settled(area());
    keepPicture(QStringLiteral("shadow-%1.png").arg(qEnvironmentVariable("NOOKLE_ENVIRONMENT")));

    const auto darker = [&](int x, int y) { return qGray(without.pixel(x, y)) - qGray(with.pixel(x, y)); };
    const int left = leftOfPanel - 1;
    const int row = beside.y() - area().top();
    const int full = qGray(without.pixel(left, row));
    QVERIFY2(darker(left, row) > full / 5, "nothing is at the panel's edge");
    QVERIFY2(darker(left - shadowWidth / 4, row) < darker(left, row), "it does not fade");
    QVERIFY2(darker(left - shadowWidth / 4, row) > full / 20, "it is too narrow");
    QCOMPARE(darker(left - shadowWidth, row), 0);
    const int column = leftOfPanel + 60;
    QCOMPARE(darker(column, margin - 1), darker(left, row));
    QCOMPARE(darker(column, with.height() - margin), darker(left, row));
    QVERIFY2(darker(with.width() - 1, margin - 1) == darker(left, row), "it ends before the display does");
}

void WaylandShadowTest::theShadowGoesAndComesWithThePanel()
{
    const QImage with = settled(leftShadow());
    QVERIFY(toggle());
    QVERIFY(waitFor([this] { return isPanelGone(); }));
    const QImage without = settled(leftShadow());
    QVERIFY(with != without);
    QVERIFY(toggle());
    QVERIFY2(waitFor([&] { return shadow() == with; }), "it does not come back");
    QVERIFY(toggle());
    QVERIFY2(waitFor([&] { return shadow() == without; }), "it stays");
}

void WaylandShadowTest::aMenuLeavesTheShadowAsItWas()
{
    const QImage before = settled(leftShadow());
    hand().moveTo(firstTile());
    hand().click(Hand::Button::right);
    QVERIFY(waitFor([this] { return isMenuOpen(); }));
    hand().type(Hand::Key::escape);
    QVERIFY(waitFor([&] { return shadow() == before; }));
}

void WaylandShadowTest::aClickOnTheShadowReachesTheWindowBelow()
{
    hand().moveTo(beside);
    hand().click();
    QVERIFY(peerSays("pressed"));
    QCOMPARE(timesSaid("left"), 0);
}

void WaylandShadowTest::aDropOnTheShadowReachesTheWindowBelow()
{
    QVERIFY(openPeer({ QStringLiteral("take"), QStringLiteral("text/uri-list"), home("received") }));
    QCOMPARE(m_shelf->startAgain({ home("files/note one.txt") }), 0);
    QVERIFY(waitFor([this] { return m_shelf->savedItems().size() == 1; }));
    hand().moveTo(firstTile());
    hand().press();
    hand().moveTo(beside);
    QVERIFY2(waitFor([this] {
                 hand().moveTo(beside + QPoint(0, 4));
                 hand().moveTo(beside);
                 return content("received.over").size() > 2;
             }),
             "the drag does not come to the window below");
    hand().release();
    QVERIFY(waitFor([this] { return content("received") == fileList(); }));
}

void WaylandShadowTest::theHiddenShelfHoldsNoPictureOfIt()
{
    QVERIFY(startAgainWithWireLog());
    QVERIFY(toggle());
    QVERIFY(waitFor([this] { return isPanelGone(); }));
    const auto isGone = [this] {
        const QByteArray log = m_shelf->log();
        return log.contains(".get_subsurface(") && log.count(".get_subsurface(") == subsurfacesDestroyed(log);
    };
    QVERIFY(waitFor(isGone));
}

void WaylandShadowTest::nothingIsDrawnAtRest()
{
    QVERIFY(startAgainWithWireLog());
    const auto commits = [this] { return m_shelf->log().count(".commit()"); };
    QVERIFY(waitFor([&] { return holdsFor([&, seen = commits()] { return commits() == seen; }, 500); }));
    const qsizetype before = commits();
    QVERIFY(before > 0);
    QVERIFY(holdsFor([&] { return commits() == before; }, 2000));
}

void WaylandShadowTest::nothingLiesAroundThePanel()
{
    const QImage with = settled(leftShadow());
    QVERIFY(toggle());
    QVERIFY(waitFor([this] { return isPanelGone(); }));
    QCOMPARE(settled(leftShadow()), with);
}

QTEST_GUILESS_MAIN(WaylandShadowTest)
#include "WaylandShadowTest.moc"
