#include "SelectingFixture.h"

using namespace nookle;

/// How tiles are selected with the mouse and with keys.
class SelectingTest : public QObject, private SelectingFixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { open(); }
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
    void aDragWithControlTakesItsTileAlong();
    void aDragWithShiftTakesTheRange();
    void theKeysAtThePressCount();
    void tabKeepsTheSelection();
    void arrowsWithShiftExtend();
    void arrowsWithControlOnlyMove();
    void controlAndSpaceChoose();
    void controlAndASelectsAll();
    void escapeEndsTheSelectionBeforeItHides();
    void keysAreForTheSelection();
    void theSelectionSurvivesScrollingArrivalsAndRemovals();
    void theSelectionEndsWhenThePanelHides();
    void aClickBesideTheTilesEndsTheSelection();

private:
    [[nodiscard]] QString takenByDragOf(qsizetype row, Qt::KeyboardModifiers modifiers);
};

/// What a drag takes that begins on the tile of a row while these keys are held.
QString SelectingTest::takenByDragOf(qsizetype row, Qt::KeyboardModifiers modifiers)
{
    QString taken;
    m_shelf->dragOutcome = [&] {
        taken = takenWith(row);
        return DragOperation::none;
    };
    QTest::mousePress(&tile(row), Qt::LeftButton, modifiers);
    moveTo(tile(row), tile(row).rect().center() + QPoint(20, 0));
    return taken;
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

void SelectingTest::aDragWithControlTakesItsTileAlong()
{
    click(4, Qt::ControlModifier);
    QCOMPARE(takenByDragOf(1, Qt::ControlModifier), QStringLiteral("be"));
    QCOMPARE(selected(), QStringLiteral("be"));
    // One that is selected stays so.
    QCOMPARE(takenByDragOf(4, Qt::ControlModifier), QStringLiteral("be"));
    QCOMPARE(selected(), QStringLiteral("be"));
}

void SelectingTest::aDragWithShiftTakesTheRange()
{
    click(4, Qt::ControlModifier);
    QCOMPARE(takenByDragOf(2, Qt::ShiftModifier), QStringLiteral("cde"));
    QCOMPARE(selected(), QStringLiteral("cde"));
}

void SelectingTest::theKeysAtThePressCount()
{
    (void)m_shelf->addFile("file");
    click(1, Qt::ControlModifier);
    // Control is let go of a moment before the button.
    QTest::mousePress(&tile(0), Qt::LeftButton, Qt::ControlModifier);
    QTest::mouseRelease(&tile(0), Qt::LeftButton);
    QCOMPARE(selected(), QStringLiteral("filea"));
    QVERIFY(m_shelf->workspace.opened.isEmpty());
    QTest::qWait(0);
    QTest::mousePress(&tile(0), Qt::LeftButton);
    QTest::mouseRelease(&tile(0), Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(selected(), QStringLiteral("filea"));
    QCOMPARE(m_shelf->workspace.opened.size(), 1);
}

void SelectingTest::tabKeepsTheSelection()
{
    list().clearFocus();
    list().selectAll();
    QVERIFY(!list().currentId());
    list().setFocus(Qt::TabFocusReason);
    QCOMPARE(list().currentId(), m_shelf->top().id);
    QCOMPARE(selected(), QStringLiteral("abcdef"));
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

void SelectingTest::aClickBesideTheTilesEndsTheSelection()
{
    key(Qt::Key_A, Qt::ControlModifier);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::ControlModifier, below(0));
    QCOMPARE(selected(), QStringLiteral("abcdef"));
    QTest::mousePress(list().viewport(), Qt::LeftButton, Qt::ControlModifier, below(0));
    QTest::mouseRelease(list().viewport(), Qt::LeftButton, {}, below(0));
    QCOMPARE(selected(), QStringLiteral("abcdef"));
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, below(0));
    QCOMPARE(selected(), QString());
}

QTEST_MAIN(SelectingTest)
#include "SelectingTest.moc"
