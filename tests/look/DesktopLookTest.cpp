#include "DesktopLook.h"
#include "DesktopPalette.h"

#include <QPalette>
#include <QTest>

using namespace nookle;

class DesktopLookTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aDesktopThatSaysNothingLeavesItToTheToolkit();
    void darkByPreferenceOrTheme_data();
    void darkByPreferenceOrTheme();
    void theSettingsForAllToolkitsComeBeforeThePortals();
    void thePortalNamesIconsAndFontWhereNothingElseDoes();
    void plasmasOwnSettingsComeFirst();
    void plasmasFontKeepsItsWeightAndStyle_data();
    void plasmasFontKeepsItsWeightAndStyle();
    void aFontWithoutASizeForTextsIsNone();
    void motionIsOffWhereAnythingSaysSo_data();
    void motionIsOffWhereAnythingSaysSo();
    void darkColoursCanBeRead_data();
    void darkColoursCanBeRead();
    void theAccentIsTheHighlightAndItsTextCanBeRead();
    void coloursOfTheToolkitThatFitStay();
    void moreContrastMakesTextsBlackOrWhite();
    void whatIsNotActiveIsAsEasyToRead();

private:
    [[nodiscard]] static PortalSettings portal(const QString& group, const QString& key, const QVariant& value)
    {
        return { { group, { { key, value } } } };
    }
};

namespace {

const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString gnome = QStringLiteral("org.gnome.desktop.interface");

/// The family and the size of the font.
[[nodiscard]] QString described(const DesktopLook& look)
{
    return look.font ? look.font->family() + QLatin1Char(' ') + QString::number(look.font->pointSizeF()) : QString();
}

} // namespace

void DesktopLookTest::aDesktopThatSaysNothingLeavesItToTheToolkit()
{
    const DesktopLook look = desktopLook({}, {});
    QCOMPARE(look, DesktopLook());
    QVERIFY(look.wantsMotion);
    QVERIFY(!look.isDark && !look.iconTheme && !look.font && !look.accent);
}

void DesktopLookTest::darkByPreferenceOrTheme_data()
{
    QTest::addColumn<QVariant>("preference");
    QTest::addColumn<QString>("theme");
    QTest::addColumn<bool>("isDark");
    QTest::newRow("dark preferred") << QVariant(1U) << QString() << true;
    QTest::newRow("light preferred") << QVariant(2U) << QStringLiteral("Adwaita-dark") << false;
    QTest::newRow("no preference") << QVariant(0U) << QStringLiteral("Greybird") << false;
    QTest::newRow("no preference, dark theme") << QVariant(0U) << QStringLiteral("Greybird-dark") << true;
    QTest::newRow("theme alone") << QVariant() << QStringLiteral("Mint-Y-Dark-Aqua") << true;
    QTest::newRow("dark titles") << QVariant() << QStringLiteral("Mint-Y-Darker") << false;
    QTest::newRow("dark titles and an accent") << QVariant(0U) << QStringLiteral("Arc-Darker-solid") << false;
    QTest::newRow("dark to the end") << QVariant() << QStringLiteral("Arc-Dark") << true;
    QTest::newRow("light theme alone") << QVariant() << QStringLiteral("BlackMATE") << false;
}

void DesktopLookTest::darkByPreferenceOrTheme()
{
    QFETCH(const QVariant, preference);
    QFETCH(const QString, theme);
    const PortalSettings settings = portal(appearance, QStringLiteral("color-scheme"), preference);
    QTEST(desktopLook(settings, { { "Net/ThemeName", theme } }).isDark.value(), "isDark");
}

void DesktopLookTest::theSettingsForAllToolkitsComeBeforeThePortals()
{
    const PortalSettings settings{ { gnome,
                                     { { QStringLiteral("icon-theme"), QStringLiteral("Adwaita") },
                                       { QStringLiteral("font-name"), QStringLiteral("Cantarell 11") } } } };
    const DesktopLook look = desktopLook(
        settings,
        { { "Net/IconThemeName", QStringLiteral("Papirus") }, { "Gtk/FontName", QStringLiteral("Noto Sans 10") } });
    QCOMPARE(look.iconTheme, QStringLiteral("Papirus"));
    QCOMPARE(described(look), QStringLiteral("Noto Sans 10"));
}

