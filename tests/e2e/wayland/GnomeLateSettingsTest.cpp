#include "PublishedSettings.h"
#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QColor>
#include <QtTest>

using namespace nookle::e2e;

/// Under GNOME, the part of the session that publishes the settings of X11 programs may start after the shelf.
class GnomeLateSettingsTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theLookFollowsWhoeverPublishesIt();

private:
    [[nodiscard]] bool isDark() const
    {
        const QPoint free(WaylandDesktop::displaySize.width() - 56, WaylandDesktop::displaySize.height() - 150);
        return m_desktop->picture(QRect(free, QSize(1, 1))).pixelColor(0, 0).lightness() < 100;
    }
};

void GnomeLateSettingsTest::init()
{
    QVERIFY(setUpDesktop(WaylandDesktop::Compositor::gnome));
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"), "[General]\npanelPinned=true\n");
    QVERIFY(startShelf());
    QVERIFY(waitFor([this] { return isPanelOut(); }));
}

void GnomeLateSettingsTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("gnome-late-%1.png").arg(QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

void GnomeLateSettingsTest::theLookFollowsWhoeverPublishesIt()
{
    QVERIFY(holdsFor([this] { return !isDark(); }, 300));
    qputenv("XAUTHORITY", m_desktop->environment().value(QStringLiteral("XAUTHORITY")).toLocal8Bit());
    for (int start = 0; start < 2; ++start) {
        PublishedSettings daemon(m_desktop->environment().value(QStringLiteral("DISPLAY")).toLatin1());
        daemon.publish({ { "Net/ThemeName", "Night-dark" } });
        QVERIFY(waitFor([this] { return isDark(); }));
        keepPicture(QStringLiteral("gnome-late-dark.png"));
        daemon.publish({ { "Net/ThemeName", "Day" } });
        QVERIFY(waitFor([this] { return !isDark(); }));
    }
}

QTEST_GUILESS_MAIN(GnomeLateSettingsTest)
#include "GnomeLateSettingsTest.moc"
