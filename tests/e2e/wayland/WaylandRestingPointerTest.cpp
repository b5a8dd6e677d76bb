#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QtTest>

using namespace nookle::e2e;

namespace {

inline constexpr int rightEdge = WaylandDesktop::displaySize.width();
inline constexpr QPoint overPanel(rightEdge - 60, 400);
/// More than any time for which the panel waits for news of the pointer.
inline constexpr int longRest = 4000;

} // namespace

/// A hand that lies still after a drag: not every compositor tells by itself where the pointer is then.
class WaylandRestingPointerTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void thePanelStaysUnderAPointerThatRestsAfterADrop_data();
    void thePanelStaysUnderAPointerThatRestsAfterADrop();
    void thePanelStaysUnderAPointerThatRestsAfterARefusedDrop();
    void thePanelGoesWhenThePointerLeavesRightAfterADrop();

private:
    [[nodiscard]] bool setUp() { return setUpDesktop(compositor()) && startShelf(); }
    [[nodiscard]] bool isSaved() const
    {
        return waitFor([this] { return m_shelf->savedItems().size() == 1; });
    }
    /// Brings what is being dragged onto the panel.
    [[nodiscard]] bool dragOntoPanel();
};

void WaylandRestingPointerTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("%1-%2.png")
                        .arg(qEnvironmentVariable("NOOKLE_ENVIRONMENT"), QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

bool WaylandRestingPointerTest::dragOntoPanel()
{
    if (!dragToEdge() || !waitFor([this] { return isPanelOut(); }))
        return false;
    hand().moveTo(overPanel);
    return waitFor([this] { return isPanelOut(); });
}

void WaylandRestingPointerTest::thePanelStaysUnderAPointerThatRestsAfterADrop_data()
{
    QTest::addColumn<bool>("isAtEdge");
    QTest::newRow("at the edge") << true;
    QTest::newRow("on the panel") << false;
}

void WaylandRestingPointerTest::thePanelStaysUnderAPointerThatRestsAfterADrop()
{
    QFETCH(const bool, isAtEdge);
    QVERIFY(setUp());
    QVERIFY(beginDrag(fileList()));
    QVERIFY(isAtEdge ? dragToEdge() : dragOntoPanel());
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    hand().release();
    QVERIFY(isSaved());
    QVERIFY2(holdsFor([this] { return isPanelOut(); }, longRest), "the panel goes under the pointer");
    hand().moveTo(middle);
    QVERIFY2(waitFor([this] { return isPanelGone(); }, 2000), "the panel stays without the pointer");
}

void WaylandRestingPointerTest::thePanelStaysUnderAPointerThatRestsAfterARefusedDrop()
{
    QVERIFY(setUp());
    QVERIFY(beginDrag("nothing that a shelf can keep", QStringLiteral("application/x-unknown")));
    hand().moveTo(QPoint(rightEdge - 1, middle.y()));
    QVERIFY(showShelf());
    hand().moveTo(overPanel);
    hand().release();
    QVERIFY2(holdsFor([this] { return isPanelOut(); }, longRest), "the panel goes under the pointer");
    QVERIFY(m_shelf->savedItems().isEmpty());
    hand().moveTo(middle);
    QVERIFY2(waitFor([this] { return isPanelGone(); }, 2000), "the panel stays without the pointer");
}

void WaylandRestingPointerTest::thePanelGoesWhenThePointerLeavesRightAfterADrop()
{
    QVERIFY(setUp());
    QVERIFY(beginDrag(fileList()));
    QVERIFY(dragOntoPanel());
    hand().release();
    hand().sendTo(middle);
    QVERIFY(isSaved());
    QVERIFY2(waitFor([this] { return isPanelGone(); }, 3000), "the panel stays without the pointer");
}

QTEST_GUILESS_MAIN(WaylandRestingPointerTest)
#include "WaylandRestingPointerTest.moc"
