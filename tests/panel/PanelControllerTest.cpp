#include "PanelController.h"

#include "FakeDisplays.h"
#include "FakeFileReferences.h"
#include "FakeLinkMetadataService.h"
#include "FakeMainQueue.h"
#include "FakePanelWindow.h"
#include "FakePointer.h"
#include "FakeTrash.h"
#include "FakeUserDefaults.h"
#include "FileUrl.h"
#include "ShelfStore.h"

#include <QDateTime>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace nookle;

namespace {

/// A controller with everything around it.
struct Fixture {
    [[nodiscard]] static ShelfStore::Environment environment()
    {
        ShelfStore::Environment environment;
        environment.now = [] { return QDateTime::fromSecsSinceEpoch(0, Qt::UTC); };
        environment.fetchesLinkMetadata = false;
        return environment;
    }

    QTemporaryDir directory;
    FakeMainQueue queue;
    FakeUserDefaults defaults;
    FakeFileReferences references;
    FakeTrash trash;
    FakeLinkMetadataService metadata;
    FakeDisplays displays;
    FakePointer pointer;
    FakePanelWindow window{ queue };
    ShelfStore store{ fileUrl(directory.path().toUtf8()), environment(), references, trash, metadata, queue };
    PanelController panel{ store, defaults, window, pointer, displays, queue };

    /// Shows the panel and lets it come to rest, with the pointer away from it.
    void showAtRest()
    {
        panel.show();
        queue.advance(0.18);
        pointer.moveOutside(window.frame());
    }
};

const QRectF restingFrame(1168, 24, 112, 752);

} // namespace

class PanelControllerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<Fixture>(); }
    void cleanup() { m_fixture.reset(); }

    void theHiddenWindowKnowsWhereItWillRest();
    void showSlidesInFromBeyondTheRightEdge();
    void hideSlidesOutByThePanelsOwnWidthAndTakesItOffTheScreen();
    void showOnAShownPanelOnlyCancelsThePendingHide();
    void hideOnAHiddenPanelOnlyCancelsThePendingHide();
    void aPinnedPanelStaysAndGoesHalfASecondAfterItIsUnpinned();
    void thePanelStaysWhileThePointerRestsOnIt();
    void thePanelStaysDuringADragOutAndGoesHalfASecondAfterIt();
    void theUserMayHideThePanelDuringADragOut();
    void anIncomingDragOnAnOpenPanelStartsNoTimer();
    void anIncomingDragKeepsThePanelUntilTheButtonIsReleased();
    void aSecondIncomingDragReplacesTheTimerOfTheFirst();
    void showDuringTheSlideOutKeepsThePanelOnScreen();
    void thePanelKeepsClearOfPanelsAndDocks();
    void thePanelShowsOnTheDisplayUnderThePointer();
    void aPointerOnNoDisplayMeansTheMainDisplay_data();
    void aPointerOnNoDisplayMeansTheMainDisplay();
    void withoutAnyDisplayNothingShows();
    void whereThePointerIsUnknownThePanelWaitsForTheActiveDisplay();
    void hidingEndsTheSearchForADisplay();
    void aSecondShowingWaitsForTheSameSearch();
    void aDragDoesNotWaitForTheSearch();
    void thePanelForKeysTakesTheFocusOnceItsDisplayIsKnown();
    void aDisplayThatGoesHandsThePanelOver();
    void aDisplayThatChangesKeepsThePanelAtItsEdge();
    void anotherDisplayAtTheLeftLeavesThePanelOnItsOwn();
    void aHiddenPanelStaysOutOfSightWhenDisplaysChange();
    void showingResolvesTheFilesAnew();
    void theEndOfADragOutResolvesTheFilesAnew();
    void thePointerEnteringCancelsThePendingHide();
    void thePointerLeavingSchedulesTheHide();
    void aDropTargetKeepsThePanelAndItsEndLetsItGo();
    void aLaterHideReplacesAnEarlierOne();
    void thePanelStaysWhileItsMenuIsOpen();
    void hidingClosesTheMenuFirst();
    void showingAgainKeepsAPanelThatWaitsForItsMenu();
    void aPinnedPanelStaysAfterItsMenuHasClosed();
    void aPanelForKeysTakesTheFocusAndStaysUntilItLosesIt();
    void theBeginningsOfSlidesAreTold();
    void aPanelForKeysThatGetsNoFocusHidesAsUsual();
    void aPanelThatWasClickedHidesAsUsual();
    void thePanelTakesNoFocusUnderADrag();
    void aShownPanelTakesTheFocusForKeys();
    void aMenuThatClosesOnAHiddenPanelSchedulesNothing();
    void pinningIsWrittenAtOnceAndToldToObservers();
    void thePinnedStateIsReadAtTheStart();
    void unpinningAHiddenPanelSchedulesNothing();
    void pinningDuringAPendingHideKeepsThePanel();
    void aControllerThatIsGoneIsNotTouchedByTheEndOfItsSlide();
    void aPinnedPanelReservesItsSpaceWhileItIsShown();
    void theReservationFollowsTheDisplay();

