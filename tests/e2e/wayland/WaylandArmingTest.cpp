#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QRegularExpression>
#include <QSet>
#include <QtTest>

using namespace nookle::e2e;

namespace {

inline constexpr int rightEdge = WaylandDesktop::displaySize.width();
inline constexpr QPoint overPanel(rightEdge - 60, 400);
inline constexpr const char* plainText = "text/plain";

/// How many surfaces of a strip's width a program has, after what it has told the compositor.
[[nodiscard]] qsizetype stripsIn(const QByteArray& wireLog)
{
    static const QRegularExpression request(
        QStringLiteral(R"(zwlr_layer_surface_v1[#@](\d+)\.(set_size\(3,|destroy\(\)))"));
    QSet<QString> strips;
    auto matches = request.globalMatch(QString::fromUtf8(wireLog));
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (match.captured(2).startsWith(u'd'))
            strips.remove(match.captured(1));
        else
            strips.insert(match.captured(1));
    }
    return strips.size();
}

} // namespace

/// The strips at the edge lie above all windows during a drag, and keep a film that fills the screen from its direct
/// way to the display. So they must go with the drag.
class WaylandArmingTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theStripsGoWithADropOnTheShelf_data();
    void theStripsGoWithADropOnTheShelf();
    void theStripsGoWhenThePointerComesToThePanel();
    void theStripsGoWithTheShelfsOwnDrag();

private:
    [[nodiscard]] bool areThereStrips() { return stripsIn(m_shelf->log()) > 0; }
    [[nodiscard]] bool areStripsGone()
    {
        return waitFor([this] { return !areThereStrips(); }, 2000);
    }
    [[nodiscard]] bool openSource()
    {
        m_desktop->writeFile(QStringLiteral("offered"), "words");
        return openPeer({ QStringLiteral("offer"), home("offered"), QLatin1String(plainText) });
    }
    [[nodiscard]] bool isSaved() const
    {
        return waitFor([this] { return m_shelf->savedItems().size() == 1; });
    }
};

void WaylandArmingTest::init()
{
    QVERIFY(setUpDesktop(compositor()));
    m_desktop->setVariable(QStringLiteral("WAYLAND_DEBUG"), QStringLiteral("client"));
    QVERIFY(startShelf());
    m_desktop->setVariable(QStringLiteral("WAYLAND_DEBUG"), QString());
    QVERIFY(!areThereStrips());
}

void WaylandArmingTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("%1-%2.png")
                        .arg(qEnvironmentVariable("NOOKLE_ENVIRONMENT"), QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

void WaylandArmingTest::theStripsGoWithADropOnTheShelf_data()
{
    QTest::addColumn<bool>("isX11Program");
    QTest::addColumn<bool>("isAtEdge");
    QTest::newRow("of a Wayland program, at the edge") << false << true;
    QTest::newRow("of a Wayland program, on the panel") << false << false;
    QTest::newRow("of an X11 program, on the panel") << true << false;
}

void WaylandArmingTest::theStripsGoWithADropOnTheShelf()
{
    QFETCH(const bool, isX11Program);
    QFETCH(const bool, isAtEdge);
    if (isX11Program)
        runPeersOnX11();
    QVERIFY(openSource());
    QVERIFY(beginDragOfPeer());
    QVERIFY(dragToEdge());
    QVERIFY(areThereStrips());
    if (!isAtEdge)
        hand().moveTo(overPanel);
    // KWin tells both sides of a drag between X11 and Wayland of the other one only when the pointer moves.
    QVERIFY(holdsFor(
        [this] {
            hand().moveTo(hand().position() + QPoint(0, 1));
            return true;
        },
        500));
    hand().release();
    QVERIFY(isSaved());
    QVERIFY2(areStripsGone(), "the strips stay after the drop");
}

void WaylandArmingTest::theStripsGoWhenThePointerComesToThePanel()
{
    QVERIFY(openSource());
    QVERIFY(beginDragOfPeer());
    QVERIFY(waitFor([this] { return areThereStrips(); }));
    hand().release();
    QVERIFY(showShelf());
    hand().moveTo(overPanel);
    QVERIFY2(areStripsGone(), "the strips stay");
}

void WaylandArmingTest::theStripsGoWithTheShelfsOwnDrag()
{
    QVERIFY(openSource());
    QVERIFY(beginDragOfPeer());
    QVERIFY(dragToEdge());
    hand().release();
    QVERIFY(isSaved());
    QVERIFY(openPeer({ QStringLiteral("take"), QLatin1String(plainText), home("received") }));
    QVERIFY(areStripsGone());
    QVERIFY(showShelf());
    hand().moveTo(firstTile());
    hand().press();
    hand().moveTo(middle);
    QVERIFY(waitFor([this] { return areThereStrips(); }));
    hand().moveTo(middle + QPoint(12, 0));
    hand().moveTo(middle);
    hand().release();
    QVERIFY2(areStripsGone(), "the strips stay after the drag");
}

QTEST_GUILESS_MAIN(WaylandArmingTest)
#include "WaylandArmingTest.moc"
