#include "DesktopAppearance.h"

#include "PrivateBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QPalette>
#include <QTest>

#include <memory>

using namespace nookle;

/// The desktop's settings as the bus knows them.
class FakeSettings : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    Q_SLOT QDBusVariant Read(const QString& group, const QString& key)
    {
        asked.append(group + QLatin1Char(' ') + key);
        // Wrapped twice, as the real one does.
        return QDBusVariant(QVariant::fromValue(QDBusVariant(scheme)));
    }

    Q_SIGNAL void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

    uint scheme = 0;
    QStringList asked;
};

class DesktopAppearanceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aDesktopThatPrefersDarkGetsDarkColours();
    void aDesktopWithoutAPreferenceLeavesThemAlone();
    void aChangeIsFollowed();
    void aServiceThatStartsLaterIsAsked();
    void otherSettingsChangeNothing();
    void coloursThatAreDarkAlreadyAreLeftAlone();
    void withoutTheServiceNothingChanges();

private:
    [[nodiscard]] static bool isDark() { return QGuiApplication::palette().color(QPalette::Window).lightness() < 100; }
    void startService(uint scheme);
    /// Returns once everything that was sent has come.
    static void settle();

    PrivateBus m_bus;
    QPalette m_light;
    std::unique_ptr<FakeSettings> m_settings;
};

namespace {

const QString serviceConnection = QStringLiteral("settings");

} // namespace

void DesktopAppearanceTest::initTestCase()
{
    QVERIFY(!m_bus.address().isEmpty());
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.address());
    m_light = QPalette(QColor(0xf0, 0xf0, 0xf0));
    m_light.setColor(QPalette::Highlight, Qt::magenta);
}

void DesktopAppearanceTest::init()
{
    QGuiApplication::setPalette(m_light);
}

void DesktopAppearanceTest::cleanup()
{
    QDBusConnection::disconnectFromBus(serviceConnection);
    m_settings.reset();
}

void DesktopAppearanceTest::startService(uint scheme)
{
    m_settings = std::make_unique<FakeSettings>();
    m_settings->scheme = scheme;
    QDBusConnection bus = QDBusConnection::connectToBus(QString::fromLatin1(m_bus.address()), serviceConnection);
    QVERIFY(bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), m_settings.get(),
                               QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
    QVERIFY(bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
}

void DesktopAppearanceTest::settle()
{
    const QDBusMessage ask =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                                       QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId"));
    for (const QDBusConnection& bus : { QDBusConnection(serviceConnection), QDBusConnection::sessionBus() })
        (void)bus.call(ask);
    QCoreApplication::processEvents();
}

void DesktopAppearanceTest::aDesktopThatPrefersDarkGetsDarkColours()
{
    startService(1);
    const DesktopAppearance appearance;
    QTRY_VERIFY(isDark());
    const QPalette dark = QGuiApplication::palette();
    QVERIFY(dark.color(QPalette::WindowText).lightness() > 200);
    QVERIFY(dark.color(QPalette::Base).lightness() < 100);
    QCOMPARE(dark.color(QPalette::Highlight), QColor(Qt::magenta));
    QCOMPARE(m_settings->asked, QStringList{ QStringLiteral("org.freedesktop.appearance color-scheme") });
}

void DesktopAppearanceTest::aDesktopWithoutAPreferenceLeavesThemAlone()
{
    for (const uint scheme : { 0U, 2U }) {
        startService(scheme);
        const DesktopAppearance appearance;
        QTRY_COMPARE(m_settings->asked.size(), 1);
        settle();
        QVERIFY(!isDark());
        cleanup();
    }
}

void DesktopAppearanceTest::aChangeIsFollowed()
{
    startService(0);
    const DesktopAppearance appearance;
    QTRY_COMPARE(m_settings->asked.size(), 1);
    const auto change = [this](uint scheme) {
        Q_EMIT m_settings->SettingChanged(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"),
                                          QDBusVariant(scheme));
    };
    change(1);
    QTRY_VERIFY(isDark());
    change(2);
    QTRY_VERIFY(!isDark());
    QCOMPARE(QGuiApplication::palette().color(QPalette::Window), m_light.color(QPalette::Window));
}

void DesktopAppearanceTest::aServiceThatStartsLaterIsAsked()
{
    const DesktopAppearance appearance;
    settle();
    startService(1);
    QTRY_VERIFY(isDark());
}

void DesktopAppearanceTest::otherSettingsChangeNothing()
{
    startService(0);
    const DesktopAppearance appearance;
    QTRY_COMPARE(m_settings->asked.size(), 1);
    const QString group = QStringLiteral("org.freedesktop.appearance");
    Q_EMIT m_settings->SettingChanged(group, QStringLiteral("contrast"), QDBusVariant(1U));
    Q_EMIT m_settings->SettingChanged(QStringLiteral("org.example"), QStringLiteral("color-scheme"), QDBusVariant(1U));
    settle();
    QVERIFY(!isDark());
}

void DesktopAppearanceTest::coloursThatAreDarkAlreadyAreLeftAlone()
{
    startService(0);
    QPalette dark(QColor(0x10, 0x20, 0x30));
    dark.setColor(QPalette::WindowText, Qt::white);
    QGuiApplication::setPalette(dark);
    const DesktopAppearance appearance;
    Q_EMIT m_settings->SettingChanged(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"),
                                      QDBusVariant(1U));
    settle();
    QCOMPARE(QGuiApplication::palette().color(QPalette::Window), QColor(0x10, 0x20, 0x30));
    QVERIFY(m_settings->asked.isEmpty());
}

void DesktopAppearanceTest::withoutTheServiceNothingChanges()
{
    const DesktopAppearance appearance;
    settle();
    QVERIFY(!isDark());
}

QTEST_MAIN(DesktopAppearanceTest)
#include "DesktopAppearanceTest.moc"
