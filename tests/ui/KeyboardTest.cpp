#include "EmptyShelfView.h"
#include "ItemInteractionView.h"
#include "DragAllButton.h"
#include "PinButton.h"
#include "ShelfFixture.h"
#include "ShelfItemView.h"
#include "TileList.h"

#include <QApplication>
#include <QMenu>
#include <QScrollBar>

using namespace nookle;

class KeyboardTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_shelf.reset(); }

    void theFirstTileIsTheCurrentOneWhenTheListGetsTheKeyboard();
    void arrowsMoveOverTheTiles();
    void movingScrollsTheTileIntoView();
    void returnOpens();
    void aHeldKeyActsOnce();
    void aHeldKeyActsOnceWhereItsRepeatsAreNotMarked_data();
    void aHeldKeyActsOnceWhereItsRepeatsAreNotMarked();
    void tapsOfAMomentActEach_data();
    void tapsOfAMomentActEach();
    void deleteRemovesAndTheNextTileTakesOver();
    void deletingTheLastTileLeavesTheOneAbove();
    void controlAndCCopy();
    void controlAndCOnAFileThatIsGoneLeavesTheClipboard();
    void spacePins();
    void theMenuKeyOpensTheMenuOfTheTile();
    void escapeHides();
    void keysOnThePinButtonDoNotReachTheTiles();
    void aPressedTileBecomesTheCurrentOne();
    void theFrameShowsOnlyWhileKeysAreUsed();
    void theCurrentTileStaysWithItsItem();
    void anEmptyShelfTakesKeysWithoutEffect();
    void theFirstArrowAfterTheShelfTookTheKeysChoosesTheFirstTile();
    void theFrameSurvivesTheMenu();
    void theMenuKeyScrollsToTheCurrentTile();
    void typingFindsAName();
    void spaceIsPartOfANameWhileItIsTyped();
    void whatAnInputMethodComposesFindsAName();
    void aSpaceOfAnInputMethodBeginsNoSearch();
    void tabGoesToTheHeaderAndBack();
    void returnPressesThePin();
    void thePinShowsFocusHoverAndPress();
    void controlAndZBringsBackWhatWasRemoved();
    void controlAndZWorksOnAnEmptyShelfAndOnThePin();
    void controlAndVAddsTheClipboard();
    void aClickOnTheEmptyShelfGivesItTheKeys();

private:
    void key(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    [[nodiscard]] TileList& list() { return *m_shelf->view.findChild<TileList*>(); }
    [[nodiscard]] QString current()
    {
        const auto id = list().currentId();
        for (const ShelfItem& item : m_shelf->store.items()) {
            if (item.id == id)
                return item.displayName();
        }
        return {};
    }
    static void commit(const QString& text)
    {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(QApplication::focusWidget(), &event);
    }
    void addTexts(int count)
    {
        for (int number = count - 1; number >= 0; --number)
            m_shelf->store.addText(QString::number(number));
    }

    std::unique_ptr<ShelfFixture> m_shelf;
};

void KeyboardTest::init()
{
    m_shelf = std::make_unique<ShelfFixture>();
    m_shelf->view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&m_shelf->view));
    addTexts(20);
    list().setFocus(Qt::TabFocusReason);
    QCOMPARE(QApplication::focusWidget(), &list());
}

void KeyboardTest::theFirstTileIsTheCurrentOneWhenTheListGetsTheKeyboard()
{
    QCOMPARE(current(), QStringLiteral("0"));
}

void KeyboardTest::arrowsMoveOverTheTiles()
{
    key(Qt::Key_Up);
    QCOMPARE(current(), QStringLiteral("0"));
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    QCOMPARE(current(), QStringLiteral("2"));
    key(Qt::Key_Up);
    QCOMPARE(current(), QStringLiteral("1"));
    key(Qt::Key_End);
    QCOMPARE(current(), QStringLiteral("19"));
    key(Qt::Key_Down);
    QCOMPARE(current(), QStringLiteral("19"));
    key(Qt::Key_Home);
    QCOMPARE(current(), QStringLiteral("0"));
    key(Qt::Key_PageDown);
    QVERIFY(current().toInt() > 3);
    key(Qt::Key_PageUp);
    QCOMPARE(current(), QStringLiteral("0"));
}

