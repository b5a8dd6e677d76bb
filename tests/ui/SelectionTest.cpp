#include "Selection.h"

#include <QTest>

using namespace nookle;

class SelectionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_selection = Selection();
        m_selection.setRows(rows("abcdef"));
    }

    void withoutASelectionTheCurrentRowStandsForIt();
    void movingEndsTheSelection();
    void movingTheCurrentRowKeepsTheSelection();
    void movingTheCurrentRowKeepsTheOneThatStoodForTheSelection();
    void togglingAddsAndTakesOut();
    void keysAreForNothingOnceTheLastRowIsTakenOut();
    void extendingSelectsTheRangeFromTheRowThatWasChosenLast();
    void extendingAgainReplacesTheRange();
    void extendingMayKeepTheOthers();
    void aClickExtendsLikeAnArrow();
    void extendingWithoutAnythingChosenSelectsTheRow();
    void aPressKeepsTheSelectionItHits();
    void allCanBeSelected();
    void onlyItemsOfRowsCanBeSelected();
    void singleItemsAreAddedAndTakenOut();
    void theRowThatStoodForTheSelectionStaysWhenAnotherIsAdded();
    void afterSelectingNoneNotEvenTheCurrentRowIsMeant();
    void clearingLeavesTheCurrentRow();
    void clearingTheCurrentRowEndsTheSelection();
    void aSelectedItemTakesAllSelectedOnesAlong();
    void anotherItemGoesAlone();
    void theSelectionFollowsItsItems();
    void removedItemsAreNoLongerSelected();
    void theRowBelowTheRemovedOnesBecomesTheCurrentOne();
    void theRowAboveBecomesTheCurrentOneAtTheEnd();
    void aRangeBeginsAtTheCurrentRowOnceItsBeginningIsGone();

private:
    [[nodiscard]] static QUuid id(char name) { return QUuid(static_cast<uint>(name), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0); }
    [[nodiscard]] static std::vector<QUuid> rows(const QByteArray& names)
    {
        std::vector<QUuid> rows;
        for (const char name : names)
            rows.push_back(id(name));
        return rows;
    }
    [[nodiscard]] static QByteArray names(const std::vector<QUuid>& ids)
    {
        QByteArray names;
        for (const QUuid& id : ids)
            names.append(static_cast<char>(id.data1));
        return names;
    }
    [[nodiscard]] QByteArray selected() const
    {
        QByteArray selected;
        for (const QUuid& each : m_selection.rows()) {
            if (m_selection.contains(each))
                selected.append(static_cast<char>(each.data1));
        }
        return selected;
    }
    [[nodiscard]] QByteArray targets() const { return names(m_selection.targets()); }
    [[nodiscard]] char current() const
    {
        const auto id = m_selection.currentId();
        return id ? static_cast<char>(id->data1) : '-';
    }

    Selection m_selection;
};

void SelectionTest::withoutASelectionTheCurrentRowStandsForIt()
{
    QCOMPARE(targets(), QByteArray());
    m_selection.moveTo(2, {});
    QCOMPARE(selected(), QByteArray());
    QCOMPARE(targets(), QByteArray("c"));
    QVERIFY(m_selection.isTarget(id('c')));
    QVERIFY(!m_selection.isTarget(id('d')));
}

void SelectionTest::movingEndsTheSelection()
{
    m_selection.selectAll();
    m_selection.moveTo(4, {});
    QCOMPARE(selected(), QByteArray());
    QCOMPARE(current(), 'e');
}

void SelectionTest::movingTheCurrentRowKeepsTheSelection()
{
    m_selection.click(1, Qt::ControlModifier);
    m_selection.moveTo(4, Qt::ControlModifier);
    QCOMPARE(selected(), QByteArray("b"));
    QCOMPARE(current(), 'e');
    m_selection.click(4, Qt::ControlModifier);
    QCOMPARE(selected(), QByteArray("be"));
}

void SelectionTest::movingTheCurrentRowKeepsTheOneThatStoodForTheSelection()
{
    m_selection.moveTo(0, {});
    m_selection.moveTo(1, Qt::ControlModifier);
    QCOMPARE(selected(), QByteArray("a"));
    QCOMPARE(targets(), QByteArray("a"));
}

