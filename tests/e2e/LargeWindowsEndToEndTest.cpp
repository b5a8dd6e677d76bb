#include "PublishedSettings.h"
#include "ShelfDesktop.h"
#include "Waiting.h"

#include <QTest>

#include <memory>

using namespace nookle;
using namespace nookle::e2e;

/// On desktops whose settings enlarge the windows of all programs, the shelf's are as large as theirs.
class LargeWindowsEndToEndTest : public QObject, private ShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void thePanelIsAsLargeAsTheSettingsSay_data();
    void thePanelIsAsLargeAsTheSettingsSay();
    void aResolutionThatNoDisplayHasIsNotTaken();
    void aResolutionThatNoDisplayHasIsNotTakenLater_data();
    void aResolutionThatNoDisplayHasIsNotTakenLater();
    void aFactorOfNothingEndsNothing_data();
    void aFactorOfNothingEndsNothing();

private:
    std::unique_ptr<PublishedSettings> m_settings;
};

namespace {

constexpr int panelWidth = 112;
constexpr int dpi = 1024;

} // namespace

void LargeWindowsEndToEndTest::init()
{
    QVERIFY(setUpDesktop({ QSize(1600, 1000), QStringLiteral("xfwm4"), false }));
    m_settings = std::make_unique<PublishedSettings>(m_desktop->display());
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"), "[General]\npanelPinned=true\n");
}

void LargeWindowsEndToEndTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("large-windows.png"));
    m_settings.reset();
    tearDownDesktop();
}

void LargeWindowsEndToEndTest::thePanelIsAsLargeAsTheSettingsSay_data()
{
    QTest::addColumn<int>("unscaled");
    QTest::addColumn<int>("resolution");
    QTest::addColumn<QString>("own");
    QTest::addColumn<int>("scale");
    QTest::newRow("by the factor") << 0 << 0 << QString() << 2;
    QTest::newRow("by the factor, with a resolution") << 0 << 96 << QString() << 2;
    QTest::newRow("by the resolution, which has the factor in it") << 96 << 192 << QString() << 2;
    QTest::newRow("as the user says") << 0 << 0 << QStringLiteral("1") << 1;
}

void LargeWindowsEndToEndTest::thePanelIsAsLargeAsTheSettingsSay()
{
    QFETCH(const int, unscaled);
    QFETCH(const int, resolution);
    QFETCH(const QString, own);
    QFETCH(const int, scale);
    std::vector<std::pair<QByteArray, PublishedSettings::Value>> settings{ { "Gdk/WindowScalingFactor", 2 } };
    if (unscaled > 0)
        settings.emplace_back("Gdk/UnscaledDPI", unscaled * dpi);
    if (resolution > 0)
        settings.emplace_back("Xft/DPI", resolution * dpi);
    m_settings->publish(settings);
    if (!own.isEmpty())
        m_desktop->setVariable(QStringLiteral("QT_SCALE_FACTOR"), own);
    QVERIFY(m_shelf->start());
    QVERIFY(waitFor([&] { return screen().window("nookle", panelWidth * scale).has_value(); }));
    const auto panel = screen().window("nookle", panelWidth * scale);
    QVERIFY(waitFor(
        [&] { return screen().window("nookle", panelWidth * scale)->frame.right() == screen().geometry().right(); }));
    QCOMPARE(panel->frame.height(), screen().geometry().height() - 2 * 24 * scale);
}

// The server ends the connection of a program that makes windows of that size.
void LargeWindowsEndToEndTest::aResolutionThatNoDisplayHasIsNotTaken()
{
    constexpr int impossible = 9600;
    m_settings->publish({ { "Xft/DPI", impossible * dpi } });
    QVERIFY(m_shelf->start());
    QVERIFY(waitFor([&] { return screen().window("nookle", panelWidth).has_value(); }));
}

void LargeWindowsEndToEndTest::aResolutionThatNoDisplayHasIsNotTakenLater_data()
{
    QTest::addColumn<int>("impossible");
    QTest::newRow("large") << 9600 * dpi;
    QTest::newRow("larger") << 50'000'000;
    QTest::newRow("none") << 0;
    QTest::newRow("negative") << -5;
}

void LargeWindowsEndToEndTest::aResolutionThatNoDisplayHasIsNotTakenLater()
{
    QFETCH(const int, impossible);
    constexpr int usual = 96;
    constexpr int muchLonger = 500;
    const auto hasPanel = [&](int scale) { return screen().window("nookle", panelWidth * scale).has_value(); };
    m_settings->publish({ { "Xft/DPI", usual * dpi } });
    QVERIFY(m_shelf->start());
    QVERIFY(waitFor([&] { return hasPanel(1); }));
    m_settings->publish({ { "Xft/DPI", impossible } });
    QVERIFY(holdsFor([&] { return hasPanel(1); }, muchLonger));
    m_settings->publish({ { "Xft/DPI", 2 * usual * dpi } });
    QVERIFY(waitFor([&] { return hasPanel(2); }));
    m_settings->publish({ { "Xft/DPI", usual * dpi } });
    QVERIFY(waitFor([&] { return hasPanel(1); }));
}

void LargeWindowsEndToEndTest::aFactorOfNothingEndsNothing_data()
{
    QTest::addColumn<bool>("isThereAtStart");
    QTest::newRow("at the start") << true;
    QTest::newRow("while the shelf runs") << false;
}

// On this desktop the toolkit loads GTK for the look of its windows, which takes these settings, too.
void LargeWindowsEndToEndTest::aFactorOfNothingEndsNothing()
{
    QFETCH(const bool, isThereAtStart);
    constexpr int muchLonger = 500;
    const auto hasPanel = [&] { return screen().window("nookle", panelWidth).has_value(); };
    m_desktop->setVariable(QStringLiteral("XDG_CURRENT_DESKTOP"), QStringLiteral("XFCE"));
    m_settings->publish({ { "Gdk/WindowScalingFactor", isThereAtStart ? 0 : 1 } });
    QVERIFY(m_shelf->start());
    QVERIFY(waitFor(hasPanel));
    m_settings->publish({ { "Gdk/WindowScalingFactor", 0 } });
    QVERIFY(holdsFor(hasPanel, muchLonger));
}

QTEST_GUILESS_MAIN(LargeWindowsEndToEndTest)
#include "LargeWindowsEndToEndTest.moc"