private:
    std::unique_ptr<Fixture> m_fixture;
};

void PanelControllerTest::theHiddenWindowKnowsWhereItWillRest()
{
    QCOMPARE(m_fixture->window.expected, std::optional(restingFrame));
    QVERIFY(!m_fixture->window.isOnScreen);

    m_fixture->displays.entries.front() = { { 0, 0, 800, 600 }, { 0, 0, 800, 600 }, QStringLiteral("first") };
    m_fixture->panel.displaysChanged();
    QCOMPARE(m_fixture->window.expected, std::optional(QRectF(688, 24, 112, 552)));
    QVERIFY(!m_fixture->window.isOnScreen);
}

void PanelControllerTest::showSlidesInFromBeyondTheRightEdge()
{
    Fixture& f = *m_fixture;
    f.panel.show();
    QVERIFY(f.panel.isShown());
    QVERIFY(f.window.isOnScreen);
    QCOMPARE(f.window.animations.size(), 1);
    const FakePanelWindow::Animation slide = f.window.animations.first();
    QCOMPARE(slide.from, restingFrame.translated(112, 0));
    QCOMPARE(slide.to, restingFrame);
    QCOMPARE(slide.seconds, 0.18);
    QCOMPARE(slide.easing, Easing::out);
}

void PanelControllerTest::hideSlidesOutByThePanelsOwnWidthAndTakesItOffTheScreen()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.panel.hide();
    QVERIFY(!f.panel.isShown());
    QVERIFY(f.window.isOnScreen);
    QCOMPARE(f.window.animations.last().to, restingFrame.translated(112, 0));
    QCOMPARE(f.window.animations.last().seconds, 0.18);
    QCOMPARE(f.window.animations.last().easing, Easing::in);
    f.queue.advance(0.179);
    QVERIFY(f.window.isOnScreen);
    f.queue.advance(0.001);
    QVERIFY(!f.window.isOnScreen);
}

void PanelControllerTest::showOnAShownPanelOnlyCancelsThePendingHide()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.panel.scheduleHide(0.5);
    f.panel.show();
    f.queue.advance(5);
    QVERIFY(f.panel.isShown());
    QCOMPARE(f.window.animations.size(), 1);
}

void PanelControllerTest::hideOnAHiddenPanelOnlyCancelsThePendingHide()
{
    Fixture& f = *m_fixture;
    f.panel.hide();
    QVERIFY(f.window.animations.isEmpty());
    f.panel.scheduleHide(0.5);
    f.panel.hide();
    QCOMPARE(f.queue.waitingTasks(), 0);
}

