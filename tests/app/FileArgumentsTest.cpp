#include "FileArguments.h"

#include "FileUrl.h"
#include "TemporaryFolder.h"

#include <QTest>

using namespace nookle;

class FileArgumentsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void withoutArgumentsThereIsNothing();
    void pathsAreFilesWhereverTheyCountFrom();
    void namesMayBeAnyBytes_data();
    void namesMayBeAnyBytes();
    void aLinkThatLeadsNowhereIsAFile();
    void addressesStayAsTheyAre();
    void aFileThatLooksLikeAnAddressIsAFile();
    void whatMayNotAnswerIsAFileUnlessItReadsAsAnAddress();
    void whatIsNothingIsSaid();
    void dotsInAPathAreResolved();

private:
    [[nodiscard]] static FileArguments parse(const QList<QByteArray>& arguments, const QByteArray& workingDirectory,
                                             bool mayLook = true)
    {
        return FileArguments::parse(arguments, workingDirectory, [mayLook](const QByteArray&) { return mayLook; });
    }

    TemporaryFolder m_folder;
};

void FileArgumentsTest::withoutArgumentsThereIsNothing()
{
    const auto result = parse({}, "/");
    QVERIFY(result.uris.isEmpty());
    QVERIFY(result.unknown.isEmpty());
}

void FileArgumentsTest::pathsAreFilesWhereverTheyCountFrom()
{
    const QByteArray path = m_folder.makeFile("a");
    const QString uri = QString(QStringLiteral("file://") + QString::fromUtf8(path));
    QCOMPARE(parse({ path, "a" }, m_folder.path()).uris, (QStringList{ uri, uri }));
    QCOMPARE(parse({ m_folder.path() }, "/").uris.size(), 1);
}

void FileArgumentsTest::namesMayBeAnyBytes_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("encoded");
    QTest::newRow("spaces") << QByteArray("two words") << QStringLiteral("two%20words");
    QTest::newRow("not UTF-8") << QByteArray("caf\xe9") << QStringLiteral("caf%E9");
    QTest::newRow("line feed") << QByteArray("a\nb") << QStringLiteral("a%0Ab");
    QTest::newRow("signs") << QByteArray("100%#?") << QStringLiteral("100%25%23%3F");
    QTest::newRow("like an option") << QByteArray("--help") << QStringLiteral("--help");
}

void FileArgumentsTest::namesMayBeAnyBytes()
{
    QFETCH(const QByteArray, name);
    QFETCH(const QString, encoded);
    m_folder.makeFile(name);
    const auto result = parse({ name }, m_folder.path());
    QCOMPARE(result.uris.size(), 1);
    QVERIFY(result.uris.first().endsWith(QString(QLatin1Char('/') + encoded)));
}

void FileArgumentsTest::aLinkThatLeadsNowhereIsAFile()
{
    makeLink("nowhere", m_folder.path("link"));
    QCOMPARE(parse({ "link" }, m_folder.path()).uris.size(), 1);
}

void FileArgumentsTest::addressesStayAsTheyAre()
{
    const auto result = parse({ "file:///a%20b", "https://example.com/?q=1" }, "/");
    QCOMPARE(result.uris, (QStringList{ QStringLiteral("file:///a%20b"), QStringLiteral("https://example.com/?q=1") }));
}

void FileArgumentsTest::aFileThatLooksLikeAnAddressIsAFile()
{
    m_folder.makeFile("file:a");
    const auto result = parse({ "file:a" }, m_folder.path());
    QCOMPARE(filePath(QUrl(result.uris.value(0))), m_folder.path("file:a"));
}

void FileArgumentsTest::whatMayNotAnswerIsAFileUnlessItReadsAsAnAddress()
{
    const auto result = parse({ "a", "https://example.com/", "" }, "/server", false);
    const QStringList expected{ QStringLiteral("file:///server/a"), QStringLiteral("https://example.com/") };
    QCOMPARE(result.uris, expected);
    QCOMPARE(result.unknown, QList<QByteArray>{ "" });
}

void FileArgumentsTest::whatIsNothingIsSaid()
{
    const auto result = parse({ "--version", "missing", "", "/nowhere/at all" }, m_folder.path());
    QVERIFY(result.uris.isEmpty());
    QCOMPARE(result.unknown, (QList<QByteArray>{ "--version", "missing", "", "/nowhere/at all" }));
}

void FileArgumentsTest::dotsInAPathAreResolved()
{
    const QByteArray path = m_folder.makeFile("dotted");
    const auto result =
        parse({ "./../" + m_folder.path().mid(m_folder.path().lastIndexOf('/') + 1) + "/dotted" }, m_folder.path());
    QCOMPARE(result.uris, QStringList{ QString(QStringLiteral("file://") + QString::fromUtf8(path)) });
}

QTEST_GUILESS_MAIN(FileArgumentsTest)
#include "FileArgumentsTest.moc"
