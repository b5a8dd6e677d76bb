#include "RegionDifference.h"
#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QDir>
#include <QtTest>

using namespace nookle;
using namespace nookle::e2e;

namespace {

/// What is missing makes 5 and more, and rounding less than 1.
inline constexpr double largestDifference = 3;
inline constexpr int panelWidth = 112;
/// The panel with its shadow.
inline constexpr QRect place(WaylandDesktop::displaySize.width() - panelWidth - 24, 0, panelWidth + 24,
                             WaylandDesktop::displaySize.height());

} // namespace

/// Pictures of the panel as a compositor shows it, with its edge, its shadow and what lies below.
class WaylandGoldenTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void thePanelLooksAsItDid();
    void thePanelWithADragOverItLooksAsItDid();

private:
    /// How much the panel differs from the picture that is kept; where it is too much, both are saved.
    [[nodiscard]] double differenceTo(const QString& name) const;
    [[nodiscard]] bool looksLike(const QString& name) const;
};

void WaylandGoldenTest::init()
{
    QVERIFY(setUpDesktop(compositor()));
    // Pinned, so that the pointer can be elsewhere.
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"), "[General]\npanelPinned=true\n");
    m_desktop->writeFile(QStringLiteral("files/a folder/words.txt"), "words");
    QVERIFY(startShelf());
    QVERIFY(waitFor([this] { return isPanelOut(); }));
}

void WaylandGoldenTest::cleanup()
{
    tearDownDesktop();
}

double WaylandGoldenTest::differenceTo(const QString& name) const
{
    constexpr int side = 8;
    const QImage golden(QDir(QStringLiteral(NOOKLE_GOLDEN_FOLDER)).filePath(name));
    return largestRegionDifference(m_desktop->picture(place), golden, side).difference;
}

bool WaylandGoldenTest::looksLike(const QString& name) const
{
    if (waitFor([&] { return differenceTo(name) <= largestDifference; }))
        return true;
    m_desktop->picture(place).save(name);
    qInfo("differs by %f; see %s", differenceTo(name), qPrintable(QDir::current().filePath(name)));
    return false;
}

void WaylandGoldenTest::thePanelLooksAsItDid()
{
    const QString name = QStringLiteral("panel.png");
    QVERIFY(openPeer({ QStringLiteral("trash") }));
    QVERIFY2(differenceTo(name) > largestDifference, "an empty panel looks the same");
    QCOMPARE(m_shelf->startAgain({ home("files/note one.txt") }), 0);
    QVERIFY(waitFor([this] { return m_shelf->savedItems().size() == 1; }));
    QVERIFY2(holdsFor([&] { return differenceTo(name) > largestDifference; }, 1000), "one item less looks the same");
    QCOMPARE(m_shelf->startAgain({ home("files/a folder") }), 0);
    QVERIFY(looksLike(name));
}

void WaylandGoldenTest::thePanelWithADragOverItLooksAsItDid()
{
    const QString name = QStringLiteral("drop-target.png");
    QVERIFY(beginDrag(fileList()));
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    QVERIFY2(differenceTo(name) > largestDifference, "a panel without a drag looks the same");
    // Where the pointer covers nothing.
    hand().moveTo(QPoint(WaylandDesktop::displaySize.width() - panelWidth / 2, 650));
    QVERIFY(isTaken(0));
    QVERIFY(looksLike(name));
    hand().release();
}

QTEST_GUILESS_MAIN(WaylandGoldenTest)
#include "WaylandGoldenTest.moc"
