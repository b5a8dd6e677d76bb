#include "ShelfDesktop.h"
#include "Waiting.h"

#include <QTest>

#include <optional>

using namespace nookle;
using namespace nookle::e2e;

/// The window of the settings on a display that is lower than its form.
class SettingsWindowEndToEndTest : public QObject, private ShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void itsTitleIsOnTheDisplay();

private:
    /// What the window shows, without its frame.
    [[nodiscard]] std::optional<QRect> content();
};

namespace {

constexpr QSize lowDisplay(1000, 520);

} // namespace

void SettingsWindowEndToEndTest::init()
{
    QVERIFY(setUpDesktop({ lowDisplay, QStringLiteral("openbox"), false }));
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"), "[General]\npanelPinned=true\n");
}

void SettingsWindowEndToEndTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("settings-window.png"));
    tearDownDesktop();
}

std::optional<QRect> SettingsWindowEndToEndTest::content()
{
    constexpr int formWidth = 440;
    for (const XWindow& window : screen().windows()) {
        if (window.isMapped && window.windowClass == "nookle" && window.frame.width() >= formWidth)
            return window.frame;
    }
    return std::nullopt;
}

void SettingsWindowEndToEndTest::itsTitleIsOnTheDisplay()
{
    QVERIFY(m_shelf->start());
    QVERIFY(
        waitFor([&] { return m_shelf->panel() && m_shelf->panel()->frame.right() == screen().geometry().right(); }));
    constexpr std::uint8_t rightButton = 3;
    screen().moveTo(m_shelf->panel()->frame.center() + QPoint(0, 150));
    screen().press(rightButton);
    screen().release(rightButton);
    QVERIFY(waitFor([&] { return menuIsOpen(); }));
    // "Quit" is the last entry, and "Settings" the one above it.
    for (const xcb_keysym_t key : { XScreen::up, XScreen::up, XScreen::enter }) {
        screen().pressKey(key);
        screen().releaseKey(key);
    }
    constexpr int leastTitle = 10;
    QVERIFY(waitFor([&] { return content() && content()->top() >= leastTitle; }));
    QVERIFY(content()->bottom() <= screen().geometry().bottom());
}

QTEST_GUILESS_MAIN(SettingsWindowEndToEndTest)
#include "SettingsWindowEndToEndTest.moc"