void PanelControllerTest::aPinnedPanelStaysAndGoesHalfASecondAfterItIsUnpinned()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.panel.togglePinned();
    f.window.onMouseExited();
    f.queue.advance(10);
    QVERIFY(f.panel.isShown());
    f.panel.togglePinned();
    f.queue.advance(0.499);
    QVERIFY(f.panel.isShown());
    f.queue.advance(0.001);
    QVERIFY(!f.panel.isShown());
}

void PanelControllerTest::thePanelStaysWhileThePointerRestsOnIt()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.pointer.moveInside(f.window.frame());
    f.panel.scheduleHide(0.5);
    f.queue.advance(0.5);
    QVERIFY(f.panel.isShown());
    f.queue.advance(2.2);
    QVERIFY(f.panel.isShown());
    f.pointer.moveOutside(f.window.frame());
    f.queue.advance(0.299);
    QVERIFY(f.panel.isShown());
    f.queue.advance(0.001);
    QVERIFY(!f.panel.isShown());
}

void PanelControllerTest::thePanelStaysDuringADragOutAndGoesHalfASecondAfterIt()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.panel.scheduleHide(0.5);
    f.panel.beginDragOut();
    QCOMPARE(f.queue.waitingTasks(), 0);
    f.window.onMouseExited();
    // Not when a look that the pointer's leaving has begun would be due half a second later.
    f.queue.advance(10.2);
    QVERIFY(f.panel.isShown());
    f.panel.endDragOut();
    f.queue.advance(0.499);
    QVERIFY(f.panel.isShown());
    f.queue.advance(0.001);
    QVERIFY(!f.panel.isShown());
}

void PanelControllerTest::theUserMayHideThePanelDuringADragOut()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.panel.beginDragOut();
    f.panel.hide();
    QVERIFY(!f.panel.isShown());
    f.panel.endDragOut();
    f.queue.advance(10);
    QVERIFY(!f.panel.isShown());
}

void PanelControllerTest::anIncomingDragOnAnOpenPanelStartsNoTimer()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.panel.scheduleHide(0.5);
    f.panel.showForIncomingDrag();
    QCOMPARE(f.queue.waitingTimers(), 0);
    QCOMPARE(f.queue.waitingTasks(), 1);
}

void PanelControllerTest::anIncomingDragKeepsThePanelUntilTheButtonIsReleased()
{
    Fixture& f = *m_fixture;
    f.pointer.leftButtonDown = true;
    f.panel.showForIncomingDrag();
    QVERIFY(f.panel.isShown());
    f.pointer.moveOutside(restingFrame);
    f.queue.advance(20);
    QVERIFY(f.panel.isShown());
    f.pointer.leftButtonDown = false;
    f.queue.advance(0.1);
    QCOMPARE(f.queue.waitingTimers(), 0);
    f.queue.advance(0.499);
    QVERIFY(f.panel.isShown());
    f.queue.advance(0.001);
    QVERIFY(!f.panel.isShown());
}

void PanelControllerTest::aSecondIncomingDragReplacesTheTimerOfTheFirst()
{
    Fixture& f = *m_fixture;
    f.pointer.leftButtonDown = true;
    f.panel.showForIncomingDrag();
    f.panel.hide();
    f.panel.showForIncomingDrag();
    QCOMPARE(f.queue.waitingTimers(), 1);
}

void PanelControllerTest::showDuringTheSlideOutKeepsThePanelOnScreen()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.panel.hide();
    f.queue.advance(0.09);
    f.panel.show();
    QVERIFY(f.window.isOnScreen);
    f.queue.advance(1);
    QVERIFY(f.window.isOnScreen);
    QCOMPARE(f.window.frame(), restingFrame);
}

void PanelControllerTest::thePanelKeepsClearOfPanelsAndDocks()
{
    Fixture& f = *m_fixture;
    f.displays.entries = { { { 0, 0, 1280, 800 }, { 0, 28, 1220, 772 } } };
    f.panel.show();
    f.queue.advance(0.18);
    QCOMPARE(f.window.frame(), QRectF(1220 - 112, 28 + 24, 112, 772 - 48));
}