void KeyboardTest::movingScrollsTheTileIntoView()
{
    key(Qt::Key_End);
    const ShelfItemView* last = list().tile(*list().currentId());
    QVERIFY(last);
    QVERIFY(list().viewport()->rect().contains(last->geometry()));
    QCOMPARE(list().verticalScrollBar()->value(), list().verticalScrollBar()->maximum());
    key(Qt::Key_Home);
    QCOMPARE(list().verticalScrollBar()->value(), 0);
}

void KeyboardTest::returnOpens()
{
    m_shelf->store.addText(QStringLiteral("https://example.com/"));
    key(Qt::Key_Home);
    key(Qt::Key_Return);
    key(Qt::Key_Enter);
    QCOMPARE(m_shelf->workspace.opened.size(), 2);
}

void KeyboardTest::aHeldKeyActsOnce()
{
    m_shelf->store.addText(QStringLiteral("https://example.com/"));
    key(Qt::Key_Home);
    const auto hold = [this](Qt::Key held) {
        key(held);
        for (int repetition = 0; repetition < 5; ++repetition) {
            QKeyEvent event(QEvent::KeyPress, held, {}, {}, true);
            QApplication::sendEvent(&list(), &event);
        }
    };
    hold(Qt::Key_Return);
    QCOMPARE(m_shelf->workspace.opened.size(), 1);
    const qsizetype before = m_shelf->store.items().size();
    hold(Qt::Key_Delete);
    QCOMPARE(m_shelf->store.items().size(), before - 1);
    bool isHidden = false;
    m_shelf->view.onHide = [&] { isHidden = true; };
    key(Qt::Key_A, Qt::ControlModifier);
    hold(Qt::Key_Escape);
    QVERIFY(list().selection().isEmpty());
    QVERIFY(!isHidden);
}

void KeyboardTest::aHeldKeyActsOnceWhereItsRepeatsAreNotMarked_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Delete") << int(Qt::Key_Delete) << Qt::KeyboardModifiers();
    QTest::newRow("Ctrl+Space") << int(Qt::Key_Space) << Qt::KeyboardModifiers(Qt::ControlModifier);
}

void KeyboardTest::aHeldKeyActsOnceWhereItsRepeatsAreNotMarked()
{
    QFETCH(const int, key);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    constexpr quint32 scanCode = 119;
    const auto send = [&](QEvent::Type type, quint64 time) {
        QKeyEvent event(type, key, modifiers, scanCode, 0, 0);
        event.setTimestamp(time);
        QApplication::sendEvent(&list(), &event);
    };
    const auto effect = [this] { return std::pair(m_shelf->store.items().size(), list().selection().targets()); };
    this->key(Qt::Key_Home);
    send(QEvent::KeyPress, 1000);
    const auto once = effect();
    for (const quint64 time : { 1500U, 1540U, 1580U }) {
        send(QEvent::KeyRelease, time);
        send(QEvent::KeyPress, time);
    }
    QCOMPARE(effect(), once);
    // The same key again.
    send(QEvent::KeyRelease, 1600);
    send(QEvent::KeyPress, 1700);
    QVERIFY(effect() != once);
}

void KeyboardTest::tapsOfAMomentActEach_data()
{
    QTest::addColumn<bool>("isMarked");
    QTest::newRow("the toolkit takes them for repeats") << true;
    QTest::newRow("the toolkit sees that they are none") << false;
}

void KeyboardTest::tapsOfAMomentActEach()
{
    QFETCH(const bool, isMarked);
    constexpr quint32 scanCode = 119;
    constexpr quint64 time = 1000;
    const auto send = [&](QEvent::Type type, bool isRepeat) {
        QKeyEvent event(type, Qt::Key_Delete, {}, scanCode, 0, 0, {}, isRepeat);
        event.setTimestamp(time);
        QApplication::sendEvent(&list(), &event);
    };
    key(Qt::Key_Home);
    const qsizetype before = m_shelf->store.items().size();
    send(QEvent::KeyPress, false);
    for (int tap = 0; tap < 2; ++tap) {
        send(QEvent::KeyRelease, isMarked);
        send(QEvent::KeyPress, isMarked);
    }
    send(QEvent::KeyRelease, false);
    QCOMPARE(m_shelf->store.items().size(), before - 3);
}

