#include "IconPictures.h"
#include "PrivateDesktop.h"
#include "Shelf.h"
#include "TrayServer.h"
#include "Waiting.h"

#include <QDBusConnection>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QPainter>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>

using namespace nookle::e2e;

namespace {

inline constexpr int screenWidth = 1200;
inline constexpr int settingsWidth = 440;

/// One panel at the top with nothing but a tray.
const QByteArray panelSettings = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="32"/>
      <property name="plugin-ids" type="array"><value type="int" value="1"/></property>
    </property>
  </property>
  <property name="plugins" type="empty"><property name="plugin-1" type="string" value="systray"/></property>
</channel>
)";

/// The smallest rectangle around everything that differs from the picture's last pixel.
[[nodiscard]] QRect drawnPart(const QImage& picture)
{
    const QRgb ground = picture.pixel(picture.width() - 1, picture.height() / 2);
    QRect part;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (std::abs(qGray(picture.pixel(x, y)) - qGray(ground)) > 40)
                part |= QRect(x, y, 1, 1);
        }
    }
    return part;
}

/// Whether the only thing that is drawn in the picture is the program's icon.
[[nodiscard]] bool showsIcon(const QImage& picture)
{
    const QRect part = picture.isNull() ? QRect() : drawnPart(picture);
    constexpr int smallest = 10;
    if (part.width() < smallest || part.height() < smallest)
        return false;
    QImage expected(256, 256, QImage::Format_RGB32);
    expected.fill(Qt::white);
    QPainter painter(&expected);
    painter.drawImage(0, 0, nookle::iconPicture(expected.width(), Qt::black));
    painter.end();
    expected = expected.copy(drawnPart(expected)).scaled(part.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QRgb ground = picture.pixel(picture.width() - 1, picture.height() / 2);
    double difference = 0;
    for (int y = 0; y < part.height(); ++y) {
        for (int x = 0; x < part.width(); ++x) {
            const int here = qGray(picture.pixel(part.x() + x, part.y() + y)) * 255 / std::max(1, qGray(ground));
            difference += std::abs(std::min(here, 255) - qGray(expected.pixel(x, y)));
        }
    }
    return difference / (255.0 * part.width() * part.height()) < 0.2;
}

} // namespace

using SettingsByGroup = QMap<QString, QVariantMap>;

/// Tells programs that the desktop prefers dark windows.
class Preferences final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    Q_SLOT SettingsByGroup ReadAll(const QStringList& /*groups*/)
    {
        return { { QStringLiteral("org.freedesktop.appearance"), { { QStringLiteral("color-scheme"), 1U } } } };
    }
};

class TrayEndToEndTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theIconAndItsMenuReachATrayThatDrawsThem();
    void theIconIsTintedAnewWhenTheDesktopTurnsDark();
    void eachEntryOfTheMenuWorks();
    void aShelfThatWasPinnedIsShownAtTheStartAndStays();
    void theMarkIsRightWheneverTheTrayLooks();
    void quittingFromTheMenuLeavesASavedIndex();
    void aClickOnTheIconOpensTheMenu();
    void aTrayThatComesLaterGetsTheIcon();
    void aTrayThatRestartsGetsTheIconBack();
    void thePanelOfXfceShowsTheIconAlsoAfterItsRestart();
    void anEmbeddingTrayShowsTheIconAlsoAfterItsRestart();
    void aDesktopWithoutATrayIsSaidInOneLogLine();
    void withoutABusTheShelfStillWorks();
    void aBusThatDiesLeavesTheShelfWorking();

private:
    [[nodiscard]] bool startTray();
    [[nodiscard]] XScreen& screen() { return m_desktop->screen(); }
    [[nodiscard]] bool isShown() const { return m_shelf->isAtRest(screenWidth); }
    [[nodiscard]] bool isChecked() const;
    void pressShortcut();
    /// The shelf is shown and hidden by its shortcut.
    [[nodiscard]] bool shortcutWorks();

    std::unique_ptr<PrivateDesktop> m_desktop;
    std::unique_ptr<Shelf> m_shelf;
    std::unique_ptr<TrayServer> m_tray;
};

