#include "ShelfIndex.h"
#include "TemporaryFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <memory>

using namespace nookle;

/// Lets every call fail by which the shelf writes, in a program that runs with such faults.
class FaultTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theOldIndexStaysWhole_data();
    void theOldIndexStaysWhole();
    void theFirstIndexIsWrittenOnceThatIsPossible_data();
    void theFirstIndexIsWrittenOnceThatIsPossible();
    void aFileSystemWithoutPermissionsIsWrittenTo();
    void anImageThatCannotBeTakenOverStaysWhereItWas_data();
    void anImageThatCannotBeTakenOverStaysWhereItWas();
    void anImageFromAnotherVolumeStaysUntilItsCopyIsOnTheDisk();
    void anIndexThatCannotBeReadIsNotWrittenOver_data();
    void anIndexThatCannotBeReadIsNotWrittenOver();
    void anUnreadableIndexThatCannotBeMovedKeepsSavingOff();
    void foldersThatCannotBeListedAreLeftAlone();
    void aFolderThatVanishesIsMadeAgain();
    void aFolderThatComesBackIsWrittenToAgain();
    void aFullVolumeLosesNothing();
    void aVolumeThatTurnsReadOnlyLosesNothing();

private:
    /// Starts the program with a small volume of its own for its data, where that is allowed.
    [[nodiscard]] bool startOnVolume();
    [[nodiscard]] QByteArray dataFolder() const;
    void obeyWithoutSaving();
    void start(const QByteArray& call = {}, int error = 0);
    /// Has the program do that, and returns how many items it has then.
    [[nodiscard]] int obey(const QByteArray& command);
    void endFault() { m_folder->makeFile("over"); }
    [[nodiscard]] QByteArray index() const;
    [[nodiscard]] QStringList texts() const;
    [[nodiscard]] QByteArray log() { return m_program->readAllStandardError(); }

    std::unique_ptr<TemporaryFolder> m_folder;
    std::unique_ptr<QProcess> m_program;
    bool m_hasVolume = false;
    /// What of the data folder the fault is in; all of it by default.
    QByteArray m_faultyPart;
};

namespace {

void addFaults(const QList<QByteArray>& calls)
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("error");
    for (const QByteArray& call : calls) {
        QTest::addRow("%s: the disk is full", call.constData()) << call << ENOSPC;
        QTest::addRow("%s: the disk fails", call.constData()) << call << EIO;
        QTest::addRow("%s: the disk is read-only", call.constData()) << call << EROFS;
    }
}

} // namespace

void FaultTest::init()
{
    m_folder = std::make_unique<TemporaryFolder>();
}

void FaultTest::cleanup()
{
    if (m_program->state() == QProcess::Running) {
        m_program->closeWriteChannel();
        QVERIFY(m_program->waitForFinished());
        QCOMPARE(m_program->exitCode(), 0);
    }
    m_program.reset();
    m_hasVolume = false;
    m_faultyPart.clear();
    m_folder.reset();
}

void FaultTest::start(const QByteArray& call, int error)
{
    QVERIFY2(qEnvironmentVariableIsSet("NOOKLE_FAULTS"), "run it with ctest, which says what is tested");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LD_PRELOAD"), qEnvironmentVariable("NOOKLE_FAULTS"));
    environment.insert(QStringLiteral("FAULT_FOLDER"), QFile::decodeName(m_folder->path("data") + m_faultyPart));
    environment.insert(QStringLiteral("FAULT_CALL"), QString::fromLatin1(call));
    environment.insert(QStringLiteral("FAULT_ERROR"), QString::number(error));
    environment.insert(QStringLiteral("FAULT_UNTIL"), QFile::decodeName(m_folder->path("over")));
    // A library that is loaded before theirs is what the sanitizers object to.
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("verify_asan_link_order=0:detect_leaks=0"));
    m_program = std::make_unique<QProcess>();
    m_program->setProcessEnvironment(environment);
    m_program->start(qEnvironmentVariable("NOOKLE_SAVER"), { QFile::decodeName(m_folder->path("data")) });
    QVERIFY(m_program->waitForStarted());
}

