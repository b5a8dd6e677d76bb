#include "BusClient.h"
#include "FileReference.h"
#include "PrivateDesktop.h"
#include "Shelf.h"
#include "Waiting.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <memory>

using namespace nookle;
using namespace nookle::e2e;

/// A folder below home is another computer's, which does not answer any more.
class HungMountTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aFileThatDoesNotAnswerBlocksNothing();
    void aFileThatAnswersAgainIsFollowed();
    void whatIsAddedWhileNothingAnswersStaysOnTheShelf();
    void aLostFileIsFoundBesideAMountThatDoesNotAnswer();
    void aScreenshotFolderThatDoesNotAnswerBlocksNothing();
    void aLinkBesideTheScreenshotsThatDoesNotAnswerBlocksNothing();
    void anArgumentThatDoesNotAnswerBlocksNothing();
    void copyingRemovingAndPastingBlockNothing();

private:
    [[nodiscard]] bool mount();
    void unmount();
    void hang() const { ::kill(static_cast<pid_t>(m_server->processId()), SIGSTOP); }
    void answer() const { ::kill(static_cast<pid_t>(m_server->processId()), SIGCONT); }

    [[nodiscard]] QString file(const QString& path) const
    {
        return m_desktop->home(QString(QStringLiteral("files/") + path));
    }
    [[nodiscard]] bool add(const QString& path, int milliseconds = patience) const;
    /// Whether the program answers within two seconds, and its panel comes.
    [[nodiscard]] bool showsItself() const;
    /// Shows the shelf with the keyboard focus.
    [[nodiscard]] bool takeKeyboard() const;
    /// Presses the key while these are held.
    void press(const QList<xcb_keysym_t>& held, xcb_keysym_t key) const;
    [[nodiscard]] bool soonHolds(qsizetype items) const;
    /// Whether it ends within two seconds.
    [[nodiscard]] bool endsAtOnce();
    /// The references of the saved files that know more than a path.
    [[nodiscard]] qsizetype identifiedFiles() const;
    [[nodiscard]] QByteArray complaints() const;

    std::unique_ptr<PrivateDesktop> m_desktop;
    std::unique_ptr<BusClient> m_bus;
    std::unique_ptr<Program> m_server;
    std::unique_ptr<Shelf> m_shelf;
};

