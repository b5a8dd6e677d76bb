#include "ShelfFixture.h"
#include "ShelfItemView.h"
#include "TileList.h"

#include <QScrollBar>

using namespace nookle;

/// How tiles are selected with the mouse and with keys.
class SelectingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_shelf.reset(); }

    void aClickWithControlAddsAndTakesOut();
    void everyClickOfASeriesWithControlCounts();
    void aClickWithShiftExtends();
    void aPlainClickOnASelectedTileOpensThatOne();
    void aPlainClickOnAnotherTileEndsTheSelection();
    void aRightClickOnASelectedTileKeepsTheSelection();
    void aDragTakesAllSelectedItemsInTheOrderOfTheShelf();
    void aDragOfAnotherTileTakesThatOneAlone();
    void aPressWithControlKeepsTheSelectionForADrag();
    void arrowsWithShiftExtend();
    void arrowsWithControlOnlyMove();
    void controlAndSpaceChoose();
    void controlAndASelectsAll();
    void escapeEndsTheSelectionBeforeItHides();
    void keysAreForTheSelection();
    void theSelectionSurvivesScrollingArrivalsAndRemovals();
    void theSelectionEndsWhenThePanelHides();
    void aRubberBandSelectsWhatItTouches();
    void aRubberBandMayBeginOnTheHeader();
    void withControlARubberBandAdds();
    void escapeTakesTheRubberBandBack();
    void aClickBesideTheTilesEndsTheSelection();
    void theListScrollsUnderARubberBandAtItsEnds();
    void thePanelIsInUseUnderARubberBand();

private:
    [[nodiscard]] TileList& list() { return *m_shelf->view.findChild<TileList*>(); }
    [[nodiscard]] ItemInteractionView& tile(qsizetype row)
    {
        return list().tile(m_shelf->store.items().at(row).id)->interaction();
    }
    void click(qsizetype row, Qt::KeyboardModifiers modifiers = {}, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(&tile(row), button, modifiers, tile(row).rect().center());
        // The next click is not the second one of a double click.
        QTest::qWait(0);
    }
    void key(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&list(), static_cast<Qt::Key>(key), modifiers);
    }
    /// The names of the selected items; what their tiles show must agree.
    [[nodiscard]] QString selected()
    {
        QString names;
        for (const ShelfItem& item : m_shelf->store.items()) {
            const bool isSelected = list().selection().contains(item.id);
            if (isSelected)
                names += item.displayName();
            const ShelfItemView* view = list().tile(item.id);
            if (view && view->isSelected() != isSelected)
                names += QLatin1Char('!');
        }
        return names;
    }
    [[nodiscard]] QString takenWith(qsizetype row)
    {
        QString names;
        for (const ShelfItem& item : m_shelf->view.itemsTakenWith(m_shelf->store.items().at(row)))
            names += item.displayName();
        return names;
    }
    void addTexts(int count)
    {
        for (int number = count - 1; number >= 0; --number)
            m_shelf->store.addText(QChar(static_cast<char16_t>(u'a' + number)));
    }
    void moveTo(QWidget& widget, const QPoint& position)
    {
        QMouseEvent move(QEvent::MouseMove, position, widget.mapToGlobal(position), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&widget, &move);
    }
    /// The middle of the gap below a tile, at the left edge of the list.
    [[nodiscard]] QPoint below(qsizetype row)
    {
        const ShelfItemView* view = list().tile(m_shelf->store.items().at(row).id);
        return { 2, view->y() + view->height() + 2 };
    }

    std::unique_ptr<ShelfFixture> m_shelf;
};

void SelectingTest::init()
{
    m_shelf = std::make_unique<ShelfFixture>();
    m_shelf->view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&m_shelf->view));
    addTexts(6);
    list().setFocus();
}

void SelectingTest::aClickWithControlAddsAndTakesOut()
{
    click(3, Qt::ControlModifier);
    click(1, Qt::ControlModifier);
    QCOMPARE(selected(), QStringLiteral("bd"));
    click(3, Qt::ControlModifier);
    QCOMPARE(selected(), QStringLiteral("b"));
    QVERIFY(m_shelf->workspace.opened.isEmpty());
}

