#include "ShelfFixture.h"
#include "TileList.h"

#include <QMenu>

using namespace nookle;

/// What is done with several selected items at once.
class SelectionActionsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_shelf = std::make_unique<ShelfFixture>(); }
    void cleanup() { m_shelf.reset(); }

    void aSingleSelectedItemHasItsUsualMenu();
    void theTitlesSayHowManyItemsTheyAreFor();
    void entriesThatAreForNoItemAreLeftOut();
    void openOpensAll();
    void moreThanTenAreOpenedAfterAQuestion();
    void manyAreOpenedOneAfterTheOther();
    void whatLeavesTheShelfBeforeItsTurnIsNotOpened();
    void aSecondLotIsOpenedAfterTheFirst();
    void allFilesAreShownInOneRequest();
    void moreThanTenFoldersAreShownAfterAQuestion();
    void filesAndImagesAreCopiedAsOneListOfFiles();
    void linksAreCopiedAsAListOfAddresses();
    void textsAreCopiedJoinedByABlankLine();
    void amongOthersEverythingIsCopiedAsTextToo();
    void whatHasGoneSinceTheLastLookIsNotCopied();
    void copyingNothingButMissingFilesLeavesTheClipboard();
    void allArePinnedIfOneIsNot();
    void allAreUnpinnedIfAllArePinned();
    void theMenuPinsWhatItSaysAlsoIfSomeArePinnedMeanwhile();
    void removeIsOneStepOfUndo();
    void aMenuMayOutliveTheShelf();

private:
    void addTexts(const QStringList& texts)
    {
        for (const QString& text : texts)
            m_shelf->store.addText(text);
    }
    void selectAll() { m_shelf->view.findChild<TileList*>()->selectAll(); }
    void key(int key, Qt::KeyboardModifiers modifiers = {})
    {
        selectAll();
        auto* list = m_shelf->view.findChild<TileList*>();
        m_shelf->view.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&m_shelf->view));
        list->setFocus();
        QTest::keyClick(list, static_cast<Qt::Key>(key), modifiers);
    }
    void askToOpen(int number)
    {
        QList<QUrl> files;
        for (int each = 0; each < number; ++each)
            files.append(fileUrl("/somewhere/" + QByteArray::number(each)));
        m_shelf->store.addFiles(files);
        key(Qt::Key_Return);
        QCOMPARE(m_shelf->questions.size(), 1);
    }
    [[nodiscard]] QByteArray pins() const
    {
        QByteArray pins;
        for (const ShelfItem& item : m_shelf->store.items())
            pins.append(item.pinned ? '1' : '0');
        return pins;
    }

    std::unique_ptr<ShelfFixture> m_shelf;
};

void SelectionActionsTest::aSingleSelectedItemHasItsUsualMenu()
{
    (void)m_shelf->addFile("a");
    selectAll();
    QCOMPARE(m_shelf->menu(), QStringLiteral("Open Show in Finder Copy Pin - Remove"));
}

void SelectionActionsTest::theTitlesSayHowManyItemsTheyAreFor()
{
    addTexts({ QStringLiteral("words"), QStringLiteral("https://example.com/") });
    (void)m_shelf->addImage();
    const QUrl gone = m_shelf->addFile("gone");
    (void)m_shelf->addFile("a");
    m_shelf->references.removeFile(gone);
    m_shelf->store.refreshFiles();
    selectAll();
    QCOMPARE(m_shelf->menu(),
             QStringLiteral("Open 3 Item(s) Show 1 Item(s) in Finder Copy 4 Item(s) Pin 5 Item(s) - "
                            "Remove 5 Item(s)"));
}

void SelectionActionsTest::entriesThatAreForNoItemAreLeftOut()
{
    const QUrl first = m_shelf->addFile("a");
    const QUrl second = m_shelf->addFile("b");
    m_shelf->references.removeFile(first);
    m_shelf->references.removeFile(second);
    m_shelf->store.refreshFiles();
    selectAll();
    QCOMPARE(m_shelf->menu(), QStringLiteral("[Copy 0 Item(s)] Pin 2 Item(s) - Remove 2 Item(s)"));
}

void SelectionActionsTest::openOpensAll()
{
    addTexts({ QStringLiteral("words"), QStringLiteral("https://example.com/") });
    const QUrl file = m_shelf->addFile("a");
    key(Qt::Key_Return);
    QCOMPARE(m_shelf->workspace.opened, QList<QUrl>({ file, QUrl(QStringLiteral("https://example.com/")) }));
    QVERIFY(m_shelf->questions.isEmpty());
}

