#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QtTest>

#include <csignal>

using namespace nookle::e2e;

/// What is let go at the edge while the panel comes there.
class WaylandEdgeDropTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void aDropAtTheEdgeIsNeverLost();

private:
    /// Drags a text to the edge, and lets go, with a slight movement, so many milliseconds after the shelf takes it,
    /// when that is busy. Says whether the text is saved.
    [[nodiscard]] bool dropAtEdge(int delay);
    /// Brings the pointer to the middle, and returns once the panel has gone.
    [[nodiscard]] bool leavePanel();
};

void WaylandEdgeDropTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("%1-%2.png")
                        .arg(qEnvironmentVariable("NOOKLE_ENVIRONMENT"), QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

bool WaylandEdgeDropTest::dropAtEdge(int delay)
{
    const qsizetype items = m_shelf->savedItems().size();
    const qsizetype draggedOver = timesSaid("dragged over");
    m_desktop->writeFile(QStringLiteral("offered"), "text number " + QByteArray::number(items));
    hand().press();
    const bool isDragged = waitFor([&] {
        hand().moveTo(hand().position() + QPoint(10, 0));
        return timesSaid("dragged over") > draggedOver;
    });
    if (!isDragged)
        return false;
    const qsizetype taken = timesSaid("taken");
    hand().moveTo(QPoint(WaylandDesktop::displaySize.width() - 1, middle.y()));
    if (!isTaken(taken))
        return false;
    QTest::qSleep(delay);
    // A busy shelf can answer nothing that the compositor asks with the hand's last movement.
    const auto shelf = static_cast<pid_t>(m_shelf->processId());
    ::kill(shelf, SIGSTOP);
    hand().moveTo(hand().position() + QPoint(0, 1));
    hand().release();
    ::kill(shelf, SIGCONT);
    return waitFor([&] { return m_shelf->savedItems().size() == items + 1; }, 3000);
}

bool WaylandEdgeDropTest::leavePanel()
{
    // Without pictures nothing shows that it has gone, but this takes it less time.
    constexpr int timeToGo = 1000;
    hand().moveTo(middle);
    return m_desktop->hasPictures() ? waitFor([this] { return isPanelGone(); })
                                    : holdsFor([this] { return m_shelf->isRunning(); }, timeToGo);
}

void WaylandEdgeDropTest::aDropAtTheEdgeIsNeverLost()
{
    constexpr int step = 20;
    constexpr int longest = 400;
    QVERIFY(setUpDesktop(compositor()));
    QVERIFY(startShelf());
    QVERIFY(openPeer({ QStringLiteral("offer"), home("offered"), QStringLiteral("text/plain") }));
    QList<int> lost;
    for (int delay = 0; delay <= longest; delay += step) {
        QVERIFY(leavePanel());
        if (!dropAtEdge(delay))
            lost.append(delay);
    }
    QCOMPARE(lost, QList<int>());
}

QTEST_GUILESS_MAIN(WaylandEdgeDropTest)
#include "WaylandEdgeDropTest.moc"