void SelectingTest::everyClickOfASeriesWithControlCounts()
{
    click(2, Qt::ControlModifier);
    QCOMPARE(selected(), QStringLiteral("c"));
    click(2, Qt::ControlModifier);
    QCOMPARE(selected(), QString());
    click(2, Qt::ControlModifier);
    QCOMPARE(selected(), QStringLiteral("c"));
}

void SelectingTest::aClickWithShiftExtends()
{
    click(4);
    click(2, Qt::ShiftModifier);
    QCOMPARE(selected(), QStringLiteral("cde"));
    click(5, Qt::ShiftModifier);
    QCOMPARE(selected(), QStringLiteral("ef"));
    click(0, Qt::ControlModifier);
    click(1, Qt::ShiftModifier | Qt::ControlModifier);
    QCOMPARE(selected(), QStringLiteral("abef"));
}

void SelectingTest::aPlainClickOnASelectedTileOpensThatOne()
{
    const QUrl file = m_shelf->addFile("file");
    (void)m_shelf->addFile("other");
    key(Qt::Key_A, Qt::ControlModifier);
    click(1);
    QCOMPARE(m_shelf->workspace.opened, QList<QUrl>{ file });
    QCOMPARE(selected(), QStringLiteral("otherfileabcdef"));
}

void SelectingTest::aPlainClickOnAnotherTileEndsTheSelection()
{
    click(1, Qt::ControlModifier);
    click(2, Qt::ControlModifier);
    click(4);
    QCOMPARE(selected(), QString());
    QCOMPARE(takenWith(1), QStringLiteral("b"));
}

void SelectingTest::aRightClickOnASelectedTileKeepsTheSelection()
{
    click(1, Qt::ControlModifier);
    click(2, Qt::ControlModifier);
    click(2, {}, Qt::RightButton);
    QCOMPARE(selected(), QStringLiteral("bc"));
    click(3, {}, Qt::RightButton);
    QCOMPARE(selected(), QString());
}

void SelectingTest::aDragTakesAllSelectedItemsInTheOrderOfTheShelf()
{
    click(4, Qt::ControlModifier);
    click(0, Qt::ControlModifier);
    QString taken;
    m_shelf->dragOutcome = [&] {
        taken = takenWith(0);
        return DragOperation::none;
    };
    m_shelf->dragTop();
    QCOMPARE(taken, QStringLiteral("ae"));
    QCOMPARE(selected(), QStringLiteral("ae"));
}

void SelectingTest::aDragOfAnotherTileTakesThatOneAlone()
{
    click(4, Qt::ControlModifier);
    click(3, Qt::ControlModifier);
    QString taken;
    m_shelf->dragOutcome = [&] {
        taken = takenWith(0) + selected();
        return DragOperation::none;
    };
    m_shelf->dragTop();
    QCOMPARE(taken, QStringLiteral("a"));
}

