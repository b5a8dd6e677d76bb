#include "DesktopAppearance.h"

#include "PrivateBus.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QFont>
#include <QGuiApplication>
#include <QIcon>
#include <QPalette>
#include <QTest>
#include <QWindow>

#include <memory>

using namespace nookle;

/// An accent color on the bus; no color unless it is set.
struct Accent {
    double red = -1;
    double green = -1;
    double blue = -1;
};
Q_DECLARE_METATYPE(Accent)

QDBusArgument& operator<<(QDBusArgument& argument, const Accent& accent)
{
    argument.beginStructure();
    argument << accent.red << accent.green << accent.blue;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Accent& accent)
{
    argument.beginStructure();
    argument >> accent.red >> accent.green >> accent.blue;
    argument.endStructure();
    return argument;
}

/// The desktop's settings as the bus knows them.
class FakeSettings : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    Q_SLOT nookle::PortalSettings ReadAll(const QStringList& groups)
    {
        asked += groups;
        return { { QStringLiteral("org.freedesktop.appearance"),
                   { { QStringLiteral("color-scheme"), scheme },
                     { QStringLiteral("accent-color"), QVariant::fromValue(accent) } } },
                 { QStringLiteral("org.kde.kdeglobals.Icons"), plasmaIcons },
                 { QStringLiteral("org.gnome.desktop.interface"),
                   { { QStringLiteral("icon-theme"), QStringLiteral("Moon") },
                     { QStringLiteral("gtk-theme"), QStringLiteral("Adwaita") },
                     { QStringLiteral("font-name"), QStringLiteral("DejaVu Sans 13") } } } };
    }

    Q_SIGNAL void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

    uint scheme = 0;
    Accent accent;
    QVariantMap plasmaIcons;
    QStringList asked;
};

/// What the display server carries.
class FakeToolkitSettings : public ToolkitSettings {
public:
    [[nodiscard]] const Values& values() const override { return m_values; }
    void change(const Values& values)
    {
        m_values = values;
        onChanged();
    }

private:
    Values m_values;
};

class DesktopAppearanceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    /// The first test, because the bus learns types of arguments as it is used.
    void aChangeIsFollowedByTheFirstThatUsesTheBus();
    void aDesktopThatPrefersDarkGetsDarkColours();
    void aDesktopWithoutAPreferenceLeavesThemAlone();
    void aChangeIsFollowed();
    void aServiceThatStartsLaterIsAsked();
    void otherSettingsChangeNothing();
    void iconsFontAndAccentAreTakenOver();
    void theSettingsForAllToolkitsAreFollowed();
    void coloursThatAreDarkAlreadyAreLeftAlone();
    void aChangeOfTheToolkitsOwnColoursIsFollowed();
    void withoutAnySettingsTheToolkitsOwnColoursAreLeftAlone();
    void plasmaIsNotGivenTheSettingsOfAnotherDesktop();
    void plasmasOwnIconsAreTakenOver();
    void withoutTheServiceNothingChanges();
    void withoutAnySettingsTextsCanBeRead();

private:
    [[nodiscard]] static bool isDark() { return QGuiApplication::palette().color(QPalette::Window).lightness() < 100; }
    void startService(uint scheme);
    /// As the toolkit does when its theme has changed.
    static void changeTheme();
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
    qunsetenv("XDG_CURRENT_DESKTOP");
    QDBusConnection::disconnectFromBus(serviceConnection);
    m_settings.reset();
}

