#include "Arrival.h"

#include "ShelfFixture.h"
#include "ShelfItemView.h"
#include "TileList.h"

#include <QScrollBar>
#include <QTest>

#include <memory>

using namespace nookle;

/// A list that was scrolled away from where something comes.
class ArrivalTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theTopmostRowThatHasComeIsFound();
    void whatIsAddedIsSeen_data();
    void whatIsAddedIsSeen();
    void whatIsAddedAgainIsSeen();
    void whatComesBackIsSeen();
    void whatIsAddedToAHiddenShelfIsSeenWhenItShows();
    void whatGoesMovesNothingElse();

private:
    [[nodiscard]] TileList& list() const { return *m_fixture->view.findChild<TileList*>(); }
    [[nodiscard]] QScrollBar& bar() const { return *list().verticalScrollBar(); }
    /// Whether the user sees the whole tile of the item.
    [[nodiscard]] bool isSeen(const QUuid& id) const;

    std::unique_ptr<ShelfFixture> m_fixture;
};

void ArrivalTest::init()
{
    QApplication::setEffectEnabled(Qt::UI_General, false);
    m_fixture = std::make_unique<ShelfFixture>();
    QList<QUrl> files;
    for (int number = 0; number < 60; ++number)
        files.append(fileUrl("/somewhere/" + QByteArray::number(number)));
    m_fixture->store.addFiles(files);
    bar().setValue(bar().maximum());
    QVERIFY(bar().value() > 4000);
}

void ArrivalTest::cleanup()
{
    m_fixture.reset();
    QApplication::setEffectEnabled(Qt::UI_General, false);
}

bool ArrivalTest::isSeen(const QUuid& id) const
{
    const ShelfItemView* tile = list().tile(id);
    return tile && list().viewport()->rect().contains(tile->geometry());
}

void ArrivalTest::theTopmostRowThatHasComeIsFound()
{
    const QUuid one = QUuid::createUuid();
    const QUuid two = QUuid::createUuid();
    const QUuid three = QUuid::createUuid();
    const auto row = [](std::size_t number) { return std::optional(number); };
    QCOMPARE(arrivedRow({}, {}), std::nullopt);
    QCOMPARE(arrivedRow({ one }, {}), std::nullopt);
    QCOMPARE(arrivedRow({}, { one, two }), row(0));
    QCOMPARE(arrivedRow({ one, two }, { one, two }), std::nullopt);
    QCOMPARE(arrivedRow({ one, two }, { one, three, two }), row(1));
    QCOMPARE(arrivedRow({ one, two, three }, { two, three }), std::nullopt);
    QCOMPARE(arrivedRow({ one, two, three }, { three, one, two }), row(0));
    QCOMPARE(arrivedRow({ one, two, three }, { three, two }), row(0));
}

void ArrivalTest::whatIsAddedIsSeen_data()
{
    QTest::addColumn<bool>("isMoving");
    QTest::newRow("with movements") << true;
    QTest::newRow("without") << false;
}

void ArrivalTest::whatIsAddedIsSeen()
{
    QFETCH(const bool, isMoving);
    QApplication::setEffectEnabled(Qt::UI_General, isMoving);
    (void)m_fixture->addFile("new");
    const QUuid added = m_fixture->top().id;
    QTRY_VERIFY(!list().isRearranging());
    QCOMPARE(bar().value(), 0);
    QVERIFY(isSeen(added));
}

void ArrivalTest::whatIsAddedAgainIsSeen()
{
    const ShelfItem& last = m_fixture->store.items().constLast();
    const QUuid id = last.id;
    m_fixture->store.addFiles({ *m_fixture->store.localURL(last) });
    QCOMPARE(m_fixture->top().id, id);
    QVERIFY(isSeen(id));
}

void ArrivalTest::whatComesBackIsSeen()
{
    constexpr qsizetype middle = 30;
    const QUuid id = m_fixture->store.items().at(middle).id;
    m_fixture->store.remove(id);
    bar().setValue(bar().maximum());
    QVERIFY(!isSeen(id));
    m_fixture->store.undoRemove();
    QCOMPARE(m_fixture->store.items().at(middle).id, id);
    QVERIFY(isSeen(id));
    QVERIFY(bar().value() > 0);
}

void ArrivalTest::whatIsAddedToAHiddenShelfIsSeenWhenItShows()
{
    m_fixture->view.hide();
    (void)m_fixture->addFile("new");
    const QUuid added = m_fixture->top().id;
    const QUuid gone = m_fixture->store.items().at(2).id;
    m_fixture->store.remove(gone);
    m_fixture->view.show();
    QVERIFY(isSeen(added));
}

void ArrivalTest::whatGoesMovesNothingElse()
{
    const int middle = bar().maximum() / 2;
    bar().setValue(middle);
    m_fixture->store.remove(m_fixture->top().id);
    QCOMPARE(bar().value(), middle);
    m_fixture->store.remove(m_fixture->store.items().constLast().id);
    QCOMPARE(bar().value(), middle);
}

QTEST_MAIN(ArrivalTest)
#include "ArrivalTest.moc"
