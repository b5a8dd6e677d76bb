#include "LoginProgramsPage.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace nookle;

class LoginProgramsPageTest : public QObject {
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

void LoginProgramsPageTest::init()
{
    m_programs = std::make_unique<QTemporaryDir>();
    qputenv("PATH", QFile::encodeName(m_programs->path()));
}

void LoginProgramsPageTest::install(const QString& program)
{
    QFile file(m_programs->filePath(program));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
}

void LoginProgramsPageTest::withoutAnySuchProgramThereIsNoPage()
{
    QVERIFY(!LoginProgramsPage::command({ QStringLiteral("XFCE") }));
}

void LoginProgramsPageTest::thePageOfTheRunningDesktopComesFirst()
{
    for (const char* program :
         { "gnome-tweaks", "systemsettings", "xfce4-session-settings", "mate-session-properties" })
        install(QLatin1String(program));
    QCOMPARE(LoginProgramsPage::command({ QStringLiteral("XFCE") }),
             QStringList{ QStringLiteral("xfce4-session-settings") });
    const QStringList plasma{ QStringLiteral("systemsettings"), QStringLiteral("kcm_autostart") };
    QCOMPARE(LoginProgramsPage::command({ QStringLiteral("KDE") }), plasma);
    QCOMPARE(LoginProgramsPage::command({ QStringLiteral("ubuntu"), QStringLiteral("GNOME") }),
             QStringList{ QStringLiteral("gnome-tweaks") });
}

void LoginProgramsPageTest::anotherDesktopsPageIsBetterThanNone()
{
    install(QStringLiteral("mate-session-properties"));
    QCOMPARE(LoginProgramsPage::command({}), QStringList{ QStringLiteral("mate-session-properties") });
}

void LoginProgramsPageTest::theNextProgramOfTheSameDesktopStandsIn()
{
    install(QStringLiteral("gnome-session-properties"));
    QCOMPARE(LoginProgramsPage::command({ QStringLiteral("GNOME") }),
             QStringList{ QStringLiteral("gnome-session-properties") });
}

QTEST_GUILESS_MAIN(LoginProgramsPageTest)
#include "LoginProgramsPageTest.moc"