void PanelControllerTest::thePanelShowsOnTheDisplayUnderThePointer()
{
    Fixture& f = *m_fixture;
    f.displays.entries = { { { 0, 0, 800, 600 }, { 0, 0, 800, 600 } }, { { 800, 0, 640, 480 }, { 800, 0, 640, 480 } } };
    f.pointer.at = { 800, 10 };
    f.panel.show();
    f.queue.advance(0.18);
    QCOMPARE(f.window.frame(), QRectF(1440 - 112, 24, 112, 432));
}

void PanelControllerTest::aPointerOnNoDisplayMeansTheMainDisplay_data()
{
    QTest::addColumn<std::size_t>("main");
    QTest::addColumn<QRectF>("frame");
    QTest::newRow("the first one") << std::size_t{ 0 } << QRectF(800 - 112, 24, 112, 552);
    QTest::newRow("the second one") << std::size_t{ 1 } << QRectF(1440 - 112, 24, 112, 432);
}

void PanelControllerTest::aPointerOnNoDisplayMeansTheMainDisplay()
{
    QFETCH(const std::size_t, main);
    QFETCH(const QRectF, frame);
    Fixture& f = *m_fixture;
    f.displays.main = main;
    f.displays.entries = { { { 0, 0, 800, 600 }, { 0, 0, 800, 600 } }, { { 800, 0, 640, 480 }, { 800, 0, 640, 480 } } };
    f.pointer.at = { 1000, 500 };
    f.panel.show();
    f.queue.advance(0.18);
    QCOMPARE(f.window.frame(), frame);
}

void PanelControllerTest::withoutAnyDisplayNothingShows()
{
    Fixture& f = *m_fixture;
    f.displays.entries.clear();
    f.panel.show();
    QVERIFY(!f.panel.isShown());
    QVERIFY(!f.window.isOnScreen);
}

void PanelControllerTest::whereThePointerIsUnknownThePanelWaitsForTheActiveDisplay()
{
    Fixture& f = *m_fixture;
    f.displays.entries = { { { 0, 0, 800, 600 }, { 0, 0, 800, 600 } }, { { 800, 0, 640, 480 }, { 800, 0, 640, 480 } } };
    f.displays.mustBeAsked = true;
    f.pointer.at = { -1000, -1000 };
    f.panel.show();
    QVERIFY(!f.panel.isShown());
    QVERIFY(!f.window.isOnScreen);
    f.displays.search(f.displays.entries.at(1).frame);
    QVERIFY(f.panel.isShown());
    f.queue.advance(0.18);
    QCOMPARE(f.window.frame(), QRectF(1328, 24, 112, 432));
}

void PanelControllerTest::hidingEndsTheSearchForADisplay()
{
    Fixture& f = *m_fixture;
    f.displays.mustBeAsked = true;
    f.pointer.at = { -1000, -1000 };
    f.panel.show();
    f.panel.hide();
    f.displays.search(f.displays.mainFrame());
    QVERIFY(!f.panel.isShown());
    QVERIFY(!f.window.isOnScreen);
}

void PanelControllerTest::aSecondShowingWaitsForTheSameSearch()
{
    Fixture& f = *m_fixture;
    int taken = 0;
    f.panel.onTakeFocus = [&] { ++taken; };
    f.displays.mustBeAsked = true;
    f.pointer.at = { -1000, -1000 };
    f.panel.showForKeys();
    QVERIFY(f.panel.isComing());
    const auto first = std::exchange(f.displays.search, nullptr);
    f.panel.show();
    QVERIFY(!f.displays.search);
    first(f.displays.mainFrame());
    QVERIFY(f.panel.isShown());
    QVERIFY(!f.panel.isComing());
    QCOMPARE(taken, 1);
}

