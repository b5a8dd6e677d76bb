#include "PrivateDesktop.h"
#include "PublishedSettings.h"
#include "Shelf.h"
#include "Waiting.h"

#include <QColor>
#include <QImage>
#include <QTest>

#include <memory>
#include <optional>

using namespace nookle;
using namespace nookle::e2e;

/// The part of a session that publishes the settings of all toolkits may start after the shelf, and start again.
class LateSettingsEndToEndTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void theLookFollowsWhoeverPublishesIt();

private:
    static constexpr int screenWidth = 1200;

    [[nodiscard]] bool isDark() const
    {
        const auto panel = m_shelf->panel();
        if (!panel)
            return false;
        const QRect free(panel->frame.center() + QPoint(0, panel->frame.height() / 3), QSize(1, 1));
        return m_desktop->screen().picture(free).pixelColor(0, 0).lightness() < 100;
    }

    std::unique_ptr<PrivateDesktop> m_desktop;
    std::unique_ptr<Shelf> m_shelf;
};

void LateSettingsEndToEndTest::cleanup()
{
    m_shelf.reset();
    m_desktop.reset();
}

void LateSettingsEndToEndTest::theLookFollowsWhoeverPublishesIt()
{
    m_desktop = PrivateDesktop::tryCreate({ QSize(screenWidth, 700), QStringLiteral("openbox"), false });
    QVERIFY(m_desktop);
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"), "[General]\npanelPinned=true\n");
    m_shelf = std::make_unique<Shelf>(*m_desktop, qEnvironmentVariable("NOOKLE_PROGRAM"));
    m_shelf->launch();
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(screenWidth); }));
    QVERIFY(holdsFor([this] { return !isDark(); }, 300));
    for (int start = 0; start < 2; ++start) {
        std::optional<PublishedSettings> daemon(std::in_place, m_desktop->display());
        daemon->publish({ { "Net/ThemeName", "Night-dark" } });
        QVERIFY(waitFor([this] { return isDark(); }));
        daemon->publish({ { "Net/ThemeName", "Day" } });
        QVERIFY(waitFor([this] { return !isDark(); }));
    }
}

QTEST_GUILESS_MAIN(LateSettingsEndToEndTest)
#include "LateSettingsEndToEndTest.moc"
