#include "ScreenshotLocations.h"

#include "TemporaryFolder.h"

#include <QProcess>
#include <QTest>

#include <gio/gio.h>

#include <memory>

using namespace nookle;

/// On its own, because GLib reads the schemas of a process once.
class GnomeScreenshotFolderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void theToolsFolderComesFirst_data();
    void theToolsFolderComesFirst();
    void anEmptySettingIsNone();
    void anotherDesktopDoesNotAskIt();

private:
    static void setFolder(const char* value);
    [[nodiscard]] static ScreenshotEnvironment environment(const QString& desktop)
    {
        return { .home = "/home/me",
                 .configFolder = "/nowhere",
                 .picturesFolder = "/home/me/Pictures",
                 .desktops = { desktop },
                 .grimFolder = {},
                 .screenshotsFolder = {} };
    }

    TemporaryFolder m_folder;
};

void GnomeScreenshotFolderTest::initTestCase()
{
    m_folder.makeFile("org.gnome.gnome-screenshot.gschema.xml",
                      "<schemalist><schema id='org.gnome.gnome-screenshot' path='/org/gnome/gnome-screenshot/'>"
                      "<key name='auto-save-directory' type='s'><default>''</default></key></schema></schemalist>");
    QCOMPARE(QProcess::execute(QStringLiteral("glib-compile-schemas"), { QString::fromUtf8(m_folder.path()) }), 0);
    qputenv("GSETTINGS_SCHEMA_DIR", m_folder.path());
    qputenv("GSETTINGS_BACKEND", "memory");
}

void GnomeScreenshotFolderTest::setFolder(const char* value)
{
    GSettings* settings = g_settings_new("org.gnome.gnome-screenshot");
    g_settings_set_string(settings, "auto-save-directory", value);
    g_object_unref(settings);
}

void GnomeScreenshotFolderTest::theToolsFolderComesFirst_data()
{
    QTest::addColumn<QByteArray>("setting");
    QTest::addColumn<QByteArray>("path");
    QTest::newRow("URL") << QByteArray("file:///my%20shots") << QByteArray("/my shots");
    QTest::newRow("path") << QByteArray("/shots") << QByteArray("/shots");
}

void GnomeScreenshotFolderTest::theToolsFolderComesFirst()
{
    QFETCH(const QByteArray, setting);
    QFETCH(const QByteArray, path);
    setFolder(setting.constData());
    for (const char* desktop : { "GNOME", "X-Cinnamon" })
        QCOMPARE(screenshotLocations(environment(QLatin1String(desktop))).first(), path);
}

void GnomeScreenshotFolderTest::anEmptySettingIsNone()
{
    setFolder("");
    QVERIFY(screenshotLocations(environment(QStringLiteral("GNOME"))).first().startsWith("/home/me/Pictures/"));
}

void GnomeScreenshotFolderTest::anotherDesktopDoesNotAskIt()
{
    setFolder("/shots");
    QVERIFY(screenshotLocations(environment(QStringLiteral("KDE"))).first().startsWith("/home/me/Pictures/"));
}

QTEST_GUILESS_MAIN(GnomeScreenshotFolderTest)
#include "GnomeScreenshotFolderTest.moc"