namespace {

inline constexpr int promptness = 2000;

[[nodiscard]] bool kernelHasFuse()
{
    QFile list(QStringLiteral("/proc/filesystems"));
    return list.open(QIODevice::ReadOnly) && list.readAll().contains("\tfuse\n");
}

[[nodiscard]] dev_t deviceOf(const QString& path)
{
    struct stat status {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_dev : 0;
}

} // namespace

void HungMountTest::initTestCase()
{
    QVERIFY2(qEnvironmentVariableIsSet("NOOKLE_HANGING_MOUNT"), "run it with ctest, which says what is tested");
    if (::access("/dev/fuse", R_OK | W_OK) == 0)
        return;
    QVERIFY2(!kernelHasFuse(), "this kernel has FUSE, but /dev/fuse cannot be opened here");
    QSKIP("this kernel has no FUSE, so that no file system can hang on demand here");
}

void HungMountTest::init()
{
    m_desktop = PrivateDesktop::tryCreate({ QSize(1280, 800), QStringLiteral("openbox") });
    QVERIFY(m_desktop);
    m_bus = BusClient::tryConnect(m_desktop->environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")));
    QVERIFY(m_bus);
    // The search for leaks would wait for the thread that nobody waits for.
    m_desktop->setVariable(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    m_desktop->writeFile(QStringLiteral("served/picture.png"), "bytes");
    m_desktop->writeFile(QStringLiteral("served/other.txt"), "bytes");
    m_shelf = std::make_unique<Shelf>(*m_desktop, qEnvironmentVariable("NOOKLE_PROGRAM"));
    QVERIFY(mount());
}

void HungMountTest::cleanup()
{
    if (QTest::currentTestFailed() && m_shelf)
        qInfo("the log: %s", m_shelf->log().constData());
    unmount();
    m_shelf.reset();
    m_bus.reset();
    m_desktop.reset();
}

bool HungMountTest::mount()
{
    m_desktop->writeFile(QStringLiteral("files/server/unmounted"), {});
    QFile::remove(file(QStringLiteral("server/unmounted")));
    m_server = m_desktop->start(qEnvironmentVariable("NOOKLE_HANGING_MOUNT"),
                                { m_desktop->home(QStringLiteral("served")), file(QStringLiteral("server")) });
    const bool isMounted = waitFor([this] { return QFile::exists(file(QStringLiteral("server/other.txt"))); });
    if (!isMounted)
        qWarning("nothing is mounted: %s", m_server->log().constData());
    return isMounted;
}

void HungMountTest::unmount()
{
    if (!m_server)
        return;
    // What is killed leaves all that wait for it with an error, so that they can end.
    m_server->kill();
    m_server.reset();
    const QString folder = file(QStringLiteral("server"));
    if (deviceOf(folder) != deviceOf(m_desktop->home(QStringLiteral("files"))))
        static_cast<void>(
            m_desktop->start(QStringLiteral("fusermount3"), { QStringLiteral("-uz"), folder })->waitForExit());
}

bool HungMountTest::add(const QString& path, int milliseconds) const
{
    const auto items = m_shelf->savedItems().size();
    m_bus->beginAddToShelf({ QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded) }, {});
    return waitFor([&] { return m_shelf->savedItems().size() == items + 1; }, milliseconds);
}

bool HungMountTest::showsItself() const
{
    const auto items = m_shelf->savedItems().size();
    m_bus->beginAddToShelf({}, QStringLiteral("text %1").arg(items));
    return waitFor([&] { return m_shelf->savedItems().size() == items + 1; }, promptness)
        && waitFor([&] { return m_shelf->isAtRest(m_desktop->screen().geometry().width()); }, promptness);
}

void HungMountTest::press(const QList<xcb_keysym_t>& held, xcb_keysym_t key) const
{
    XScreen& screen = m_desktop->screen();
    for (const xcb_keysym_t each : held)
        screen.pressKey(each);
    screen.pressKey(key);
    screen.releaseKey(key);
    for (const xcb_keysym_t each : held)
        screen.releaseKey(each);
}

bool HungMountTest::soonHolds(qsizetype items) const
{
    return waitFor([&] { return m_shelf->savedItems().size() == items; }, promptness);
}

bool HungMountTest::takeKeyboard() const
{
    constexpr xcb_keysym_t shift = 0xffe1;
    press({ XScreen::control, XScreen::alt, XScreen::super, shift }, 'd');
    return waitFor([this] { return m_shelf->panel() && m_desktop->screen().focus() == m_shelf->panel()->id; },
                   promptness);
}

bool HungMountTest::endsAtOnce()
{
    QElapsedTimer elapsed;
    elapsed.start();
    return m_shelf->stop() && elapsed.elapsed() < promptness;
}

qsizetype HungMountTest::identifiedFiles() const
{
    qsizetype count = 0;
    for (const QJsonObject& item : m_shelf->savedItems()) {
        const QJsonObject content = item.value(QLatin1String("content")).toObject();
        const QString bookmark =
            content.value(QLatin1String("file")).toObject().value(QLatin1String("bookmark")).toString();
        const auto reference = FileReference::decode(QByteArray::fromBase64(bookmark.toLatin1()));
        count += reference && reference->hasIdentity() ? 1 : 0;
    }
    return count;
}

QByteArray HungMountTest::complaints() const
{
    QByteArrayList lines = m_shelf->log().split('\n');
    lines.removeIf([](const QByteArray& line) {
        return line.startsWith("Nookle: the display: ") || line.startsWith("Nookle: no system tray");
    });
    return lines.join('\n');
}

void HungMountTest::aFileThatDoesNotAnswerBlocksNothing()
{
    QVERIFY(m_shelf->start());
    QVERIFY(add(file(QStringLiteral("server/picture.png"))));
    QVERIFY(waitFor([this] { return identifiedFiles() == 1; }));
    hang();
    QVERIFY(showsItself());
    QVERIFY(endsAtOnce());
    for (int time = 0; time < 2; ++time) {
        QVERIFY(m_shelf->start());
        QVERIFY(showsItself());
        QVERIFY(endsAtOnce());
        QCOMPARE(complaints(), QByteArray());
    }
    QCOMPARE(m_shelf->savedFileNames(), QStringList{ QStringLiteral("picture.png") });
}

void HungMountTest::aFileThatAnswersAgainIsFollowed()
{
    QVERIFY(m_shelf->start());
    QVERIFY(add(file(QStringLiteral("server/picture.png"))));
    QVERIFY(waitFor([this] { return identifiedFiles() == 1; }));
    hang();
    QVERIFY(m_shelf->stop());
    QVERIFY(QFile::rename(m_desktop->home(QStringLiteral("served/picture.png")),
                          m_desktop->home(QStringLiteral("served/renamed.png"))));
    QVERIFY(m_shelf->start());
    QVERIFY(showsItself());
    QCOMPARE(m_shelf->savedFileNames(), QStringList{ QStringLiteral("picture.png") });
    answer();
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames() == QStringList{ QStringLiteral("renamed.png") }; }));
    QVERIFY(endsAtOnce());
}

