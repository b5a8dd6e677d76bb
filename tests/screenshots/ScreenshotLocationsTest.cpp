#include "LinuxScreenshotSettings.h"
#include "ScreenshotLocations.h"

#include "FakeUserDefaults.h"
#include "FileUrl.h"
#include "MountList.h"
#include "Mounts.h"
#include "PngBytes.h"
#include "TemporaryFolder.h"

#include <QTest>

#include <memory>

using namespace nookle;

class ScreenshotLocationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aSettingIsAPathOrAFileUrl_data();
    void aSettingIsAPathOrAFileUrl();
    void thePicturesFolderComesLast();
    void plasmasToolSaysItsFolder_data();
    void plasmasToolSaysItsFolder();
    void xfcesToolSaysItsFolder();
    void theToolOfAnotherDesktopIsNotAsked();
    void flameshotIsAskedOnEveryDesktop();
    void aPipeIsNotWaitedFor();
    void theEnvironmentIsAskedToo();
    void gnomeWithoutItsSettingsIsNoTrouble();
    void theUsersOwnFolderComesFirst();
    void withoutAFolderOfTheUsersTheToolsDecide();
    void whatMayNeverAnswerIsNoScreenshot();

private:
    void writeSettings(const QByteArray& name, const QByteArray& content);

    std::unique_ptr<TemporaryFolder> m_folder;
    ScreenshotEnvironment m_environment;
};

void ScreenshotLocationsTest::init()
{
    m_folder = std::make_unique<TemporaryFolder>();
    m_environment = {};
    m_environment.home = "/home/me";
    m_environment.configFolder = m_folder->path();
    m_environment.picturesFolder = "/home/me/Pictures";
}

void ScreenshotLocationsTest::writeSettings(const QByteArray& name, const QByteArray& content)
{
    m_folder->makeFolder(name.left(name.lastIndexOf('/')));
    m_folder->makeFile(name, content);
}

void ScreenshotLocationsTest::aSettingIsAPathOrAFileUrl_data()
{
    QTest::addColumn<QByteArray>("setting");
    QTest::addColumn<QByteArray>("path");
    QTest::newRow("path") << QByteArray("/shots") << QByteArray("/shots");
    QTest::newRow("home") << QByteArray("~") << QByteArray("/home/me");
    QTest::newRow("below home") << QByteArray("~/shots") << QByteArray("/home/me/shots");
    QTest::newRow("another's home") << QByteArray("~you/shots") << QByteArray();
    QTest::newRow("variable") << QByteArray("$HOME/shots") << QByteArray("/home/me/shots");
    QTest::newRow("URL") << QByteArray("file:///my%20shots/%E9") << QByteArray("/my shots/\xe9");
    QTest::newRow("URL with a variable") << QByteArray("file:$HOME/shots") << QByteArray("/home/me/shots");
    QTest::newRow("URL of another machine") << QByteArray("file://there/shots") << QByteArray();
    QTest::newRow("web address") << QByteArray("https://example.com/shots") << QByteArray();
    QTest::newRow("relative") << QByteArray("shots") << QByteArray();
    QTest::newRow("empty") << QByteArray() << QByteArray();
    QTest::newRow("NUL") << QByteArray("/a\0b", 4) << QByteArray();
}

void ScreenshotLocationsTest::aSettingIsAPathOrAFileUrl()
{
    QFETCH(const QByteArray, setting);
    QFETCH(const QByteArray, path);
    QCOMPARE(expandedPath(setting, "/home/me"), path);
}

void ScreenshotLocationsTest::thePicturesFolderComesLast()
{
    const auto locations = screenshotLocations(m_environment);
    QCOMPARE(locations.last(), QByteArray("/home/me/Pictures/Screenshots"));
}

void ScreenshotLocationsTest::plasmasToolSaysItsFolder_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("older") << QByteArray("[Save]\ndefaultSaveLocation=file:///shots/\n");
    QTest::newRow("newer") << QByteArray("[ImageSave]\nimageSaveLocation[$e]=file:///shots/\n");
}

void ScreenshotLocationsTest::plasmasToolSaysItsFolder()
{
    QFETCH(const QByteArray, content);
    m_folder->makeFile("spectaclerc", content);
    m_environment.desktops = QStringList{ QStringLiteral("KDE") };
    QCOMPARE(screenshotLocations(m_environment).first(), QByteArray("/shots/"));
}

