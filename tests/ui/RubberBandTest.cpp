#include "SelectingFixture.h"

#include <QScrollBar>

using namespace nookle;

/// How tiles are selected by a rubber band.
class RubberBandTest : public QObject, private SelectingFixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { open(); }
    void cleanup() { m_shelf.reset(); }

    void aRubberBandSelectsWhatItTouches();
    void aRubberBandMayBeginOnTheHeader();
    void withControlARubberBandAdds();
    void escapeTakesTheRubberBandBack();
    void escapeGivesBackWhatWasSelectedBefore();
    void whatIsRemovedUnderARubberBandDoesNotComeBack();
    void aRubberBandOnAShelfThatBecameEmptyWhileHiddenSelectsNothing();
    void theListScrollsUnderARubberBandAtItsEnds();
    void aRubberBandFromTheHeaderLeavesWhatIsScrolledAway();
    void aRubberBandFromTheHeaderDoesNotScrollOnItsWayIn();
    void thePanelIsInUseUnderARubberBand();
    void aMenuTakesTheRubberBandBack();
    void aRubberBandWhoseReleaseWasLostEndsAtTheNextMove();
};

void RubberBandTest::aRubberBandSelectsWhatItTouches()
{
    QWidget& free = *list().viewport();
    const QPoint start = below(0);
    QTest::mousePress(&free, Qt::LeftButton, {}, start);
    // Beside the column of tiles it touches none.
    moveTo(free, below(2));
    QCOMPARE(selected(), QString());
    moveTo(free, below(2) + QPoint(40, 0));
    QCOMPARE(selected(), QStringLiteral("bc"));
    moveTo(free, below(1) + QPoint(40, 0));
    QCOMPARE(selected(), QStringLiteral("b"));
    QTest::mouseRelease(&free, Qt::LeftButton, {}, below(1) + QPoint(40, 0));
    QCOMPARE(selected(), QStringLiteral("b"));
}

void RubberBandTest::aRubberBandMayBeginOnTheHeader()
{
    QWidget& view = m_shelf->view;
    QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(10, 10));
    moveTo(view, view.mapFromGlobal(list().viewport()->mapToGlobal(below(1) + QPoint(40, 0))));
    QTest::mouseRelease(&view, Qt::LeftButton);
    QCOMPARE(selected(), QStringLiteral("ab"));
}

void RubberBandTest::withControlARubberBandAdds()
{
    click(5, Qt::ControlModifier);
    QWidget& free = *list().viewport();
    QTest::mousePress(&free, Qt::LeftButton, Qt::ControlModifier, below(0));
    moveTo(free, below(1) + QPoint(40, 0));
    QTest::mouseRelease(&free, Qt::LeftButton, Qt::ControlModifier, below(1) + QPoint(40, 0));
    QCOMPARE(selected(), QStringLiteral("bf"));
}

void RubberBandTest::escapeTakesTheRubberBandBack()
{
    click(5, Qt::ControlModifier);
    QWidget& free = *list().viewport();
    QTest::mousePress(&free, Qt::LeftButton, Qt::ControlModifier, below(0));
    moveTo(free, below(1) + QPoint(40, 0));
    key(Qt::Key_Escape);
    QCOMPARE(selected(), QStringLiteral("f"));
    moveTo(free, below(2) + QPoint(40, 0));
    QCOMPARE(selected(), QStringLiteral("f"));
}

void RubberBandTest::escapeGivesBackWhatWasSelectedBefore()
{
    click(5, Qt::ControlModifier);
    click(4, Qt::ControlModifier);
    QWidget& free = *list().viewport();
    QTest::mousePress(&free, Qt::LeftButton, {}, below(0));
    moveTo(free, below(1) + QPoint(40, 0));
    QCOMPARE(selected(), QStringLiteral("b"));
    key(Qt::Key_Escape);
    QCOMPARE(selected(), QStringLiteral("ef"));
    // The release that follows is no click beside the tiles.
    QTest::mouseRelease(&free, Qt::LeftButton, {}, below(1) + QPoint(40, 0));
    QCOMPARE(selected(), QStringLiteral("ef"));
}

void RubberBandTest::whatIsRemovedUnderARubberBandDoesNotComeBack()
{
    click(5, Qt::ControlModifier);
    QWidget& free = *list().viewport();
    QTest::mousePress(&free, Qt::LeftButton, {}, below(0));
    moveTo(free, below(1) + QPoint(40, 0));
    m_shelf->store.remove(m_shelf->store.items().at(5).id);
    key(Qt::Key_Escape);
    QVERIFY(list().selection().isEmpty());
}

void RubberBandTest::aRubberBandOnAShelfThatBecameEmptyWhileHiddenSelectsNothing()
{
    QWidget& view = m_shelf->view;
    view.hide();
    while (!m_shelf->store.items().isEmpty())
        m_shelf->store.remove(m_shelf->store.items().constFirst().id);
    view.show();
    QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(40, 60));
    moveTo(view, QPoint(60, 200));
    moveTo(view, QPoint(60, 300));
    QTest::mouseRelease(&view, Qt::LeftButton, {}, QPoint(60, 300));
    QVERIFY(list().selection().isEmpty());
}