void PanelControllerTest::aDragDoesNotWaitForTheSearch()
{
    Fixture& f = *m_fixture;
    f.displays.entries = { { { 0, 0, 800, 600 }, { 0, 0, 800, 600 } }, { { 800, 0, 640, 480 }, { 800, 0, 640, 480 } } };
    f.displays.mustBeAsked = true;
    int taken = 0;
    f.panel.onTakeFocus = [&] { ++taken; };
    f.pointer.at = { -1000, -1000 };
    f.panel.showForKeys();
    f.pointer.at = { 1438, 100 };
    f.pointer.leftButtonDown = true;
    f.panel.showForIncomingDrag();
    QVERIFY(f.panel.isShown());
    f.displays.search(f.displays.entries.at(0).frame);
    f.queue.advance(0.18);
    QCOMPARE(f.window.frame(), QRectF(1328, 24, 112, 432));
    QCOMPARE(taken, 0);
}

void PanelControllerTest::thePanelForKeysTakesTheFocusOnceItsDisplayIsKnown()
{
    Fixture& f = *m_fixture;
    int taken = 0;
    f.panel.onTakeFocus = [&] { ++taken; };
    f.displays.mustBeAsked = true;
    f.pointer.at = { -1000, -1000 };
    f.panel.showForKeys();
    QCOMPARE(taken, 0);
    f.displays.search(f.displays.mainFrame());
    QVERIFY(f.panel.isShown());
    QCOMPARE(taken, 1);
    f.panel.hide();
    f.panel.showForKeys();
    f.panel.hide();
    f.displays.search(f.displays.mainFrame());
    QCOMPARE(taken, 1);
}

void PanelControllerTest::aDisplayThatGoesHandsThePanelOver()
{
    Fixture& f = *m_fixture;
    f.displays.entries.push_back({ { 1280, 0, 1920, 1080 }, { 1280, 0, 1920, 1080 }, QStringLiteral("second") });
    f.pointer.at = QPointF(2000, 500);
    f.showAtRest();
    QCOMPARE(f.window.frame(), QRectF(3088, 24, 112, 1032));

    f.displays.entries.pop_back();
    f.pointer.at = QPointF(1000, 500);
    f.panel.displaysChanged();
    QCOMPARE(f.window.frame(), restingFrame);
    QVERIFY(f.panel.isShown());

    // It belongs there from now on, wherever the pointer is.
    f.displays.entries.push_back({ { 1280, 0, 800, 600 }, { 1280, 0, 800, 600 }, QStringLiteral("third") });
    f.pointer.at = QPointF(1500, 500);
    f.panel.displaysChanged();
    QCOMPARE(f.window.frame(), restingFrame);

    f.displays.entries.clear();
    f.panel.displaysChanged();
    QCOMPARE(f.window.frame(), restingFrame);
}

void PanelControllerTest::aDisplayThatChangesKeepsThePanelAtItsEdge()
{
    Fixture& f = *m_fixture;
    f.displays.entries.push_back({ { -800, 0, 800, 600 }, { -800, 0, 800, 600 }, QStringLiteral("left") });
    f.showAtRest();
    f.pointer.at = QPointF(-400, 300);
    f.displays.entries.front() = { { 0, 0, 1280, 600 }, { 0, 0, 1280, 600 }, QStringLiteral("first") };
    f.panel.displaysChanged();
    QCOMPARE(f.window.frame(), QRectF(1168, 24, 112, 552));
}

void PanelControllerTest::anotherDisplayAtTheLeftLeavesThePanelOnItsOwn()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.displays.entries = { { { 0, 0, 1280, 800 }, { 0, 0, 1280, 800 }, QStringLiteral("new") },
                           { { 1280, 0, 1280, 800 }, { 1280, 0, 1280, 800 }, f.displays.entries.front().identity } };
    f.panel.displaysChanged();
    QCOMPARE(f.window.frame(), restingFrame.translated(1280, 0));
    // It hides to its own side from there.
    f.panel.hide();
    QCOMPARE(f.window.animations.last().to, restingFrame.translated(1280 + 112, 0));
}

