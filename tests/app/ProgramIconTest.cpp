#include "ProgramIcon.h"

#include "RegionDifference.h"

#include <QDir>
#include <QFile>
#include <QIcon>
#include <QImage>
#include <QImageReader>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTest>

using namespace nookle;

class ProgramIconTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void whereNoneIsInstalledItLooksTheSame_data();
    void whereNoneIsInstalledItLooksTheSame();
    void theInstalledOneComesFirst();
};

void ProgramIconTest::whereNoneIsInstalledItLooksTheSame_data()
{
    QTest::addColumn<int>("side");
    for (const int side : { 16, 32, 64, 128 })
        QTest::addRow("%d pixels", side) << side;
}

void ProgramIconTest::whereNoneIsInstalledItLooksTheSame()
{
    QFETCH(const int, side);
    // The program may be installed on this machine.
    const QTemporaryDir noThemes;
    const QStringList before = QIcon::themeSearchPaths();
    QIcon::setThemeSearchPaths({ noThemes.path() });
    QImageReader reader(QStringLiteral(NOOKLE_PROGRAM_ICON));
    reader.setScaledSize({ side, side });
    const QImage installed = reader.read();
    QVERIFY2(!installed.isNull(), qPrintable(reader.errorString()));
    const QImage drawn = programIcon().pixmap(side).toImage();
    QIcon::setThemeSearchPaths(before);
    QCOMPARE(drawn.size(), installed.size());
    constexpr double largestDifference = 4;
    const RegionDifference found = largestRegionDifference(drawn, installed, side / 4);
    QVERIFY2(found.difference <= largestDifference, qPrintable(QString::number(found.difference)));
}

void ProgramIconTest::theInstalledOneComesFirst()
{
    const QTemporaryDir themes;
    const QStringList before = QIcon::themeSearchPaths();
    const QString folder = themes.filePath(QStringLiteral("hicolor/48x48/apps"));
    QVERIFY(QDir().mkpath(folder));
    QFile index(themes.filePath(QStringLiteral("hicolor/index.theme")));
    QVERIFY(index.open(QIODevice::WriteOnly));
    index.write("[Icon Theme]\nName=Hicolor\nDirectories=48x48/apps\n[48x48/apps]\nSize=48\nType=Fixed\n");
    index.close();
    QPixmap red(48, 48);
    red.fill(Qt::red);
    QVERIFY(red.save(folder + QStringLiteral("/org.nookle.Nookle.png")));
    QIcon::setThemeSearchPaths({ themes.path() });
    QIcon::setThemeName(QStringLiteral("hicolor"));
    QCOMPARE(programIcon().pixmap(48).toImage().pixelColor(24, 24), QColor(Qt::red));
    QIcon::setThemeSearchPaths(before);
}

QTEST_MAIN(ProgramIconTest)
#include "ProgramIconTest.moc"
