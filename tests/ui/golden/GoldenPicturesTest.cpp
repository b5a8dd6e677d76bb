#include "GoldenScenes.h"

#include "RegionDifference.h"

#include <QDir>
#include <QTest>

using namespace nookle;

class GoldenPicturesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { prepareGoldenLook(); }

    void theShelfLooksAsItDid_data();
    void theShelfLooksAsItDid();
    void aPictureThatMissesOneThingDiffers_data();
    void aPictureThatMissesOneThingDiffers();
    void everyPictureThatIsKeptIsDrawn();
};

namespace {

/// What is missing makes 5 and more, and rounding less than 1.
inline constexpr double largestDifference = 3;

[[nodiscard]] QDir kept()
{
    return { QStringLiteral(NOOKLE_GOLDEN_FOLDER) };
}

[[nodiscard]] QString fileName(const GoldenScene& scene)
{
    return scene.name + QStringLiteral(".png");
}

void addScenes()
{
    QTest::addColumn<qsizetype>("index");
    const auto scenes = goldenScenes();
    for (std::size_t index = 0; index < scenes.size(); ++index)
        QTest::newRow(qPrintable(scenes[index].name)) << static_cast<qsizetype>(index);
}

/// Compares by squares of eight points a side.
[[nodiscard]] RegionDifference difference(const GoldenScene& scene, const QImage& left, const QImage& right)
{
    constexpr double side = 8;
    return largestRegionDifference(left, right, static_cast<int>(side * scene.scale));
}

} // namespace

void GoldenPicturesTest::theShelfLooksAsItDid_data()
{
    addScenes();
}

void GoldenPicturesTest::theShelfLooksAsItDid()
{
    QFETCH(const qsizetype, index);
    const GoldenScene scene = goldenScenes()[static_cast<std::size_t>(index)];
    const QImage golden(kept().filePath(fileName(scene)));
    QVERIFY2(!golden.isNull(), "no picture is kept of this scene: draw it with draw_golden");
    const QImage present = drawScene(scene);
    const RegionDifference found = difference(scene, present, golden);
    if (found.difference > largestDifference)
        present.save(fileName(scene));
    QVERIFY2(found.difference <= largestDifference,
             qPrintable(QStringLiteral("differs by %1 at %2, %3; see %4")
                            .arg(found.difference)
                            .arg(found.region.x())
                            .arg(found.region.y())
                            .arg(QDir::current().filePath(fileName(scene)))));
}

void GoldenPicturesTest::aPictureThatMissesOneThingDiffers_data()
{
    addScenes();
}

void GoldenPicturesTest::aPictureThatMissesOneThingDiffers()
{
    QFETCH(const qsizetype, index);
    const GoldenScene scene = goldenScenes()[static_cast<std::size_t>(index)];
    const QImage golden(kept().filePath(fileName(scene)));
    std::vector<QImage> pictures = drawSceneWithoutOneThing(scene);
    const QImage whole = pictures.back();
    pictures.pop_back();
    QVERIFY(!pictures.empty());
    const double unbroken = difference(scene, whole, golden).difference;
    QVERIFY2(unbroken <= largestDifference, qPrintable(QString::number(unbroken)));
    for (std::size_t thing = 0; thing < pictures.size(); ++thing) {
        // Another thing hides it.
        if (pictures[thing] == whole)
            continue;
        const double found = difference(scene, pictures[thing], golden).difference;
        const QString file = QStringLiteral("%1-without-%2.png").arg(scene.name).arg(thing);
        if (found <= largestDifference)
            pictures[thing].save(file);
        QVERIFY2(found > largestDifference,
                 qPrintable(QStringLiteral("differs by %1; see %2").arg(found).arg(QDir::current().filePath(file))));
    }
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