void DesktopAppearanceTest::startService(uint scheme)
{
    qDBusRegisterMetaType<Accent>();
    qDBusRegisterMetaType<PortalSettings>();
    m_settings = std::make_unique<FakeSettings>();
    m_settings->scheme = scheme;
    QDBusConnection bus = QDBusConnection::connectToBus(QString::fromLatin1(m_bus.address()), serviceConnection);
    QVERIFY(bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), m_settings.get(),
                               QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
    QVERIFY(bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
}

void DesktopAppearanceTest::changeTheme()
{
    for (int number = 0; number < 2; ++number) {
        QWindow window;
        QEvent change(QEvent::ThemeChange);
        QCoreApplication::sendEvent(&window, &change);
    }
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

void DesktopAppearanceTest::aChangeIsFollowedByTheFirstThatUsesTheBus()
{
    const DesktopAppearance appearance;
    startService(0);
    QTRY_COMPARE(m_settings->asked.size(), 2);
    Q_EMIT m_settings->SettingChanged(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"),
                                      QDBusVariant(1U));
    QTRY_VERIFY(isDark());
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
    QVERIFY(m_settings->asked.contains(QStringLiteral("org.freedesktop.appearance")));
}

void DesktopAppearanceTest::aDesktopWithoutAPreferenceLeavesThemAlone()
{
    for (const uint scheme : { 0U, 2U }) {
        startService(scheme);
        const DesktopAppearance appearance;
        QTRY_COMPARE(m_settings->asked.size(), 2);
        settle();
        QVERIFY(!isDark());
        cleanup();
    }
}

void DesktopAppearanceTest::aChangeIsFollowed()
{
    startService(0);
    const DesktopAppearance appearance;
    QTRY_COMPARE(m_settings->asked.size(), 2);
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
    QTRY_COMPARE(m_settings->asked.size(), 2);
    const QString group = QStringLiteral("org.freedesktop.appearance");
    Q_EMIT m_settings->SettingChanged(group, QStringLiteral("contrast"), QDBusVariant(1U));
    Q_EMIT m_settings->SettingChanged(QStringLiteral("org.example"), QStringLiteral("color-scheme"), QDBusVariant(1U));
    settle();
    QVERIFY(!isDark());
}

void DesktopAppearanceTest::iconsFontAndAccentAreTakenOver()
{
    startService(0);
    m_settings->accent = { 1, 0.5, 0 };
    int changes = 0;
    DesktopAppearance appearance;
    appearance.onChanged = [&] { ++changes; };
    QTRY_COMPARE(changes, 1);
    QCOMPARE(QIcon::themeName(), QStringLiteral("Moon"));
    QCOMPARE(QGuiApplication::font().family(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(QGuiApplication::font().pointSizeF(), 13.0);
    QCOMPARE(QGuiApplication::palette().color(QPalette::Highlight).name(), QStringLiteral("#ff8000"));
}

void DesktopAppearanceTest::theSettingsForAllToolkitsAreFollowed()
{
    FakeToolkitSettings settings;
    DesktopAppearance appearance(&settings);
    int changes = 0;
    appearance.onChanged = [&] { ++changes; };
    settings.change({ { "Net/ThemeName", QStringLiteral("Sun-dark") },
                      { "Net/IconThemeName", QStringLiteral("Sun") },
                      { "Gtk/FontName", QStringLiteral("DejaVu Sans 9") },
                      { "Gtk/EnableAnimations", 0 } });
    QCOMPARE(changes, 1);
    QVERIFY(isDark());
    QCOMPARE(QIcon::themeName(), QStringLiteral("Sun"));
    QCOMPARE(QGuiApplication::font().pointSizeF(), 9.0);
    QVERIFY(!appearance.look().wantsMotion);
    settings.change(
        { { "Net/ThemeName", QStringLiteral("Sun") }, { "Gtk/FontName", QStringLiteral("DejaVu Sans nan") } });
    QVERIFY(!isDark());
    QCOMPARE(QGuiApplication::font().pointSizeF(), 9.0);
    settings.change({ { "Net/ThemeName", QStringLiteral("Sun") }, { "Gtk/FontName", QStringLiteral("nonsense") } });
    QCOMPARE(QGuiApplication::font().pointSizeF(), 9.0);
    QVERIFY(appearance.look().wantsMotion);
    QCOMPARE(changes, 2);
}

void DesktopAppearanceTest::coloursThatAreDarkAlreadyAreLeftAlone()
{
    startService(0);
    QPalette dark(QColor(0x10, 0x20, 0x30));
    dark.setColor(QPalette::WindowText, Qt::white);
    QGuiApplication::setPalette(dark);
    const DesktopAppearance appearance;
    QTRY_COMPARE(m_settings->asked.size(), 2);
    Q_EMIT m_settings->SettingChanged(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"),
                                      QDBusVariant(1U));
    settle();
    QCOMPARE(QGuiApplication::palette().color(QPalette::Window), QColor(0x10, 0x20, 0x30));
}

void DesktopAppearanceTest::aChangeOfTheToolkitsOwnColoursIsFollowed()
{
    startService(2);
    QPalette own = m_light;
    int readings = 0;
    const DesktopAppearance appearance(nullptr, [&] {
        ++readings;
        return own;
    });
    QTRY_VERIFY(appearance.look().isDark.has_value());
    Q_EMIT m_settings->SettingChanged(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"),
                                      QDBusVariant(1U));
    QTRY_VERIFY(isDark());
    own = QPalette(QColor(0x10, 0x20, 0x30));
    own.setColor(QPalette::WindowText, Qt::white);
    changeTheme();
    QTRY_COMPARE(QGuiApplication::palette().color(QPalette::Window), QColor(0x10, 0x20, 0x30));
    QCOMPARE(readings, 1);
    own.setColor(QPalette::Window, QColor(0x30, 0x20, 0x10));
    changeTheme();
    QTRY_COMPARE(QGuiApplication::palette().color(QPalette::Window), QColor(0x30, 0x20, 0x10));
    QCOMPARE(readings, 2);
}

void DesktopAppearanceTest::withoutAnySettingsTheToolkitsOwnColoursAreLeftAlone()
{
    const DesktopAppearance appearance;
    settle();
    changeTheme();
    QCoreApplication::processEvents();
    // Where the program has set none, the toolkit's next ones show by themselves.
    QVERIFY(!QCoreApplication::testAttribute(Qt::AA_SetPalette));
}

void DesktopAppearanceTest::plasmaIsNotGivenTheSettingsOfAnotherDesktop()
{
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    startService(0);
    QPalette dark(QColor(0x10, 0x20, 0x30));
    dark.setColor(QPalette::WindowText, Qt::white);
    QGuiApplication::setPalette(dark);
    QIcon::setThemeName(QStringLiteral("Sea"));
    const DesktopAppearance appearance;
    QTRY_VERIFY(m_settings->asked.contains(QStringLiteral("org.kde.kdeglobals.Icons")));
    settle();
    QVERIFY(!appearance.look().font);
    QCOMPARE(QIcon::themeName(), QStringLiteral("Sea"));
    QCOMPARE(QGuiApplication::palette().color(QPalette::Window), QColor(0x10, 0x20, 0x30));
}

void DesktopAppearanceTest::plasmasOwnIconsAreTakenOver()
{
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    startService(0);
    m_settings->plasmaIcons = { { QStringLiteral("Theme"), QStringLiteral("Wind") } };
    const DesktopAppearance appearance;
    QTRY_COMPARE(QIcon::themeName(), QStringLiteral("Wind"));
    Q_EMIT m_settings->SettingChanged(QStringLiteral("org.kde.kdeglobals.Icons"), QStringLiteral("Theme"),
                                      QDBusVariant(QStringLiteral("Rain")));
    QTRY_COMPARE(QIcon::themeName(), QStringLiteral("Rain"));
}

void DesktopAppearanceTest::withoutTheServiceNothingChanges()
{
    const DesktopAppearance appearance;
    settle();
    QVERIFY(!isDark());
}

void DesktopAppearanceTest::withoutAnySettingsTextsCanBeRead()
{
    // As the toolkit's theme for GTK has it: the texts of windows that are not active are faint.
    QPalette faint = m_light;
    faint.setColor(QPalette::Active, QPalette::WindowText, Qt::black);
    faint.setColor(QPalette::Inactive, QPalette::WindowText, QColor(0x92, 0x95, 0x95));
    QGuiApplication::setPalette(faint);
    const DesktopAppearance appearance;
    QCOMPARE(QGuiApplication::palette().color(QPalette::Inactive, QPalette::WindowText), QColor(Qt::black));
}

QTEST_MAIN(DesktopAppearanceTest)
#include "DesktopAppearanceTest.moc"
