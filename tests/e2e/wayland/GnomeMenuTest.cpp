#include "Waiting.h"
#include "WaylandShelfDesktop.h"
#include "XScreen.h"

#include <QtTest>

#include <csignal>

using namespace nookle::e2e;

/// The menu of a tile under GNOME, where the X server learns of the pointer later than the shell.
class GnomeMenuTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theMenuClosesWhenThePointerLeavesBeforeTheShellKnowsOfTheMenu();
    void theMenuStaysUnderAPointerThatRests();

private:
    void setShelfStalled(bool isStalled) const
    {
        ::kill(static_cast<pid_t>(m_shelf->processId()), isStalled ? SIGSTOP : SIGCONT);
    }
};

void GnomeMenuTest::init()
{
    QVERIFY(setUpDesktop(WaylandDesktop::Compositor::gnome) && startShelf());
    QVERIFY(putOnShelf(fileList()));
    hand().moveTo(firstTile());
}

void GnomeMenuTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("gnome-menu-%1.png").arg(QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

void GnomeMenuTest::theMenuClosesWhenThePointerLeavesBeforeTheShellKnowsOfTheMenu()
{
    qputenv("XAUTHORITY", m_desktop->environment().value(QStringLiteral("XAUTHORITY")).toLocal8Bit());
    const XScreen screen(m_desktop->environment().value(QStringLiteral("DISPLAY")).toLatin1());
    const auto panel = screen.windowUnderPointer();
    setShelfStalled(true);
    hand().click(Hand::Button::right);
    // A shell that has drawn a picture has handed on the click.
    QVERIFY(!isMenuOpen());
    m_desktop->setStalled(true);
    setShelfStalled(false);
    const bool isInMenu = waitFor([&] { return screen.windowUnderPointer() != panel; });
    hand().sendTo(middle);
    m_desktop->setStalled(false);
    QVERIFY2(isInMenu, "the server does not put the pointer into the menu");
    QVERIFY(waitFor([this] { return isMenuOpen(); }));
    QVERIFY2(waitFor([this] { return !isMenuOpen(); }), "the menu stays without the pointer");
    QVERIFY2(waitFor([this] { return isPanelGone(); }), "the panel stays without its menu");
}

void GnomeMenuTest::theMenuStaysUnderAPointerThatRests()
{
    hand().click(Hand::Button::right);
    QVERIFY(waitFor([this] { return isMenuOpen(); }));
    const QRect whole(QPoint(), WaylandDesktop::displaySize);
    const QRect belowBar = whole.adjusted(0, m_desktop->topBar(), 0, 0);
    // The entry below the pointer stays chosen.
    const QImage before = m_desktop->picture(belowBar);
    QVERIFY2(holdsFor([&] { return m_desktop->picture(belowBar) == before; }, 2500), "the menu changes");
}

QTEST_GUILESS_MAIN(GnomeMenuTest)
#include "GnomeMenuTest.moc"