void PanelControllerTest::aHiddenPanelStaysOutOfSightWhenDisplaysChange()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.panel.hide();
    f.panel.displaysChanged();
    QVERIFY(!f.window.isOnScreen);
    f.queue.advance(1);
    QVERIFY(!f.panel.isShown());
    QVERIFY(!f.window.isOnScreen);
}

void PanelControllerTest::showingResolvesTheFilesAnew()
{
    Fixture& f = *m_fixture;
    const QUrl file = fileUrl("/a");
    f.store.addFiles({ file });
    f.references.removeFile(file);
    QCOMPARE(f.store.fileURLs().size(), 1);
    f.panel.show();
    QCOMPARE(f.store.fileURLs().size(), 0);
}

void PanelControllerTest::theEndOfADragOutResolvesTheFilesAnew()
{
    Fixture& f = *m_fixture;
    const QUrl file = fileUrl("/a");
    f.store.addFiles({ file });
    f.showAtRest();
    f.panel.beginDragOut();
    f.references.removeFile(file);
    f.panel.endDragOut();
    QCOMPARE(f.store.fileURLs().size(), 0);
}

void PanelControllerTest::thePointerEnteringCancelsThePendingHide()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.panel.scheduleHide(0.5);
    f.window.onMouseEntered();
    QCOMPARE(f.queue.waitingTasks(), 0);
    f.queue.advance(5);
    QVERIFY(f.panel.isShown());
}

void PanelControllerTest::thePointerLeavingSchedulesTheHide()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.window.onMouseExited();
    f.queue.advance(0.499);
    QVERIFY(f.panel.isShown());
    f.queue.advance(0.001);
    QVERIFY(!f.panel.isShown());
}

void PanelControllerTest::aDropTargetKeepsThePanelAndItsEndLetsItGo()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.panel.scheduleHide(0.5);
    f.panel.dropTargetChanged(true);
    f.queue.advance(5);
    QVERIFY(f.panel.isShown());
    f.panel.dropTargetChanged(false);
    f.queue.advance(0.5);
    QVERIFY(!f.panel.isShown());
}

void PanelControllerTest::aLaterHideReplacesAnEarlierOne()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.panel.scheduleHide(0.5);
    f.panel.scheduleHide(1.5);
    QCOMPARE(f.queue.waitingTasks(), 1);
    f.queue.advance(1.499);
    QVERIFY(f.panel.isShown());
    f.queue.advance(0.001);
    QVERIFY(!f.panel.isShown());
}

void PanelControllerTest::thePanelStaysWhileItsMenuIsOpen()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.panel.menuOpenChanged(true);
    // The menu takes the pointer.
    f.window.onMouseExited();
    f.queue.advance(5);
    QVERIFY(f.panel.isShown());
    QCOMPARE(f.window.animations.size(), 1);

    f.panel.menuOpenChanged(false);
    f.queue.advance(0.499);
    QVERIFY(f.panel.isShown());
    f.queue.advance(0.001);
    QVERIFY(!f.panel.isShown());
}

void PanelControllerTest::hidingClosesTheMenuFirst()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    int asked = 0;
    f.panel.onCloseMenus = [&] { ++asked; };
    f.panel.menuOpenChanged(true);
    f.panel.hide();
    QCOMPARE(asked, 1);
    QVERIFY(f.panel.isShown());
    f.panel.menuOpenChanged(false);
    QVERIFY(!f.panel.isShown());

    // A menu that closes at once, as menus do.
    f.showAtRest();
    f.panel.onCloseMenus = [&] { f.panel.menuOpenChanged(false); };
    f.panel.menuOpenChanged(true);
    f.panel.hide();
    QVERIFY(!f.panel.isShown());
    f.queue.advance(0.18);
    QVERIFY(!f.window.isOnScreen);
}