void HungMountTest::whatIsAddedWhileNothingAnswersStaysOnTheShelf()
{
    QVERIFY(m_shelf->start());
    hang();
    QVERIFY(add(file(QStringLiteral("server/picture.png")), promptness));
    QVERIFY(showsItself());
    QCOMPARE(identifiedFiles(), 0);
    answer();
    QVERIFY(waitFor([this] { return identifiedFiles() == 1; }));
    QVERIFY(endsAtOnce());
}

// A file that is nowhere has the search look everywhere.
void HungMountTest::aLostFileIsFoundBesideAMountThatDoesNotAnswer()
{
    m_desktop->writeFile(QStringLiteral("files/lost.txt"), "words");
    m_desktop->writeFile(QStringLiteral("files/gone.txt"), "words");
    m_desktop->writeFile(QStringLiteral("files/deep/below/other.txt"), "words");
    QVERIFY(m_shelf->start());
    QVERIFY(add(file(QStringLiteral("gone.txt"))));
    QVERIFY(add(file(QStringLiteral("lost.txt"))));
    QVERIFY(m_shelf->stop());
    QVERIFY(QFile::remove(file(QStringLiteral("gone.txt"))));
    QVERIFY(QFile::rename(file(QStringLiteral("lost.txt")), file(QStringLiteral("deep/below/found.txt"))));
    hang();
    QVERIFY(m_shelf->start());
    QVERIFY(showsItself());
    const QStringList expected{ QStringLiteral("found.txt"), QStringLiteral("gone.txt") };
    QVERIFY(waitFor([&] { return m_shelf->savedFileNames() == expected; }));
    QVERIFY(endsAtOnce());
    QVERIFY(m_shelf->start());
    QVERIFY(endsAtOnce());
    QCOMPARE(complaints(), QByteArray());
}

void HungMountTest::aScreenshotFolderThatDoesNotAnswerBlocksNothing()
{
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"),
                         "[General]\ncollectScreenshots=true\n[screenshots]\nlocation="
                             + QFile::encodeName(file(QStringLiteral("server"))) + "\n");
    hang();
    QVERIFY(m_shelf->start());
    QVERIFY(showsItself());
    QVERIFY(endsAtOnce());
}

void HungMountTest::aLinkBesideTheScreenshotsThatDoesNotAnswerBlocksNothing()
{
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"),
                         "[General]\ncollectScreenshots=true\nmoveScreenshots=true\n[screenshots]\nlocation="
                             + QFile::encodeName(file(QStringLiteral("shots"))) + "\n");
    m_desktop->writeFile(QStringLiteral("files/shots/old.txt"), "words");
    QVERIFY(m_shelf->start());
    hang();
    const QString link = file(QStringLiteral("shots/Screenshot_20260131_120000.png"));
    QVERIFY(QFile::link(file(QStringLiteral("server/picture.png")), link));
    m_desktop->writeFile(QStringLiteral("files/shots/Screenshot_20260131_120001.jpg"), "\xff\xd8\xff\xe0 JFIF");
    // The picture beside it comes, so the link has been looked at by then.
    QVERIFY(waitFor([this] { return m_shelf->savedItems().size() == 1; }));
    QVERIFY(showsItself());
    QVERIFY(endsAtOnce());
    QVERIFY(QFileInfo(link).isSymLink());
}

void HungMountTest::anArgumentThatDoesNotAnswerBlocksNothing()
{
    hang();
    QVERIFY(m_shelf->start({ file(QStringLiteral("server/picture.png")) }));
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames() == QStringList{ QStringLiteral("picture.png") }; }));
    QVERIFY(showsItself());
    QVERIFY(endsAtOnce());
}

void HungMountTest::copyingRemovingAndPastingBlockNothing()
{
    constexpr xcb_keysym_t deletion = 0xffff;
    QVERIFY(m_shelf->start());
    QVERIFY(add(file(QStringLiteral("server/picture.png"))));
    QVERIFY(waitFor([this] { return identifiedFiles() == 1; }));
    QVERIFY(add(file(QStringLiteral("server/other.txt"))));
    hang();
    QVERIFY(takeKeyboard());
    press({ XScreen::control }, 'a');
    press({ XScreen::control }, 'c');
    QVERIFY(waitFor([this] { return m_desktop->screen().hasOwner("CLIPBOARD"); }, promptness));
    press({}, deletion);
    QVERIFY(soonHolds(0));
    press({ XScreen::control }, 'z');
    QVERIFY(soonHolds(2));
    press({ XScreen::control }, 'a');
    press({}, deletion);
    QVERIFY(soonHolds(0));
    press({ XScreen::control }, 'v');
    QVERIFY(soonHolds(2));
    QVERIFY(showsItself());
    QVERIFY(endsAtOnce());
    QCOMPARE(complaints(), QByteArray());
}

QTEST_GUILESS_MAIN(HungMountTest)
#include "HungMountTest.moc"
