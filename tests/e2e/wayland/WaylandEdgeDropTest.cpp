#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QtTest>

#include <csignal>

using namespace nookle::e2e;

namespace {

inline constexpr QPoint edge(WaylandDesktop::displaySize.width() - 1, 400);
/// The shelf saves a moment after an item has come, and later on a busy machine.
inline constexpr int timeToSave = 5000;

} // namespace

/// What is let go at the edge while the panel comes there.
class WaylandEdgeDropTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aDropAtTheEdgeIsNeverLost();
    void aDropWhileThePanelGoesIsNotLost();
    void aHandThatRestsAtTheEdgeGetsTheShelfWhenItTrembles();
    void aDropIsTakenThatRestsAtTheEdgeWhileThePanelIsHidden();

private:
    /// Drags a text to the edge, and lets go, with a slight movement, so many milliseconds after the shelf takes it,
    /// when that is busy. Says what went wrong; nothing when the text is saved.
    [[nodiscard]] QString dropAtEdge(int delay);
    [[nodiscard]] bool isSaved(qsizetype items);
    /// Lets the shelf do nothing, as on a machine that is very busy, or go on.
    void stopShelf() { ::kill(static_cast<pid_t>(m_shelf->processId()), SIGSTOP); }
    void continueShelf() { ::kill(static_cast<pid_t>(m_shelf->processId()), SIGCONT); }
    /// Brings the pointer to the middle, and returns once the panel has gone.
    [[nodiscard]] bool leavePanel();
};

void WaylandEdgeDropTest::init()
{
    QVERIFY(setUpDesktop(compositor()));
    QVERIFY(startShelf());
    m_desktop->writeFile(QStringLiteral("offered"), "words");
    QVERIFY(openPeer({ QStringLiteral("offer"), home("offered"), QStringLiteral("text/plain") }));
}

void WaylandEdgeDropTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("%1-%2.png")
                        .arg(qEnvironmentVariable("NOOKLE_ENVIRONMENT"), QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

QString WaylandEdgeDropTest::dropAtEdge(int delay)
{
    const qsizetype items = m_shelf->savedItems().size();
    m_desktop->writeFile(QStringLiteral("offered"), "text number " + QByteArray::number(items));
    if (!beginDragOfPeer())
        return QStringLiteral("no drag begins");
    const qsizetype taken = timesSaid("taken");
    hand().moveTo(edge);
    if (!isTaken(taken))
        return QStringLiteral("the shelf does not take the drag");
    QTest::qSleep(delay);
    // A busy shelf can answer nothing that the compositor asks with the hand's last movement.
    stopShelf();
    hand().moveTo(hand().position() + QPoint(0, 1));
    hand().release();
    continueShelf();
    return isSaved(items + 1) ? QString() : QStringLiteral("the drop is lost");
}

bool WaylandEdgeDropTest::isSaved(qsizetype items)
{
    return waitFor([&] { return m_shelf->savedItems().size() == items; }, timeToSave);
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
    QStringList failures;
    for (int delay = 0; delay <= longest; delay += step) {
        QVERIFY(leavePanel());
        const QString failure = dropAtEdge(delay);
        if (!failure.isEmpty())
            failures.append(QStringLiteral("%1 (%2 ms)").arg(failure).arg(delay));
        hand().release();
    }
    QCOMPARE(failures.join(QLatin1String(", ")), QString());
}

// The panel begins to go half a second after the pointer, and has gone a fifth of a second later.
void WaylandEdgeDropTest::aDropWhileThePanelGoesIsNotLost()
{
    constexpr int step = 50;
    constexpr int longest = 550;
    constexpr int delay = 200;
    QStringList failures;
    for (int rest = 150; rest <= longest; rest += step) {
        hand().moveTo(middle);
        QTest::qSleep(rest);
        const QString failure = dropAtEdge(delay);
        if (!failure.isEmpty())
            failures.append(QStringLiteral("%1 (after %2 ms)").arg(failure).arg(rest));
        hand().release();
    }
    QCOMPARE(failures.join(QLatin1String(", ")), QString());
}

// The strip at the edge comes with the drag there, and a hand may be faster.
void WaylandEdgeDropTest::aHandThatRestsAtTheEdgeGetsTheShelfWhenItTrembles()
{
    stopShelf();
    QVERIFY(beginDragOfPeer());
    hand().moveTo(edge);
    continueShelf();
    QVERIFY2(isTaken(0), "the shelf does not take the drag");
    hand().release();
    QVERIFY2(isSaved(1), "the drop is lost");
}

void WaylandEdgeDropTest::aDropIsTakenThatRestsAtTheEdgeWhileThePanelIsHidden()
{
    // Without pictures nothing shows that the panel has come or gone, but each takes it less time.
    constexpr int timeToSlide = 800;
    const auto isRunning = [this] { return m_shelf->isRunning(); };
    QVERIFY(beginDragOfPeer());
    hand().moveTo(edge);
    QVERIFY2(isTaken(0), "the shelf does not take the drag");
    QVERIFY(holdsFor(isRunning, timeToSlide));
    QVERIFY(activate(QStringLiteral("toggle")));
    QVERIFY(m_desktop->hasPictures() ? waitFor([this] { return isPanelGone(); }) : holdsFor(isRunning, timeToSlide));
    hand().release();
    QVERIFY2(isSaved(1), "the drop is lost");
}

QTEST_GUILESS_MAIN(WaylandEdgeDropTest)
#include "WaylandEdgeDropTest.moc"