void SelectionActionsTest::moreThanTenAreOpenedAfterAQuestion()
{
    for (int number = 0; number < 10; ++number)
        (void)m_shelf->addFile(QByteArray::number(number));
    key(Qt::Key_Return);
    QVERIFY(m_shelf->questions.isEmpty());
    QCOMPARE(m_shelf->workspace.opened.size(), 10);
    (void)m_shelf->addFile("one more");
    key(Qt::Key_Return);
    QCOMPARE(m_shelf->questions, QStringList{ QStringLiteral("Open 11 item(s) at once?") });
    QCOMPARE(m_shelf->workspace.opened.size(), 10);
    m_shelf->agree();
    m_shelf->queue.advance(1);
    QCOMPARE(m_shelf->workspace.opened.size(), 21);
}

void SelectionActionsTest::manyAreOpenedOneAfterTheOther()
{
    askToOpen(2000);
    m_shelf->agree();
    QCOMPARE(m_shelf->workspace.opened.size(), 1);
    // What a turn of the event loop opens must not hold it up, whatever the number.
    m_shelf->queue.advance(0.005);
    QCOMPARE(m_shelf->workspace.opened.size(), 2);
    // The user has agreed to all: a shelf that hides goes on.
    m_shelf->view.hide();
    m_shelf->queue.advance(60);
    QCOMPARE(m_shelf->workspace.opened.size(), 2000);
    QCOMPARE(m_shelf->queue.waitingTasks(), 0);
}

void SelectionActionsTest::whatLeavesTheShelfBeforeItsTurnIsNotOpened()
{
    askToOpen(20);
    m_shelf->agree();
    m_shelf->store.remove(m_shelf->store.items().constLast().id);
    m_shelf->queue.advance(0.005);
    QCOMPARE(m_shelf->workspace.opened.size(), 2);
    // Deleting them is the way to stop it.
    key(Qt::Key_Delete);
    m_shelf->queue.advance(1);
    QCOMPARE(m_shelf->workspace.opened.size(), 2);
    QCOMPARE(m_shelf->queue.waitingTasks(), 0);
}

void SelectionActionsTest::aSecondLotIsOpenedAfterTheFirst()
{
    askToOpen(12);
    m_shelf->agree();
    m_shelf->agree();
    QCOMPARE(m_shelf->workspace.opened.size(), 1);
    m_shelf->queue.advance(1);
    QCOMPARE(m_shelf->workspace.opened.size(), 24);
    QCOMPARE(m_shelf->workspace.opened.mid(12), m_shelf->workspace.opened.first(12));
}

void SelectionActionsTest::allFilesAreShownInOneRequest()
{
    const QUrl first = m_shelf->addFile("a");
    addTexts({ QStringLiteral("words") });
    const QUrl second = m_shelf->addFile("other/b");
    selectAll();
    m_shelf->choose(QStringLiteral("Show 2 Item(s) in Finder"));
    QCOMPARE(m_shelf->workspace.revealed, QList<QList<QUrl>>{ QList<QUrl>({ second, first }) });
}

void SelectionActionsTest::moreThanTenFoldersAreShownAfterAQuestion()
{
    for (int number = 0; number < 11; ++number)
        (void)m_shelf->addFile(QByteArray::number(number) + "/a");
    selectAll();
    m_shelf->choose(QStringLiteral("Show 11 Item(s) in Finder"));
    QCOMPARE(m_shelf->questions, QStringList{ QStringLiteral("Open 11 folder(s) at once?") });
    QVERIFY(m_shelf->workspace.revealed.isEmpty());
    m_shelf->agree();
    QCOMPARE(m_shelf->workspace.revealed.size(), 1);
    QCOMPARE(m_shelf->workspace.revealed.constFirst().size(), 11);
}

void SelectionActionsTest::filesAndImagesAreCopiedAsOneListOfFiles()
{
    (void)m_shelf->addFile("a b");
    const QUrl image = m_shelf->addImage();
    key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(m_shelf->pasteboard.operations,
             QStringList{ QStringLiteral("addresses %1 file:///somewhere/a%20b text ").arg(image.toString()) });
}

void SelectionActionsTest::linksAreCopiedAsAListOfAddresses()
{
    addTexts({ QStringLiteral("https://example.com/%7Ea"), QStringLiteral("https://example.org/") });
    key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(m_shelf->pasteboard.operations,
             QStringList{ QStringLiteral("addresses https://example.org/ https://example.com/%7Ea text "
                                         "https://example.org/\nhttps://example.com/%7Ea") });
}

