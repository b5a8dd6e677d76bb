#include "AbandonedMenu.h"
#include "FakeMainQueue.h"

#include <QCoreApplication>
#include <QEnterEvent>
#include <QTest>
#include <QWindow>

using namespace nookle;

namespace {

void enter(QWindow& window)
{
    QEnterEvent event(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QCoreApplication::sendEvent(&window, &event);
}

void leave(QWindow& window)
{
    QEvent event(QEvent::Leave);
    QCoreApplication::sendEvent(&window, &event);
}

} // namespace

class AbandonedMenuTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void theMenuClosesHalfASecondAfterThePointerHasLeft();
    void theMenuStaysWhileThePointerIsOverThePanel();
    void thePanelMayBeLeftAfterTheMenuWasEntered();
    void theMenuStaysWhileThePointerIsOverIt();
    void aMenuThatThePointerHasNotLeftStays();
    void theMenuClosesWhenThePointerIsLost();
    void nobodyIsAskedAboutAMenuThatThePointerHasLeft();
    void aMenuOfAnotherWindowStays();
    void anotherMenuHasTheWholeTime();

private:
    FakeMainQueue m_queue;
    std::unique_ptr<AbandonedMenu> m_watch;
    std::unique_ptr<QWindow> m_panel;
    std::unique_ptr<QWindow> m_menu;
};

void AbandonedMenuTest::init()
{
    m_watch.reset();
    m_panel = std::make_unique<QWindow>();
    m_panel->show();
    m_watch = std::make_unique<AbandonedMenu>(*m_panel, m_queue);
    enter(*m_panel);
    m_menu = std::make_unique<QWindow>();
    m_menu->setFlags(Qt::Popup);
    m_menu->show();
}

void AbandonedMenuTest::theMenuClosesHalfASecondAfterThePointerHasLeft()
{
    int abandoned = 0;
    m_watch->onAbandoned = [&] { ++abandoned; };
    leave(*m_panel);
    m_queue.advance(0.499);
    QVERIFY(m_menu->isVisible());
    m_queue.advance(0.001);
    QVERIFY(!m_menu->isVisible());
    QCOMPARE(abandoned, 1);
    QVERIFY(m_panel->isVisible());
}

void AbandonedMenuTest::theMenuStaysWhileThePointerIsOverThePanel()
{
    leave(*m_panel);
    enter(*m_menu);
    leave(*m_menu);
    m_queue.advance(0.4);
    enter(*m_panel);
    m_queue.advance(10);
    QVERIFY(m_menu->isVisible());
}

// The server may tell of leaving one window after entering the other.
void AbandonedMenuTest::thePanelMayBeLeftAfterTheMenuWasEntered()
{
    enter(*m_menu);
    leave(*m_panel);
    m_queue.advance(10);
    QVERIFY(m_menu->isVisible());
}

void AbandonedMenuTest::theMenuStaysWhileThePointerIsOverIt()
{
    leave(*m_panel);
    m_queue.advance(0.4);
    enter(*m_menu);
    m_queue.advance(10);
    QVERIFY(m_menu->isVisible());
    leave(*m_menu);
    m_queue.advance(0.5);
    QVERIFY(!m_menu->isVisible());
}

void AbandonedMenuTest::aMenuThatThePointerHasNotLeftStays()
{
    m_queue.advance(60);
    QVERIFY(m_menu->isVisible());
}

void AbandonedMenuTest::theMenuClosesWhenThePointerIsLost()
{
    bool isLost = false;
    const QWindow* asked = nullptr;
    m_watch->isPointerLost = [&](const QWindow& menu) {
        asked = &menu;
        return isLost;
    };
    enter(*m_menu);
    m_queue.advance(10);
    QVERIFY(m_menu->isVisible());
    QCOMPARE(asked, m_menu.get());
    isLost = true;
    m_queue.advance(1);
    QVERIFY(!m_menu->isVisible());
    asked = nullptr;
    m_queue.advance(10);
    QCOMPARE(asked, nullptr);
}

void AbandonedMenuTest::nobodyIsAskedAboutAMenuThatThePointerHasLeft()
{
    int asked = 0;
    m_watch->isPointerLost = [&](const QWindow& /*menu*/) {
        ++asked;
        return true;
    };
    leave(*m_panel);
    m_queue.advance(0.5);
    QVERIFY(!m_menu->isVisible());
    QCOMPARE(asked, 0);
}

void AbandonedMenuTest::aMenuOfAnotherWindowStays()
{
    m_menu->close();
    QWindow settings;
    QWindow list;
    list.setFlags(Qt::Popup);
    list.setTransientParent(&settings);
    list.show();
    leave(*m_panel);
    leave(list);
    m_queue.advance(10);
    QVERIFY(list.isVisible());
}

void AbandonedMenuTest::anotherMenuHasTheWholeTime()
{
    leave(*m_panel);
    m_menu->close();
    m_menu->show();
    m_queue.advance(10);
    QVERIFY(m_menu->isVisible());
}

QTEST_MAIN(AbandonedMenuTest)
#include "AbandonedMenuTest.moc"
