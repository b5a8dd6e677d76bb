#include "GioTrash.h"

#include "FileUrl.h"
#include "TemporaryFolder.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <array>
#include <cstdio>
#include <memory>

using namespace nookle;

class GioTrashTest final : public QObject {
    Q_OBJECT

public:
    static void initMain();

private Q_SLOTS:
    void cleanup();
    void cleanupTestCase() { s_home.reset(); }
    void aFileGoesToTheTrash_data();
    void aFileGoesToTheTrash();
    void aFolderGoesToTheTrashWithItsContents();
    void aLinkThatLeadsNowhereGoesToTheTrash();
    void twoFilesOfOneNameBothGoToTheTrash();
    void whatIsNotThereIsAFailure();
    void whatIsNoFileIsAFailure();
    void aFileComesBackFromTheTrash_data();
    void aFileComesBackFromTheTrash();
    void theFileThatWasTrashedLastComesBack();
    void aFileThatIsNotInTheTrashDoesNotComeBack();
    void aFileDoesNotComeBackOverAnother();
    void pathsInATrashAreRecognised_data();
    void pathsInATrashAreRecognised();

private:
    [[nodiscard]] static QByteArray trashed(const QByteArray& name)
    {
        QByteArray path = s_home->path("data/Trash/files/");
        path += name;
        return path;
    }
    [[nodiscard]] static bool isThere(const QByteArray& path)
    {
        struct stat status {};
        return ::lstat(path.constData(), &status) == 0;
    }

    inline static std::unique_ptr<TemporaryFolder> s_home;
};

// The library below reads the environment only once, so it is set before anything else runs.
void GioTrashTest::initMain()
{
    s_home = std::make_unique<TemporaryFolder>();
    qputenv("HOME", s_home->path());
    qputenv("XDG_DATA_HOME", s_home->makeFolder("data"));
}

void GioTrashTest::cleanup()
{
    std::filesystem::remove_all(s_home->path("data/Trash").toStdString());
}

void GioTrashTest::aFileGoesToTheTrash_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("plain") << QByteArray("file.txt");
    QTest::newRow("percent") << QByteArray("100%41");
    QTest::newRow("newline") << QByteArray("a\nb");
    QTest::newRow("not UTF-8") << QByteArray("\xff\xe9");
    QTest::newRow("option") << QByteArray("--help");
}

void GioTrashTest::aFileGoesToTheTrash()
{
    QFETCH(QByteArray, name);
    GioTrash trash(s_home->path("data"));
    const QByteArray path = s_home->makeFile(name);
    const auto failure = trash.moveToTrash(fileUrl(path));
    QVERIFY2(!failure, failure ? qPrintable(failure->description) : "");
    QVERIFY(!isThere(path));
    QVERIFY(isThere(trashed(name)));
    QVERIFY(trash.contains(fileUrl(trashed(name))));

    QByteArray infoPath = s_home->path("data/Trash/info/");
    infoPath += name + ".trashinfo";
    const std::unique_ptr<FILE, int (*)(FILE*)> info(::fopen(infoPath.constData(), "r"), ::fclose);
    QVERIFY(info);
    std::array<char, 4096> text{};
    const size_t length = ::fread(text.data(), 1, text.size(), info.get());
    const QByteArray written(text.data(), qsizetype(length));
    const QByteArray expected = "\nPath=" + path.toPercentEncoding("/") + "\n";
    QVERIFY2(written.contains(expected), written.constData());
}

void GioTrashTest::aFolderGoesToTheTrashWithItsContents()
{
    GioTrash trash(s_home->path("data"));
    s_home->makeFolder("folder/below");
    s_home->makeFile("folder/below/file");
    QVERIFY(!trash.moveToTrash(fileUrl(s_home->path("folder/"))));
    QVERIFY(!isThere(s_home->path("folder")));
    QVERIFY(isThere(trashed("folder/below/file")));
}

void GioTrashTest::aLinkThatLeadsNowhereGoesToTheTrash()
{
    GioTrash trash(s_home->path("data"));
    makeLink("/nowhere/at/all", s_home->path("link"));
    QVERIFY(!trash.moveToTrash(fileUrl(s_home->path("link"))));
    QVERIFY(!isThere(s_home->path("link")));
    QVERIFY(isThere(trashed("link")));
}

void GioTrashTest::twoFilesOfOneNameBothGoToTheTrash()
{
    GioTrash trash(s_home->path("data"));
    for (int round = 0; round < 2; ++round)
        QVERIFY(!trash.moveToTrash(fileUrl(s_home->makeFile("twice"))));
    QCOMPARE(QDir(QFile::decodeName(trashed(""))).entryList(QDir::Files).size(), 2);
}

void GioTrashTest::whatIsNotThereIsAFailure()
{
    GioTrash trash(s_home->path("data"));
    const auto failure = trash.moveToTrash(fileUrl(s_home->path("absent")));
    QVERIFY(failure);
    QVERIFY(!failure->description.isEmpty());
}

void GioTrashTest::whatIsNoFileIsAFailure()
{
    GioTrash trash(s_home->path("data"));
    QVERIFY(trash.moveToTrash(QUrl(QStringLiteral("https://example.org/file"))));
    QVERIFY(trash.moveToTrash(QUrl()));
}

