#include "DataFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace nookle;

namespace {

[[nodiscard]] QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
}

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

[[nodiscard]] dev_t device(const QString& path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_dev : 0;
}

[[nodiscard]] unsigned permissions(const QString& path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777U : 0;
}

[[nodiscard]] QStringList entries(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

} // namespace

class DataFilesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void foldersAreMadeForTheUserAlone();
    void anExistingFolderIsLeftAsItIs();
    void aFolderBelowAFileCannotBeMade();
    void aNewFileIsForTheUserAlone();
    void anExistingFileKeepsItsPermissions();
    void aFailedWriteLeavesTheOldFileAndNothingElse();
    void whatAnotherProgramIsWritingStays();
    void aLinkStaysALink();
    void aLinkToItselfIsNotWrittenThrough();
    void aFileMovesWithinAFileSystem();
    void aNameThatIsNotUtf8Moves();
    void aFileMovesAcrossFileSystems();
    void aSymbolicLinkMovesAcrossFileSystemsAsALink();
    void aFailedMoveAcrossFileSystemsLeavesTheSourceAndNothingElse_data();
    void aFailedMoveAcrossFileSystemsLeavesTheSourceAndNothingElse();
    void aMissingFileDoesNotMove();

private:
    /// A folder on another file system than `m_folder`, which every desktop has.
    QTemporaryDir m_other{ QStringLiteral("/dev/shm/nookle-XXXXXX") };
    QTemporaryDir m_folder;
};

void DataFilesTest::foldersAreMadeForTheUserAlone()
{
    const QTemporaryDir folder;
    QVERIFY(!makeFolder(QFile::encodeName(folder.filePath(QStringLiteral("a/b")))));
    QCOMPARE(permissions(folder.filePath(QStringLiteral("a"))), 0700U);
    QCOMPARE(permissions(folder.filePath(QStringLiteral("a/b"))), 0700U);
}

void DataFilesTest::anExistingFolderIsLeftAsItIs()
{
    const QTemporaryDir folder;
    QCOMPARE(::chmod(QFile::encodeName(folder.path()).constData(), 0755), 0);
    QVERIFY(!makeFolder(QFile::encodeName(folder.path())));
    QCOMPARE(permissions(folder.path()), 0755U);
}

void DataFilesTest::aFolderBelowAFileCannotBeMade()
{
    const QTemporaryDir folder;
    write(folder.filePath(QStringLiteral("file")), "x");
    QVERIFY(makeFolder(QFile::encodeName(folder.filePath(QStringLiteral("file")))));
    QVERIFY(makeFolder(QFile::encodeName(folder.filePath(QStringLiteral("file/a")))));
    QCOMPARE(contents(folder.filePath(QStringLiteral("file"))), QByteArray("x"));
}

void DataFilesTest::aNewFileIsForTheUserAlone()
{
    const QString path = m_folder.filePath(QStringLiteral("new"));
    QVERIFY(!writeAtomically(QFile::encodeName(path), "bytes"));
    QCOMPARE(contents(path), QByteArray("bytes"));
    QCOMPARE(permissions(path), 0600U);
}

void DataFilesTest::anExistingFileKeepsItsPermissions()
{
    const QString path = m_folder.filePath(QStringLiteral("existing"));
    write(path, "old");
    QCOMPARE(::chmod(QFile::encodeName(path).constData(), 0640), 0);
    QVERIFY(!writeAtomically(QFile::encodeName(path), "new"));
    QCOMPARE(contents(path), QByteArray("new"));
    QCOMPARE(permissions(path), 0640U);
}

void DataFilesTest::aFailedWriteLeavesTheOldFileAndNothingElse()
{
    // A folder in the file's place stops the user root too.
    const QTemporaryDir folder;
    QVERIFY(QDir().mkpath(folder.filePath(QStringLiteral("file/inside"))));
    const std::optional<Failure> failure =
        writeAtomically(QFile::encodeName(folder.filePath(QStringLiteral("file"))), "bytes");
    QVERIFY(failure);
    QVERIFY(!failure->description.isEmpty());
    QCOMPARE(entries(folder.path()).size(), 1);
}

// Two programs that write the same file must not write into one another's.
void DataFilesTest::whatAnotherProgramIsWritingStays()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file"));
    write(path + QStringLiteral(".unfinished"), "half of what");
    write(folder.filePath(QStringLiteral(".unfinished")), "half of what");
    QVERIFY(!writeAtomically(QFile::encodeName(path), "bytes"));
    QCOMPARE(contents(path), QByteArray("bytes"));
    QCOMPARE(contents(path + QStringLiteral(".unfinished")), QByteArray("half of what"));
    QCOMPARE(contents(folder.filePath(QStringLiteral(".unfinished"))), QByteArray("half of what"));
}

