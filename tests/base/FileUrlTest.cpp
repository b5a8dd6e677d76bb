#include "FileUrl.h"

#include <QTest>

using namespace nookle;

class FileUrlTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyPathSurvivesTheWayThroughAUrl_data();
    void everyPathSurvivesTheWayThroughAUrl();
    void everyPathSurvivesTheWayThroughText_data() { everyPathSurvivesTheWayThroughAUrl_data(); }
    void everyPathSurvivesTheWayThroughText();
    void urlsThatNameNoFileOfThisComputerHaveNoPath_data();
    void urlsThatNameNoFileOfThisComputerHaveNoPath();
    void thisComputerMayBeNamed();
    void standardizedUrlsHaveNoDetours_data();
    void standardizedUrlsHaveNoDetours();
    void oneFileHasOneStandardizedUrl_data();
    void oneFileHasOneStandardizedUrl();
    void standardizingLeavesOtherUrlsAlone();
    void theLastComponentIsShownAsText_data();
    void theLastComponentIsShownAsText();
    void aChildLiesInItsFolder();
};

void FileUrlTest::everyPathSurvivesTheWayThroughAUrl_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::newRow("plain") << QByteArray("/home/user/file.txt");
    QTest::newRow("root") << QByteArray("/");
    QTest::newRow("space") << QByteArray("/a b/ c ");
    QTest::newRow("percent") << QByteArray("/100%/%41%00%2F");
    QTest::newRow("query and fragment") << QByteArray("/what?/#1/a&b=c;d");
    QTest::newRow("newline") << QByteArray("/a\nb\r\t");
    QTest::newRow("not UTF-8") << QByteArray("/\xff\xfe\x80/caf\xe9");
    QTest::newRow("UTF-8") << QByteArray("/\xc3\xbc\xe2\x82\xac\xf0\x9f\x8d\x8e");
    QTest::newRow("decomposed") << QByteArray("/u\xcc\x88");
    QTest::newRow("backslash and quotes") << QByteArray("/a\\b\"c'd`");
    QTest::newRow("colon") << QByteArray("/c:/a:b");
    QTest::newRow("brackets") << QByteArray("/[a]{b}<c>|^");
    QTest::newRow("two slashes") << QByteArray("//host/share");
}

void FileUrlTest::everyPathSurvivesTheWayThroughAUrl()
{
    QFETCH(QByteArray, path);
    const QUrl url = fileUrl(path);
    QVERIFY(url.isValid());
    QVERIFY(url.isLocalFile());
    QCOMPARE(filePath(url), path);
}

void FileUrlTest::everyPathSurvivesTheWayThroughText()
{
    QFETCH(QByteArray, path);
    const QByteArray text = fileUrl(path).toEncoded();
    QCOMPARE(filePath(QUrl::fromEncoded(text)), path);
    QCOMPARE(QUrl::fromEncoded(text), fileUrl(path));
}

void FileUrlTest::urlsThatNameNoFileOfThisComputerHaveNoPath_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("page") << QByteArray("https://example.org/file");
    QTest::newRow("other host") << QByteArray("file://server/file");
    QTest::newRow("NUL") << QByteArray("file:///a%00b");
    QTest::newRow("relative") << QByteArray("file:a/b");
    QTest::newRow("no path") << QByteArray("file:");
    QTest::newRow("empty") << QByteArray();
}

void FileUrlTest::urlsThatNameNoFileOfThisComputerHaveNoPath()
{
    QFETCH(QByteArray, text);
    QCOMPARE(filePath(QUrl::fromEncoded(text)), QByteArray());
}

void FileUrlTest::thisComputerMayBeNamed()
{
    QCOMPARE(filePath(QUrl(QStringLiteral("file://localhost/a/b"))), QByteArray("/a/b"));
    QCOMPARE(filePath(QUrl(QStringLiteral("file:/a/b"))), QByteArray("/a/b"));
}

