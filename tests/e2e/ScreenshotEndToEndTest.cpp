#include "PrivateDesktop.h"
#include "Shelf.h"
#include "Waiting.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTest>

#include <filesystem>
#include <memory>

#include <sys/xattr.h>

using namespace nookle::e2e;

namespace {

inline constexpr int screenWidth = 1200;
/// How long the program looks at a new file before it lets it go, and a while.
inline constexpr int longerThanBothLooks = 2600;

} // namespace

class ScreenshotEndToEndTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aScreenshotOfXfcesToolLandsOnTheShelf();
    void aScreenshotThatIsNamedInTheUsersLanguageLands();
    void aScreenshotIsTakenOverWhenTheUserWantsIt();
    void otherFilesInTheFolderAreLeftAlone();
    void withTheSettingOffNothingHappens();
    void aFolderThatIsMadeAnewIsCollectedFrom();
    void aFolderThatIsMissingIsSaidInOneLogLine();
    void thousandsOfScreenshotsAtOnceAllLand_data();
    void thousandsOfScreenshotsAtOnceAllLand();

private:
    /// Starts the shelf with what the settings file says beside the folder.
    [[nodiscard]] bool start(const QByteArray& settings);
    [[nodiscard]] QString folder() const { return m_desktop->home(QStringLiteral("shots")); }
    void takeScreenshot();
    /// Makes a file that carries the mark.
    void makeMarked(const QString& name) const;

    std::unique_ptr<PrivateDesktop> m_desktop;
    std::unique_ptr<Shelf> m_shelf;
};

void ScreenshotEndToEndTest::init()
{
    QVERIFY2(qEnvironmentVariableIsSet("NOOKLE_PROGRAM"), "run it with ctest, which says which program is tested");
    m_desktop = PrivateDesktop::tryCreate({ QSize(screenWidth, 700), QStringLiteral("openbox"), false });
    QVERIFY(m_desktop);
    QVERIFY(QDir().mkpath(folder()));
    m_shelf = std::make_unique<Shelf>(*m_desktop, qEnvironmentVariable("NOOKLE_PROGRAM"));
}

void ScreenshotEndToEndTest::cleanup()
{
    if (QTest::currentTestFailed() && m_shelf)
        qInfo("the log: %s", m_shelf->log().constData());
    m_shelf.reset();
    m_desktop.reset();
}

bool ScreenshotEndToEndTest::start(const QByteArray& settings)
{
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"),
                         "[General]\n" + settings + "[screenshots]\nlocation=~/shots\n");
    return m_shelf->start();
}

void ScreenshotEndToEndTest::takeScreenshot()
{
    const auto tool = m_desktop->start(QStringLiteral("xfce4-screenshooter"),
                                       { QStringLiteral("-f"), QStringLiteral("-s"), folder() });
    XScreen& screen = m_desktop->screen();
    // It asks for the name, which is right.
    QVERIFY(waitFor([&] { return screen.window("xfce4-screenshooter").has_value(); }));
    constexpr int attempts = 10;
    constexpr int patienceForSaving = 1000;
    for (int attempt = 0; attempt < attempts && tool->isRunning(); ++attempt) {
        screen.pressKey(XScreen::enter);
        screen.releaseKey(XScreen::enter);
        (void)waitFor([&] { return !tool->isRunning(); }, patienceForSaving);
    }
    QCOMPARE(tool->waitForExit(), 0);
}

void ScreenshotEndToEndTest::makeMarked(const QString& name) const
{
    const QString path = QString(folder() + QLatin1Char('/') + name);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(
        ::setxattr(QFile::encodeName(path).constData(), "user.com.apple.metadata:kMDItemIsScreenCapture", "1", 1, 0),
        0);
}

void ScreenshotEndToEndTest::aScreenshotOfXfcesToolLandsOnTheShelf()
{
    QVERIFY(start("collectScreenshots=true\n"));
    takeScreenshot();
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames().size() == 1; }));
    const QString name = m_shelf->savedFileNames().first();
    QVERIFY2(name.startsWith(QLatin1String("Screenshot_")), qPrintable(name));
    QCOMPARE(QImage(QString(folder() + QLatin1Char('/') + name)).size(), QSize(screenWidth, 700));
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(screenWidth); }));
    QVERIFY(waitFor([this] { return !m_shelf->panel(); }));
}

