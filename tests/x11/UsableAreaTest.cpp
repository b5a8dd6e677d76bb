#include "UsableArea.h"

#include <QTest>

using namespace nookle;

class UsableAreaTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void withoutStrutsTheWholeDisplayIsUsable();
    void aPanelOnTopAndADockOnTheRightAreTakenOff();
    void aStrutCountsOnlyForTheDisplayThatItRunsAlong();
    void aPanelBetweenTwoDisplaysCountsForItsOwnAlone();
    void aStrutOfFourNumbersRunsAlongTheWholeEdge();
    void aPropertyOfAnyOtherLengthReservesNothing();
    void hugeNumbersLeaveTheDisplayWhole();
    void thePanelsSpaceReachesFromItsLeftEdgeToTheDesktops();
    void anInnerEdgeReservesNothing();
};

namespace {

const QSize oneDisplay(1280, 800);
const QSize twoDisplays(1600, 600);

} // namespace

void UsableAreaTest::withoutStrutsTheWholeDisplayIsUsable()
{
    QCOMPARE(usableArea({ 0, 0, 1280, 800 }, oneDisplay, {}), QRect(0, 0, 1280, 800));
}

void UsableAreaTest::aPanelOnTopAndADockOnTheRightAreTakenOff()
{
    Strut top;
    top.top = 28;
    top.topEnd = 1279;
    Strut right;
    right.right = 60;
    right.rightEnd = 799;
    QCOMPARE(usableArea({ 0, 0, 1280, 800 }, oneDisplay, { top, right }), QRect(0, 28, 1220, 772));
}

void UsableAreaTest::aStrutCountsOnlyForTheDisplayThatItRunsAlong()
{
    Strut top;
    top.top = 28;
    top.topEnd = 799;
    QCOMPARE(usableArea({ 0, 0, 800, 600 }, twoDisplays, { top }), QRect(0, 28, 800, 572));
    QCOMPARE(usableArea({ 800, 0, 800, 600 }, twoDisplays, { top }), QRect(800, 0, 800, 600));
}

void UsableAreaTest::aPanelBetweenTwoDisplaysCountsForItsOwnAlone()
{
    // A dock at the left edge of the right display reserves everything from the desktop's left edge on.
    Strut dock;
    dock.left = 840;
    dock.leftEnd = 599;
    QCOMPARE(usableArea({ 0, 0, 800, 600 }, twoDisplays, { dock }), QRect(0, 0, 800, 600));
    QCOMPARE(usableArea({ 800, 0, 800, 600 }, twoDisplays, { dock }), QRect(840, 0, 760, 600));
}

void UsableAreaTest::aStrutOfFourNumbersRunsAlongTheWholeEdge()
{
    const Strut strut = Strut::fromNumbers({ 0, 0, 0, 40 }, twoDisplays);
    QCOMPARE(usableArea({ 800, 0, 800, 600 }, twoDisplays, { strut }), QRect(800, 0, 800, 560));
}

void UsableAreaTest::aPropertyOfAnyOtherLengthReservesNothing()
{
    const Strut strut = Strut::fromNumbers({ 10, 10, 10 }, oneDisplay);
    QCOMPARE(usableArea({ 0, 0, 1280, 800 }, oneDisplay, { strut }), QRect(0, 0, 1280, 800));
}

void UsableAreaTest::hugeNumbersLeaveTheDisplayWhole()
{
    const std::uint32_t huge = 0xffffffff;
    const Strut strut = Strut::fromNumbers({ huge, huge, huge, huge }, oneDisplay);
    QCOMPARE(usableArea({ 0, 0, 1280, 800 }, oneDisplay, { strut }), QRect(0, 0, 1280, 800));
}

void UsableAreaTest::thePanelsSpaceReachesFromItsLeftEdgeToTheDesktops()
{
    const QRect display(0, 0, 1280, 800);
    const auto numbers = rightStrut({ 1168, 24, 112, 752 }, display, oneDisplay);
    QCOMPARE(numbers.size(), std::size_t{ 12 });
    QCOMPARE(usableArea(display, oneDisplay, { Strut::fromNumbers(numbers, oneDisplay) }), QRect(0, 0, 1168, 800));
    // Left of a dock.
    const auto beside = rightStrut({ 1108, 24, 112, 752 }, display, oneDisplay);
    QCOMPARE(usableArea(display, oneDisplay, { Strut::fromNumbers(beside, oneDisplay) }), QRect(0, 0, 1108, 800));
    // A display of 1,600 pixels has 1,067 points at a scale of 1.5.
    const auto rounded = rightStrut({ 1433, 36, 168, 828 }, { 0, 0, 1601, 900 }, { 1600, 900 });
    QCOMPARE(usableArea({ 0, 0, 1600, 900 }, { 1600, 900 }, { Strut::fromNumbers(rounded, { 1600, 900 }) }),
             QRect(0, 0, 1433, 900));
    // Of two displays, only its own becomes smaller.
    const QRect right(800, 0, 800, 600);
    const Strut strut = Strut::fromNumbers(rightStrut({ 1488, 24, 112, 552 }, right, twoDisplays), twoDisplays);
    QCOMPARE(usableArea(right, twoDisplays, { strut }), QRect(800, 0, 688, 600));
    QCOMPARE(usableArea({ 0, 0, 800, 600 }, twoDisplays, { strut }), QRect(0, 0, 800, 600));
}

void UsableAreaTest::anInnerEdgeReservesNothing()
{
    QVERIFY(rightStrut({ 688, 24, 112, 552 }, { 0, 0, 800, 600 }, twoDisplays).empty());
}

QTEST_GUILESS_MAIN(UsableAreaTest)
#include "UsableAreaTest.moc"
