#include "StartupSettings.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace nookle;

class StartupSettingsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void withoutAnySuchProgramThereIsNoPage();
    void thePageOfTheRunningDesktopComesFirst();
    void anotherDesktopsPageIsBetterThanNone();
    void theNextProgramOfTheSameDesktopStandsIn();

private:
    void install(const QString& program);

    std::unique_ptr<QTemporaryDir> m_programs;
};

void StartupSettingsTest::init()
{
    m_programs = std::make_unique<QTemporaryDir>();
    qputenv("PATH", QFile::encodeName(m_programs->path()));
}

void StartupSettingsTest::install(const QString& program)
{
    QFile file(m_programs->filePath(program));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
}

void StartupSettingsTest::withoutAnySuchProgramThereIsNoPage()
{
    QVERIFY(!StartupSettings::command({ QStringLiteral("XFCE") }));
}

void StartupSettingsTest::thePageOfTheRunningDesktopComesFirst()
{
    for (const char* program :
         { "gnome-tweaks", "systemsettings", "xfce4-session-settings", "mate-session-properties" })
        install(QLatin1String(program));
    QCOMPARE(StartupSettings::command({ QStringLiteral("XFCE") }),
             QStringList{ QStringLiteral("xfce4-session-settings") });
    const QStringList plasma{ QStringLiteral("systemsettings"), QStringLiteral("kcm_autostart") };
    QCOMPARE(StartupSettings::command({ QStringLiteral("KDE") }), plasma);
    QCOMPARE(StartupSettings::command({ QStringLiteral("ubuntu"), QStringLiteral("GNOME") }),
             QStringList{ QStringLiteral("gnome-tweaks") });
}

void StartupSettingsTest::anotherDesktopsPageIsBetterThanNone()
{
    install(QStringLiteral("mate-session-properties"));
    QCOMPARE(StartupSettings::command({}), QStringList{ QStringLiteral("mate-session-properties") });
}

void StartupSettingsTest::theNextProgramOfTheSameDesktopStandsIn()
{
    install(QStringLiteral("gnome-session-properties"));
    QCOMPARE(StartupSettings::command({ QStringLiteral("GNOME") }),
             QStringList{ QStringLiteral("gnome-session-properties") });
}

QTEST_GUILESS_MAIN(StartupSettingsTest)
#include "StartupSettingsTest.moc"