void FileUrlTest::standardizedUrlsHaveNoDetours_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("standard");
    QTest::newRow("already") << QByteArray("/a/b") << QByteArray("/a/b");
    QTest::newRow("slash at the end") << QByteArray("/a/b/") << QByteArray("/a/b");
    QTest::newRow("slashes at the end") << QByteArray("/a/b//") << QByteArray("/a/b");
    QTest::newRow("dots") << QByteArray("/a/./b/../c/.") << QByteArray("/a/c");
    QTest::newRow("above the root") << QByteArray("/../../a") << QByteArray("/a");
    QTest::newRow("root") << QByteArray("/") << QByteArray("/");
    QTest::newRow("two slashes") << QByteArray("//a//b") << QByteArray("/a/b");
    QTest::newRow("names with dots") << QByteArray("/.a/..b/c..") << QByteArray("/.a/..b/c..");
    QTest::newRow("not UTF-8") << QByteArray("/\xff/../\xfe/") << QByteArray("/\xfe");
}

void FileUrlTest::standardizedUrlsHaveNoDetours()
{
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, standard);
    QCOMPARE(filePath(standardized(fileUrl(path))), standard);
}

void FileUrlTest::oneFileHasOneStandardizedUrl_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("plain") << QByteArray("file:///a/b!c");
    QTest::newRow("localhost") << QByteArray("file://localhost/a/b!c");
    QTest::newRow("no authority") << QByteArray("file:/a/b!c");
    QTest::newRow("encoded") << QByteArray("file:///%61/b%21c");
    QTest::newRow("detour") << QByteArray("file:///a/./b!c/");
    QTest::newRow("query") << QByteArray("file:///a/b!c?d");
    QTest::newRow("fragment") << QByteArray("file:///a/b!c#d");
    QTest::newRow("other case") << QByteArray("FILE:///a/b!c");
}

void FileUrlTest::oneFileHasOneStandardizedUrl()
{
    QFETCH(QByteArray, text);
    QCOMPARE(standardized(QUrl::fromEncoded(text)), fileUrl("/a/b!c"));
    QCOMPARE(standardized(QUrl::fromEncoded(text)).toEncoded(), fileUrl("/a/b!c").toEncoded());
}

void FileUrlTest::standardizingLeavesOtherUrlsAlone()
{
    const QUrl page(QStringLiteral("https://example.org/a/../b/"));
    QCOMPARE(standardized(page), page);
}

void FileUrlTest::theLastComponentIsShownAsText_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QString>("shown");
    QTest::newRow("file") << QByteArray("/a/b.txt") << QStringLiteral("b.txt");
    QTest::newRow("folder") << QByteArray("/a/b/") << QStringLiteral("b");
    QTest::newRow("percent") << QByteArray("/a/50%25") << QStringLiteral("50%25");
    QTest::newRow("not UTF-8") << QByteArray("/a/\xff.txt") << QString(QChar(0xfffd) + QStringLiteral(".txt"));
    QTest::newRow("UTF-8") << QByteArray("/a/\xc3\xbc") << QStringLiteral("\u00fc");
    QTest::newRow("root") << QByteArray("/") << QStringLiteral("/");
    QTest::newRow("no file") << QByteArray() << QString();
}

void FileUrlTest::theLastComponentIsShownAsText()
{
    QFETCH(QByteArray, path);
    QFETCH(QString, shown);
    QCOMPARE(lastPathComponent(fileUrl(path)), shown);
}

void FileUrlTest::aChildLiesInItsFolder()
{
    QCOMPARE(filePath(child(fileUrl("/a"), QStringLiteral("b c%"))), QByteArray("/a/b c%"));
    QCOMPARE(filePath(child(fileUrl("/a/"), QStringLiteral("b"))), QByteArray("/a/b"));
    QCOMPARE(filePath(child(fileUrl("/"), QStringLiteral("b"))), QByteArray("/b"));
    QCOMPARE(filePath(child(fileUrl("/\xff"), QStringLiteral("\u00fc"))), QByteArray("/\xff/\xc3\xbc"));
}

QTEST_GUILESS_MAIN(FileUrlTest)
#include "FileUrlTest.moc"
