#include "ItemInteractionView.h"
#include "ShelfFixture.h"
#include "ShelfItemView.h"
#include "TileList.h"

#include <QPointer>
#include <QScrollBar>
#include <QTest>

#include <memory>

using namespace nookle;

class TileMotionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aNewTileFadesInAndTheOthersMakeRoom();
    void aTileThatGoesFadesOutAndTheOthersCloseUp();
    void nothingMovesWhereTheDesktopWantsNoMotion();
    void nothingMovesWhileTheShelfIsHidden();
    void hidingTheShelfEndsTheMovement();
    void aChangeDuringAMovementGoesOnFromThere();
    void aTileThatGoesTakesNoMoreClicks();
    void scrollingEndsTheMovement();

private:
    [[nodiscard]] TileList& list() const { return *m_fixture->view.findChild<TileList*>(); }
    [[nodiscard]] ShelfItemView* tile(qsizetype row) const { return list().tile(m_fixture->store.items()[row].id); }

    std::unique_ptr<ShelfFixture> m_fixture;
};

void TileMotionTest::init()
{
    QApplication::setEffectEnabled(Qt::UI_General, false);
    m_fixture = std::make_unique<ShelfFixture>();
    (void)m_fixture->addFile("1");
    (void)m_fixture->addFile("2");
    QApplication::setEffectEnabled(Qt::UI_General);
}

void TileMotionTest::cleanup()
{
    m_fixture.reset();
}

void TileMotionTest::aNewTileFadesInAndTheOthersMakeRoom()
{
    const int first = tile(0)->y();
    const int second = tile(1)->y();
    (void)m_fixture->addFile("3");
    QVERIFY(list().isRearranging());
    QCOMPARE(tile(0)->presence(), 0.0);
    QCOMPARE(tile(0)->y(), first);
    QCOMPARE(tile(1)->y(), first);
    QTRY_VERIFY(!list().isRearranging());
    QCOMPARE(tile(0)->presence(), 1.0);
    QCOMPARE(tile(1)->presence(), 1.0);
    QCOMPARE(tile(1)->y(), second);
}

void TileMotionTest::aTileThatGoesFadesOutAndTheOthersCloseUp()
{
    const QPointer<ShelfItemView> gone = tile(0);
    const int first = gone->y();
    const int second = tile(1)->y();
    m_fixture->store.remove(m_fixture->top().id);
    QVERIFY(gone && gone->isVisible());
    QCOMPARE(list().tileCount(), 1);
    QCOMPARE(tile(0)->y(), second);
    QTRY_VERIFY(!list().isRearranging());
    QCOMPARE(tile(0)->y(), first);
    QTRY_VERIFY(!gone);
}

void TileMotionTest::nothingMovesWhereTheDesktopWantsNoMotion()
{
    QApplication::setEffectEnabled(Qt::UI_General, false);
    const int second = tile(1)->y();
    (void)m_fixture->addFile("3");
    QVERIFY(!list().isRearranging());
    QCOMPARE(tile(0)->presence(), 1.0);
    QCOMPARE(tile(1)->y(), second);
}

void TileMotionTest::nothingMovesWhileTheShelfIsHidden()
{
    m_fixture->view.hide();
    (void)m_fixture->addFile("3");
    QVERIFY(!list().isRearranging());
    m_fixture->view.show();
    QVERIFY(!list().isRearranging());
    QCOMPARE(tile(0)->presence(), 1.0);
}

void TileMotionTest::hidingTheShelfEndsTheMovement()
{
    const QPointer<ShelfItemView> gone = tile(0);
    m_fixture->store.remove(m_fixture->top().id);
    QVERIFY(list().isRearranging());
    m_fixture->view.hide();
    QVERIFY(!list().isRearranging());
    QVERIFY(!gone || gone->isHidden());
}

void TileMotionTest::aChangeDuringAMovementGoesOnFromThere()
{
    const int first = tile(0)->y();
    const int second = tile(1)->y();
    (void)m_fixture->addFile("3");
    (void)m_fixture->addFile("4");
    QCOMPARE(tile(0)->presence(), 0.0);
    QCOMPARE(tile(1)->y(), first);
    QVERIFY(tile(1)->presence() < 1);
    QVERIFY(tile(2)->y() < second);
    QTRY_VERIFY(!list().isRearranging());
    QCOMPARE(list().tileCount(), 4);
}

void TileMotionTest::aTileThatGoesTakesNoMoreClicks()
{
    const QPoint place = tile(0)->mapTo(&m_fixture->view, QPoint(10, 10));
    const QPointer<ShelfItemView> gone = tile(0);
    m_fixture->store.remove(m_fixture->top().id);
    QVERIFY(gone);
    const QWidget* hit = m_fixture->view.childAt(place);
    QVERIFY(hit != &gone->interaction());
}

void TileMotionTest::scrollingEndsTheMovement()
{
    QList<QUrl> files;
    for (int number = 10; number < 60; ++number)
        files.append(fileUrl("/somewhere/" + QByteArray::number(number)));
    m_fixture->store.addFiles(files);
    QVERIFY(list().isRearranging());
    list().verticalScrollBar()->setValue(300);
    QVERIFY(!list().isRearranging());
    for (const ShelfItemView* each : list().tilesInOrder())
        QCOMPARE(each->presence(), 1.0);
}

QTEST_MAIN(TileMotionTest)
#include "TileMotionTest.moc"
