#include "StatusNotifierTrayHost.h"

#include "PrivateBus.h"

#include <QDBusConnection>
#include <QTest>

#include <memory>

using namespace nookle;

/// The service that knows the trays of the desktop.
class FakeWatcher : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)

public:
    [[nodiscard]] bool hasHost() const { return m_hasHost; }

    void setHost(bool hasHost)
    {
        m_hasHost = hasHost;
        if (m_hasHost)
            Q_EMIT StatusNotifierHostRegistered();
        else
            Q_EMIT StatusNotifierHostUnregistered();
    }

    Q_SIGNAL void StatusNotifierHostRegistered();
    Q_SIGNAL void StatusNotifierHostUnregistered();

private:
    bool m_hasHost = false;
};

class StatusNotifierTrayHostTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void aTrayThatIsThereIsFound();
    void aServiceWithoutATrayIsNone();
    void aTrayThatComesLaterIsTold();
    void aServiceThatGoesTakesTheTrayWithIt();
    void aServiceThatComesBackBringsTheTrayBack();

private:
    void startService(bool hasHost);
    void stopService();

    PrivateBus m_bus;
    std::unique_ptr<FakeWatcher> m_watcher;
};

namespace {

const QString serviceConnection = QStringLiteral("watcher");

} // namespace

void StatusNotifierTrayHostTest::initTestCase()
{
    QVERIFY(!m_bus.address().isEmpty());
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.address());
}

void StatusNotifierTrayHostTest::cleanup()
{
    stopService();
}

void StatusNotifierTrayHostTest::startService(bool hasHost)
{
    m_watcher = std::make_unique<FakeWatcher>();
    m_watcher->setHost(hasHost);
    QDBusConnection bus = QDBusConnection::connectToBus(QString::fromLatin1(m_bus.address()), serviceConnection);
    QVERIFY(bus.registerObject(QStringLiteral("/StatusNotifierWatcher"), m_watcher.get(),
                               QDBusConnection::ExportAllProperties | QDBusConnection::ExportAllSignals));
    QVERIFY(bus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher")));
}

void StatusNotifierTrayHostTest::stopService()
{
    QDBusConnection::disconnectFromBus(serviceConnection);
    m_watcher.reset();
}

void StatusNotifierTrayHostTest::aTrayThatIsThereIsFound()
{
    startService(true);
    StatusNotifierTrayHost tray;
    int changes = 0;
    tray.onChanged = [&changes] { ++changes; };
    QTRY_VERIFY(tray.isPresent());
    QCOMPARE(changes, 1);
}

void StatusNotifierTrayHostTest::aServiceWithoutATrayIsNone()
{
    startService(false);
    StatusNotifierTrayHost tray;
    m_watcher->setHost(true);
    QTRY_VERIFY(tray.isPresent());
    m_watcher->setHost(false);
    QTRY_VERIFY(!tray.isPresent());
}

void StatusNotifierTrayHostTest::aTrayThatComesLaterIsTold()
{
    StatusNotifierTrayHost tray;
    QVERIFY(!tray.isPresent());
    int changes = 0;
    tray.onChanged = [&changes] { ++changes; };
    startService(true);
    QTRY_COMPARE(changes, 1);
    QVERIFY(tray.isPresent());
}

void StatusNotifierTrayHostTest::aServiceThatGoesTakesTheTrayWithIt()
{
    startService(true);
    StatusNotifierTrayHost tray;
    QTRY_VERIFY(tray.isPresent());
    stopService();
    QTRY_VERIFY(!tray.isPresent());
}

void StatusNotifierTrayHostTest::aServiceThatComesBackBringsTheTrayBack()
{
    startService(true);
    StatusNotifierTrayHost tray;
    QTRY_VERIFY(tray.isPresent());
    stopService();
    QTRY_VERIFY(!tray.isPresent());
    startService(true);
    QTRY_VERIFY(tray.isPresent());
}

QTEST_MAIN(StatusNotifierTrayHostTest)
#include "StatusNotifierTrayHostTest.moc"