// The volume is mounted in a namespace that only the program is in.
bool FaultTest::startOnVolume()
{
    m_folder->makeFolder("data");
    const QString mountAndRun =
        QStringLiteral("mount -t tmpfs -o size=256k,mode=0700 tmpfs \"$1\" && echo mounted && exec \"$0\" \"$1\"");
    QStringList arguments{ QStringLiteral("--mount") };
    if (::geteuid() != 0)
        arguments.append(QStringLiteral("--map-root-user"));
    arguments.append({ QStringLiteral("sh"), QStringLiteral("-c"), mountAndRun, qEnvironmentVariable("NOOKLE_SAVER"),
                       QFile::decodeName(m_folder->path("data")) });
    m_program = std::make_unique<QProcess>();
    m_program->start(QStringLiteral("unshare"), arguments);
    const bool isAnswered = m_program->waitForStarted() && m_program->waitForReadyRead();
    m_hasVolume = isAnswered && m_program->readLine() == "mounted\n";
    return m_hasVolume;
}

QByteArray FaultTest::dataFolder() const
{
    const QByteArray folder = m_folder->path("data");
    return m_hasVolume ? "/proc/" + QByteArray::number(m_program->processId()) + "/root" + folder : folder;
}

void FaultTest::obeyWithoutSaving()
{
    const QByteArray before = index();
    QCOMPARE(obey("text second"), 2);
    QCOMPARE(index(), before);
    const QByteArray line = log();
    QVERIFY2(line.contains("Nookle: saving failed: ") && line.count('\n') == 1, line.constData());
}

int FaultTest::obey(const QByteArray& command)
{
    m_program->write(command + '\n');
    while (!m_program->canReadLine()) {
        if (!m_program->waitForReadyRead())
            return -1;
    }
    return m_program->readLine().trimmed().toInt();
}

