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
    void makeTheme(const QString& name, const QByteArray& keys) const;
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
    makeTheme(
        QStringLiteral("drawn"),
        "Directories=scalable/mimetypes\n[scalable/mimetypes]\nSize=128\nMinSize=8\nMaxSize=512\nType=Scalable\n");
    makeTheme(QStringLiteral("inheriting"), "Inherits=drawn,hicolor\nDirectories=48x48/apps\n[48x48/apps]\nSize=48\n");
    makeDrawing(QStringLiteral("text-x-generic"), drawing(square));
    makeDrawing(QStringLiteral("package-x-generic"), drawing(QByteArray(clip) + square + clipped));
    makeDrawing(QStringLiteral("audio-x-generic"), drawing("<defs>" + QByteArray(clip) + "</defs>" + square + clipped));
    QIcon::setThemeSearchPaths({ m_folder.path() });
    QIcon::setFallbackThemeName(QStringLiteral("drawn"));
}

void ThemeDrawingTest::makeTheme(const QString& name, const QByteArray& keys) const
{
    QVERIFY(QDir(m_folder.path()).mkpath(name + QStringLiteral("/scalable/mimetypes")));
    QFile index(m_folder.filePath(name + QStringLiteral("/index.theme")));
    QVERIFY(index.open(QIODevice::WriteOnly));
    index.write("[Icon Theme]\nName=" + name.toUtf8() + '\n' + keys);
}

void ThemeDrawingTest::makeDrawing(const QString& name, const QByteArray& content) const
{
    QFile file(m_folder.filePath(QStringLiteral("drawn/scalable/mimetypes/%1.svg").arg(name)));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

void ThemeDrawingTest::whatCutsOthersOffIsNotSeen_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QString>("file");
    for (const char* theme : { "drawn", "inheriting", "hicolor", "not installed" }) {
        const auto row = [theme](const char* name, const char* file) {
            QTest::addRow("%s: %s", theme, name) << QString::fromLatin1(theme) << QString::fromLatin1(file);
        };
        row("nothing is cut off", "a.txt");
        row("by a shape of its own", "a.zip");
        row("by a shape among the definitions", "a.mp3");
    }
}

void ThemeDrawingTest::whatCutsOthersOffIsNotSeen()
{
    QFETCH(const QString, theme);
    QFETCH(const QString, file);
    QIcon::setThemeName(theme);
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