void ScreenshotLocationsTest::xfcesToolSaysItsFolder()
{
    writeSettings("xfce4/xfce4-screenshooter", "app=none\nscreenshot_dir=file:///shots\nenable=1\n");
    m_environment.desktops = QStringList{ QStringLiteral("XFCE") };
    QCOMPARE(screenshotLocations(m_environment).first(), QByteArray("/shots"));
}

void ScreenshotLocationsTest::theToolOfAnotherDesktopIsNotAsked()
{
    m_folder->makeFile("spectaclerc", "[Save]\ndefaultSaveLocation=file:///shots/\n");
    m_environment.desktops = QStringList{ QStringLiteral("XFCE") };
    QVERIFY(screenshotLocations(m_environment).first().startsWith("/home/me/Pictures"));
}

void ScreenshotLocationsTest::flameshotIsAskedOnEveryDesktop()
{
    writeSettings("flameshot/flameshot.ini", "[General]\nsavePath=/home/me/flame shots\n");
    QCOMPARE(screenshotLocations(m_environment).first(), QByteArray("/home/me/flame shots"));
}

void ScreenshotLocationsTest::aPipeIsNotWaitedFor()
{
    m_folder->makeFolder("flameshot");
    m_folder->makeFolder("xfce4");
    for (const char* name : { "flameshot/flameshot.ini", "spectaclerc", "xfce4/xfce4-screenshooter" })
        QCOMPARE(::mkfifo(m_folder->path(name).constData(), 0600), 0);
    m_environment.desktops = QStringList{ QStringLiteral("KDE"), QStringLiteral("XFCE") };
    QVERIFY(screenshotLocations(m_environment).first().startsWith("/home/me/Pictures"));
}

void ScreenshotLocationsTest::theEnvironmentIsAskedToo()
{
    m_environment.grimFolder = "~/grim";
    m_environment.screenshotsFolder = "/shots";
    const auto locations = screenshotLocations(m_environment);
    QCOMPARE(locations.mid(0, 2), (QList<QByteArray>{ "/home/me/grim", "/shots" }));
}

void ScreenshotLocationsTest::gnomeWithoutItsSettingsIsNoTrouble()
{
    m_environment.desktops = QStringList{ QStringLiteral("ubuntu"), QStringLiteral("GNOME") };
    QVERIFY(!screenshotLocations(m_environment).isEmpty());
}

void ScreenshotLocationsTest::theUsersOwnFolderComesFirst()
{
    FakeUserDefaults defaults;
    defaults.stored.insert(QStringLiteral("screenshots/location"), QStringLiteral("~/my shots"));
    const LinuxScreenshotSettings settings(defaults, std::make_shared<Mounts>("/"));
    QCOMPARE(filePath(settings.locations().first()), QByteArray(qgetenv("HOME") + "/my shots"));
}

void ScreenshotLocationsTest::withoutAFolderOfTheUsersTheToolsDecide()
{
    FakeUserDefaults defaults;
    const LinuxScreenshotSettings settings(defaults, std::make_shared<Mounts>("/"));
    QList<QUrl> expected;
    for (const QByteArray& path : screenshotLocations(ScreenshotEnvironment::present()))
        expected.append(fileUrl(path));
    QCOMPARE(settings.locations(), expected);
    QVERIFY(settings.desktopDirectory().isLocalFile());
}

void ScreenshotLocationsTest::whatMayNeverAnswerIsNoScreenshot()
{
    const TemporaryFolder folder;
    for (const char* name : { "server", "later", "disk" })
        folder.makeFolder(name);
    MountList list;
    list.add(folder.path("server"), "nfs");
    list.add(folder.path("later"), "autofs");
    const FakeUserDefaults defaults;
    const LinuxScreenshotSettings settings(defaults, std::make_shared<Mounts>("/", list.path()));
    for (const char* place : { "server", "later", "disk" }) {
        const bool isOnADisk = qstrcmp(place, "disk") == 0;
        const QByteArray file = folder.makeFile(QByteArray(place) + "/a.png", png(pngText("screen", "DP-1")));
        const QByteArray link = folder.path(QByteArray(place) + ".png");
        makeLink(file, link);
        QCOMPARE(settings.isScreenCapture(fileUrl(file)), isOnADisk);
        QCOMPARE(settings.isScreenCapture(fileUrl(link)), isOnADisk);
    }
}

QTEST_GUILESS_MAIN(ScreenshotLocationsTest)
#include "ScreenshotLocationsTest.moc"
