#include "WheelScroll.h"

#include <QApplication>
#include <QPointingDevice>
#include <QTest>
#include <QWheelEvent>

#include <array>
#include <optional>

using namespace nookle;

/// Devices that send steps of a wheel without phases, as those of an X server do.
class TouchpadWheelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aTouchpadMovesByTheWayOfTheFinger_data();
    void aTouchpadMovesByTheWayOfTheFinger();
    void aWholeNotchOfATouchpadIsNoJump();
    void upAndDownMixedLeaveNothing();
    void aFineWheelMovesAsItsNotchesDo();
    void whatMayBeEitherIsSlowBelowANotchOnly();

private:
    /// Another device, which nothing has been turned on.
    void use(const QString& name, QInputDevice::DeviceType type = QInputDevice::DeviceType::Mouse);
    /// Turns or draws by that many 120ths of a notch, towards the user.
    WheelScroll::Step turn(int angle);
    /// The distance of so many of these steps.
    [[nodiscard]] int distance(int angle, int count);

    std::optional<QPointingDevice> m_device;
    WheelScroll m_wheel;
};

namespace {

inline constexpr int page = 400;
inline constexpr int notch = 120;
inline constexpr int notchWay = page / 4;

} // namespace

void TouchpadWheelTest::init()
{
    QCOMPARE(QApplication::wheelScrollLines(), 3);
    m_wheel = {};
}

void TouchpadWheelTest::use(const QString& name, QInputDevice::DeviceType type)
{
    m_device.emplace(name, 7, type, QPointingDevice::PointerType::Generic,
                     QInputDevice::Capability::Position | QInputDevice::Capability::Scroll, 1, 7);
}

WheelScroll::Step TouchpadWheelTest::turn(int angle)
{
    // The guess of the driver, which is wrong by the factor of its increment.
    const QPoint pixels(0, -angle);
    const QWheelEvent event({}, {}, pixels, { 0, -angle }, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false,
                            Qt::MouseEventNotSynthesized, &*m_device);
    return m_wheel.step(event, page);
}

int TouchpadWheelTest::distance(int angle, int count)
{
    int sum = 0;
    for (int step = 0; step < count; ++step)
        sum += turn(angle).distance;
    return sum;
}

void TouchpadWheelTest::aTouchpadMovesByTheWayOfTheFinger_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name :
         { "SynPS/2 Synaptics TouchPad", "ELAN0501:00 04F3:3060 Touchpad", "Apple Inc. Magic Trackpad" })
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TouchpadWheelTest::aTouchpadMovesByTheWayOfTheFinger()
{
    QFETCH(const QString, name);
    use(name);
    // Eight 120ths are one point of the finger's way.
    for (int step = 0; step < 50; ++step) {
        const WheelScroll::Step moved = turn(8);
        QCOMPARE(moved.distance, 1);
        QCOMPARE(moved.kind, WheelScroll::Kind::finger);
    }
    QCOMPARE(distance(2, 40), 10);
    QCOMPARE(distance(-40, 20), -100);
}

void TouchpadWheelTest::aWholeNotchOfATouchpadIsNoJump()
{
    use(QStringLiteral("SynPS/2 Synaptics TouchPad"));
    const WheelScroll::Step moved = turn(notch);
    QCOMPARE(moved.distance, 15);
    QCOMPARE(moved.kind, WheelScroll::Kind::finger);
}

void TouchpadWheelTest::upAndDownMixedLeaveNothing()
{
    use(QStringLiteral("SynPS/2 Synaptics TouchPad"));
    int sum = 0;
    for (int round = 0; round < 100; ++round) {
        for (const int angle : std::array{ 3, 3, -2 })
            sum += turn(angle).distance;
    }
    QCOMPARE(sum, 50);
    for (int round = 0; round < 100; ++round) {
        for (const int angle : std::array{ -3, -3, 2 })
            sum += turn(angle).distance;
    }
    QCOMPARE(sum, 0);
}

void TouchpadWheelTest::aFineWheelMovesAsItsNotchesDo()
{
    use(QStringLiteral("Logitech MX Master 3"));
    QCOMPARE(turn(15).kind, WheelScroll::Kind::fine);
    QCOMPARE(distance(15, 7) + static_cast<int>(notchWay * 15 / notch), notchWay);
    QCOMPARE(turn(notch).kind, WheelScroll::Kind::notch);
    QCOMPARE(distance(notch, 3), 3 * notchWay);
}

void TouchpadWheelTest::whatMayBeEitherIsSlowBelowANotchOnly()
{
    // What the toolkit says there, for a wheel as well.
    use(QStringLiteral("xwayland-relative-pointer:36"), QInputDevice::DeviceType::TouchPad);
    QCOMPARE(distance(notch, 3), 3 * notchWay);
    QCOMPARE(turn(notch).kind, WheelScroll::Kind::notch);
    QCOMPARE(distance(12, 10), 60);
    QCOMPARE(distance(-12, 10), -60);
    QCOMPARE(turn(12).kind, WheelScroll::Kind::fine);
}

QTEST_MAIN(TouchpadWheelTest)
#include "TouchpadWheelTest.moc"