QByteArray FaultTest::index() const
{
    QFile file(QFile::decodeName(dataFolder() + "/index.json"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList FaultTest::texts() const
{
    const auto decoded = ShelfIndex::decode(index());
    const auto* index = std::get_if<ShelfIndex>(&decoded);
    QStringList texts;
    for (const ShelfItem& item : index ? index->items : QList<ShelfItem>())
        texts.append(item.displayName());
    return texts;
}

void FaultTest::theOldIndexStaysWhole_data()
{
    addFaults({ "open", "write", "fsync", "rename" });
}

void FaultTest::theOldIndexStaysWhole()
{
    QFETCH(const QByteArray, call);
    QFETCH(const int, error);
    endFault();
    start(call, error);
    QCOMPARE(obey("text first"), 1);
    const QByteArray before = index();
    QCOMPARE(texts(), QStringList{ QStringLiteral("first") });
    QCOMPARE(log(), QByteArray());

    deleteFile(m_folder->path("over"));
    QCOMPARE(obey("text second"), 2);
    QCOMPARE(index(), before);
    QCOMPARE(QDir(QFile::decodeName(m_folder->path("data"))).entryList(QDir::Files | QDir::Hidden),
             QStringList{ QStringLiteral("index.json") });
    const QByteArray line = log();
    QVERIFY2(line.contains("Nookle: saving failed: ") && line.count('\n') == 1, line.constData());

    endFault();
    QCOMPARE(obey("text third"), 3);
    QCOMPARE(texts().join(QLatin1Char(' ')), QStringLiteral("third second first"));
    QCOMPARE(log(), QByteArray());
}

void FaultTest::theFirstIndexIsWrittenOnceThatIsPossible_data()
{
    addFaults({ "mkdir", "open", "write", "fsync", "rename" });
}

void FaultTest::theFirstIndexIsWrittenOnceThatIsPossible()
{
    QFETCH(const QByteArray, call);
    QFETCH(const int, error);
    start(call, error);
    QCOMPARE(obey("text first"), 1);
    QVERIFY(!QFile::exists(QFile::decodeName(m_folder->path("data/index.json"))));
    QCOMPARE(log().count('\n'), 1);
    endFault();
    QCOMPARE(obey("text second"), 2);
    QCOMPARE(texts().join(QLatin1Char(' ')), QStringLiteral("second first"));
}

void FaultTest::aFileSystemWithoutPermissionsIsWrittenTo()
{
    start("fchmod", EPERM);
    QCOMPARE(obey("text first"), 1);
    QCOMPARE(texts(), QStringList{ QStringLiteral("first") });
    QCOMPARE(log(), QByteArray());
}

void FaultTest::anImageThatCannotBeTakenOverStaysWhereItWas_data()
{
    addFaults({ "mkdir", "rename" });
}

void FaultTest::anImageThatCannotBeTakenOverStaysWhereItWas()
{
    QFETCH(const QByteArray, call);
    QFETCH(const int, error);
    const QByteArray image = m_folder->makeFile("image.png", "pixels");
    start(call, error);
    QCOMPARE(obey("image " + image), 0);
    QVERIFY(QFile::exists(QFile::decodeName(image)));
    const QByteArray line = log();
    QVERIFY2(line.contains("Nookle: could not take over image: ") && line.count('\n') == 1, line.constData());
    endFault();
    QCOMPARE(obey("image " + image), 1);
    QVERIFY(!QFile::exists(QFile::decodeName(image)));
}

void FaultTest::anImageFromAnotherVolumeStaysUntilItsCopyIsOnTheDisk()
{
    QTemporaryDir other(QStringLiteral("/dev/shm/nookle-XXXXXX"));
    const QByteArray image = QFile::encodeName(other.filePath(QStringLiteral("image.png")));
    const auto writeImage = [&] {
        QFile file(QFile::decodeName(image));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("pixels") == 6);
    };
    writeImage();
    start("fsync of a folder", EIO);
    QCOMPARE(obey("image " + image), 0);
    QVERIFY(QFile::exists(QFile::decodeName(image)));
    endFault();
    QCOMPARE(obey("image " + image), 1);
    QVERIFY(!QFile::exists(QFile::decodeName(image)));
}

void FaultTest::anIndexThatCannotBeReadIsNotWrittenOver_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("error");
    QTest::newRow("another user's") << QByteArrayLiteral("open to read") << EACCES;
    QTest::newRow("the disk fails") << QByteArrayLiteral("open to read") << EIO;
    QTest::newRow("the disk fails in the file") << QByteArrayLiteral("read") << EIO;
}

void FaultTest::anIndexThatCannotBeReadIsNotWrittenOver()
{
    QFETCH(const QByteArray, call);
    QFETCH(const int, error);
    start();
    QCOMPARE(obey("text first"), 1);
    const QByteArray before = index();
    m_program->closeWriteChannel();
    QVERIFY(m_program->waitForFinished());

    m_faultyPart = "/index.json";
    start(call, error);
    QCOMPARE(obey("text second"), 1);
    QCOMPARE(texts(), QStringList{ QStringLiteral("second") });
    QFile aside(QFile::decodeName(dataFolder() + "/index.corrupt.json"));
    QVERIFY(aside.open(QIODevice::ReadOnly));
    QCOMPARE(aside.readAll(), before);
    const QByteArray line = log();
    QVERIFY2(line.contains("Nookle: index unreadable, moved to ") && line.count('\n') == 1, line.constData());
}

void FaultTest::anUnreadableIndexThatCannotBeMovedKeepsSavingOff()
{
    m_folder->makeFolder("data");
    // Its first byte cannot be read.
    QVERIFY(QFile::link(QStringLiteral("/proc/self/mem"), QFile::decodeName(m_folder->path("data/index.json"))));
    start("rename", EACCES);
    QCOMPARE(obey("text first"), 1);
    const QByteArray line = log();
    QVERIFY2(line.contains("Nookle: saving is off: ") && line.count('\n') == 1, line.constData());
    QCOMPARE(obey("text second"), 2);
    QCOMPARE(log(), QByteArray());
    QVERIFY(QFileInfo(QFile::decodeName(m_folder->path("data/index.json"))).isSymLink());
    endFault();
    QCOMPARE(obey("text third"), 3);
    QCOMPARE(texts().join(QLatin1Char(' ')), QStringLiteral("third second first"));
}

void FaultTest::foldersThatCannotBeListedAreLeftAlone()
{
    m_folder->makeFolder("data");
    const QByteArray orphan = "data/Files/1B4E28BA-2FA1-11D2-883F-B9A761BDE3FB";
    m_folder->makeFolder("data/Files");
    m_folder->makeFolder(orphan);
    m_folder->makeFile("data/index.json", ShelfIndex().encode());
    m_folder->makeFile(orphan + "/image.png", "pixels");
    start("readdir", EIO);
    QCOMPARE(obey("sweep"), 0);
    QVERIFY(QFile::exists(QFile::decodeName(m_folder->path(orphan + "/image.png"))));
    endFault();
    QCOMPARE(obey("sweep"), 0);
    QVERIFY(!QFile::exists(QFile::decodeName(m_folder->path(orphan))));
}

void FaultTest::aFolderThatVanishesIsMadeAgain()
{
    start();
    QCOMPARE(obey("text first"), 1);
    moveFile(m_folder->path("data"), m_folder->path("elsewhere"));
    QCOMPARE(obey("text second"), 2);
    QCOMPARE(texts().join(QLatin1Char(' ')), QStringLiteral("second first"));
    QCOMPARE(log(), QByteArray());
}

// As when the volume of the home folder is not there for a while.
void FaultTest::aFolderThatComesBackIsWrittenToAgain()
{
    start();
    QCOMPARE(obey("text first"), 1);
    const QByteArray before = index();
    moveFile(m_folder->path("data"), m_folder->path("elsewhere"));
    m_folder->makeFile("data", "no folder");
    QCOMPARE(obey("text second"), 2);
    const QByteArray line = log();
    QVERIFY2(line.contains("Nookle: saving failed: ") && line.count('\n') == 1, line.constData());

    deleteFile(m_folder->path("data"));
    moveFile(m_folder->path("elsewhere"), m_folder->path("data"));
    QCOMPARE(index(), before);
    QCOMPARE(obey("text third"), 3);
    QCOMPARE(texts().join(QLatin1Char(' ')), QStringLiteral("third second first"));
    QCOMPARE(log(), QByteArray());
}

void FaultTest::aFullVolumeLosesNothing()
{
    if (!startOnVolume())
        QSKIP("no volume can be mounted here");
    QCOMPARE(obey("text first"), 1);
    const QString filler = QFile::decodeName(dataFolder() + "/filler");
    {
        QFile file(filler);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        while (file.write(QByteArray(4096, 'x')) > 0) {}
    }
    obeyWithoutSaving();
    QVERIFY(QFile::remove(filler));
    QCOMPARE(obey("text third"), 3);
    QCOMPARE(texts().join(QLatin1Char(' ')), QStringLiteral("third second first"));
}

void FaultTest::aVolumeThatTurnsReadOnlyLosesNothing()
{
    if (!startOnVolume())
        QSKIP("no volume can be mounted here");
    QCOMPARE(obey("text first"), 1);
    const auto remount = [this](const char* mode) {
        const QString process = QString::number(m_program->processId());
        return QProcess::execute(QStringLiteral("nsenter"),
                                 { QStringLiteral("--target"), process, QStringLiteral("--mount"),
                                   QStringLiteral("mount"), QStringLiteral("-o"),
                                   QStringLiteral("remount,") + QLatin1String(mode),
                                   QFile::decodeName(m_folder->path("data")) });
    };
    if (remount("ro") != 0)
        QSKIP("no volume can be remounted here");
    obeyWithoutSaving();
    QCOMPARE(remount("rw"), 0);
    QCOMPARE(obey("text third"), 3);
    QCOMPARE(texts().join(QLatin1Char(' ')), QStringLiteral("third second first"));
}

QTEST_GUILESS_MAIN(FaultTest)
#include "FaultTest.moc"
