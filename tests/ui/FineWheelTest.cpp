#include "ShelfFixture.h"
#include "TileList.h"

#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

#include <array>
#include <cmath>
#include <memory>

using namespace nookle;

/// Wheels that turn by less than a notch, and touchpads, as the toolkit tells of them.
class FineWheelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_fixture.reset(); }

    void eachStepMovesByItsPartOfANotch_data();
    void eachStepMovesByItsPartOfANotch();
    void upAndDownMixedLoseNothing();
    void theEndsAreReachedAndLeftAtOnce_data();
    void theEndsAreReachedAndLeftAtOnce();
    void aNotchAmongTheStepsLosesNothing();
    void fingersAndTheirInertiaMoveByTheirPixelsUpToTheEnd();

private:
    [[nodiscard]] QScrollBar& bar() const { return *list().verticalScrollBar(); }
    [[nodiscard]] TileList& list() const { return *m_fixture->view.findChild<TileList*>(); }
    /// The way of a whole notch at the usual setting of the desktop.
    [[nodiscard]] double notchWay() const { return list().viewport()->height() / 4.0; }
    /// Turns the wheel towards the user by that many 120ths of a notch.
    void turn(int angle) { send({}, { 0, -angle }, Qt::NoScrollPhase); }
    /// Moves fingers by that many points, so that what is below the pointer moves up.
    void glide(int points, Qt::ScrollPhase phase) { send({ 0, -points }, { 0, -points }, phase); }
    void send(const QPoint& pixels, const QPoint& angle, Qt::ScrollPhase phase);
    /// Whether the list is less than a point away from there.
    [[nodiscard]] bool isAt(double position) const { return std::abs(bar().value() - position) < 1; }
    [[nodiscard]] QByteArray place() const { return QByteArray::number(bar().value()); }

    std::unique_ptr<ShelfFixture> m_fixture;
};

namespace {

inline constexpr int notch = 120;

} // namespace

void FineWheelTest::init()
{
    QApplication::setEffectEnabled(Qt::UI_General, false);
    m_fixture = std::make_unique<ShelfFixture>();
    QList<QUrl> files;
    for (int number = 0; number < 60; ++number)
        files.append(fileUrl("/somewhere/" + QByteArray::number(number)));
    m_fixture->store.addFiles(files);
    QVERIFY(bar().maximum() > 4000);
    QCOMPARE(QApplication::wheelScrollLines(), 3);
}

void FineWheelTest::send(const QPoint& pixels, const QPoint& angle, Qt::ScrollPhase phase)
{
    QWidget& target = *list().viewport();
    const QPointF centre = target.rect().center();
    QWheelEvent event(centre, target.mapToGlobal(centre), pixels, angle, Qt::NoButton, Qt::NoModifier, phase, false);
    QApplication::sendEvent(&target, &event);
    QVERIFY(event.isAccepted());
}

void FineWheelTest::eachStepMovesByItsPartOfANotch_data()
{
    QTest::addColumn<int>("angle");
    for (const int angle : { 1, 8, 15, 30, 45, 90, 150 })
        QTest::addRow("%d of 120", angle) << angle;
}

void FineWheelTest::eachStepMovesByItsPartOfANotch()
{
    QFETCH(const int, angle);
    constexpr int steps = 16;
    for (int step = 1; step <= steps; ++step) {
        turn(angle);
        QVERIFY2(isAt(notchWay() * step * angle / notch), place());
    }
    for (int step = 1; step <= steps; ++step)
        turn(-angle);
    QCOMPARE(bar().value(), 0);
}

void FineWheelTest::upAndDownMixedLoseNothing()
{
    // A hand that goes on while it trembles: what it turns back is never a whole point.
    int turned = 0;
    for (int round = 0; round < 400; ++round) {
        for (const int angle : std::array{ 1, 1, -1 }) {
            turn(angle);
            turned += angle;
        }
    }
    QVERIFY2(isAt(notchWay() * turned / notch), place());
}

void FineWheelTest::theEndsAreReachedAndLeftAtOnce_data()
{
    QTest::addColumn<bool>("isFinger");
    QTest::newRow("a wheel") << false;
    QTest::newRow("fingers") << true;
}

void FineWheelTest::theEndsAreReachedAndLeftAtOnce()
{
    QFETCH(const bool, isFinger);
    constexpr int angle = 30;
    const auto move = [&](int direction) {
        if (isFinger)
            glide(direction * qRound(notchWay() * angle / notch), Qt::ScrollUpdate);
        else
            turn(direction * angle);
    };
    const int step = static_cast<int>(notchWay() * angle / notch);
    const int steps = bar().maximum() / step + 1;
    for (int count = 0; count < steps; ++count)
        move(1);
    QCOMPARE(bar().value(), bar().maximum());
    // What goes beyond the end is not kept.
    for (int count = 0; count < steps; ++count)
        move(1);
    move(-1);
    QVERIFY2(bar().maximum() - bar().value() >= step - 1, place());
    for (int count = 0; count < steps; ++count)
        move(-1);
    QCOMPARE(bar().value(), 0);
    move(1);
    QVERIFY2(bar().value() >= step - 1, place());
}

void FineWheelTest::aNotchAmongTheStepsLosesNothing()
{
    QApplication::setEffectEnabled(Qt::UI_General);
    int turned = 0;
    for (const int angle : std::array{ 30, 90, 120, 60, 240, 30, 45 }) {
        turn(angle);
        turned += angle;
    }
    QVERIFY2(isAt(notchWay() * turned / notch), place());
    turn(notch);
    turned += notch;
    QTRY_VERIFY2(!list().isScrolling(), place());
    QVERIFY2(isAt(notchWay() * turned / notch), place());
}

void FineWheelTest::fingersAndTheirInertiaMoveByTheirPixelsUpToTheEnd()
{
    glide(0, Qt::ScrollBegin);
    glide(40, Qt::ScrollUpdate);
    glide(0, Qt::ScrollEnd);
    QCOMPARE(bar().value(), 40);
    int expected = 40;
    for (int speed = 300; speed > 0; speed -= 4) {
        glide(speed, Qt::ScrollMomentum);
        expected = std::min(expected + speed, bar().maximum());
        QCOMPARE(bar().value(), expected);
    }
    glide(0, Qt::ScrollEnd);
    QCOMPARE(bar().value(), bar().maximum());
}

QTEST_MAIN(FineWheelTest)
#include "FineWheelTest.moc"