void DataFilesTest::aLinkToItselfIsNotWrittenThrough()
{
    const QTemporaryDir folder;
    const QTemporaryDir current;
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(current.path()));
    write(QStringLiteral(".unfinished"), "mine");
    QVERIFY(QFile::link(QStringLiteral("file"), folder.filePath(QStringLiteral("file"))));
    const auto failure = writeAtomically(QFile::encodeName(folder.filePath(QStringLiteral("file"))), "bytes");
    QCOMPARE(contents(QStringLiteral(".unfinished")), QByteArray("mine"));
    QVERIFY(QDir::setCurrent(before));
    QVERIFY(failure);
    QVERIFY(QFileInfo(folder.filePath(QStringLiteral("file"))).isSymLink());
}

void DataFilesTest::aLinkStaysALink()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file"));
    QVERIFY(QFile::link(QStringLiteral("elsewhere"), path));
    for (const char* bytes : { "first", "second" }) {
        QVERIFY(!writeAtomically(QFile::encodeName(path), bytes));
        QVERIFY(QFileInfo(path).isSymLink());
        QCOMPARE(contents(folder.filePath(QStringLiteral("elsewhere"))), QByteArray(bytes));
    }
}

void DataFilesTest::aFileMovesWithinAFileSystem()
{
    const QString from = m_folder.filePath(QStringLiteral("from"));
    const QString to = m_folder.filePath(QStringLiteral("to"));
    write(from, "bytes");
    QVERIFY(!relocateFile(QFile::encodeName(from), QFile::encodeName(to)));
    QVERIFY(!QFile::exists(from));
    QCOMPARE(contents(to), QByteArray("bytes"));
}

void DataFilesTest::aNameThatIsNotUtf8Moves()
{
    const QByteArray from = QFile::encodeName(m_folder.filePath(QStringLiteral("caf"))) + "\xe9.png";
    const QString plain = m_folder.filePath(QStringLiteral("plain"));
    const QString back = m_folder.filePath(QStringLiteral("back"));
    write(plain, "bytes");
    QVERIFY(!relocateFile(QFile::encodeName(plain), from));
    QVERIFY(!relocateFile(from, QFile::encodeName(back)));
    QCOMPARE(contents(back), QByteArray("bytes"));
}

void DataFilesTest::aFileMovesAcrossFileSystems()
{
    QVERIFY(device(m_other.path()) != device(m_folder.path()));
    const QTemporaryDir folder;
    const QString from = m_other.filePath(QStringLiteral("a.png"));
    const QString to = folder.filePath(QStringLiteral("a.png"));
    const QByteArray bytes(3'000'000, 'x');
    write(from, bytes);
    QVERIFY(!relocateFile(QFile::encodeName(from), QFile::encodeName(to)));
    QVERIFY(!QFile::exists(from));
    QCOMPARE(contents(to), bytes);
    QCOMPARE(entries(folder.path()).size(), 1);
}

void DataFilesTest::aSymbolicLinkMovesAcrossFileSystemsAsALink()
{
    const QString from = m_other.filePath(QStringLiteral("link"));
    const QString to = m_folder.filePath(QStringLiteral("link"));
    QVERIFY(QFile::link(QStringLiteral("/nowhere/at/all"), from));
    QVERIFY(!relocateFile(QFile::encodeName(from), QFile::encodeName(to)));
    QVERIFY(!QFileInfo(from).isSymLink());
    QCOMPARE(QFile::symLinkTarget(to), QStringLiteral("/nowhere/at/all"));
}

void DataFilesTest::aFailedMoveAcrossFileSystemsLeavesTheSourceAndNothingElse_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    const QString pipe = m_other.filePath(QStringLiteral("pipe"));
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QTest::newRow("what cannot be copied") << pipe << QStringLiteral("new");
    const QString file = m_other.filePath(QStringLiteral("file"));
    write(file, "bytes");
    QTest::newRow("a copy that cannot take its place") << file << QStringLiteral("folder");
    QTest::newRow("a source that cannot be removed") << QStringLiteral("/proc/version") << QStringLiteral("new");
}

void DataFilesTest::aFailedMoveAcrossFileSystemsLeavesTheSourceAndNothingElse()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    const QTemporaryDir folder;
    QVERIFY(QDir().mkpath(folder.filePath(QStringLiteral("folder/inside"))));
    QVERIFY(relocateFile(QFile::encodeName(from), QFile::encodeName(folder.filePath(to))));
    QVERIFY(QFileInfo::exists(from));
    QCOMPARE(entries(folder.path()), QStringList{ QStringLiteral("folder") });
}

void DataFilesTest::aMissingFileDoesNotMove()
{
    const QString to = m_folder.filePath(QStringLiteral("never"));
    QVERIFY(relocateFile(QFile::encodeName(m_folder.filePath(QStringLiteral("missing"))), QFile::encodeName(to)));
    QVERIFY(!QFile::exists(to));
}

QTEST_GUILESS_MAIN(DataFilesTest)
#include "DataFilesTest.moc"
