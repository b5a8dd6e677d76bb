#include "ShelfHeader.h"

#include "DragAllButton.h"
#include "PinButton.h"
#include "ShelfFixture.h"

#include <QSignalSpy>

using namespace nookle;

class ShelfHeaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void theHandleIsThereForSeveralItemsOnly();
    void thePinStaysInItsPlace();
    void theHandleIsBesideThePinWithinThePanel();
    void aDragOfTheHandleTakesEverything();
    void aSmallMovementIsNoDrag();
    void aClickSelectsEverythingAndDragsNothing();
    void afterADragTheHandleIsNotPressed();
    void theHandleSaysWhatItDoes();
    void theHandleShowsFocusHoverAndPress();

private:
    [[nodiscard]] DragAllButton& handle() const { return *m_shelf->view.findChild<DragAllButton*>(); }
    [[nodiscard]] PinButton& pin() const { return *m_shelf->view.findChild<PinButton*>(); }
    void addTexts(int count) const;
    /// Presses the handle, and moves the pointer by that many points.
    void pressAndMove(double distance) const;
    void release() const;
    void send(QEvent::Type type, const QPointF& at, Qt::MouseButton button, Qt::MouseButtons buttons) const;

    std::unique_ptr<ShelfFixture> m_shelf;
    /// What the drags of the shelf have reported.
    QStringList m_log;
};

void ShelfHeaderTest::init()
{
    m_shelf = std::make_unique<ShelfFixture>();
    m_shelf->view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&m_shelf->view));
    m_log.clear();
    m_shelf->view.onDragOutBegan = [this] { m_log.append(QStringLiteral("began")); };
    m_shelf->view.onDragOutEnded = [this] { m_log.append(QStringLiteral("ended")); };
    m_shelf->dragOutcome = [this] {
        m_log.append(QStringLiteral("run"));
        return DragOperation::copy;
    };
}

void ShelfHeaderTest::cleanup()
{
    m_shelf.reset();
}

void ShelfHeaderTest::addTexts(int count) const
{
    for (int number = 0; number < count; ++number)
        m_shelf->store.addText(QStringLiteral("text %1").arg(number));
}

void ShelfHeaderTest::send(QEvent::Type type, const QPointF& at, Qt::MouseButton button, Qt::MouseButtons buttons) const
{
    QMouseEvent event(type, at, handle().mapToGlobal(at), button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(&handle(), &event);
}

void ShelfHeaderTest::pressAndMove(double distance) const
{
    send(QEvent::MouseButtonPress, { 10, 10 }, Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseMove, { 10 - distance, 10 }, Qt::NoButton, Qt::LeftButton);
}

void ShelfHeaderTest::release() const
{
    send(QEvent::MouseButtonRelease, { 10, 10 }, Qt::LeftButton, Qt::NoButton);
}

void ShelfHeaderTest::theHandleIsThereForSeveralItemsOnly()
{
    QVERIFY(!handle().isVisible());
    addTexts(1);
    QVERIFY(!handle().isVisible());
    addTexts(2);
    QVERIFY(handle().isVisible());
    m_shelf->store.remove(m_shelf->top().id);
    QVERIFY(!handle().isVisible());
}

void ShelfHeaderTest::thePinStaysInItsPlace()
{
    m_shelf->view.grab();
    const QPoint before = pin().mapTo(&m_shelf->view, QPoint());
    QCOMPARE(before, QPoint(112 - 6 - 22, 6));
    addTexts(2);
    m_shelf->view.grab();
    QCOMPARE(pin().mapTo(&m_shelf->view, QPoint()), before);
}

void ShelfHeaderTest::theHandleIsBesideThePinWithinThePanel()
{
    addTexts(2);
    m_shelf->view.grab();
    const QRect place(handle().mapTo(&m_shelf->view, QPoint()), handle().size());
    QCOMPARE(place, QRect(112 - 6 - 22 - 2 - 22, 6, 22, 22));
}

void ShelfHeaderTest::aDragOfTheHandleTakesEverything()
{
    QList<QUrl> files;
    for (const char* name : { "a", "b", "c" })
        files.append(m_shelf->addFile(name));
    m_shelf->store.addText(QStringLiteral("words"));
    pressAndMove(3.01);
    QCOMPARE(m_log, QStringList({ QStringLiteral("began"), QStringLiteral("run"), QStringLiteral("ended") }));
    // All of them are looked for in the Trash now, and the text goes with them.
    for (const QUrl& file : files)
        m_shelf->references.moveFile(file, fileUrl("/somewhere/.Trash/a file"));
    m_shelf->queue.advance(1);
    QVERIFY(m_shelf->store.items().isEmpty());
}

void ShelfHeaderTest::aSmallMovementIsNoDrag()
{
    addTexts(2);
    pressAndMove(3);
    QVERIFY(m_log.isEmpty());
}

void ShelfHeaderTest::aClickSelectsEverythingAndDragsNothing()
{
    addTexts(2);
    auto* header = m_shelf->view.findChild<ShelfHeader*>();
    int selections = 0;
    header->onSelectAll = [&] { ++selections; };
    pressAndMove(2);
    release();
    QCOMPARE(selections, 1);
    QTest::keyClick(&handle(), Qt::Key_Space);
    QTest::keyClick(&handle(), Qt::Key_Return);
    QCOMPARE(selections, 3);
    QVERIFY(m_log.isEmpty());
}

void ShelfHeaderTest::afterADragTheHandleIsNotPressed()
{
    addTexts(2);
    const QSignalSpy clicks(&handle(), &DragAllButton::clicked);
    pressAndMove(10);
    QVERIFY(!handle().isDown());
    // The toolkit may report the release or not.
    send(QEvent::MouseMove, { 40, 10 }, Qt::NoButton, Qt::LeftButton);
    release();
    QCOMPARE(clicks.count(), 0);
    QCOMPARE(m_log.count(QStringLiteral("run")), 1);
}

void ShelfHeaderTest::theHandleSaysWhatItDoes()
{
    QCOMPARE(handle().toolTip(), pin().toolTip().replace(pin().accessibleName(), QStringLiteral("Drag All")));
    QCOMPARE(handle().accessibleName(), QStringLiteral("Drag All"));
    QVERIFY(!handle().accessibleDescription().isEmpty());
}

void ShelfHeaderTest::theHandleShowsFocusHoverAndPress()
{
    addTexts(2);
    DragAllButton& button = handle();
    const QImage plain = button.grab().toImage();
    button.setFocus(Qt::TabFocusReason);
    const QImage focused = button.grab().toImage();
    button.clearFocus();
    button.setAttribute(Qt::WA_UnderMouse);
    const QImage hovered = button.grab().toImage();
    button.setDown(true);
    const QImage pressed = button.grab().toImage();
    QVERIFY(focused != plain);
    QVERIFY(hovered != plain);
    QVERIFY(hovered != focused);
    QVERIFY(pressed != hovered);
}

QTEST_MAIN(ShelfHeaderTest)
#include "ShelfHeaderTest.moc"
