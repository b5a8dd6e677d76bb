#include "FileIcon.h"
#include "IconPicture.h"

#include <QDir>
#include <QFile>
#include <QIcon>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

using namespace nookle;

/// Icons that are drawings with shapes that cut others off.
class ThemeDrawingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void whatCutsOthersOffIsNotSeen_data();
    void whatCutsOthersOffIsNotSeen();

private:
    void makeDrawing(const QString& name, const QByteArray& content) const;

    QTemporaryDir m_folder;
};

namespace {

/// A green square in the middle, which leaves a quarter free at each side.
constexpr const char* square = R"(<path d="m 32 32 h 64 v 64 h -64 z" fill="#00ff00"/>)";
constexpr const char* clip = R"(<clipPath id="c"><rect height="152" width="192"/></clipPath>)";
constexpr const char* clipped = R"svg(<g clip-path="url(#c)"><path d="m 48 48 h 8 v 8 h -8 z" fill="#ff0000"/></g>)svg";

[[nodiscard]] QByteArray drawing(const QByteArray& content)
{
    return R"(<?xml version="1.0" encoding="UTF-8"?><svg height="128px" viewBox="0 0 128 128" width="128px" )"
           R"(xmlns="http://www.w3.org/2000/svg">)"
        + content + "</svg>";
}

} // namespace

void ThemeDrawingTest::initTestCase()
{
    QVERIFY(m_folder.isValid());
    QDir(m_folder.path()).mkpath(QStringLiteral("drawn/scalable/mimetypes"));
    QFile index(m_folder.filePath(QStringLiteral("drawn/index.theme")));
    QVERIFY(index.open(QIODevice::WriteOnly));
    index.write("[Icon Theme]\nName=drawn\nDirectories=scalable/mimetypes\n[scalable/mimetypes]\nSize=128\n"
                "MinSize=8\nMaxSize=512\nType=Scalable\n");
    index.close();
    makeDrawing(QStringLiteral("text-x-generic"), drawing(square));
    makeDrawing(QStringLiteral("package-x-generic"), drawing(QByteArray(clip) + square + clipped));
    makeDrawing(QStringLiteral("audio-x-generic"), drawing("<defs>" + QByteArray(clip) + "</defs>" + square + clipped));
    QIcon::setThemeSearchPaths({ m_folder.path() });
    QIcon::setThemeName(QStringLiteral("drawn"));
}

void ThemeDrawingTest::makeDrawing(const QString& name, const QByteArray& content) const
{
    QFile file(m_folder.filePath(QStringLiteral("drawn/scalable/mimetypes/%1.svg").arg(name)));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

void ThemeDrawingTest::whatCutsOthersOffIsNotSeen_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("nothing is cut off") << QStringLiteral("a.txt");
    QTest::newRow("by a shape of its own") << QStringLiteral("a.zip");
    QTest::newRow("by a shape among the definitions") << QStringLiteral("a.mp3");
}

void ThemeDrawingTest::whatCutsOthersOffIsNotSeen()
{
    QFETCH(const QString, file);
    const QIcon icon = fileIcon(QUrl(QStringLiteral("file:///") + file), false);
    for (const int side : { 52, 104 }) {
        const QImage picture = iconPicture(icon, side).toImage();
        QCOMPARE(picture.size(), QSize(side, side));
        QCOMPARE(picture.pixelColor(side / 8, side / 8).alpha(), 0);
        QCOMPARE(picture.pixelColor(side * 5 / 8, side * 5 / 8), QColor(0, 255, 0));
    }
}

QTEST_MAIN(ThemeDrawingTest)
#include "ThemeDrawingTest.moc"
