#include "Waiting.h"
#include "WaylandShelfDesktop.h"
#include "XResources.h"

#include <QtTest>

using namespace nookle::e2e;

namespace {

/// The compositor lets the server go on without a program for some seconds, and the shelf looks for a new one twice a
/// minute.
inline constexpr int timeToEnd = 60'000;
inline constexpr int timeToFind = 60'000;

} // namespace

/// The X server of a compositor that ends it with its last program.
class WaylandX11ServerTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theShelfDoesNotKeepTheServerAndFollowsTheNextOne();

private:
    /// Whether the shelf has something on the server. Such a question is an X11 program, too, and starts one.
    [[nodiscard]] bool isShelfConnected() const;
    /// Brings the pointer to the edge, where the shelf looks for a server, and back.
    [[nodiscard]] bool visitEdge();
    [[nodiscard]] bool dropFile();
};

void WaylandX11ServerTest::init()
{
    QVERIFY(setUpDesktop(compositor()));
}

void WaylandX11ServerTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("%1-%2.png")
                        .arg(qEnvironmentVariable("NOOKLE_ENVIRONMENT"), QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

bool WaylandX11ServerTest::isShelfConnected() const
{
    return xResources(m_desktop->environment().value(QStringLiteral("DISPLAY")).toLocal8Bit(), m_shelf->processId())
        > 0;
}

bool WaylandX11ServerTest::visitEdge()
{
    hand().moveTo(middle);
    if (!waitFor([this] { return isPanelGone(); }))
        return false;
    hand().moveTo(QPoint(WaylandDesktop::displaySize.width() - 1, middle.y()));
    hand().tremble();
    return true;
}

bool WaylandX11ServerTest::dropFile()
{
    const qsizetype items = m_shelf->savedItems().size();
    if (!beginDrag("text number " + QByteArray::number(items), QStringLiteral("text/plain")) || !dragToEdge())
        return false;
    hand().tremble();
    hand().release();
    return waitFor([&] { return m_shelf->savedItems().size() == items + 1; });
}

void WaylandX11ServerTest::theShelfDoesNotKeepTheServerAndFollowsTheNextOne()
{
    QVERIFY(startShelf());
    QVERIFY2(waitFor([this] { return isShelfConnected(); }), "the shelf does not know the server");
    QVERIFY(dropFile());

    m_desktop->endX11Program();
    QVERIFY2(waitFor([this] { return !m_desktop->isX11ServerRunning(); }, timeToEnd), "the shelf keeps the server");
    QVERIFY(dropFile());
    QVERIFY2(!m_desktop->isX11ServerRunning(), "the shelf has started the server");

    m_desktop->startX11Program();
    const bool isFound = waitFor([this] { return visitEdge() && isShelfConnected(); }, timeToFind);
    QVERIFY2(isFound, "the shelf does not know the new server");
    QVERIFY(dropFile());
}

QTEST_GUILESS_MAIN(WaylandX11ServerTest)
#include "WaylandX11ServerTest.moc"