void SelectingTest::aPressWithControlKeepsTheSelectionForADrag()
{
    click(1, Qt::ControlModifier);
    click(2, Qt::ControlModifier);
    QTest::mousePress(&tile(1), Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(selected(), QStringLiteral("bc"));
    QTest::mouseRelease(&tile(1), Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(selected(), QStringLiteral("c"));
}

void SelectingTest::arrowsWithShiftExtend()
{
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    QCOMPARE(selected(), QString());
    key(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(selected(), QStringLiteral("bc"));
    key(Qt::Key_End, Qt::ShiftModifier);
    QCOMPARE(selected(), QStringLiteral("bcdef"));
    key(Qt::Key_Home, Qt::ShiftModifier);
    QCOMPARE(selected(), QStringLiteral("ab"));
    key(Qt::Key_Down);
    QCOMPARE(selected(), QString());
}

void SelectingTest::arrowsWithControlOnlyMove()
{
    key(Qt::Key_Down);
    key(Qt::Key_Down, Qt::ShiftModifier);
    key(Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(selected(), QStringLiteral("ab"));
    QCOMPARE(list().currentId(), m_shelf->store.items().at(2).id);
    QVERIFY(list().tile(*list().currentId())->isFocused());
}

void SelectingTest::controlAndSpaceChoose()
{
    key(Qt::Key_Down);
    key(Qt::Key_Space, Qt::ControlModifier);
    key(Qt::Key_Down, Qt::ControlModifier);
    key(Qt::Key_Down, Qt::ControlModifier);
    key(Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(selected(), QStringLiteral("ac"));
    key(Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(selected(), QStringLiteral("a"));
    QVERIFY(!m_shelf->top().pinned);
}

void SelectingTest::controlAndASelectsAll()
{
    key(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(selected(), QStringLiteral("abcdef"));
}

void SelectingTest::escapeEndsTheSelectionBeforeItHides()
{
    int hides = 0;
    m_shelf->view.onHide = [&] { ++hides; };
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_Escape);
    QCOMPARE(selected(), QString());
    QCOMPARE(hides, 0);
    key(Qt::Key_Escape);
    QCOMPARE(hides, 1);
}

void SelectingTest::keysAreForTheSelection()
{
    click(1, Qt::ControlModifier);
    click(3, Qt::ControlModifier);
    key(Qt::Key_Up, Qt::ControlModifier);
    key(Qt::Key_Delete);
    QCOMPARE(m_shelf->store.items().size(), 4);
    key(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(selected(), QStringLiteral("acef"));
}

void SelectingTest::theSelectionSurvivesScrollingArrivalsAndRemovals()
{
    addTexts(20);
    click(1, Qt::ControlModifier);
    click(2, Qt::ControlModifier);
    key(Qt::Key_End, Qt::ControlModifier);
    QVERIFY(!list().tile(m_shelf->store.items().at(1).id));
    key(Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(selected(), QStringLiteral("bc"));
    m_shelf->store.addText(QStringLiteral("new"));
    QCOMPARE(selected(), QStringLiteral("bc"));
    m_shelf->store.remove(m_shelf->store.items().at(2).id);
    QCOMPARE(selected(), QStringLiteral("c"));
    m_shelf->store.undoRemove();
    QCOMPARE(selected(), QStringLiteral("c"));
}

void SelectingTest::theSelectionEndsWhenThePanelHides()
{
    key(Qt::Key_A, Qt::ControlModifier);
    m_shelf->view.hide();
    m_shelf->view.show();
    QCOMPARE(selected(), QString());
}

void SelectingTest::aRubberBandSelectsWhatItTouches()
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

void SelectingTest::aRubberBandMayBeginOnTheHeader()
{
    QWidget& view = m_shelf->view;
    QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(10, 10));
    moveTo(view, view.mapFromGlobal(list().viewport()->mapToGlobal(below(1) + QPoint(40, 0))));
    QTest::mouseRelease(&view, Qt::LeftButton);
    QCOMPARE(selected(), QStringLiteral("ab"));
}

void SelectingTest::withControlARubberBandAdds()
{
    click(5, Qt::ControlModifier);
    QWidget& free = *list().viewport();
    QTest::mousePress(&free, Qt::LeftButton, Qt::ControlModifier, below(0));
    moveTo(free, below(1) + QPoint(40, 0));
    QTest::mouseRelease(&free, Qt::LeftButton, Qt::ControlModifier, below(1) + QPoint(40, 0));
    QCOMPARE(selected(), QStringLiteral("bf"));
}

void SelectingTest::escapeTakesTheRubberBandBack()
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

void SelectingTest::aClickBesideTheTilesEndsTheSelection()
{
    key(Qt::Key_A, Qt::ControlModifier);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::ControlModifier, below(0));
    QCOMPARE(selected(), QStringLiteral("abcdef"));
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, below(0));
    QCOMPARE(selected(), QString());
}

void SelectingTest::theListScrollsUnderARubberBandAtItsEnds()
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

void SelectingTest::thePanelIsInUseUnderARubberBand()
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

QTEST_MAIN(SelectingTest)
#include "SelectingTest.moc"
