#include "DiagnosticsReport.h"

#include "PrivateBus.h"
#include "ProgramVersion.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDir>
#include <QTest>

#include <optional>

using namespace nookle;

class DiagnosticsReportTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void everyFactHasItsLine();
    void theVersionComesFirst();
    void aServiceIsRunningOrMissing();
    void theSessionIsNamed();
    void nothingNamesTheUsersFiles();

private:
    PrivateBus m_bus;
};

namespace {

/// The value of the line with that title; none without such a line.
[[nodiscard]] std::optional<QString> fact(const QString& title)
{
    const QString start = title + QStringLiteral(": ");
    for (const QString& line : diagnosticsReport().split(QLatin1Char('\n'))) {
        if (line.startsWith(start))
            return line.mid(start.size());
    }
    return std::nullopt;
}

} // namespace

void DiagnosticsReportTest::initTestCase()
{
    QVERIFY(!m_bus.address().isEmpty());
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.address());
}

void DiagnosticsReportTest::everyFactHasItsLine()
{
    const QString report = diagnosticsReport();
    QVERIFY(report.endsWith(QLatin1Char('\n')));
    QStringList titles;
    for (const QString& line : report.chopped(1).split(QLatin1Char('\n')))
        titles.append(line.section(QStringLiteral(": "), 0, 0));
    const QStringList expected{
        QStringLiteral("Nookle"),
        QStringLiteral("Qt"),
        QStringLiteral("System"),
        QStringLiteral("Kernel"),
        QStringLiteral("Processor"),
        QStringLiteral("Session"),
        QStringLiteral("Backend"),
        QStringLiteral("Displays"),
        QStringLiteral("Icon theme"),
        QStringLiteral("Language"),
        QStringLiteral("Sandbox"),
        QStringLiteral("Session bus"),
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("org.freedesktop.portal.Documents"),
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("org.freedesktop.Notifications"),
        QStringLiteral("org.freedesktop.thumbnails.Thumbnailer1"),
        QStringLiteral("org.kde.StatusNotifierWatcher"),
    };
    QCOMPARE(titles, expected);
}

void DiagnosticsReportTest::theVersionComesFirst()
{
    QVERIFY(diagnosticsReport().startsWith(QStringLiteral("Nookle: %1\nQt: 6.").arg(programVersion())));
}

void DiagnosticsReportTest::aServiceIsRunningOrMissing()
{
    const QString portal = QStringLiteral("org.freedesktop.portal.Documents");
    QCOMPARE(fact(portal), QStringLiteral("missing"));
    QVERIFY(QDBusConnection::sessionBus().registerService(portal));
    QCOMPARE(fact(portal), QStringLiteral("running"));
    QCOMPARE(fact(QStringLiteral("Session bus")), QStringLiteral("running"));
    QVERIFY(QDBusConnection::sessionBus().unregisterService(portal));
}

void DiagnosticsReportTest::theSessionIsNamed()
{
    qputenv("XDG_SESSION_TYPE", "wayland");
    qputenv("XDG_CURRENT_DESKTOP", "one\ntwo");
    QCOMPARE(fact(QStringLiteral("Session")), QStringLiteral("wayland, one two"));
    // No display server: the toolkit draws into memory.
    QCOMPARE(fact(QStringLiteral("Backend")), QStringLiteral("offscreen"));
}

void DiagnosticsReportTest::nothingNamesTheUsersFiles()
{
    QVERIFY(!diagnosticsReport().contains(QDir::homePath()));
    QVERIFY(!diagnosticsReport().contains(QCoreApplication::applicationDirPath()));
}

QTEST_MAIN(DiagnosticsReportTest)
#include "DiagnosticsReportTest.moc"
