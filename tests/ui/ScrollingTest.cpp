#include "ScrollFade.h"
#include "ShelfFixture.h"
#include "TileList.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <cstdlib>
#include <memory>

using namespace nookle;

class ScrollingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aFewTurnsOfTheWheelReachTheEndOfSixtyItems();
    void aTouchpadScrollsByItsPixels();
    void theFractionsOfAFineWheelAddUp();
    void noWheelEventLeavesTheShelf();
    void theListFadesWhereMoreIsHidden();
    void aShortListDoesNotFade();
    void theFadeLiesAboveTheTiles();
    void aNotchMovesTheListAndFurtherOnesAddUp();
    void whatIsHiddenDoesNotMove();
    void aTouchpadEndsTheMovementOfANotch();

private:
    [[nodiscard]] TileList& list() const { return *m_fixture->view.findChild<TileList*>(); }
    [[nodiscard]] int position() const { return list().verticalScrollBar()->value(); }
    [[nodiscard]] int end() const { return list().verticalScrollBar()->maximum(); }
    void addFiles(int count);
    /// Returns whether the event was accepted.
    bool turn(QWidget& widget, const QPoint& pixels, const QPoint& angle, Qt::ScrollPhase phase = Qt::NoScrollPhase);
    void notches(int count)
    {
        for (int notch = 0; notch < count; ++notch)
            turn(*list().viewport(), {}, { 0, -120 });
    }
    [[nodiscard]] bool isFaded(qsizetype edge) const
    {
        return m_fixture->view.findChildren<ScrollFade*>().at(edge)->isVisible();
    }

    std::unique_ptr<ShelfFixture> m_fixture;
};

namespace {

inline constexpr qsizetype top = 0;
inline constexpr qsizetype bottom = 1;

} // namespace

void ScrollingTest::init()
{
    QApplication::setEffectEnabled(Qt::UI_General, false);
    m_fixture = std::make_unique<ShelfFixture>();
}

void ScrollingTest::cleanup()
{
    m_fixture.reset();
}

void ScrollingTest::addFiles(int count)
{
    QList<QUrl> files;
    for (int number = 0; number < count; ++number)
        files.append(fileUrl("/somewhere/" + QByteArray::number(number)));
    m_fixture->store.addFiles(files);
}

bool ScrollingTest::turn(QWidget& widget, const QPoint& pixels, const QPoint& angle, Qt::ScrollPhase phase)
{
    const QPointF place = widget.rect().center();
    QWheelEvent event(place, widget.mapToGlobal(place), pixels, angle, Qt::NoButton, Qt::NoModifier, phase, false);
    event.ignore();
    QApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

void ScrollingTest::aFewTurnsOfTheWheelReachTheEndOfSixtyItems()
{
    addFiles(60);
    QVERIFY(end() > 4000);
    notches(1);
    QVERIFY2(position() > 100 && position() < 300, qPrintable(QString::number(position())));
    notches(29);
    QCOMPARE(position(), end());
}

void ScrollingTest::aTouchpadScrollsByItsPixels()
{
    addFiles(60);
    turn(*list().viewport(), { 0, -7 }, { 0, -120 }, Qt::ScrollUpdate);
    QCOMPARE(position(), 7);
    turn(*list().viewport(), { 0, 3 }, { 0, 40 }, Qt::ScrollUpdate);
    QCOMPARE(position(), 4);
    // Less than a pixel: the toolkit adds it to the next movement.
    turn(*list().viewport(), {}, { 0, 5 }, Qt::ScrollUpdate);
    QCOMPARE(position(), 4);
}

void ScrollingTest::theFractionsOfAFineWheelAddUp()
{
    addFiles(60);
    notches(1);
    const int notch = position();
    list().verticalScrollBar()->setValue(0);
    for (int step = 0; step < 120; ++step)
        turn(*list().viewport(), {}, { 0, -1 });
    QVERIFY2(std::abs(position() - notch) <= 1, qPrintable(QString::number(position())));
}

void ScrollingTest::noWheelEventLeavesTheShelf()
{
    QVERIFY(turn(m_fixture->view, {}, { 0, 120 }));
    addFiles(60);
    QVERIFY(turn(*list().viewport(), {}, { 0, 120 }));
    QVERIFY(turn(*list().viewport(), {}, { 120, 0 }));
    notches(60);
    QVERIFY(turn(*list().viewport(), {}, { 0, -120 }));
}

void ScrollingTest::theListFadesWhereMoreIsHidden()
{
    addFiles(60);
    QVERIFY(!isFaded(top));
    QVERIFY(isFaded(bottom));
    list().verticalScrollBar()->setValue(100);
    QVERIFY(isFaded(top));
    QVERIFY(isFaded(bottom));
    list().verticalScrollBar()->setValue(end());
    QVERIFY(isFaded(top));
    QVERIFY(!isFaded(bottom));
    while (!m_fixture->store.items().isEmpty())
        m_fixture->store.remove(m_fixture->top().id);
    QVERIFY(!isFaded(top));
    QVERIFY(!isFaded(bottom));
}

void ScrollingTest::aShortListDoesNotFade()
{
    addFiles(2);
    QVERIFY(!isFaded(top));
    QVERIFY(!isFaded(bottom));
}

void ScrollingTest::theFadeLiesAboveTheTiles()
{
    addFiles(60);
    const QImage picture = m_fixture->view.grab().toImage();
    m_fixture->view.findChildren<ScrollFade*>().at(bottom)->hide();
    const QImage without = m_fixture->view.grab().toImage();
    const QRect strip(20, picture.height() - 10, 72, 4);
    QVERIFY(picture.copy(strip) != without.copy(strip));
}

void ScrollingTest::aNotchMovesTheListAndFurtherOnesAddUp()
{
    addFiles(60);
    notches(1);
    const int notch = position();
    list().verticalScrollBar()->setValue(0);
    QApplication::setEffectEnabled(Qt::UI_General);
    notches(2);
    QCOMPARE(position(), 0);
    auto* bar = list().verticalScrollBar();
    QSignalSpy moves(bar, &QScrollBar::valueChanged);
    QTRY_COMPARE(position(), 2 * notch);
    QVERIFY2(moves.size() > 2, qPrintable(QString::number(moves.size())));
}

void ScrollingTest::whatIsHiddenDoesNotMove()
{
    addFiles(60);
    QApplication::setEffectEnabled(Qt::UI_General);
    notches(1);
    QVERIFY(list().isScrolling());
    m_fixture->view.hide();
    QVERIFY(!list().isScrolling());
}

void ScrollingTest::aTouchpadEndsTheMovementOfANotch()
{
    addFiles(60);
    QApplication::setEffectEnabled(Qt::UI_General);
    notches(1);
    turn(*list().viewport(), { 0, -5 }, {}, Qt::ScrollUpdate);
    QCOMPARE(position(), 5);
    QVERIFY(!list().isScrolling());
}

QTEST_MAIN(ScrollingTest)
#include "ScrollingTest.moc"
