#include "DragSession.h"

#include "ShelfFixture.h"

#include <QDrag>
#include <QTest>

using namespace nookle;

// The platform that these tests run on refuses every drag at once. The toolkit's record of it stays until events are
// handled.
class DragSessionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_shelf = std::make_unique<ShelfFixture>(); }
    void cleanup();

    void eachKindOffersItsActions_data();
    void eachKindOffersItsActions();
    void anItemThatNobodyTakesEndsWithNone();
    void thePictureIsCentredOnThePointer();

private:
    /// Adds an item of that kind on top.
    void add(const QString& kind) const;
    /// Drags the top item out, and returns the toolkit's record of that.
    [[nodiscard]] const QDrag* dragTop();

    std::unique_ptr<ShelfFixture> m_shelf;
    DragOperation m_outcome = DragOperation::copy;
};

void DragSessionTest::cleanup()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_shelf.reset();
}

void DragSessionTest::add(const QString& kind) const
{
    if (kind == QStringLiteral("file"))
        (void)m_shelf->addFile("a.txt");
    else if (kind == QStringLiteral("text"))
        m_shelf->store.addText(QStringLiteral("words"));
    else if (kind == QStringLiteral("link"))
        m_shelf->store.addText(QStringLiteral("https://example.com/"));
    else
        (void)m_shelf->addImage();
}

const QDrag* DragSessionTest::dragTop()
{
    auto item = m_shelf->view.interaction(m_shelf->top()).dragItem();
    item->pictureSize = { 52, 26 };
    m_outcome = runDragSession(m_shelf->view, *item);
    return m_shelf->view.window()->findChild<QDrag*>();
}

void DragSessionTest::eachKindOffersItsActions_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<Qt::DropActions>("actions");
    QTest::newRow("file") << QStringLiteral("file") << (Qt::CopyAction | Qt::MoveAction);
    QTest::newRow("text") << QStringLiteral("text") << Qt::DropActions(Qt::CopyAction);
    QTest::newRow("link") << QStringLiteral("link") << (Qt::CopyAction | Qt::LinkAction);
    // The Trash takes nothing but a move.
    QTest::newRow("image") << QStringLiteral("image") << (Qt::CopyAction | Qt::MoveAction);
}

void DragSessionTest::eachKindOffersItsActions()
{
    QFETCH(const QString, kind);
    QFETCH(const Qt::DropActions, actions);
    add(kind);
    const QDrag* drag = dragTop();
    QVERIFY(drag);
    QCOMPARE(drag->supportedActions(), actions);
    QCOMPARE(drag->defaultAction(), Qt::CopyAction);
    QVERIFY(drag->mimeData()->hasFormat(QStringLiteral("text/plain")));
    const bool carriesFile = kind == QStringLiteral("file") || kind == QStringLiteral("image");
    QCOMPARE(drag->mimeData()->data(QStringLiteral("text/uri-list")).startsWith("file:///"), carriesFile);
}

void DragSessionTest::anItemThatNobodyTakesEndsWithNone()
{
    add(QStringLiteral("file"));
    QVERIFY(dragTop());
    QCOMPARE(m_outcome, DragOperation::none);
}

void DragSessionTest::thePictureIsCentredOnThePointer()
{
    add(QStringLiteral("text"));
    const QDrag* drag = dragTop();
    QVERIFY(drag);
    QCOMPARE(drag->pixmap().deviceIndependentSize(), QSizeF(52, 26));
    QCOMPARE(drag->hotSpot(), QPoint(26, 13));
}

QTEST_MAIN(DragSessionTest)
#include "DragSessionTest.moc"
