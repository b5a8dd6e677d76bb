#include "IconPicture.h"

#include <QDir>
#include <QFile>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTest>

using namespace nookle;

/// With a theme of its own, in which the colour tells the source.
class IconPictureTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void thePictureIsMadeOfASourceThatIsLargeEnough_data();
    void thePictureIsMadeOfASourceThatIsLargeEnough();
    void aSmallIconFillsItsPlace();
    void anIconWithoutSourcesIsNoPicture();

private:
    void addSource(const QString& name, int size, const QColor& color);
    [[nodiscard]] static QImage picture(const char* name, double side)
    {
        return iconPicture(QIcon::fromTheme(QString::fromLatin1(name)), side).toImage();
    }

    QTemporaryDir m_folder;
};

void IconPictureTest::addSource(const QString& name, int size, const QColor& color)
{
    const QString folder = m_folder.filePath(QStringLiteral("test/%1").arg(size));
    QVERIFY(QDir().mkpath(folder));
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    QVERIFY(image.save(folder + QLatin1Char('/') + name + QStringLiteral(".png")));
}

void IconPictureTest::initTestCase()
{
    addSource(QStringLiteral("paper"), 48, Qt::red);
    addSource(QStringLiteral("paper"), 256, Qt::blue);
    addSource(QStringLiteral("small"), 48, Qt::red);
    QFile index(m_folder.filePath(QStringLiteral("test/index.theme")));
    QVERIFY(index.open(QIODevice::WriteOnly));
    index.write("[Icon Theme]\nName=test\nDirectories=48,256\n"
                "[48]\nSize=48\nType=Fixed\n[256]\nSize=256\nType=Fixed\n");
    index.close();
    QIcon::setThemeSearchPaths({ m_folder.path() });
    QIcon::setThemeName(QStringLiteral("test"));
}

void IconPictureTest::thePictureIsMadeOfASourceThatIsLargeEnough_data()
{
    QTest::addColumn<double>("side");
    QTest::addColumn<QColor>("color");
    QTest::newRow("as large as the small one") << 48.0 << QColor(Qt::red);
    QTest::newRow("one pixel a point") << 52.0 << QColor(Qt::blue);
    QTest::newRow("two pixels a point") << 104.0 << QColor(Qt::blue);
    QTest::newRow("three pixels a point") << 156.0 << QColor(Qt::blue);
}

void IconPictureTest::thePictureIsMadeOfASourceThatIsLargeEnough()
{
    QFETCH(const double, side);
    QFETCH(const QColor, color);
    const QImage made = picture("paper", side);
    QCOMPARE(made.size(), QSize(static_cast<int>(side), static_cast<int>(side)));
    QCOMPARE(made.pixelColor(made.rect().center()), color);
}

void IconPictureTest::aSmallIconFillsItsPlace()
{
    QCOMPARE(picture("small", 104).size(), QSize(104, 104));
    QCOMPARE(picture("small", 104).pixelColor(1, 1), QColor(Qt::red));
}

void IconPictureTest::anIconWithoutSourcesIsNoPicture()
{
    QVERIFY(iconPicture(QIcon(), 52).isNull());
}

QTEST_MAIN(IconPictureTest)
#include "IconPictureTest.moc"