void SelectionTest::togglingAddsAndTakesOut()
{
    m_selection.click(3, Qt::ControlModifier);
    m_selection.click(1, Qt::ControlModifier);
    QCOMPARE(selected(), QByteArray("bd"));
    QCOMPARE(current(), 'b');
    m_selection.click(3, Qt::ControlModifier);
    QCOMPARE(selected(), QByteArray("b"));
    QCOMPARE(current(), 'd');
    QCOMPARE(targets(), QByteArray("b"));
}

void SelectionTest::keysAreForNothingOnceTheLastRowIsTakenOut()
{
    m_selection.click(3, Qt::ControlModifier);
    m_selection.click(3, Qt::ControlModifier);
    QCOMPARE(targets(), QByteArray());
    m_selection.moveTo(2, Qt::ControlModifier);
    QCOMPARE(targets(), QByteArray());
    m_selection.press(2);
    QCOMPARE(targets(), QByteArray("c"));
}

void SelectionTest::extendingSelectsTheRangeFromTheRowThatWasChosenLast()
{
    m_selection.moveTo(3, {});
    m_selection.moveTo(1, Qt::ShiftModifier);
    QCOMPARE(selected(), QByteArray("bcd"));
    QCOMPARE(current(), 'b');
}

void SelectionTest::extendingAgainReplacesTheRange()
{
    m_selection.moveTo(3, {});
    m_selection.moveTo(1, Qt::ShiftModifier);
    m_selection.moveTo(5, Qt::ShiftModifier);
    QCOMPARE(selected(), QByteArray("def"));
    m_selection.moveTo(3, Qt::ShiftModifier);
    QCOMPARE(selected(), QByteArray("d"));
}