void ScreenshotEndToEndTest::aScreenshotThatIsNamedInTheUsersLanguageLands()
{
    m_desktop->setVariable(QStringLiteral("LANGUAGE"), QStringLiteral("de"));
    QVERIFY(start("collectScreenshots=true\n"));
    takeScreenshot();
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames().size() == 1; }));
}

void ScreenshotEndToEndTest::aScreenshotIsTakenOverWhenTheUserWantsIt()
{
    QVERIFY(start("collectScreenshots=true\nmoveScreenshots=true\n"));
    takeScreenshot();
    QVERIFY(waitFor([this] { return m_shelf->savedItems().size() == 1; }));
    const QJsonObject item = m_shelf->savedItems().first();
    const QJsonObject image = item.value(QLatin1String("content")).toObject().value(QLatin1String("image")).toObject();
    const QString path =
        QStringLiteral("data/Nookle/Files/%1/%2")
            .arg(item.value(QLatin1String("id")).toString(), image.value(QLatin1String("fileName")).toString());
    QCOMPARE(QImage(m_desktop->home(path)).size(), QSize(screenWidth, 700));
    QVERIFY(QDir(folder()).isEmpty());
}

void ScreenshotEndToEndTest::otherFilesInTheFolderAreLeftAlone()
{
    QVERIFY(start("collectScreenshots=true\n"));
    m_desktop->writeFile(QStringLiteral("shots/letter.txt"), "words");
    m_desktop->writeFile(QStringLiteral("shots/Screenshot_20260131_120000.png"), "no picture");
    QVERIFY(holdsFor([this] { return m_shelf->savedItems().isEmpty(); }, longerThanBothLooks));
}

void ScreenshotEndToEndTest::withTheSettingOffNothingHappens()
{
    QVERIFY(start("collectScreenshots=false\n"));
    takeScreenshot();
    QVERIFY(holdsFor([this] { return m_shelf->savedItems().isEmpty() && !m_shelf->panel(); }, longerThanBothLooks));
}

void ScreenshotEndToEndTest::aFolderThatIsMadeAnewIsCollectedFrom()
{
    QVERIFY(start("collectScreenshots=true\n"));
    makeMarked(QStringLiteral("a"));
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames().size() == 1; }));
    QVERIFY(QDir(folder()).removeRecursively());
    // The look at the folder that its removal brings about would find what is there soon after.
    QVERIFY(holdsFor([this] { return m_shelf->savedFileNames().size() == 1; }, longerThanBothLooks));
    QVERIFY(QDir().mkpath(folder()));
    makeMarked(QStringLiteral("b"));
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames().contains(QStringLiteral("b")); }));
    QCOMPARE(m_shelf->startAgain(), 0);
    QVERIFY(m_shelf->stop());
}

void ScreenshotEndToEndTest::aFolderThatIsMissingIsSaidInOneLogLine()
{
    QVERIFY(QDir(folder()).removeRecursively());
    QVERIFY(start("collectScreenshots=true\n"));
    QVERIFY(waitFor([this] { return m_shelf->log().contains("no system tray"); }));
    QCOMPARE(m_shelf->log().count("Nookle: screenshot folder not readable: "), 1);
    QVERIFY(m_shelf->stop());
}

void ScreenshotEndToEndTest::thousandsOfScreenshotsAtOnceAllLand_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<int>("count");
    QTest::newRow("added") << QByteArray("collectScreenshots=true\n") << 5000;
    QTest::newRow("taken over") << QByteArray("collectScreenshots=true\nmoveScreenshots=true\n") << 1000;
}

void ScreenshotEndToEndTest::thousandsOfScreenshotsAtOnceAllLand()
{
    QFETCH(const QByteArray, settings);
    QFETCH(const int, count);
    QVERIFY(start(settings));
    for (int index = 0; index < count; ++index)
        makeMarked(QStringLiteral("%1").arg(index, 4, 10, QLatin1Char('0')));
    constexpr int patienceForAll = 60000;
    QVERIFY(waitFor([&] { return m_shelf->savedItems().size() == count; }, patienceForAll));
    QCOMPARE(m_shelf->startAgain(), 0);
    QVERIFY(m_shelf->stop());
}

QTEST_GUILESS_MAIN(ScreenshotEndToEndTest)
#include "ScreenshotEndToEndTest.moc"
