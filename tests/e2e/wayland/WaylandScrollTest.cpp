#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QtTest>

#include <utility>

using namespace nookle::e2e;

namespace {

inline constexpr int rightEdge = WaylandDesktop::displaySize.width();
/// Tiles apart from the pointer, whose light moves with it, and from the ends of the list, where they fade.
inline constexpr QRect tiles(rightEdge - 102, 150, 92, 300);
inline constexpr QPoint belowThem(rightEdge - 56, 600);

/// How far the tiles of one picture are further up in another; nothing where they do not show the same.
[[nodiscard]] std::optional<int> distance(const QImage& before, const QImage& after)
{
    const int height = before.height();
    for (int moved = 0; moved < height / 2; ++moved) {
        if (before.copy(0, moved, before.width(), height - moved) == after.copy(0, 0, after.width(), height - moved))
            return moved;
    }
    return std::nullopt;
}

} // namespace

/// How far the items move when a hand moves them.
class WaylandScrollTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void fingersMoveTheItemsAsFarAsTheyMove_data();
    void fingersMoveTheItemsAsFarAsTheyMove();

private:
    [[nodiscard]] bool fillShelf();
    /// The tiles once nothing moves any more.
    [[nodiscard]] QImage restingTiles() const;
};

void WaylandScrollTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("%1-%2.png")
                        .arg(qEnvironmentVariable("NOOKLE_ENVIRONMENT"), QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

bool WaylandScrollTest::fillShelf()
{
    constexpr int count = 20;
    QStringList paths;
    for (int number = 0; number < count; ++number) {
        const QString name = QStringLiteral("files/number %1.txt").arg(number);
        m_desktop->writeFile(name, QByteArray::number(number));
        paths.append(m_desktop->home(name));
    }
    return m_shelf->startAgain(paths) == 0 && waitFor([&] { return m_shelf->savedItems().size() == count; });
}

QImage WaylandScrollTest::restingTiles() const
{
    QImage picture;
    const bool isAtRest = waitFor([&] {
        const QImage last = std::exchange(picture, m_desktop->picture(tiles));
        return !last.isNull() && last == picture;
    });
    return isAtRest ? picture : QImage();
}

void WaylandScrollTest::fingersMoveTheItemsAsFarAsTheyMove_data()
{
    QTest::addColumn<double>("step");
    QTest::newRow("by whole points") << 1.0;
    QTest::newRow("by one and a half") << 1.5;
    QTest::newRow("by a quarter") << 0.25;
}

void WaylandScrollTest::fingersMoveTheItemsAsFarAsTheyMove()
{
    QFETCH(const double, step);
    constexpr int way = 60;
    QVERIFY(setUpDesktop(compositor()));
    QVERIFY(startShelf());
    QVERIFY(fillShelf());
    QVERIFY(showShelf());
    hand().moveTo(belowThem);
    const QImage before = restingTiles();
    hand().glide(way, step);
    std::optional<int> moved;
    QVERIFY2(waitFor([&] {
                 moved = distance(before, restingTiles());
                 return moved == way;
             }),
             qPrintable(QStringLiteral("they have moved by %1").arg(moved.value_or(-1))));
    QVERIFY2(holdsFor([&] { return distance(before, m_desktop->picture(tiles)) == way; }, 500), "they move on");
}

QTEST_GUILESS_MAIN(WaylandScrollTest)
#include "WaylandScrollTest.moc"