void KeyboardTest::deleteRemovesAndTheNextTileTakesOver()
{
    key(Qt::Key_Down);
    key(Qt::Key_Delete);
    QCOMPARE(m_shelf->store.items().size(), 19);
    QCOMPARE(current(), QStringLiteral("2"));
}

void KeyboardTest::deletingTheLastTileLeavesTheOneAbove()
{
    key(Qt::Key_End);
    key(Qt::Key_Delete);
    QCOMPARE(current(), QStringLiteral("18"));
}

void KeyboardTest::controlAndCCopy()
{
    key(Qt::Key_Down);
    key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(m_shelf->pasteboard.operations, QStringList({ QStringLiteral("clear"), QStringLiteral("text 1") }));
}

void KeyboardTest::controlAndCOnAFileThatIsGoneLeavesTheClipboard()
{
    const QUrl file = m_shelf->addFile("a.txt");
    key(Qt::Key_Home);
    key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(m_shelf->pasteboard.operations.size(), 2);
    m_shelf->references.removeFile(file);
    m_shelf->store.refreshFiles();
    key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(m_shelf->pasteboard.operations.size(), 2);
}

void KeyboardTest::spacePins()
{
    key(Qt::Key_Space);
    QVERIFY(m_shelf->top().pinned);
    key(Qt::Key_Space);
    QVERIFY(!m_shelf->top().pinned);
}