void GioTrashTest::aFileComesBackFromTheTrash_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("plain") << QByteArray("file.txt");
    QTest::newRow("no extension") << QByteArray("file");
    QTest::newRow("hidden") << QByteArray(".file");
    QTest::newRow("percent") << QByteArray("100%41.png");
    QTest::newRow("newline") << QByteArray("a\nb");
    QTest::newRow("not UTF-8") << QByteArray("\xff\xe9.png");
    QTest::newRow("long") << QByteArray(220, 'x');
}

void GioTrashTest::aFileComesBackFromTheTrash()
{
    QFETCH(QByteArray, name);
    GioTrash trash(s_home->path("data"));
    const QByteArray neighbour = s_home->makeFile(name + "1");
    const QByteArray path = s_home->makeFile(name);
    QVERIFY(!trash.moveToTrash(fileUrl(neighbour)));
    QVERIFY(!trash.moveToTrash(fileUrl(path)));
    const auto failure = trash.putBack(fileUrl(path));
    QVERIFY2(!failure, failure ? qPrintable(failure->description) : "");
    QVERIFY(isThere(path));
    QVERIFY(!isThere(neighbour));
    QVERIFY(!isThere(trashed(name)));
    const std::filesystem::directory_iterator notes(s_home->path("data/Trash/info").toStdString());
    QCOMPARE(std::distance(begin(notes), end(notes)), 1);
    QCOMPARE(::unlink(path.constData()), 0);
}

void GioTrashTest::theFileThatWasTrashedLastComesBack()
{
    GioTrash trash(s_home->path("data"));
    const QByteArray path = s_home->path("twice.png");
    for (const char* content : { "first", "second" }) {
        QFile file(QFile::decodeName(path));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        QVERIFY(!trash.moveToTrash(fileUrl(path)));
    }
    // Both were moved within one second.
    QFile note(QFile::decodeName(s_home->path("data/Trash/info/twice.png.trashinfo")));
    QVERIFY(note.open(QIODevice::ReadWrite));
    QByteArray text = note.readAll();
    text.replace(text.indexOf("DeletionDate=") + 13, 4, "2001");
    QVERIFY(note.seek(0));
    QCOMPARE(note.write(text), text.size());
    note.close();
    QVERIFY(!trash.putBack(fileUrl(path)));
    QFile file(QFile::decodeName(path));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("second"));
    QVERIFY(file.remove());
}

void GioTrashTest::aFileThatIsNotInTheTrashDoesNotComeBack()
{
    GioTrash trash(s_home->path("data"));
    const QByteArray path = s_home->makeFile("gone.txt");
    QVERIFY(trash.putBack(fileUrl(s_home->path("never.txt"))));
    QVERIFY(!trash.canPutBack(fileUrl(s_home->path("never.txt"))));
    QVERIFY(!trash.moveToTrash(fileUrl(path)));
    QVERIFY(trash.canPutBack(fileUrl(path)));
    QVERIFY(QFile::remove(QFile::decodeName(trashed("gone.txt"))));
    QVERIFY(trash.putBack(fileUrl(path)));
    QVERIFY(!isThere(path));
    QVERIFY(!trash.canPutBack(fileUrl(path)));
    QVERIFY(trash.putBack(QUrl()));
    QVERIFY(!trash.canPutBack(QUrl()));
}

void GioTrashTest::aFileDoesNotComeBackOverAnother()
{
    GioTrash trash(s_home->path("data"));
    const QByteArray path = s_home->makeFile("other.txt");
    QVERIFY(!trash.moveToTrash(fileUrl(path)));
    QVERIFY(s_home->makeFile("other.txt") == path);
    QVERIFY(trash.putBack(fileUrl(path)));
    QVERIFY(isThere(trashed("other.txt")));
    QVERIFY(QFile::remove(QFile::decodeName(path)));
}

void GioTrashTest::pathsInATrashAreRecognised_data()
{
    const QByteArray user = QByteArray::number(::getuid());
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<bool>("isInTrash");
    QTest::newRow("usual home") << QByteArray("/home/user/.local/share/Trash/files/a") << true;
    QTest::newRow("data folder") << QByteArray("/some/data/Trash/files/a/b") << true;
    QTest::newRow("shared on a volume") << QByteArray("/media/disk/.Trash/1000/files/a") << true;
    QTest::newRow("own on a volume") << QByteArray("/media/disk/.Trash-" + user + "/files/a") << true;
    QTest::newRow("detour") << QByteArray("/media/disk/x/../.Trash/1000/files/a") << true;
    QTest::newRow("another user's") << QByteArray("/media/disk/.Trash-" + user + "9/files/a") << false;
    QTest::newRow("outside") << QByteArray("/home/user/Documents/a") << false;
    QTest::newRow("detour out of it") << QByteArray("/media/.Trash/../a") << false;
    QTest::newRow("the Trash itself") << QByteArray("/some/data/Trash") << false;
    QTest::newRow("a folder named Trash") << QByteArray("/home/user/Trash/a") << false;
    QTest::newRow("a file named so") << QByteArray("/home/user/.Trash") << false;
}

void GioTrashTest::pathsInATrashAreRecognised()
{
    QFETCH(QByteArray, path);
    QFETCH(bool, isInTrash);
    QCOMPARE(GioTrash("/some/data/").contains(fileUrl(path)), isInTrash);
}

QTEST_GUILESS_MAIN(GioTrashTest)
#include "GioTrashTest.moc"
