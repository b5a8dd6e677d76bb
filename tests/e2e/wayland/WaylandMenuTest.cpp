#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QtTest>

using namespace nookle::e2e;

/// What becomes of the panel when its menu closes.
class WaylandMenuTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void thePanelStaysUnderAPointerThatRests();
    void thePanelGoesWhenThePointerHasLeftIt();

private:
    [[nodiscard]] bool openMenu();
    [[nodiscard]] bool closeMenu();
};

void WaylandMenuTest::init()
{
    QVERIFY(setUpDesktop(compositor()));
    QVERIFY(startShelf());
    QCOMPARE(m_shelf->startAgain({ home("files/note one.txt") }), 0);
    QVERIFY(waitFor([this] { return m_shelf->savedItems().size() == 1; }));
    QVERIFY(showShelf());
}

void WaylandMenuTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("%1-%2.png")
                        .arg(qEnvironmentVariable("NOOKLE_ENVIRONMENT"), QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

bool WaylandMenuTest::openMenu()
{
    hand().moveTo(firstTile());
    hand().click(Hand::Button::right);
    return waitFor([this] { return isMenuOpen(); });
}

bool WaylandMenuTest::closeMenu()
{
    hand().type(Hand::Key::escape);
    return waitFor([this] { return !isMenuOpen(); });
}

void WaylandMenuTest::thePanelStaysUnderAPointerThatRests()
{
    // Half a second is what it waits for the pointer.
    constexpr int longEnough = 1500;
    QVERIFY(openMenu());
    QVERIFY(closeMenu());
    QVERIFY2(holdsFor([this] { return isPanelOut(); }, longEnough), "the panel goes");
    hand().moveTo(middle);
    QVERIFY2(waitFor([this] { return isPanelGone(); }), "the panel stays");
}

void WaylandMenuTest::thePanelGoesWhenThePointerHasLeftIt()
{
    QVERIFY(openMenu());
    hand().moveTo(middle);
    QVERIFY(closeMenu());
    QVERIFY2(waitFor([this] { return isPanelGone(); }), "the panel stays");
}

QTEST_GUILESS_MAIN(WaylandMenuTest)
#include "WaylandMenuTest.moc"