void SelectionTest::extendingMayKeepTheOthers()
{
    m_selection.click(0, Qt::ControlModifier);
    m_selection.click(3, Qt::ControlModifier);
    m_selection.moveTo(4, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(selected(), QByteArray("ade"));
}

void SelectionTest::aClickExtendsLikeAnArrow()
{
    m_selection.press(1);
    m_selection.click(3, Qt::ShiftModifier);
    QCOMPARE(selected(), QByteArray("bcd"));
    m_selection.click(5, Qt::ControlModifier);
    m_selection.click(4, Qt::ShiftModifier | Qt::ControlModifier);
    QCOMPARE(selected(), QByteArray("bcdef"));
    m_selection.click(5, Qt::ShiftModifier);
    QCOMPARE(selected(), QByteArray("f"));
}

void SelectionTest::extendingWithoutAnythingChosenSelectsTheRow()
{
    m_selection.moveTo(2, Qt::ShiftModifier);
    QCOMPARE(selected(), QByteArray("c"));
    m_selection.moveTo(3, Qt::ShiftModifier);
    QCOMPARE(selected(), QByteArray("cd"));
}

void SelectionTest::aPressKeepsTheSelectionItHits()
{
    m_selection.click(1, Qt::ControlModifier);
    m_selection.click(3, Qt::ControlModifier);
    m_selection.press(1);
    QCOMPARE(selected(), QByteArray("bd"));
    QCOMPARE(current(), 'b');
    m_selection.press(2);
    QCOMPARE(selected(), QByteArray());
    QCOMPARE(current(), 'c');
}

void SelectionTest::allCanBeSelected()
{
    m_selection.moveTo(2, {});
    m_selection.selectAll();
    QCOMPARE(selected(), QByteArray("abcdef"));
    QCOMPARE(current(), 'c');
}

void SelectionTest::onlyItemsOfRowsCanBeSelected()
{
    m_selection.select({ id('b'), id('x') });
    QCOMPARE(m_selection.ids(), QSet<QUuid>{ id('b') });
    m_selection.select({ id('x') });
    QVERIFY(m_selection.isEmpty());
}

void SelectionTest::singleItemsAreAddedAndTakenOut()
{
    m_selection.setSelected(id('d'), true);
    m_selection.setSelected(id('b'), true);
    m_selection.setSelected(id('b'), true);
    m_selection.setSelected(id('z'), true);
    QCOMPARE(m_selection.ids().size(), 2);
    QCOMPARE(selected(), QByteArray("bd"));
    QCOMPARE(current(), '-');
    m_selection.setSelected(id('b'), false);
    QCOMPARE(selected(), QByteArray("d"));
}

void SelectionTest::theRowThatStoodForTheSelectionStaysWhenAnotherIsAdded()
{
    m_selection.moveTo(2, {});
    m_selection.setSelected(id('e'), true);
    QCOMPARE(targets(), QByteArray("ce"));
    m_selection.setSelected(id('e'), false);
    m_selection.setSelected(id('c'), false);
    QCOMPARE(targets(), QByteArray());
    QCOMPARE(current(), 'c');
}

void SelectionTest::afterSelectingNoneNotEvenTheCurrentRowIsMeant()
{
    m_selection.moveTo(1, {});
    m_selection.moveTo(3, Qt::ShiftModifier);
    m_selection.selectNone();
    QCOMPARE(targets(), QByteArray());
    QCOMPARE(current(), 'd');
    m_selection.moveTo(2, {});
    QCOMPARE(targets(), QByteArray("c"));
    m_selection.selectNone();
    QCOMPARE(targets(), QByteArray());
}

void SelectionTest::clearingLeavesTheCurrentRow()
{
    m_selection.click(1, Qt::ControlModifier);
    m_selection.click(2, Qt::ControlModifier);
    m_selection.clear();
    QCOMPARE(selected(), QByteArray());
    QCOMPARE(targets(), QByteArray("c"));
}

void SelectionTest::clearingTheCurrentRowEndsTheSelection()
{
    m_selection.click(1, Qt::ControlModifier);
    m_selection.clearCurrent();
    QCOMPARE(selected(), QByteArray());
    QCOMPARE(current(), '-');
    QCOMPARE(targets(), QByteArray());
}

void SelectionTest::aSelectedItemTakesAllSelectedOnesAlong()
{
    m_selection.click(4, Qt::ControlModifier);
    m_selection.click(0, Qt::ControlModifier);
    m_selection.click(2, Qt::ControlModifier);
    QCOMPARE(names(m_selection.takenWith(id('e'))), QByteArray("ace"));
}

void SelectionTest::anotherItemGoesAlone()
{
    m_selection.click(4, Qt::ControlModifier);
    m_selection.click(0, Qt::ControlModifier);
    QCOMPARE(names(m_selection.takenWith(id('b'))), QByteArray("b"));
    m_selection.moveTo(2, {});
    QCOMPARE(names(m_selection.takenWith(id('b'))), QByteArray("b"));
}

void SelectionTest::theSelectionFollowsItsItems()
{
    m_selection.click(1, Qt::ControlModifier);
    m_selection.click(3, Qt::ControlModifier);
    m_selection.setRows(rows("xdabcef"));
    QCOMPARE(selected(), QByteArray("db"));
    QCOMPARE(current(), 'd');
    m_selection.moveTo(3, Qt::ShiftModifier);
    QCOMPARE(selected(), QByteArray("dab"));
}

void SelectionTest::removedItemsAreNoLongerSelected()
{
    m_selection.click(1, Qt::ControlModifier);
    m_selection.click(3, Qt::ControlModifier);
    m_selection.setRows(rows("abcef"));
    QCOMPARE(selected(), QByteArray("b"));
    m_selection.setRows(rows("acef"));
    m_selection.setRows(rows("abcdef"));
    QCOMPARE(selected(), QByteArray());
}

void SelectionTest::theRowBelowTheRemovedOnesBecomesTheCurrentOne()
{
    m_selection.moveTo(1, {});
    m_selection.moveTo(3, Qt::ShiftModifier);
    m_selection.setRows(rows("xaef"));
    QCOMPARE(current(), 'e');
    QCOMPARE(targets(), QByteArray("e"));
}

void SelectionTest::theRowAboveBecomesTheCurrentOneAtTheEnd()
{
    m_selection.moveTo(5, {});
    m_selection.setRows(rows("abcd"));
    QCOMPARE(current(), 'd');
    m_selection.setRows({});
    QCOMPARE(current(), '-');
    m_selection.setRows(rows("ab"));
    QCOMPARE(current(), '-');
}

void SelectionTest::aRangeBeginsAtTheCurrentRowOnceItsBeginningIsGone()
{
    m_selection.click(1, Qt::ControlModifier);
    m_selection.moveTo(3, Qt::ControlModifier);
    m_selection.setRows(rows("acdef"));
    m_selection.moveTo(4, Qt::ShiftModifier);
    QCOMPARE(selected(), QByteArray("def"));
}

QTEST_APPLESS_MAIN(SelectionTest)
#include "SelectionTest.moc"
