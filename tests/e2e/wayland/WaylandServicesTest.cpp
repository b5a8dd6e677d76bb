#include "TrayServer.h"
#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QDir>
#include <QImage>
#include <QJsonObject>
#include <QtTest>

#include <memory>

using namespace nookle::e2e;

/// What the rest of the desktop offers and asks for, in a session without an X server.
class WaylandServicesTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theTrayHasTheIconAndItsMenuWorks();
    void aTrayThatComesLaterGetsTheIcon();
    void aCallAddsFilesAndShowsTheShelfForAMoment();
    void aCallWithNothingTellsTheCaller();
    void aSecondStartTakesFiles();
    void aScreenshotLandsOnTheShelf();
    void aStartWithTheSessionShowsNothing();
    void theFirstStartByHandIntroducesTheShelf();

private:
    [[nodiscard]] bool startTray();
    [[nodiscard]] QString folder() const { return m_desktop->home(QStringLiteral("shots")); }
    /// Takes a screenshot with a tool of the desktop, and returns the name of its file.
    [[nodiscard]] QString takeScreenshot() const;

    std::unique_ptr<TrayServer> m_tray;
};

void WaylandServicesTest::init()
{
    QVERIFY(setUpDesktop(compositor()));
    QVERIFY(m_desktop->environment().value(QStringLiteral("DISPLAY")).isEmpty());
}

void WaylandServicesTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("%1-%2.png")
                        .arg(qEnvironmentVariable("NOOKLE_ENVIRONMENT"), QLatin1String(QTest::currentTestFunction())));
    m_tray.reset();
    tearDownDesktop();
}

bool WaylandServicesTest::startTray()
{
    m_tray = TrayServer::tryStart(m_desktop->environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")));
    return m_tray != nullptr;
}

void WaylandServicesTest::theTrayHasTheIconAndItsMenuWorks()
{
    QVERIFY(startTray());
    QVERIFY(startShelf());
    QVERIFY(waitFor([this] { return m_tray->items().size() == 1; }));
    QCOMPARE(m_tray->text(QStringLiteral("Id")), QStringLiteral("nookle"));
    QVERIFY(!m_tray->icons().isEmpty());
    QStringList labels;
    for (const TrayServer::Entry& entry : m_tray->menu())
        labels.append(entry.isSeparator ? QStringLiteral("-") : entry.label);
    QCOMPARE(labels,
             (QStringList{ QStringLiteral("Show Shelf"), QStringLiteral("Keep Shelf Open"), QStringLiteral("-"),
                           QStringLiteral("Settings…"), QStringLiteral("-"), QStringLiteral("Quit Nookle") }));
    QVERIFY(m_tray->menu().first().showsKeys);
    m_tray->choose(QStringLiteral("Show Shelf"));
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    m_tray->choose(QStringLiteral("Show Shelf"));
    QVERIFY(waitFor([this] { return isPanelGone(); }));
    const QRect inSettings(middle, QSize(200, 100));
    const QImage before = m_desktop->picture(inSettings);
    m_tray->choose(QStringLiteral("Settings…"));
    QVERIFY(!m_desktop->hasPictures() || waitFor([&] { return m_desktop->picture(inSettings) != before; }));
    m_tray->choose(QStringLiteral("Quit Nookle"));
    QVERIFY(m_shelf->hasEnded());
}

void WaylandServicesTest::aTrayThatComesLaterGetsTheIcon()
{
    QVERIFY(startShelf());
    QVERIFY(waitFor([this] { return m_shelf->log().contains("no system tray"); }));
    QVERIFY(startTray());
    QVERIFY(waitFor([this] { return m_tray->items().size() == 1; }));
}

void WaylandServicesTest::aCallAddsFilesAndShowsTheShelfForAMoment()
{
    QVERIFY(startShelf());
    QVERIFY(waitFor([this] { return isPanelGone(); }));
    QVERIFY(callShelf({ QStringLiteral("org.nookle.Nookle1.AddToShelf"),
                        QStringLiteral("['%1']").arg(QString::fromLatin1(fileList().trimmed())), QString() }));
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    QVERIFY(waitFor([this] { return isPanelGone(); }));
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames() == QStringList{ QStringLiteral("note one.txt") }; }));
}

void WaylandServicesTest::aCallWithNothingTellsTheCaller()
{
    QVERIFY(startShelf());
    QVERIFY(!callShelf({ QStringLiteral("org.nookle.Nookle1.AddToShelf"), QStringLiteral("@as []"), QString() }));
    QVERIFY(m_shelf->savedItems().isEmpty());
}

void WaylandServicesTest::aSecondStartTakesFiles()
{
    QVERIFY(startShelf());
    QCOMPARE(m_shelf->startAgain({ home("files/note one.txt") }), 0);
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames() == QStringList{ QStringLiteral("note one.txt") }; }));
}

QString WaylandServicesTest::takeScreenshot() const
{
    if (m_desktop->hasPictures())
        return m_desktop->start(QStringLiteral("grim"))->waitForExit() == 0
            ? QDir(folder()).entryList(QDir::Files).value(0)
            : QString();
    // KWin gives no pictures here, so this one has the name that Plasma's tool would give it.
    const QString name = QStringLiteral("Screenshot_20260131_120000.png");
    QImage picture(WaylandDesktop::displaySize, QImage::Format_RGB32);
    picture.fill(Qt::white);
    return picture.save(QDir(folder()).filePath(name)) ? name : QString();
}

void WaylandServicesTest::aScreenshotLandsOnTheShelf()
{
    m_desktop->setVariable(QStringLiteral("GRIM_DEFAULT_DIR"), folder());
    QVERIFY(QDir().mkpath(folder()));
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"),
                         m_desktop->hasPictures()
                             ? "[General]\ncollectScreenshots=true\n"
                             : "[General]\ncollectScreenshots=true\n[screenshots]\nlocation=~/shots\n");
    QVERIFY(startShelf());
    QVERIFY(waitFor([this] { return isPanelGone(); }));
    const QString name = takeScreenshot();
    QVERIFY(!name.isEmpty());
    QVERIFY2(waitFor([&] { return m_shelf->savedFileNames() == QStringList{ name }; }), qPrintable(name));
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    QVERIFY(waitFor([this] { return isPanelGone(); }));
}

void WaylandServicesTest::aStartWithTheSessionShowsNothing()
{
    m_desktop->setVariable(QStringLiteral("NOOKLE_START"), QStringLiteral("login"));
    QVERIFY(startShelf());
    QVERIFY(holdsFor([this] { return isPanelGone(); }, 900));
    QVERIFY(activate(QStringLiteral("toggle")));
    QVERIFY(waitFor([this] { return isPanelOut(); }));
}

void WaylandServicesTest::theFirstStartByHandIntroducesTheShelf()
{
    m_desktop->setVariable(QStringLiteral("NOOKLE_START"), QString());
    QVERIFY(startShelf());
    QVERIFY(waitFor([this] { return isPanelOut(); }));
}

QTEST_GUILESS_MAIN(WaylandServicesTest)
#include "WaylandServicesTest.moc"