void RubberBandTest::theListScrollsUnderARubberBandAtItsEnds()
{
    addTexts(20);
    QWidget& free = *list().viewport();
    QTest::mousePress(&free, Qt::LeftButton, {}, below(0));
    moveTo(free, QPoint(40, free.height() / 2));
    QCOMPARE(m_shelf->queue.waitingTimers(), 0);
    moveTo(free, QPoint(40, free.height() - 2));
    m_shelf->queue.advance(10);
    QCOMPARE(list().verticalScrollBar()->value(), list().verticalScrollBar()->maximum());
    QCOMPARE(list().selection().ids().size(), 19);
    moveTo(free, QPoint(40, free.height() / 2));
    QCOMPARE(m_shelf->queue.waitingTimers(), 0);
    moveTo(free, QPoint(40, -5));
    m_shelf->queue.advance(10);
    QCOMPARE(list().verticalScrollBar()->value(), 0);
    QCOMPARE(selected(), QStringLiteral("a"));
    QTest::mouseRelease(&free, Qt::LeftButton, {}, QPoint(40, -5));
    QCOMPARE(m_shelf->queue.waitingTimers(), 0);
}

void RubberBandTest::aRubberBandFromTheHeaderLeavesWhatIsScrolledAway()
{
    addTexts(20);
    QScrollBar& bar = *list().verticalScrollBar();
    bar.setValue(list().tile(m_shelf->store.items().at(2).id)->y());
    QWidget& view = m_shelf->view;
    const auto inView = [&](const QPoint& position) { return list().viewport()->mapTo(&view, position); };
    QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(10, 2));
    // As long as the pointer is over the header, nothing is touched.
    moveTo(view, QPoint(60, 12));
    QCOMPARE(selected(), QString());
    moveTo(view, inView(below(3) + QPoint(40, 0)));
    QCOMPARE(selected(), QStringLiteral("cd"));
    // Neither what is above the list once the pointer is back there.
    moveTo(view, QPoint(60, 2));
    QCOMPARE(selected(), QStringLiteral("c"));
    QTest::mouseRelease(&view, Qt::LeftButton);
}

void RubberBandTest::aRubberBandFromTheHeaderDoesNotScrollOnItsWayIn()
{
    addTexts(20);
    QScrollBar& bar = *list().verticalScrollBar();
    bar.setValue(200);
    QWidget& view = m_shelf->view;
    const auto inView = [&](const QPoint& position) { return list().viewport()->mapTo(&view, position); };
    QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(10, 2));
    for (const QPoint& way : { QPoint(60, 12), inView({ 60, 5 }) }) {
        moveTo(view, way);
        m_shelf->queue.advance(1);
        QCOMPARE(bar.value(), 200);
    }
    moveTo(view, inView({ 60, 100 }));
    moveTo(view, inView({ 60, 5 }));
    m_shelf->queue.advance(1);
    QVERIFY(bar.value() < 200);
    QTest::mouseRelease(&view, Qt::LeftButton);
}

void RubberBandTest::thePanelIsInUseUnderARubberBand()
{
    QList<bool> heard;
    m_shelf->view.onMenuOpenChanged = [&](bool isOpen) { heard.append(isOpen); };
    QWidget& free = *list().viewport();
    QTest::mousePress(&free, Qt::LeftButton, {}, below(0));
    QVERIFY(heard.isEmpty());
    moveTo(free, below(1));
    QCOMPARE(heard, QList<bool>{ true });
    m_shelf->view.hide();
    QCOMPARE(heard, QList<bool>({ true, false }));
}

void RubberBandTest::aMenuTakesTheRubberBandBack()
{
    QList<bool> heard;
    m_shelf->view.onMenuOpenChanged = [&](bool isOpen) { heard.append(isOpen); };
    QWidget& free = *list().viewport();
    QTest::mousePress(&free, Qt::LeftButton, {}, below(0));
    moveTo(free, below(1) + QPoint(40, 0));
    QContextMenuEvent event(QContextMenuEvent::Mouse, below(1), free.mapToGlobal(below(1)));
    QApplication::sendEvent(&free, &event);
    QCOMPARE(selected(), QString());
    QWidget* menu = QApplication::activePopupWidget();
    QVERIFY(menu);
    // The menu takes the release of the left button.
    menu->close();
    QVERIFY(!heard.isEmpty());
    QCOMPARE(heard.count(true), heard.count(false));
    moveTo(free, below(2) + QPoint(40, 0));
    QCOMPARE(selected(), QString());
}

void RubberBandTest::aRubberBandWhoseReleaseWasLostEndsAtTheNextMove()
{
    QList<bool> heard;
    m_shelf->view.onMenuOpenChanged = [&](bool isOpen) { heard.append(isOpen); };
    QWidget& view = m_shelf->view;
    for (QWidget* widget : { list().viewport(), &view }) {
        heard.clear();
        QTest::mousePress(list().viewport(), Qt::LeftButton, {}, below(0));
        moveTo(*list().viewport(), below(1) + QPoint(40, 0));
        const QPoint inView = list().viewport()->mapTo(&view, below(2) + QPoint(40, 0));
        moveTo(*widget, widget->mapFrom(&view, inView), Qt::RightButton);
        QCOMPARE(selected(), QStringLiteral("b"));
        QCOMPARE(heard, QList<bool>({ true, false }));
    }
}

QTEST_MAIN(RubberBandTest)
#include "RubberBandTest.moc"
