#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QDir>
#include <QtTest>

using namespace nookle::e2e;

/// Displays that change while the panel is shown.
class WaylandDisplaysTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void thePinnedPanelFollowsItsDisplay();
    void nothingOfTheShadowShowsOnTheNeighbour();
    void theShelfOpensOnTheDisplayWithTheFocus();

private:
    /// Shows the pinned panel on one of two displays.
    [[nodiscard]] bool startPinned();
    /// Has sway run a command.
    [[nodiscard]] bool command(const QString& words);
    /// Whether the panel lies at that edge, seen in a row of the desktop. Independent of the display's scale.
    [[nodiscard]] bool isPanelAt(int edge, int row = 300) const;

    static constexpr int width = WaylandDesktop::displaySize.width();
};

void WaylandDisplaysTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("displays-%1.png").arg(QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

bool WaylandDisplaysTest::command(const QString& words)
{
    const QString folder = home("runtime");
    const QString socket = QDir(folder).entryList({ QStringLiteral("sway-ipc.*") }, QDir::System).value(0);
    m_desktop->setVariable(QStringLiteral("SWAYSOCK"), folder + QLatin1Char('/') + socket);
    return m_desktop->start(QStringLiteral("swaymsg"), words.split(QLatin1Char(' ')))->waitForExit() == 0;
}

bool WaylandDisplaysTest::isPanelAt(int edge, int row) const
{
    constexpr int panelWidth = 112;
    constexpr int beside = 8;
    const QImage picture = m_desktop->picture(QRect(edge - panelWidth - beside, row, panelWidth + beside, 1));
    if (picture.isNull())
        return false;
    const auto colour = [&](int point) { return picture.pixel(point * picture.width() / (panelWidth + beside), 0); };
    // Its colour begins within its border, and reaches to the edge.
    constexpr int border = 4;
    return colour(beside - border) != colour(beside + border)
        && colour(beside + border) == colour(panelWidth + beside - 1);
}

bool WaylandDisplaysTest::startPinned()
{
    if (!setUpDesktop(WaylandDesktop::Compositor::sway, 2))
        return false;
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"), "[General]\npanelPinned=true\n");
    return startShelf() && waitFor([this] { return isPanelAt(width) || isPanelAt(2 * width); });
}

void WaylandDisplaysTest::thePinnedPanelFollowsItsDisplay()
{
    QVERIFY(startPinned());
    const bool isFirst = isPanelAt(width);
    const QString display = isFirst ? QStringLiteral("HEADLESS-1") : QStringLiteral("HEADLESS-2");
    const int left = isFirst ? 0 : width;

    QVERIFY(command(QStringLiteral("output %1 scale 2").arg(display)));
    QVERIFY(waitFor([&] { return isPanelAt(left + width / 2); }));
    QVERIFY(command(QStringLiteral("output %1 scale 1.25").arg(display)));
    QVERIFY(waitFor([&] { return isPanelAt(left + width * 4 / 5); }));
    QVERIFY(command(QStringLiteral("output %1 scale 1 mode 1600x900").arg(display)));
    QVERIFY(command(QStringLiteral("output %1 position 0 1000").arg(display)));
    QVERIFY(waitFor([&] { return isPanelAt(1600, 1800); }));
    QVERIFY(command(QStringLiteral("output %1 unplug").arg(display)));
    QVERIFY(waitFor([&] { return isPanelAt(isFirst ? 2 * width : width); }));
}

void WaylandDisplaysTest::nothingOfTheShadowShowsOnTheNeighbour()
{
    QVERIFY(startPinned());
    const bool isFirst = isPanelAt(width);
    const QString neighbour = isFirst ? QStringLiteral("HEADLESS-2") : QStringLiteral("HEADLESS-1");
    const int edge = isFirst ? width : 2 * width;
    QVERIFY(command(QStringLiteral("output %1 position %2 0").arg(neighbour).arg(edge)));
    // Nothing is darker than the bare desktop.
    m_peer = m_desktop->start(qEnvironmentVariable("NOOKLE_PEER"), { QStringLiteral("trash") });
    const QRect beyond(edge, 0, 200, WaylandDesktop::displaySize.height());
    QImage window;
    QVERIFY(waitFor([&] {
        if (!command(QStringLiteral("[app_id=\".*\"] move container to output %1").arg(neighbour)))
            return false;
        window = m_desktop->picture(beyond);
        return !window.isNull() && qGray(window.pixel(100, 100)) > 0;
    }));
    QVERIFY(waitFor([&] { return isPanelAt(edge); }));
    const auto isUntouched = [&] { return m_desktop->picture(beyond) == window; };
    QVERIFY2(isUntouched(), "it shows at rest");
    QVERIFY(activate(QStringLiteral("toggle")));
    QVERIFY2(holdsFor(isUntouched, 600), "it shows while the panel goes");
    QVERIFY(!isPanelAt(edge));
    QVERIFY(activate(QStringLiteral("toggle")));
    QVERIFY2(holdsFor(isUntouched, 600), "it shows while the panel comes");
}

// The pointer does not move the focus there.
void WaylandDisplaysTest::theShelfOpensOnTheDisplayWithTheFocus()
{
    QVERIFY(setUpDesktop(WaylandDesktop::Compositor::sway, 2));
    QVERIFY(startShelf());
    for (const int display : { 2, 1, 2 }) {
        QVERIFY(command(QStringLiteral("focus output HEADLESS-%1").arg(display)));
        QVERIFY(activate(QStringLiteral("toggle")));
        QVERIFY2(waitFor([&] { return isPanelAt(display * width); }), qPrintable(QString::number(display)));
        QVERIFY(activate(QStringLiteral("toggle")));
        QVERIFY(waitFor([&] { return !isPanelAt(display * width); }));
    }
}

QTEST_GUILESS_MAIN(WaylandDisplaysTest)
#include "WaylandDisplaysTest.moc"
