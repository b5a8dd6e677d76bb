#include "HeldMouse.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QTest>
#include <QWindow>

#include <chrono>
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
    HeldMouse held;

protected:
    bool event(QEvent* event) override
    {
        if (held.take(*event))
            return true;
        if (dynamic_cast<QMouseEvent*>(event))
            reached.push_back(event->type());
        return QWindow::event(event);
    }
};

using Types = std::vector<QEvent::Type>;

void send(Window& window, QEvent::Type type, Qt::MouseButton button = Qt::LeftButton)
{
    QMouseEvent event(type, QPointF(5, 5), QPointF(5, 5), button, button, Qt::NoModifier);
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
};

void HeldMouseTest::aClickReachesTheWindowOnceItHasTheKeyboard()
{
    Window window(aMinute);
    send(window, QEvent::MouseButtonPress);
    send(window, QEvent::MouseMove, Qt::NoButton);
    send(window, QEvent::MouseButtonRelease);
    QCoreApplication::processEvents();
    QVERIFY(window.reached.empty());
    window.held.keyboardCame();
    QVERIFY(window.reached.empty());
    const Types all{ QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseButtonRelease };
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

QTEST_MAIN(HeldMouseTest)
#include "HeldMouseTest.moc"
