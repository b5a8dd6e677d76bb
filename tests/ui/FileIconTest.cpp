#include "FileIcon.h"

#include <QDir>
#include <QFile>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTest>

using namespace nookle;

/// Two icon themes, "one" and "other"; each icon is a square of one pixel.
class FileIconTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void aTypesOwnIconComesFirst();
    void theIconOfItsKindStandsForAMissingOne();
    void textStandsForEverythingElse();
    void aFolderIsNotJudgedByItsName();
    void anotherThemeIsAskedAgain();

private:
    void makeTheme(const QString& name, const QStringList& icons) const;
    [[nodiscard]] static QString iconFor(const QString& fileName, bool isFolder = false)
    {
        return fileIcon(QUrl(QStringLiteral("file:///") + fileName), isFolder).name();
    }

    QTemporaryDir m_folder;
};

void FileIconTest::initTestCase()
{
    QVERIFY(m_folder.isValid());
    makeTheme(QStringLiteral("one"),
              { QStringLiteral("folder"), QStringLiteral("image-png"), QStringLiteral("image-x-generic"),
                QStringLiteral("text-x-generic") });
    makeTheme(QStringLiteral("other"), { QStringLiteral("image-gif"), QStringLiteral("image-x-generic") });
    QIcon::setThemeSearchPaths({ m_folder.path() });
    QIcon::setFallbackThemeName(QStringLiteral("none"));
}

void FileIconTest::init()
{
    QIcon::setThemeName(QStringLiteral("one"));
}

void FileIconTest::makeTheme(const QString& name, const QStringList& icons) const
{
    const QDir folder(m_folder.filePath(name));
    QVERIFY(folder.mkpath(QStringLiteral("all")));
    QFile index(folder.filePath(QStringLiteral("index.theme")));
    QVERIFY(index.open(QIODevice::WriteOnly));
    index.write("[Icon Theme]\nName=test\nDirectories=all\n[all]\nSize=1\n");
    QPixmap square(1, 1);
    square.fill(Qt::red);
    for (const QString& icon : icons)
        QVERIFY(square.save(folder.filePath(QStringLiteral("all/%1.png").arg(icon))));
}

void FileIconTest::aTypesOwnIconComesFirst()
{
    QCOMPARE(iconFor(QStringLiteral("a.png")), QStringLiteral("image-png"));
}

void FileIconTest::theIconOfItsKindStandsForAMissingOne()
{
    QCOMPARE(iconFor(QStringLiteral("a.gif")), QStringLiteral("image-x-generic"));
    QCOMPARE(iconFor(QStringLiteral("b.gif")), QStringLiteral("image-x-generic"));
}

void FileIconTest::textStandsForEverythingElse()
{
    QCOMPARE(iconFor(QStringLiteral("a.zip")), QStringLiteral("text-x-generic"));
}

void FileIconTest::aFolderIsNotJudgedByItsName()
{
    QCOMPARE(iconFor(QStringLiteral("a.png"), true), QStringLiteral("folder"));
}

void FileIconTest::anotherThemeIsAskedAgain()
{
    QCOMPARE(iconFor(QStringLiteral("a.gif")), QStringLiteral("image-x-generic"));
    QIcon::setThemeName(QStringLiteral("other"));
    QCOMPARE(iconFor(QStringLiteral("a.gif")), QStringLiteral("image-gif"));
    QCOMPARE(iconFor(QStringLiteral("a.png")), QStringLiteral("image-x-generic"));
    QIcon::setThemeName(QStringLiteral("one"));
    QCOMPARE(iconFor(QStringLiteral("a.png")), QStringLiteral("image-png"));
}

QTEST_MAIN(FileIconTest)
#include "FileIconTest.moc"