void DesktopLookTest::thePortalNamesIconsAndFontWhereNothingElseDoes()
{
    const PortalSettings settings{ { gnome,
                                     { { QStringLiteral("icon-theme"), QStringLiteral("Yaru") },
                                       { QStringLiteral("font-name"), QStringLiteral("Cantarell 11") },
                                       { QStringLiteral("gtk-theme"), QStringLiteral("Yaru-dark") } } } };
    const DesktopLook look = desktopLook(settings, {});
    QCOMPARE(look.iconTheme, QStringLiteral("Yaru"));
    QCOMPARE(described(look), QStringLiteral("Cantarell 11"));
    QVERIFY(look.isDark.value());
}

void DesktopLookTest::plasmasOwnSettingsComeFirst()
{
    PortalSettings settings{
        { gnome, { { QStringLiteral("icon-theme"), QStringLiteral("Adwaita") } } },
        { QStringLiteral("org.kde.kdeglobals.Icons"), { { QStringLiteral("Theme"), QStringLiteral("breeze-dark") } } },
        { QStringLiteral("org.kde.kdeglobals.General"),
          { { QStringLiteral("font"), QStringLiteral("Noto Sans,10.5,-1,5,400,0,0,0,0,0,0,0,0,0,0,1") } } }
    };
    const ToolkitSettings::Values toolkit{ { "Net/IconThemeName", QStringLiteral("Papirus") },
                                           { "Gtk/FontName", QStringLiteral("Cantarell 11") } };
    QCOMPARE(desktopLook(settings, toolkit).iconTheme, QStringLiteral("breeze-dark"));
    QCOMPARE(described(desktopLook(settings, toolkit)), QStringLiteral("Noto Sans 10.5"));
    settings[QStringLiteral("org.kde.kdeglobals.General")][QStringLiteral("font")] = QStringLiteral("x,y");
    QCOMPARE(described(desktopLook(settings, toolkit)), QStringLiteral("Cantarell 11"));
}

void DesktopLookTest::plasmasFontKeepsItsWeightAndStyle_data()
{
    QTest::addColumn<QString>("font");
    QTest::addColumn<int>("weight");
    QTest::addColumn<bool>("isItalic");
    QTest::newRow("plain") << QStringLiteral("Noto Sans,10,-1,5,400,0,0,0,0,0,0,0,0,0,0,1") << 400 << false;
    QTest::newRow("bold") << QStringLiteral("Noto Sans,10,-1,5,700,0,0,0,0,0,0,0,0,0,0,1") << 700 << false;
    QTest::newRow("light, italic") << QStringLiteral("Noto Sans,10,-1,5,300,1,0,0,0,0,0,0,0,0,0,1") << 300 << true;
    QTest::newRow("with the name of its style")
        << QStringLiteral("Noto Sans,10,-1,5,400,0,0,0,0,0,0,0,0,0,0,1,Regular") << 400 << false;
    QTest::newRow("of an older Plasma") << QStringLiteral("Noto Sans,10,-1,5,75,1,0,0,0,0") << 700 << true;
}

void DesktopLookTest::plasmasFontKeepsItsWeightAndStyle()
{
    QFETCH(const QString, font);
    const DesktopLook look =
        desktopLook(portal(QStringLiteral("org.kde.kdeglobals.General"), QStringLiteral("font"), font), {});
    QCOMPARE(described(look), QStringLiteral("Noto Sans 10"));
    QTEST(int(look.font->weight()), "weight");
    QTEST(look.font->italic(), "isItalic");
    QVERIFY(look.font->styleName().isEmpty());
}

void DesktopLookTest::aFontWithoutASizeForTextsIsNone()
{
    for (const char* name : { "nonsense", "DejaVu Sans nan", "DejaVu Sans 1000" })
        QVERIFY(!desktopLook({}, { { "Gtk/FontName", QLatin1String(name) } }).font);
    const QString huge = QStringLiteral("Noto Sans,1000,-1,5,400,0,0,0,0,0,0,0,0,0,0,1");
    QVERIFY(!desktopLook(portal(QStringLiteral("org.kde.kdeglobals.General"), QStringLiteral("font"), huge), {}).font);
}

void DesktopLookTest::motionIsOffWhereAnythingSaysSo_data()
{
    QTest::addColumn<PortalSettings>("settings");
    QTest::addColumn<int>("toolkit");
    QTest::addColumn<bool>("wantsMotion");
    QTest::newRow("on") << portal(gnome, QStringLiteral("enable-animations"), true) << 1 << true;
    QTest::newRow("GNOME") << portal(gnome, QStringLiteral("enable-animations"), false) << 1 << false;
    QTest::newRow("portal") << portal(appearance, QStringLiteral("reduced-motion"), 1U) << 1 << false;
    QTest::newRow("toolkits") << PortalSettings() << 0 << false;
}