void KeyboardTest::theMenuKeyOpensTheMenuOfTheTile()
{
    key(Qt::Key_Down);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(&list(), &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    menu->actions().constLast()->trigger();
    menu->close();
    QCOMPARE(m_shelf->store.items().size(), 19);
    QCOMPARE(current(), QStringLiteral("2"));
}

void KeyboardTest::escapeHides()
{
    int hides = 0;
    m_shelf->view.onHide = [&] { ++hides; };
    key(Qt::Key_Escape);
    QCOMPARE(hides, 1);
}

void KeyboardTest::keysOnThePinButtonDoNotReachTheTiles()
{
    m_shelf->view.findChild<PinButton*>()->setFocus();
    key(Qt::Key_Delete);
    key(Qt::Key_Return);
    QCOMPARE(m_shelf->store.items().size(), 20);
}

void KeyboardTest::aPressedTileBecomesTheCurrentOne()
{
    ShelfItemView* third = list().tile(m_shelf->store.items()[2].id);
    QTest::mousePress(&third->interaction(), Qt::LeftButton);
    QCOMPARE(current(), QStringLiteral("2"));
    QTest::mouseRelease(&third->interaction(), Qt::LeftButton);
    key(Qt::Key_Down);
    QCOMPARE(current(), QStringLiteral("3"));
}

void KeyboardTest::theFrameShowsOnlyWhileKeysAreUsed()
{
    ShelfItemView* first = list().tile(m_shelf->top().id);
    QVERIFY(first->isFocused());
    QTest::mousePress(&first->interaction(), Qt::LeftButton);
    QVERIFY(!first->isFocused());
    QTest::mouseRelease(&first->interaction(), Qt::LeftButton);
    key(Qt::Key_Up);
    QVERIFY(first->isFocused());
    list().clearFocus();
    QVERIFY(!first->isFocused());
}

void KeyboardTest::theCurrentTileStaysWithItsItem()
{
    key(Qt::Key_Down);
    m_shelf->store.addText(QStringLiteral("new"));
    QCOMPARE(current(), QStringLiteral("1"));
}

void KeyboardTest::anEmptyShelfTakesKeysWithoutEffect()
{
    while (!m_shelf->store.items().isEmpty())
        m_shelf->store.remove(m_shelf->top().id);
    QVERIFY(!list().currentId());
    for (const Qt::Key each : { Qt::Key_Down, Qt::Key_Delete, Qt::Key_Return, Qt::Key_Space })
        QTest::keyClick(&list(), each);
    QVERIFY(m_shelf->store.items().isEmpty());
}

void KeyboardTest::theFirstArrowAfterTheShelfTookTheKeysChoosesTheFirstTile()
{
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    m_shelf->view.beginKeys();
    QCOMPARE(QApplication::focusWidget(), &list());
    QVERIFY(!list().currentId());
    key(Qt::Key_Delete);
    QCOMPARE(m_shelf->store.items().size(), 20);
    key(Qt::Key_Down);
    QCOMPARE(current(), QStringLiteral("0"));
    m_shelf->view.findChild<PinButton*>()->setFocus();
    m_shelf->view.beginKeys();
    key(Qt::Key_Up);
    QCOMPARE(current(), QStringLiteral("0"));
}

void KeyboardTest::theFrameSurvivesTheMenu()
{
    key(Qt::Key_Down);
    const ShelfItemView* second = list().tile(m_shelf->store.items().at(1).id);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(&list(), &event);
    QVERIFY(second->isFocused());
    QApplication::activePopupWidget()->close();
    QVERIFY(second->isFocused());
}

void KeyboardTest::theMenuKeyScrollsToTheCurrentTile()
{
    list().verticalScrollBar()->setValue(list().verticalScrollBar()->maximum());
    QVERIFY(!list().tile(*list().currentId()));
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(&list(), &event);
    QVERIFY(list().tile(*list().currentId()));
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(menu->actions().constLast()->text(), QStringLiteral("Remove"));
    menu->close();
}

void KeyboardTest::typingFindsAName()
{
    m_shelf->store.addText(QStringLiteral("Zebra"));
    m_shelf->store.addText(QStringLiteral("zone"));
    key(Qt::Key_End);
    key(Qt::Key_Z);
    QCOMPARE(current(), QStringLiteral("zone"));
    key(Qt::Key_E);
    QCOMPARE(current(), QStringLiteral("Zebra"));
    QVERIFY(list().tile(*list().currentId())->isFocused());
    // Shortcuts are no letters.
    key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(current(), QStringLiteral("Zebra"));
}

void KeyboardTest::spaceIsPartOfANameWhileItIsTyped()
{
    m_shelf->store.addText(QStringLiteral("a c"));
    m_shelf->store.addText(QStringLiteral("a b"));
    key(Qt::Key_End);
    for (const Qt::Key each : { Qt::Key_A, Qt::Key_Space, Qt::Key_C })
        key(each);
    QCOMPARE(current(), QStringLiteral("a c"));
    QVERIFY(!m_shelf->store.items().at(1).pinned);
}

void KeyboardTest::whatAnInputMethodComposesFindsAName()
{
    m_shelf->store.addText(QStringLiteral("étude"));
    m_shelf->store.addText(QStringLiteral("Été"));
    key(Qt::Key_End);
    QInputMethodQueryEvent query(Qt::ImEnabled);
    QApplication::sendEvent(QApplication::focusWidget(), &query);
    QVERIFY(query.value(Qt::ImEnabled).toBool());
    // What is not committed yet is no search.
    QInputMethodEvent composing(QStringLiteral("´"), {});
    QApplication::sendEvent(QApplication::focusWidget(), &composing);
    QCOMPARE(current(), QStringLiteral("19"));
    commit(QStringLiteral("é"));
    QCOMPARE(current(), QStringLiteral("Été"));
    key(Qt::Key_T);
    QCOMPARE(current(), QStringLiteral("Été"));
    key(Qt::Key_U);
    QCOMPARE(current(), QStringLiteral("étude"));
    QVERIFY(list().tile(*list().currentId())->isFocused());
}

void KeyboardTest::aSpaceOfAnInputMethodBeginsNoSearch()
{
    m_shelf->store.addText(QStringLiteral("a b"));
    commit(QStringLiteral(" "));
    key(Qt::Key_End);
    commit(QStringLiteral("a"));
    commit(QStringLiteral(" b"));
    QCOMPARE(current(), QStringLiteral("a b"));
    key(Qt::Key_Delete);
    QCOMPARE(m_shelf->store.items().size(), 20);
}

void KeyboardTest::tabGoesToTheHeaderAndBack()
{
    auto* pin = m_shelf->view.findChild<PinButton*>();
    key(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), m_shelf->view.findChild<DragAllButton*>());
    key(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), pin);
    key(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), &list());
    m_shelf->store.removeUnpinned();
    key(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), pin);
}

