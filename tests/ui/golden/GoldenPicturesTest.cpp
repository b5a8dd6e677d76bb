#include "GoldenScenes.h"

#include <QDir>
#include <QtTest>

#include <cstdlib>

using namespace nookle;

class GoldenPicturesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { prepareGoldenLook(); }

    void theShelfLooksAsItDid_data();
    void theShelfLooksAsItDid();
    void everyPictureThatIsKeptIsDrawn();

private:
    [[nodiscard]] static QDir kept() { return { QStringLiteral(NOOKLE_GOLDEN_FOLDER) }; }
};

namespace {

/// The part of the pixels that differ by more than a rounding error.
[[nodiscard]] double difference(const QImage& left, const QImage& right)
{
    constexpr int tolerance = 24;
    int differing = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x) {
            const QColor a = left.pixelColor(x, y);
            const QColor b = right.pixelColor(x, y);
            const int distance = std::max({ std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                                            std::abs(a.blue() - b.blue()), std::abs(a.alpha() - b.alpha()) });
            differing += distance > tolerance ? 1 : 0;
        }
    }
    return static_cast<double>(differing) / (static_cast<double>(left.width()) * left.height());
}

} // namespace

void GoldenPicturesTest::theShelfLooksAsItDid_data()
{
    QTest::addColumn<qsizetype>("index");
    const auto scenes = goldenScenes();
    for (std::size_t index = 0; index < scenes.size(); ++index)
        QTest::newRow(qPrintable(scenes[index].name)) << static_cast<qsizetype>(index);
}

void GoldenPicturesTest::theShelfLooksAsItDid()
{
    QFETCH(const qsizetype, index);
    const GoldenScene scene = goldenScenes()[static_cast<std::size_t>(index)];
    const QString file = scene.name + QStringLiteral(".png");
    const QImage golden(kept().filePath(file));
    QVERIFY2(!golden.isNull(), "no picture is kept of this scene: draw it with draw_golden");
    const QImage present = drawScene(scene);
    QCOMPARE(present.size(), golden.size());
    constexpr double largestDifference = 0.002;
    const double found = difference(present, golden.convertToFormat(present.format()));
    if (found > largestDifference)
        present.save(file);
    QVERIFY2(
        found <= largestDifference,
        qPrintable(QStringLiteral("%1 of the pixels differ; see %2").arg(found).arg(QDir::current().filePath(file))));
}

void GoldenPicturesTest::everyPictureThatIsKeptIsDrawn()
{
    QStringList names;
    for (const GoldenScene& scene : goldenScenes())
        names.append(scene.name + QStringLiteral(".png"));
    names.sort();
    QCOMPARE(kept().entryList(QDir::Files, QDir::Name), names);
}

QTEST_MAIN(GoldenPicturesTest)
#include "GoldenPicturesTest.moc"