void DesktopLookTest::motionIsOffWhereAnythingSaysSo()
{
    QFETCH(const PortalSettings, settings);
    QFETCH(const int, toolkit);
    QTEST(desktopLook(settings, { { "Gtk/EnableAnimations", toolkit } }).wantsMotion, "wantsMotion");
}

void DesktopLookTest::darkColoursCanBeRead_data()
{
    QTest::addColumn<int>("background");
    QTest::addColumn<int>("text");
    QTest::newRow("window") << int(QPalette::Window) << int(QPalette::WindowText);
    QTest::newRow("list") << int(QPalette::Base) << int(QPalette::Text);
    QTest::newRow("button") << int(QPalette::Button) << int(QPalette::ButtonText);
    QTest::newRow("tool tip") << int(QPalette::ToolTipBase) << int(QPalette::ToolTipText);
}

void DesktopLookTest::darkColoursCanBeRead()
{
    QFETCH(const int, background);
    QFETCH(const int, text);
    const QPalette own(QColor(0xf0, 0xf0, 0xf0));
    for (const bool isDark : { true, false }) {
        const QPalette palette = desktopPalette(own, DesktopLook{ .isDark = isDark });
        const int below = palette.color(static_cast<QPalette::ColorRole>(background)).lightness();
        const int above = palette.color(static_cast<QPalette::ColorRole>(text)).lightness();
        QVERIFY(isDark ? above - below > 120 : below - above > 120);
    }
}

void DesktopLookTest::theAccentIsTheHighlightAndItsTextCanBeRead()
{
    const QPalette own(QColor(0xf0, 0xf0, 0xf0));
    for (const auto& [accent, text] :
         { std::pair(QColor(Qt::yellow), QColor(Qt::black)), std::pair(QColor(0x20, 0x30, 0x90), QColor(Qt::white)) }) {
        const QPalette palette = desktopPalette(own, DesktopLook{ .accent = accent });
        QCOMPARE(palette.color(QPalette::Highlight), accent);
        QCOMPARE(palette.color(QPalette::HighlightedText), text);
    }
}

void DesktopLookTest::moreContrastMakesTextsBlackOrWhite()
{
    const QPalette own(QColor(0xf0, 0xf0, 0xf0));
    const QPalette light = desktopPalette(own, DesktopLook{ .hasHighContrast = true });
    QCOMPARE(light.color(QPalette::WindowText), QColor(Qt::black));
    QCOMPARE(light.color(QPalette::Window), QColor(Qt::white));
    const QPalette dark = desktopPalette(own, DesktopLook{ .isDark = true, .hasHighContrast = true });
    QCOMPARE(dark.color(QPalette::WindowText), QColor(Qt::white));
    QCOMPARE(dark.color(QPalette::Window), QColor(Qt::black));
}

void DesktopLookTest::coloursOfTheToolkitThatFitStay()
{
    QPalette light(QColor(0xfa, 0xf0, 0xe0));
    QPalette dark(QColor(0x10, 0x20, 0x30));
    dark.setColor(QPalette::WindowText, Qt::white);
    const auto window = [](const QPalette& own, std::optional<bool> isDark) {
        return desktopPalette(own, DesktopLook{ .isDark = isDark }).color(QPalette::Window);
    };
    for (const QPalette& own : { light, dark })
        QCOMPARE(window(own, std::nullopt), own.color(QPalette::Window));
    QCOMPARE(window(light, false), light.color(QPalette::Window));
    QCOMPARE(window(dark, true), dark.color(QPalette::Window));
    QVERIFY(window(light, true).lightness() < 100);
    QVERIFY(window(dark, false).lightness() > 200);
}

void DesktopLookTest::whatIsNotActiveIsAsEasyToRead()
{
    QPalette own(QColor(0xf6, 0xf5, 0xf4));
    own.setColor(QPalette::Active, QPalette::WindowText, Qt::black);
    own.setColor(QPalette::Inactive, QPalette::WindowText, QColor(0x92, 0x95, 0x95));
    own.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0xd0, 0xd0, 0xd0));
    const QPalette palette = desktopPalette(own, {});
    QCOMPARE(palette.color(QPalette::Inactive, QPalette::WindowText), QColor(Qt::black));
    QCOMPARE(palette.color(QPalette::Disabled, QPalette::WindowText), QColor(0xd0, 0xd0, 0xd0));
}

QTEST_APPLESS_MAIN(DesktopLookTest)
#include "DesktopLookTest.moc"
