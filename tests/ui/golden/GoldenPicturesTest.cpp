#include "GoldenScenes.h"

#include "PictureDifference.h"

#include <QDir>
#include <QTest>

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
    const double found = pictureDifference(present, golden.convertToFormat(present.format()));
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
