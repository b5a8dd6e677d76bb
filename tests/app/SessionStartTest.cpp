#include "SessionStart.h"

#include "PrivateBus.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <cstdlib>

using namespace nookle;

namespace {

const QString managerConnection = QStringLiteral("manager");
const QString programName = QStringLiteral("org.nookle.Nookle");

/// What the bus starts in these tests: takes the program's name, leaves a file, and ends.
int serve(const QString& marker)
{
    QFile file(marker);
    const bool isSeen = file.open(QIODevice::WriteOnly);
    return isSeen && QDBusConnection::sessionBus().registerService(programName) ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

/// The manager of the session's services, which knows the variables of what it starts.
class FakeManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.systemd1.Manager")
    Q_PROPERTY(QStringList Environment MEMBER environment CONSTANT)

public:
    QStringList environment;
};

class SessionStartTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void theBusStartsTheUnit();
    void aProgramThatRunsIsLeftAlone();
    void withoutAManagerNothingIsStarted();
    void aManagerOfAnotherSessionStartsNothing_data();
    void aManagerOfAnotherSessionStartsNothing();
    void aUnitThatFailsIsNotTakenForAStart();

private:
    void beManaged(const QStringList& environment);
    void serveBy(const QString& command);
    [[nodiscard]] bool isStarted() const { return QFile::exists(m_marker); }

    QTemporaryDir m_folder;
    QString m_marker = m_folder.filePath(QStringLiteral("started"));
    PrivateBus m_bus{ m_folder.filePath(QStringLiteral("services")) };
    QThread m_thread;
    FakeManager m_manager;
};

void SessionStartTest::initTestCase()
{
    QVERIFY(!m_bus.address().isEmpty());
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.address());
    QVERIFY(QDBusConnection::connectToBus(QString::fromLatin1(m_bus.address()), managerConnection).isConnected());
    // The test's own thread waits for the answers.
    m_manager.moveToThread(&m_thread);
    m_thread.start();
}

void SessionStartTest::init()
{
    QFile::remove(m_marker);
    qputenv("DISPLAY", ":7");
    for (const char* variable : { "WAYLAND_DISPLAY", "XAUTHORITY", "XDG_CURRENT_DESKTOP", "XDG_CONFIG_HOME",
                                  "XDG_DATA_HOME", "LANG", "LANGUAGE", "LC_ALL", "LC_MESSAGES", "NOOKLE_BACKEND" })
        qunsetenv(variable);
    serveBy(QStringLiteral("%1 serve %2").arg(QCoreApplication::applicationFilePath(), m_marker));
}

void SessionStartTest::cleanup()
{
    QDBusConnection bus(managerConnection);
    bus.unregisterService(QStringLiteral("org.freedesktop.systemd1"));
    bus.unregisterService(programName);
    bus.unregisterObject(QStringLiteral("/org/freedesktop/systemd1"));
}

void SessionStartTest::cleanupTestCase()
{
    m_thread.quit();
    m_thread.wait();
}

void SessionStartTest::beManaged(const QStringList& environment)
{
    m_manager.environment = environment;
    QDBusConnection bus(managerConnection);
    QVERIFY(bus.registerObject(QStringLiteral("/org/freedesktop/systemd1"), &m_manager,
                               QDBusConnection::ExportAllProperties));
    QVERIFY(bus.registerService(QStringLiteral("org.freedesktop.systemd1")));
}

void SessionStartTest::serveBy(const QString& command)
{
    QFile file(m_folder.filePath(QStringLiteral("services/org.nookle.Nookle.service")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[D-BUS Service]\nName=org.nookle.Nookle\nExec=" + command.toUtf8() + '\n');
    file.close();
    QDBusConnection(managerConnection)
        .call(QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                             QStringLiteral("/org/freedesktop/DBus"),
                                             QStringLiteral("org.freedesktop.DBus"), QStringLiteral("ReloadConfig")));
}

void SessionStartTest::theBusStartsTheUnit()
{
    beManaged({ QStringLiteral("HOME=/home/one"), QStringLiteral("DISPLAY=:7"), QStringLiteral("XDG_DATA_HOME=") });
    QVERIFY(startBySession(QDBusConnection::sessionBus()));
    QVERIFY(isStarted());
}

void SessionStartTest::aProgramThatRunsIsLeftAlone()
{
    beManaged({ QStringLiteral("DISPLAY=:7") });
    // What the test before has started may not be gone yet.
    QTRY_VERIFY(QDBusConnection(managerConnection).registerService(programName));
    QVERIFY(startBySession(QDBusConnection::sessionBus()));
    QVERIFY(!isStarted());
}

void SessionStartTest::withoutAManagerNothingIsStarted()
{
    QVERIFY(!startBySession(QDBusConnection::sessionBus()));
    QVERIFY(!isStarted());
}

void SessionStartTest::aManagerOfAnotherSessionStartsNothing_data()
{
    QTest::addColumn<QStringList>("environment");
    const QString display = QStringLiteral("DISPLAY=:7");
    QTest::newRow("no display yet") << QStringList{};
    QTest::newRow("another display") << QStringList{ QStringLiteral("DISPLAY=:70") };
    QTest::newRow("another compositor") << QStringList{ display, QStringLiteral("WAYLAND_DISPLAY=wayland-1") };
    QTest::newRow("other files") << QStringList{ display, QStringLiteral("XDG_DATA_HOME=/elsewhere") };
    QTest::newRow("another language") << QStringList{ display, QStringLiteral("LANG=de_DE.UTF-8") };
    QTest::newRow("another language above it") << QStringList{ display, QStringLiteral("LC_ALL=de_DE.UTF-8") };
}

void SessionStartTest::aManagerOfAnotherSessionStartsNothing()
{
    QFETCH(const QStringList, environment);
    beManaged(environment);
    QVERIFY(!startBySession(QDBusConnection::sessionBus()));
    QVERIFY(!isStarted());
}

void SessionStartTest::aUnitThatFailsIsNotTakenForAStart()
{
    beManaged({ QStringLiteral("DISPLAY=:7") });
    serveBy(QStringLiteral("/bin/false"));
    QVERIFY(!startBySession(QDBusConnection::sessionBus()));
}

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments.at(1) == QLatin1String("serve"))
        return serve(arguments.at(2));
    SessionStartTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "SessionStartTest.moc"