void SelectionActionsTest::textsAreCopiedJoinedByABlankLine()
{
    addTexts({ QStringLiteral("second"), QStringLiteral("https://example.com/"), QStringLiteral("first\n") });
    key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(m_shelf->pasteboard.operations,
             QStringList{ QStringLiteral("text first\n\nhttps://example.com/\n\nsecond") });
}

void SelectionActionsTest::amongOthersEverythingIsCopiedAsTextToo()
{
    addTexts({ QStringLiteral("words") });
    (void)m_shelf->addFile("a b");
    key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(m_shelf->pasteboard.operations,
             QStringList{ QStringLiteral("addresses file:///somewhere/a%20b text file:///somewhere/a%20b\n\nwords") });
}

void SelectionActionsTest::whatHasGoneSinceTheLastLookIsNotCopied()
{
    const QUrl gone = m_shelf->addFile("gone");
    const QUrl image = m_shelf->addImage();
    (void)m_shelf->addFile("there");
    m_shelf->references.removeFile(gone);
    QVERIFY(QFile::remove(image.toLocalFile()));
    key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(m_shelf->pasteboard.operations, QStringList{ QStringLiteral("addresses file:///somewhere/there text ") });
    QVERIFY(m_shelf->menu().contains(QStringLiteral(" Copy 1 Item(s) ")));
}

void SelectionActionsTest::copyingNothingButMissingFilesLeavesTheClipboard()
{
    const QUrl first = m_shelf->addFile("a");
    const QUrl second = m_shelf->addFile("b");
    m_shelf->references.removeFile(first);
    m_shelf->references.removeFile(second);
    m_shelf->store.refreshFiles();
    key(Qt::Key_C, Qt::ControlModifier);
    QVERIFY(m_shelf->pasteboard.operations.isEmpty());
}

void SelectionActionsTest::allArePinnedIfOneIsNot()
{
    addTexts({ QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c") });
    m_shelf->store.togglePinned(m_shelf->top().id);
    key(Qt::Key_Space);
    QCOMPARE(pins(), QByteArray("111"));
}

void SelectionActionsTest::allAreUnpinnedIfAllArePinned()
{
    addTexts({ QStringLiteral("a"), QStringLiteral("b") });
    selectAll();
    m_shelf->choose(QStringLiteral("Pin 2 Item(s)"));
    QCOMPARE(pins(), QByteArray("11"));
    m_shelf->choose(QStringLiteral("Unpin 2 Item(s)"));
    QCOMPARE(pins(), QByteArray("00"));
}

void SelectionActionsTest::theMenuPinsWhatItSaysAlsoIfSomeArePinnedMeanwhile()
{
    addTexts({ QStringLiteral("a"), QStringLiteral("b") });
    selectAll();
    const MenuActions menu = m_shelf->view.interaction(m_shelf->top()).menu();
    const auto pin = std::find_if(menu.begin(), menu.end(), [](const std::optional<MenuAction>& each) {
        return each && each->title == QStringLiteral("Pin 2 Item(s)");
    });
    QVERIFY(pin != menu.end());
    m_shelf->store.togglePinned(m_shelf->top().id);
    (*pin)->action();
    QCOMPARE(pins(), QByteArray("11"));
}

void SelectionActionsTest::removeIsOneStepOfUndo()
{
    addTexts({ QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c") });
    key(Qt::Key_Delete);
    QVERIFY(m_shelf->store.items().isEmpty());
    m_shelf->store.undoRemove();
    QCOMPARE(m_shelf->store.items().size(), 3);
    QCOMPARE(m_shelf->top().displayName(), QStringLiteral("c"));
    QVERIFY(!m_shelf->store.canUndoRemove());
}

void SelectionActionsTest::aMenuMayOutliveTheShelf()
{
    addTexts({ QStringLiteral("a"), QStringLiteral("b") });
    selectAll();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    m_shelf->view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&m_shelf->view));
    m_shelf->view.findChild<TileList*>()->setFocus();
    QApplication::sendEvent(m_shelf->view.findChild<TileList*>(), &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(menu->actions().constLast()->text(), QStringLiteral("Remove 2 Item(s)"));
    m_shelf.reset();
    menu->close();
}

QTEST_MAIN(SelectionActionsTest)
#include "SelectionActionsTest.moc"