void KeyboardTest::returnPressesThePin()
{
    int toggles = 0;
    m_shelf->view.onTogglePin = [&] { ++toggles; };
    m_shelf->view.findChild<PinButton*>()->setFocus();
    key(Qt::Key_Return);
    key(Qt::Key_Space);
    QCOMPARE(toggles, 2);
    QVERIFY(!m_shelf->top().pinned);
}

void KeyboardTest::thePinShowsFocusHoverAndPress()
{
    auto* pin = m_shelf->view.findChild<PinButton*>();
    const QImage plain = pin->grab().toImage();
    pin->setFocus(Qt::TabFocusReason);
    const QImage focused = pin->grab().toImage();
    list().setFocus();
    pin->setAttribute(Qt::WA_UnderMouse);
    const QImage hovered = pin->grab().toImage();
    pin->setDown(true);
    const QImage pressed = pin->grab().toImage();
    QVERIFY(focused != plain);
    QVERIFY(hovered != plain);
    QVERIFY(hovered != focused);
    QVERIFY(pressed != hovered);
    pin->setDown(false);
    pin->setAttribute(Qt::WA_UnderMouse, false);
    QCOMPARE(pin->grab().toImage(), plain);
}

void KeyboardTest::controlAndZBringsBackWhatWasRemoved()
{
    key(Qt::Key_Down);
    key(Qt::Key_Delete);
    key(Qt::Key_Delete);
    QCOMPARE(m_shelf->store.items().size(), 18);
    key(Qt::Key_Z, Qt::ControlModifier);
    key(Qt::Key_Z, Qt::ControlModifier);
    key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_shelf->store.items().size(), 20);
    QCOMPARE(m_shelf->store.items().at(1).displayName(), QStringLiteral("1"));
}

void KeyboardTest::controlAndZWorksOnAnEmptyShelfAndOnThePin()
{
    m_shelf->store.removeUnpinned();
    QVERIFY(!QApplication::focusWidget()->inherits("QAbstractButton"));
    key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_shelf->store.items().size(), 20);
    QCOMPARE(QApplication::focusWidget(), &list());
    key(Qt::Key_Delete);
    m_shelf->view.findChild<PinButton*>()->setFocus();
    key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_shelf->store.items().size(), 20);
}

void KeyboardTest::controlAndVAddsTheClipboard()
{
    m_shelf->pasteboard.payload.offer("text/plain", "pasted");
    key(Qt::Key_V, Qt::ControlModifier);
    m_shelf->queue.advance(0);
    QCOMPARE(m_shelf->top().displayName(), QStringLiteral("pasted"));
    QCOMPARE(current(), QStringLiteral("0"));
}

void KeyboardTest::aClickOnTheEmptyShelfGivesItTheKeys()
{
    m_shelf->store.removeUnpinned();
    QApplication::focusWidget()->clearFocus();
    QTest::mouseClick(m_shelf->view.findChild<EmptyShelfView*>(), Qt::LeftButton);
    QCOMPARE(QApplication::focusWidget(), &m_shelf->view);
    m_shelf->pasteboard.payload.offer("text/plain", "pasted");
    key(Qt::Key_V, Qt::ControlModifier);
    m_shelf->queue.advance(0);
    QCOMPARE(m_shelf->store.items().size(), 1);
    QCOMPARE(QApplication::focusWidget(), &list());
}

QTEST_MAIN(KeyboardTest)
#include "KeyboardTest.moc"
