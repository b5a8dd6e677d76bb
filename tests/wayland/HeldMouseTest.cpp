#include "HeldMouse.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QTest>
#include <QWindow>

#include <chrono>
#include <functional>
#include <vector>

using namespace nookle;

namespace {

inline constexpr std::chrono::milliseconds aMinute{ 60'000 };

/// Has its mouse events go through what is tested, and notes those that reach it.
class Window final : public QWindow {
public:
    explicit Window(std::chrono::milliseconds longest)
        : held(*this, longest)
    {
    }

    std::vector<QEvent::Type> reached;
    std::vector<QPoint> positions;
    std::function<void()> onMove;
    HeldMouse held;

protected:
    bool event(QEvent* event) override
    {
        if (held.take(*event))
            return true;
        if (auto* mouse = dynamic_cast<QMouseEvent*>(event)) {
            reached.push_back(event->type());
            positions.push_back(mouse->position().toPoint());
        }
        if (event->type() == QEvent::MouseMove && onMove)
            onMove();
        return QWindow::event(event);
    }
};

using Types = std::vector<QEvent::Type>;

void send(Window& window, QEvent::Type type, Qt::MouseButton button = Qt::LeftButton, const QPointF& at = { 5, 5 })
{
    QMouseEvent event(type, at, at, button, button, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &event);
}

} // namespace

class HeldMouseTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aClickReachesTheWindowOnceItHasTheKeyboard();
    void afterALimitTheClickReachesTheWindowWithoutTheKeyboard();
    void otherButtonsAndMovementsDoNotWait();
    void whatIsDroppedNeverReachesTheWindow();
    void ofMovementsTheLastOneReachesTheWindow();
    void afterADragNothingThatWasHeldIsLeft();
    void aDragDoesNotBeginWhenTheButtonIsUpAgain();
};

void HeldMouseTest::aClickReachesTheWindowOnceItHasTheKeyboard()
{
    Window window(aMinute);
    send(window, QEvent::MouseButtonPress);
    send(window, QEvent::MouseButtonRelease);
    QCoreApplication::processEvents();
    QVERIFY(window.reached.empty());
    window.held.keyboardCame();
    QVERIFY(window.reached.empty());
    const Types all{ QEvent::MouseButtonPress, QEvent::MouseButtonRelease };
    QTRY_VERIFY(window.reached == all);
}

void HeldMouseTest::afterALimitTheClickReachesTheWindowWithoutTheKeyboard()
{
    Window window(std::chrono::milliseconds(0));
    send(window, QEvent::MouseButtonPress);
    QVERIFY(window.reached.empty());
    QTRY_VERIFY(window.reached == Types{ QEvent::MouseButtonPress });
    send(window, QEvent::MouseButtonRelease);
    QVERIFY((window.reached == Types{ QEvent::MouseButtonPress, QEvent::MouseButtonRelease }));
}

void HeldMouseTest::otherButtonsAndMovementsDoNotWait()
{
    Window window(aMinute);
    send(window, QEvent::MouseMove, Qt::NoButton);
    send(window, QEvent::MouseButtonPress, Qt::RightButton);
    send(window, QEvent::MouseButtonRelease, Qt::RightButton);
    QCOMPARE(window.reached.size(), 3U);
}

void HeldMouseTest::whatIsDroppedNeverReachesTheWindow()
{
    Window window(aMinute);
    send(window, QEvent::MouseButtonPress);
    window.held.drop();
    window.held.keyboardCame();
    QCoreApplication::processEvents();
    QVERIFY(window.reached.empty());
    send(window, QEvent::MouseButtonRelease);
    QVERIFY(window.reached == Types{ QEvent::MouseButtonRelease });
}

void HeldMouseTest::ofMovementsTheLastOneReachesTheWindow()
{
    Window window(aMinute);
    send(window, QEvent::MouseButtonPress);
    for (int x = 10; x <= 40; x += 10)
        send(window, QEvent::MouseMove, Qt::NoButton, QPointF(x, 5));
    window.held.keyboardCame();
    QTRY_COMPARE(window.positions, (std::vector<QPoint>{ { 5, 5 }, { 40, 5 } }));
}

void HeldMouseTest::afterADragNothingThatWasHeldIsLeft()
{
    Window window(aMinute);
    window.onMove = [&window] {
        QEvent left(QEvent::Leave);
        QCoreApplication::sendEvent(&window, &left);
    };
    send(window, QEvent::MouseButtonPress);
    send(window, QEvent::MouseMove, Qt::NoButton, QPointF(40, 5));
    send(window, QEvent::MouseButtonPress, Qt::RightButton, QPointF(40, 5));
    window.held.keyboardCame();
    QTRY_COMPARE(window.reached.size(), 2U);
    QCoreApplication::processEvents();
    QVERIFY((window.reached == Types{ QEvent::MouseButtonPress, QEvent::MouseMove }));
}

void HeldMouseTest::aDragDoesNotBeginWhenTheButtonIsUpAgain()
{
    Window window(aMinute);
    send(window, QEvent::MouseButtonPress);
    send(window, QEvent::MouseMove, Qt::NoButton, QPointF(7, 5));
    send(window, QEvent::MouseButtonRelease, Qt::LeftButton, QPointF(7, 5));
    window.held.keyboardCame();
    QTRY_VERIFY((window.reached == Types{ QEvent::MouseButtonPress, QEvent::MouseButtonRelease }));
    send(window, QEvent::MouseButtonPress);
    send(window, QEvent::MouseMove, Qt::NoButton, QPointF(60, 5));
    send(window, QEvent::MouseButtonRelease, Qt::LeftButton, QPointF(60, 5));
    window.held.keyboardCame();
    QTest::qWait(0);
    QCoreApplication::processEvents();
    QCOMPARE(window.reached.size(), 2U);
}

QTEST_MAIN(HeldMouseTest)
#include "HeldMouseTest.moc"
