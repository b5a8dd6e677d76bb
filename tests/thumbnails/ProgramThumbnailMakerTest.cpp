#include "ProgramThumbnailMaker.h"

#include "FakeMainQueue.h"
#include "SandboxProbe.h"
#include "TemporaryFolder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>

#include <memory>

using namespace nookle;

namespace {

[[nodiscard]] QByteArray contentOf(RegularFile& file)
{
    QFile content;
    if (!content.open(file.descriptor.release(), QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        qFatal("an output cannot be read");
    return content.readAll();
}

/// How many processes have `text` in their command lines.
[[nodiscard]] int processesNaming(const QByteArray& text)
{
    int count = 0;
    const QStringList numbers = QDir(QStringLiteral("/proc")).entryList({ QStringLiteral("[0-9]*") }, QDir::Dirs);
    for (const QString& number : numbers) {
        QFile commandLine(QStringLiteral("/proc/%1/cmdline").arg(number));
        count += commandLine.open(QIODevice::ReadOnly) && commandLine.readAll().contains(text) ? 1 : 0;
    }
    return count;
}

} // namespace

class ProgramThumbnailMakerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void programMakesTheThumbnail();
    void everyCodeIsUnderstood();
    void fileNameMayHoldAnyBytes();
    void programSeesNoOtherFileOfTheUser();
    void programCannotChangeTheFile();
    void programInheritsNoDescriptor();
    void programCannotChangeTheFileThroughAnyDescriptor();
    void programHasNoNetwork();
    void programKnowsNothingOfTheEnvironment();
    void programWithTooMuchMemoryFails();
    void outputThatIsTooLargeFails();
    void programWithoutThumbnailFails_data();
    void programWithoutThumbnailFails();
    void folderForTheOutputIsForTheUserAlone();
    void programThatTakesTooLongIsEnded();
    void droppedThumbnailEndsTheProgram();
    void programThatIsJustStartingIsEndedToo();
    void typeWithoutProgramHasNoThumbnail();
    void aliasOfTheTypeIsTheType();
    void missingProgramIsNotTried();
    void unreadableFileHasNoThumbnail();
    void firstFolderGoesBeforeTheOthers();
    void withoutSandboxNoProgramRuns();
    void sandboxThatIsRefusedIsAFailure();
    void completionIsNotCalledFromWithinTheCall();

private:
    /// Registers a program for `type`, as the entry `name`.
    void addProgram(const QByteArray& exec, const QByteArray& name = "folder/a", const QByteArray& type = "video/mp4",
                    const QByteArray& more = QByteArray());
    /// What the program has made of the input.
    [[nodiscard]] std::optional<QByteArray> made(const QByteArray& input = "input.mp4");
    [[nodiscard]] std::unique_ptr<Cancellable> make(const QByteArray& input = "input.mp4",
                                                    const QString& type = QStringLiteral("video/mp4"));
    [[nodiscard]] bool isDone();
    [[nodiscard]] QStringList outputFolders() const;

    QByteArray m_path;
    std::unique_ptr<TemporaryFolder> m_files;
    FakeMainQueue m_queue;
    std::unique_ptr<ProgramThumbnailMaker> m_maker;
    bool m_isDone = false;
    std::optional<ThumbnailMaker::Made> m_made;
};

void ProgramThumbnailMakerTest::initTestCase()
{
    if (!sandboxWorks())
        QSKIP("no program can be confined here, and then none is used");
}

void ProgramThumbnailMakerTest::init()
{
    m_path = qgetenv("PATH");
    m_files = std::make_unique<TemporaryFolder>();
    for (const char* folder : { "folder", "other", "temporary", "programs" })
        m_files->makeFolder(folder);
    m_files->makeFile("input.mp4", "film");
    qputenv("TMPDIR", m_files->path("temporary"));
    m_maker = std::make_unique<ProgramThumbnailMaker>(m_queue,
                                                      QStringList{ QFile::decodeName(m_files->path("folder")),
                                                                   QFile::decodeName(m_files->path("missing")),
                                                                   QFile::decodeName(m_files->path("other")) });
}

void ProgramThumbnailMakerTest::cleanup()
{
    qputenv("PATH", m_path);
    qunsetenv("TMPDIR");
    m_made.reset();
    m_files.reset();
}

void ProgramThumbnailMakerTest::addProgram(const QByteArray& exec, const QByteArray& name, const QByteArray& type,
                                           const QByteArray& more)
{
    m_files->makeFile(name + ".thumbnailer",
                      "[Thumbnailer Entry]\nExec=" + exec + "\nMimeType=" + type + ";\n" + more + '\n');
}

std::unique_ptr<Cancellable> ProgramThumbnailMakerTest::make(const QByteArray& input, const QString& type)
{
    m_isDone = false;
    ThumbnailMaker::Wanted wanted;
    wanted.path = m_files->path(input);
    wanted.mimeType = type;
    wanted.side = 128;
    return m_maker->make(wanted, [this](std::optional<ThumbnailMaker::Made> result) {
        m_isDone = true;
        m_made = std::move(result);
    });
}

bool ProgramThumbnailMakerTest::isDone()
{
    m_queue.runPosted();
    return m_isDone;
}

std::optional<QByteArray> ProgramThumbnailMakerTest::made(const QByteArray& input)
{
    const auto making = make(input);
    if (!making || !QTest::qWaitFor([this] { return isDone(); }, 20'000))
        qFatal("a thumbnailer does not start, or has no end");
    return m_made ? std::optional(contentOf(*m_made->image)) : std::nullopt;
}

QStringList ProgramThumbnailMakerTest::outputFolders() const
{
    return QDir(QFile::decodeName(m_files->path("temporary"))).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
}

void ProgramThumbnailMakerTest::programMakesTheThumbnail()
{
    addProgram("cp %i %o");
    QCOMPARE(made(), QByteArray("film"));
    QCOMPARE(outputFolders(), QStringList());
}

void ProgramThumbnailMakerTest::everyCodeIsUnderstood()
{
    addProgram(R"(sh -c 'echo "$@" >%o' sh %s %u %i 100%%)");
    QCOMPARE(made(), QByteArray("128 file:///tmp/input.mp4 /tmp/input.mp4 100%\n"));
}

void ProgramThumbnailMakerTest::fileNameMayHoldAnyBytes()
{
    addProgram("cp %i %o");
    for (const char* name : { "caf\xe9\xff.mp4", "a b;'\"$(c).mp4", "a\n%o.m\np4", "-rf", "no extension.", "a.\xff" }) {
        m_files->makeFile(name, name);
        QCOMPARE(made(name), QByteArray(name));
    }
}

void ProgramThumbnailMakerTest::programSeesNoOtherFileOfTheUser()
{
    const QByteArray secret = m_files->makeFile("secret", "secret");
    addProgram("sh -c 'cat " + secret + " >%o 2>/dev/null || echo hidden >%o'");
    QCOMPARE(made(), QByteArray("hidden\n"));
}

void ProgramThumbnailMakerTest::programCannotChangeTheFile()
{
    addProgram(R"(sh -c '(echo changed >%i) 2>/dev/null; cp %i %o')");
    QCOMPARE(made(), QByteArray("film"));
}

void ProgramThumbnailMakerTest::programInheritsNoDescriptor()
{
    // As a library may leave one open.
    const FileDescriptor careless(::open(m_files->makeFile("careless").constData(), O_RDONLY));
    addProgram("sh -c 'readlink /proc/self/fd/* >%o; true'");
    const auto open = made();
    QVERIFY(open);
    for (const char* name : { "careless", "input.mp4", "memfd" })
        QVERIFY2(!open->contains(name), open->constData());
}

void ProgramThumbnailMakerTest::programCannotChangeTheFileThroughAnyDescriptor()
{
    addProgram("sh -c 'for each in /proc/[0-9]*/fd/*; do echo changed >\"$each\"; done 2>/dev/null; echo tried >%o'");
    QCOMPARE(made(), QByteArray("tried\n"));
    QFile file(QFile::decodeName(m_files->path("input.mp4")));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("film"));
}

void ProgramThumbnailMakerTest::programHasNoNetwork()
{
    addProgram(R"(sh -c 'tail -n +3 /proc/net/dev | cut -d: -f1 | tr -d " " >%o')");
    QCOMPARE(made(), QByteArray("lo\n"));
}

void ProgramThumbnailMakerTest::programKnowsNothingOfTheEnvironment()
{
    qputenv("NOOKLE_TEST_SECRET", "secret");
    addProgram("sh -c 'env >%o'");
    const auto environment = made();
    qunsetenv("NOOKLE_TEST_SECRET");
    QVERIFY(environment->contains("HOME=/tmp\n"));
    QVERIFY(!environment->contains("SECRET"));
}

void ProgramThumbnailMakerTest::programWithTooMuchMemoryFails()
{
    addProgram("sh -c 'dd bs=2100M count=1 if=/dev/zero of=/dev/null && cp %i %o'");
    QCOMPARE(made(), std::nullopt);
}

void ProgramThumbnailMakerTest::outputThatIsTooLargeFails()
{
    addProgram("sh -c 'head -c 17000000 /dev/zero >%o'");
    QCOMPARE(made(), std::nullopt);
}

void ProgramThumbnailMakerTest::programWithoutThumbnailFails_data()
{
    QTest::addColumn<QByteArray>("exec");
    QTest::newRow("failure") << QByteArray("sh -c 'cp %i %o; exit 1'");
    QTest::newRow("crash") << QByteArray("sh -c 'cp %i %o; kill -SEGV $$'");
    QTest::newRow("nothing written") << QByteArray("true %o");
    QTest::newRow("link to the input") << QByteArray("ln -s %i %o");
    QTest::newRow("link to a file of the system") << QByteArray("ln -s /etc/passwd %o");
    QTest::newRow("pipe") << QByteArray("mkfifo %o");
    QTest::newRow("folder") << QByteArray("mkdir %o");
    QTest::newRow("no such program") << QByteArray("no-program-has-this-name %o");
}

void ProgramThumbnailMakerTest::programWithoutThumbnailFails()
{
    QFETCH(const QByteArray, exec);
    addProgram(exec);
    QCOMPARE(made(), std::nullopt);
    QCOMPARE(outputFolders(), QStringList());
}

void ProgramThumbnailMakerTest::folderForTheOutputIsForTheUserAlone()
{
    addProgram("sh -c 'sleep 1000' %o");
    const auto making = make();
    QCOMPARE(outputFolders().size(), 1);
    const QByteArray folder = m_files->path("temporary/" + QFile::encodeName(outputFolders().first()));
    struct stat status {};
    QCOMPARE(::stat(folder.constData(), &status), 0);
    QCOMPARE(status.st_mode & 07777U, 0700U);
}

void ProgramThumbnailMakerTest::programThatTakesTooLongIsEnded()
{
    addProgram("sh -c 'touch %o; sleep 1000'");
    auto making = make();
    const QString output =
        QFile::decodeName(m_files->path("temporary/")) + outputFolders().value(0) + QStringLiteral("/thumbnail.png");
    QTRY_VERIFY(QFile::exists(output));
    m_queue.advance(9.999);
    QVERIFY(!m_isDone);
    m_queue.advance(0.001);
    QVERIFY(m_isDone);
    QVERIFY(!m_made);
    making.reset();
    QCOMPARE(outputFolders(), QStringList());
}

void ProgramThumbnailMakerTest::droppedThumbnailEndsTheProgram()
{
    addProgram("sh -c 'touch %o; sleep 1000' " + m_files->path());
    auto making = make();
    QTRY_VERIFY(processesNaming(m_files->path()) > 1);
    making.reset();
    QTRY_COMPARE(processesNaming(m_files->path()), 0);
    QCOMPARE(outputFolders(), QStringList());
    QCOMPARE(m_queue.waitingTasks(), 0);
    QVERIFY(!m_isDone);
}

void ProgramThumbnailMakerTest::programThatIsJustStartingIsEndedToo()
{
    addProgram("sh -c 'touch %o; sleep 1000' " + m_files->path());
    // The sandbox is set up in steps; each time it is found at another one.
    for (int milliseconds = 0; milliseconds < 20; ++milliseconds) {
        auto making = make();
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < milliseconds)
            QCoreApplication::processEvents();
    }
    QTRY_COMPARE(processesNaming(m_files->path()), 0);
}

void ProgramThumbnailMakerTest::typeWithoutProgramHasNoThumbnail()
{
    addProgram("cp %i %o", "folder/a", "video/ogg");
    QVERIFY(!make());
}

void ProgramThumbnailMakerTest::aliasOfTheTypeIsTheType()
{
    addProgram("cp %i %o", "folder/a", "application/x-pdf");
    QVERIFY(make("input.mp4", QStringLiteral("application/pdf")));
}

void ProgramThumbnailMakerTest::missingProgramIsNotTried()
{
    addProgram("cp %i %o", "folder/a", "video/mp4", "TryExec=no-program-has-this-name");
    QVERIFY(!make());
}

void ProgramThumbnailMakerTest::unreadableFileHasNoThumbnail()
{
    addProgram("cp %i %o");
    QVERIFY(!make("missing"));
    QVERIFY(!make("folder"));
}

void ProgramThumbnailMakerTest::firstFolderGoesBeforeTheOthers()
{
    addProgram("sh -c 'echo first >%o'", "folder/b");
    addProgram("sh -c 'echo other >%o'", "other/a");
    addProgram("sh -c 'echo shadowed >%o'", "other/c", "video/ogg");
    m_files->makeFile("folder/c.thumbnailer", "[Thumbnailer Entry]\n");
    QCOMPARE(made(), QByteArray("first\n"));
    QVERIFY(!make("input.mp4", QStringLiteral("video/ogg")));
}

void ProgramThumbnailMakerTest::withoutSandboxNoProgramRuns()
{
    addProgram("cp %i %o");
    qputenv("PATH", m_files->path("programs"));
    QVERIFY(!make());
}

void ProgramThumbnailMakerTest::sandboxThatIsRefusedIsAFailure()
{
    addProgram("cp %i %o");
    ::chmod(m_files->makeFile("programs/bwrap", "#!/bin/sh\nexit 1\n").constData(), 0700);
    qputenv("PATH", m_files->path("programs"));
    QCOMPARE(made(), std::nullopt);
    ::chmod(m_files->makeFile("programs/bwrap", "no program at all").constData(), 0700);
    QCOMPARE(made(), std::nullopt);
}

void ProgramThumbnailMakerTest::completionIsNotCalledFromWithinTheCall()
{
    addProgram("cp %i %o");
    const auto making = make();
    QVERIFY(!m_isDone);
    QTRY_VERIFY(isDone());
}

QTEST_GUILESS_MAIN(ProgramThumbnailMakerTest)
#include "ProgramThumbnailMakerTest.moc"