void TrayEndToEndTest::init()
{
    QVERIFY2(qEnvironmentVariableIsSet("NOOKLE_PROGRAM"), "run it with ctest, which says which program is tested");
    m_desktop = PrivateDesktop::tryCreate({ QSize(screenWidth, 700), QStringLiteral("openbox"), false });
    QVERIFY(m_desktop);
    m_shelf = std::make_unique<Shelf>(*m_desktop, qEnvironmentVariable("NOOKLE_PROGRAM"));
}

void TrayEndToEndTest::cleanup()
{
    if (QTest::currentTestFailed() && m_desktop) {
        const QString picture = QStringLiteral("tray-%1.png").arg(QLatin1String(QTest::currentTestFunction()));
        screen().picture().save(picture);
        qInfo("the screen at the end: %s\nthe log: %s", qPrintable(picture), m_shelf->log().constData());
    }
    m_tray.reset();
    m_shelf.reset();
    m_desktop.reset();
}

bool TrayEndToEndTest::startTray()
{
    m_tray = TrayServer::tryStart(m_desktop->environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")));
    return m_tray != nullptr;
}

bool TrayEndToEndTest::isChecked() const
{
    for (const TrayServer::Entry& entry : m_tray->menu()) {
        if (entry.label == QLatin1String("Keep Shelf Open"))
            return entry.isChecked.value_or(false);
    }
    return false;
}

void TrayEndToEndTest::pressShortcut()
{
    const std::vector<xcb_keysym_t> keys{ XScreen::control, XScreen::alt, XScreen::super, 'd' };
    for (const xcb_keysym_t key : keys)
        screen().pressKey(key);
    for (const xcb_keysym_t key : keys)
        screen().releaseKey(key);
}

bool TrayEndToEndTest::shortcutWorks()
{
    pressShortcut();
    if (!waitFor([this] { return isShown(); }))
        return false;
    pressShortcut();
    return waitFor([this] { return !m_shelf->panel(); });
}

void TrayEndToEndTest::theIconAndItsMenuReachATrayThatDrawsThem()
{
    QVERIFY(startTray());
    QVERIFY(m_shelf->start());
    QVERIFY(waitFor([this] { return !m_tray->items().isEmpty(); }));
    QCOMPARE(m_tray->items().size(), 1);
    QCOMPARE(m_tray->text(QStringLiteral("Id")), QStringLiteral("nookle"));
    QCOMPARE(m_tray->text(QStringLiteral("Status")), QStringLiteral("Active"));
    const QList<QImage> icons = m_tray->icons();
    for (const int side : { 16, 22, 32, 64 }) {
        const auto found = std::find_if(icons.begin(), icons.end(),
                                        [side](const QImage& icon) { return icon.size() == QSize(side, side); });
        QVERIFY2(found != icons.end(), qPrintable(QString::number(side)));
        QImage onWhite(side + 4, side, QImage::Format_RGB32);
        onWhite.fill(Qt::white);
        QPainter(&onWhite).drawImage(0, 0, *found);
        QVERIFY2(showsIcon(onWhite), qPrintable(QString::number(side)));
    }
    QStringList labels;
    for (const TrayServer::Entry& entry : m_tray->menu())
        labels.append(entry.isSeparator ? QStringLiteral("-") : entry.label);
    QCOMPARE(labels,
             (QStringList{ QStringLiteral("Show Shelf"), QStringLiteral("Keep Shelf Open"), QStringLiteral("-"),
                           QStringLiteral("Settings…"), QStringLiteral("-"), QStringLiteral("Quit Nookle") }));
    QVERIFY(m_tray->menu().first().showsKeys);
}

void TrayEndToEndTest::theIconIsTintedAnewWhenTheDesktopTurnsDark()
{
    QVERIFY(startTray());
    QVERIFY(m_shelf->start());
    QVERIFY(waitFor([this] { return !m_tray->items().isEmpty(); }));
    const auto lightness = [this] {
        const QList<QImage> icons = m_tray->icons();
        // On the outline, at the bottom of the tray.
        const QImage largest = icons.isEmpty() ? QImage() : icons.last();
        return largest.isNull() ? -1 : largest.pixelColor(largest.width() / 2, largest.height() * 16 / 18).lightness();
    };
    QVERIFY(lightness() < 80);
    const QString name = QStringLiteral("preferences");
    qDBusRegisterMetaType<SettingsByGroup>();
    Preferences preferences;
    QDBusConnection bus =
        QDBusConnection::connectToBus(m_desktop->environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")), name);
    QVERIFY(bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), &preferences,
                               QDBusConnection::ExportAllSlots));
    QVERIFY(bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
    QVERIFY(waitFor([&] { return lightness() > 200; }));
    QDBusConnection::disconnectFromBus(name);
}

void TrayEndToEndTest::eachEntryOfTheMenuWorks()
{
    QVERIFY(startTray());
    QVERIFY(m_shelf->start());
    QVERIFY(waitFor([this] { return !m_tray->items().isEmpty(); }));
    m_tray->choose(QStringLiteral("Show Shelf"));
    QVERIFY(waitFor([this] { return isShown(); }));
    m_tray->choose(QStringLiteral("Show Shelf"));
    QVERIFY(waitFor([this] { return !m_shelf->panel(); }));
    m_tray->choose(QStringLiteral("Keep Shelf Open"));
    QVERIFY(waitFor([this] { return isShown(); }));
    QVERIFY(waitFor([this] { return isChecked(); }));
    const auto settings = [this] { return screen().window("nookle", settingsWidth); };
    m_tray->choose(QStringLiteral("Settings…"));
    QVERIFY(waitFor([&] { return settings().has_value(); }));
    QVERIFY(waitFor([&] { return screen().focus() == settings()->id; }));
    m_tray->choose(QStringLiteral("Quit Nookle"));
    QVERIFY(m_shelf->hasEnded());
}

void TrayEndToEndTest::aShelfThatWasPinnedIsShownAtTheStartAndStays()
{
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"), "[General]\npanelPinned=true\n");
    // Once the shortcut is there, nothing but the panel is missing.
    QVERIFY(m_shelf->start());
    QVERIFY(waitFor([this] { return isShown(); }));
    QVERIFY(holdsFor([this] { return isShown(); }, 1500));
    pressShortcut();
    QVERIFY(waitFor([this] { return !m_shelf->panel(); }));
}

void TrayEndToEndTest::theMarkIsRightWheneverTheTrayLooks()
{
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"), "[General]\npanelPinned=true\n");
    QVERIFY(startTray());
    QVERIFY(m_shelf->start());
    QVERIFY(waitFor([this] { return !m_tray->items().isEmpty(); }));
    QVERIFY(isChecked());
    QVERIFY(waitFor([this] { return isShown(); }));
    // The pin in the header of the shelf.
    const QRect panel = m_shelf->panel()->frame;
    screen().moveTo(panel.topRight() + QPoint(-18, 18));
    screen().press();
    screen().release();
    QVERIFY(waitFor([this] { return !isChecked(); }));
}

void TrayEndToEndTest::quittingFromTheMenuLeavesASavedIndex()
{
    QVERIFY(startTray());
    QVERIFY(m_shelf->start());
    QVERIFY(waitFor([this] { return !m_tray->items().isEmpty(); }));
    m_desktop->writeFile(QStringLiteral("files/a"), "words");
    QCOMPARE(m_shelf->startAgain({ m_desktop->home(QStringLiteral("files/a")) }), 0);
    m_tray->choose(QStringLiteral("Quit Nookle"));
    QVERIFY(m_shelf->hasEnded());
    QCOMPARE(m_shelf->savedFileNames(), QStringList{ QStringLiteral("a") });
}

void TrayEndToEndTest::aClickOnTheIconOpensTheMenu()
{
    QVERIFY(startTray());
    QVERIFY(m_shelf->start());
    QVERIFY(waitFor([this] { return !m_tray->items().isEmpty(); }));
    screen().moveTo(QPoint(300, 300));
    m_tray->activate();
    const auto menu = [this] {
        const auto windows = screen().windows();
        return std::any_of(windows.begin(), windows.end(), [](const XWindow& window) {
            return window.isMapped && window.windowClass == "nookle" && window.frame.contains(QPoint(310, 310));
        });
    };
    QVERIFY(waitFor(menu));
    screen().moveTo(QPoint(900, 600));
    screen().press();
    screen().release();
    QVERIFY(waitFor([&] { return !menu(); }));
}

void TrayEndToEndTest::aTrayThatComesLaterGetsTheIcon()
{
    QVERIFY(m_shelf->start());
    QVERIFY(shortcutWorks());
    QVERIFY(startTray());
    QVERIFY(waitFor([this] { return !m_tray->items().isEmpty(); }));
    QVERIFY(!m_tray->menu().isEmpty());
}

void TrayEndToEndTest::aTrayThatRestartsGetsTheIconBack()
{
    QVERIFY(startTray());
    QVERIFY(m_shelf->start());
    QVERIFY(waitFor([this] { return !m_tray->items().isEmpty(); }));
    m_tray.reset();
    QVERIFY(startTray());
    QVERIFY(waitFor([this] { return !m_tray->items().isEmpty(); }));
    m_tray->choose(QStringLiteral("Show Shelf"));
    QVERIFY(waitFor([this] { return isShown(); }));
}

void TrayEndToEndTest::thePanelOfXfceShowsTheIconAlsoAfterItsRestart()
{
    m_desktop->writeFile(QStringLiteral("config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml"), panelSettings);
    QVERIFY(m_shelf->start());
    const QRect area(0, 0, screenWidth, 30);
    for (const char* run : { "first", "second" }) {
        const auto panel = m_desktop->start(QStringLiteral("xfce4-panel"));
        QVERIFY2(waitFor([&] { return showsIcon(screen().picture(area)); }), run);
        screen().picture().save(QStringLiteral("xfce4-panel.png"));
        panel->kill();
        QVERIFY(waitFor([&] { return !showsIcon(screen().picture(area)); }));
    }
}

void TrayEndToEndTest::anEmbeddingTrayShowsTheIconAlsoAfterItsRestart()
{
    QVERIFY(m_shelf->start());
    const QStringList arguments{ QStringLiteral("--edge"),  QStringLiteral("top"),           QStringLiteral("--align"),
                                 QStringLiteral("left"),    QStringLiteral("--widthtype"),   QStringLiteral("pixel"),
                                 QStringLiteral("--width"), QStringLiteral("200"),           QStringLiteral("--height"),
                                 QStringLiteral("24"),      QStringLiteral("--transparent"), QStringLiteral("false") };
    const QRect area(0, 0, 100, 24);
    for (const char* run : { "first", "second" }) {
        const auto tray = m_desktop->start(QStringLiteral("trayer"), arguments);
        QVERIFY2(waitFor([&] { return showsIcon(screen().picture(area)); }), run);
        screen().picture().save(QStringLiteral("trayer.png"));
        tray->kill();
        QVERIFY(waitFor([&] { return !showsIcon(screen().picture(area)); }));
    }
}

void TrayEndToEndTest::aDesktopWithoutATrayIsSaidInOneLogLine()
{
    QVERIFY(m_shelf->start());
    QVERIFY(waitFor([this] { return m_shelf->log().contains("no system tray"); }));
    QCOMPARE(m_shelf->log().count("no system tray"), 1);
    QVERIFY(shortcutWorks());
}

void TrayEndToEndTest::withoutABusTheShelfStillWorks()
{
    m_desktop->setVariable(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("unix:path=/nowhere"));
    QVERIFY(m_shelf->start());
    QVERIFY(shortcutWorks());
    m_desktop->writeFile(QStringLiteral("files/a"), "words");
    QCOMPARE(m_shelf->startAgain({ m_desktop->home(QStringLiteral("files/a")) }), 0);
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames() == QStringList{ QStringLiteral("a") }; }));
    QVERIFY(m_shelf->stop());
}

void TrayEndToEndTest::aBusThatDiesLeavesTheShelfWorking()
{
    QVERIFY(startTray());
    QVERIFY(m_shelf->start());
    QVERIFY(waitFor([this] { return !m_tray->items().isEmpty(); }));
    m_tray.reset();
    m_desktop->stopBus();
    QVERIFY(shortcutWorks());
    QCOMPARE(m_shelf->startAgain(), 0);
    QVERIFY(waitFor([this] { return isShown(); }));
    QVERIFY(m_shelf->stop());
}

QTEST_GUILESS_MAIN(TrayEndToEndTest)
#include "TrayEndToEndTest.moc"