void PanelControllerTest::showingAgainKeepsAPanelThatWaitsForItsMenu()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.panel.menuOpenChanged(true);
    f.panel.hide();
    f.panel.show();
    f.panel.menuOpenChanged(false);
    QVERIFY(f.panel.isShown());
}

void PanelControllerTest::aPanelForKeysTakesTheFocusAndStaysUntilItLosesIt()
{
    Fixture& f = *m_fixture;
    int taken = 0;
    f.panel.onTakeFocus = [&] { ++taken; };
    f.panel.showForKeys();
    QVERIFY(f.panel.isShown());
    QCOMPARE(taken, 1);
    f.panel.focusChanged(true);
    f.window.onMouseExited();
    f.queue.advance(10);
    QVERIFY(f.panel.isShown());
    f.panel.focusChanged(false);
    f.queue.advance(0.499);
    QVERIFY(f.panel.isShown());
    f.queue.advance(0.001);
    QVERIFY(!f.panel.isShown());
    // The next showing is for nobody's keys.
    f.panel.focusChanged(true);
    f.showAtRest();
    f.panel.scheduleHide(0.5);
    f.queue.advance(0.5);
    QVERIFY(!f.panel.isShown());
}

void PanelControllerTest::theBeginningsOfSlidesAreTold()
{
    Fixture& f = *m_fixture;
    QList<bool> told;
    f.panel.onShownChanged = [&](bool isShown) { told.append(isShown); };
    f.panel.show();
    f.panel.show();
    QCOMPARE(told, QList<bool>{ true });
    f.panel.hide();
    f.panel.hide();
    QCOMPARE(told, QList<bool>({ true, false }));
    f.panel.show();
    QCOMPARE(told, QList<bool>({ true, false, true }));
}

void PanelControllerTest::aPanelForKeysThatGetsNoFocusHidesAsUsual()
{
    Fixture& f = *m_fixture;
    f.panel.showForKeys();
    f.window.onMouseExited();
    f.queue.advance(0.5);
    QVERIFY(!f.panel.isShown());
}

void PanelControllerTest::aPanelThatWasClickedHidesAsUsual()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.panel.focusChanged(true);
    f.window.onMouseExited();
    f.queue.advance(0.5);
    QVERIFY(!f.panel.isShown());
    f.showAtRest();
    f.panel.focusChanged(false);
    f.queue.advance(5);
    QVERIFY(f.panel.isShown());
}

void PanelControllerTest::thePanelTakesNoFocusUnderADrag()
{
    Fixture& f = *m_fixture;
    int taken = 0;
    f.panel.onTakeFocus = [&] { ++taken; };
    f.pointer.leftButtonDown = true;
    f.panel.showForIncomingDrag();
    f.panel.showForKeys();
    QCOMPARE(taken, 0);
    f.pointer.leftButtonDown = false;
    f.panel.showForKeys();
    QCOMPARE(taken, 0);
    f.queue.advance(0.1);
    f.panel.beginDragOut();
    f.panel.showForKeys();
    QCOMPARE(taken, 0);
    f.panel.endDragOut();
    f.panel.showForKeys();
    QCOMPARE(taken, 1);
}

void PanelControllerTest::aShownPanelTakesTheFocusForKeys()
{
    Fixture& f = *m_fixture;
    int taken = 0;
    f.panel.onTakeFocus = [&] { ++taken; };
    f.showAtRest();
    f.panel.showForKeys();
    QCOMPARE(taken, 1);
    QCOMPARE(f.window.animations.size(), 1);
}

