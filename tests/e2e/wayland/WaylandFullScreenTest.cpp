#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QtTest>

using namespace nookle::e2e;

/// A drag to the edge over a window that fills the screen.
class WaylandFullScreenTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void withNewsOfDragsTheEdgeOpensTheShelf();
    void withoutNewsOfDragsTheEdgeIsTheFullScreenWindows();

private:
    [[nodiscard]] bool beginDragOverAll();
};

void WaylandFullScreenTest::init()
{
    QVERIFY(setUpDesktop(compositor()));
}

void WaylandFullScreenTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("%1-%2.png")
                        .arg(qEnvironmentVariable("NOOKLE_ENVIRONMENT"), QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

bool WaylandFullScreenTest::beginDragOverAll()
{
    m_desktop->writeFile(QStringLiteral("offered"), fileList());
    return startShelf()
        && beginDrag({ QStringLiteral("fullscreen"), QStringLiteral("offer"), home("offered"),
                       QStringLiteral("text/uri-list"), home("result") });
}

void WaylandFullScreenTest::withNewsOfDragsTheEdgeOpensTheShelf()
{
    QVERIFY(beginDragOverAll());
    QVERIFY(dragToEdge());
    QVERIFY2(waitFor([this] { return isPanelOut(); }), "the panel is below");
    hand().release();
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames() == QStringList{ QStringLiteral("note one.txt") }; }));
}

// Strips above such windows would take their direct way to the display from them all day.
void WaylandFullScreenTest::withoutNewsOfDragsTheEdgeIsTheFullScreenWindows()
{
    QVERIFY(beginDragOverAll());
    hand().moveTo(QPoint(WaylandDesktop::displaySize.width() - 1, middle.y()));
    QVERIFY2(holdsFor([this] { return timesSaid("taken") == 0; }, 1000), "the shelf takes the drag");
    QVERIFY(isPanelGone());
    hand().release();
}

QTEST_GUILESS_MAIN(WaylandFullScreenTest)
#include "WaylandFullScreenTest.moc"