void PanelControllerTest::aPinnedPanelStaysAfterItsMenuHasClosed()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.panel.togglePinned();
    f.panel.menuOpenChanged(true);
    f.panel.menuOpenChanged(false);
    f.queue.advance(5);
    QVERIFY(f.panel.isShown());
    f.panel.hide();
    QVERIFY(!f.panel.isShown());
}

void PanelControllerTest::aMenuThatClosesOnAHiddenPanelSchedulesNothing()
{
    Fixture& f = *m_fixture;
    f.panel.menuOpenChanged(true);
    f.panel.menuOpenChanged(false);
    QCOMPARE(f.queue.waitingTasks(), 0);
}

void PanelControllerTest::pinningIsWrittenAtOnceAndToldToObservers()
{
    Fixture& f = *m_fixture;
    const QSignalSpy changes(&f.panel.pinning(), &PanelPinning::isPinnedChanged);
    f.panel.togglePinned();
    QCOMPARE(f.defaults.stored.value(QStringLiteral("panelPinned")), QVariant(true));
    QCOMPARE(changes.count(), 1);
    QVERIFY(!f.panel.isShown());
}

void PanelControllerTest::thePinnedStateIsReadAtTheStart()
{
    Fixture& f = *m_fixture;
    QVERIFY(!f.panel.pinning().isPinned());
    f.defaults.stored.insert(QStringLiteral("panelPinned"), true);
    QVERIFY(PanelPinning(f.defaults).isPinned());
}

void PanelControllerTest::unpinningAHiddenPanelSchedulesNothing()
{
    Fixture& f = *m_fixture;
    f.panel.togglePinned();
    f.panel.togglePinned();
    QCOMPARE(f.queue.waitingTasks(), 0);
}

void PanelControllerTest::pinningDuringAPendingHideKeepsThePanel()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.panel.scheduleHide(0.5);
    f.panel.togglePinned();
    f.queue.advance(5);
    QVERIFY(f.panel.isShown());
}

void PanelControllerTest::aControllerThatIsGoneIsNotTouchedByTheEndOfItsSlide()
{
    Fixture& f = *m_fixture;
    auto other = std::make_unique<PanelController>(f.store, f.defaults, f.window, f.pointer, f.displays, f.queue);
    other->show();
    other->hide();
    other.reset();
    f.queue.advance(1);
    QVERIFY(f.window.isOnScreen);
    QVERIFY(!f.window.onMouseEntered);
    QVERIFY(!f.window.onMouseExited);
}

void PanelControllerTest::aPinnedPanelReservesItsSpaceWhileItIsShown()
{
    Fixture& f = *m_fixture;
    f.showAtRest();
    f.panel.togglePinned();
    QVERIFY(!f.window.reserved);
    f.panel.setReservesSpace(true);
    QCOMPARE(f.window.reserved, std::optional(restingFrame));
    f.panel.togglePinned();
    QVERIFY(!f.window.reserved);
    f.panel.togglePinned();
    QCOMPARE(f.window.reserved, std::optional(restingFrame));
    f.panel.hide();
    QVERIFY(!f.window.reserved);
    // Once the panel has slid in.
    f.panel.show();
    f.queue.advance(0.17);
    QVERIFY(!f.window.reserved);
    f.queue.advance(0.01);
    QCOMPARE(f.window.reserved, std::optional(restingFrame));
    f.panel.setReservesSpace(false);
    QVERIFY(!f.window.reserved);
}

void PanelControllerTest::theReservationFollowsTheDisplay()
{
    Fixture& f = *m_fixture;
    f.panel.setReservesSpace(true);
    f.showAtRest();
    f.panel.togglePinned();
    f.displays.entries.front() = { { 0, 0, 1920, 1000 }, { 0, 30, 1920, 970 }, QStringLiteral("first") };
    f.panel.displaysChanged();
    QCOMPARE(f.window.reserved, std::optional(QRectF(1808, 54, 112, 922)));
}

QTEST_GUILESS_MAIN(PanelControllerTest)
#include "PanelControllerTest.moc"
