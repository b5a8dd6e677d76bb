#include "Accessibility.h"

#include "ShelfFixture.h"
#include "ShelfItemView.h"
#include "TileList.h"

#include <QAccessible>
#include <QApplication>
#include <QMenu>
#include <QScrollBar>

using namespace nookle;

class AccessibilityTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installAccessibility(); }
    void init();
    void cleanup() { m_shelf.reset(); }

    void theTilesAreTheItemsOfAListInTheirOrder();
    void aTileHasNameAndDescription();
    void aNameIsShortAndHasNoControlCharacters();
    void theDescriptionSaysPinnedAndUnavailable();
    void theActionsAreThoseOfTheMenu();
    void anActionDoesWhatItSays();
    void theMenuCanBeOpened();
    void theCurrentTileHasTheFocus();
    void severalTilesMayBeSelected();
    void aTileAndItsListKnowEachOther();
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    void assistiveProgramsSelectTiles();
    void theCurrentTileStaysSelectedWhenAnotherIsAdded();
    void whatIsOutOfViewIsClearedToo();
#endif

private:
    [[nodiscard]] QByteArray selectedTiles()
    {
        QByteArray selected;
        for (int index = 0; index < accessibleList().childCount(); ++index)
            selected.append(tile(index).state().selected ? '1' : '0');
        return selected;
    }
    [[nodiscard]] TileList& list()
    {
        return *m_shelf->view.findChild<TileList*>();
    }
    [[nodiscard]] QAccessibleInterface& accessibleList()
    {
        return *QAccessible::queryAccessibleInterface(&list());
    }
    [[nodiscard]] QAccessibleInterface& tile(int index)
    {
        return *accessibleList().child(index);
    }

    std::unique_ptr<ShelfFixture> m_shelf;
};

void AccessibilityTest::init()
{
    m_shelf = std::make_unique<ShelfFixture>();
    m_shelf->store.addText(QStringLiteral("words"));
    m_shelf->store.addText(QStringLiteral("https://example.com/"));
    (void)m_shelf->addImage();
    (void)m_shelf->addFile("a.txt");
}

void AccessibilityTest::theTilesAreTheItemsOfAListInTheirOrder()
{
    QCOMPARE(accessibleList().role(), QAccessible::List);
    QCOMPARE(accessibleList().text(QAccessible::Name), QStringLiteral("Shelf"));
    QCOMPARE(accessibleList().childCount(), 4);
    QStringList names;
    for (int index = 0; index < 4; ++index) {
        QCOMPARE(tile(index).role(), QAccessible::ListItem);
        names.append(tile(index).text(QAccessible::Name));
    }
    QCOMPARE(names.join(QLatin1Char(' ')), QStringLiteral("a.txt Shot example.com words"));
}

void AccessibilityTest::aTileHasNameAndDescription()
{
    QStringList descriptions;
    for (int index = 0; index < 4; ++index)
        descriptions.append(tile(index).text(QAccessible::Description));
    QCOMPARE(descriptions.join(QLatin1Char(' ')), QStringLiteral("File Image Link Text"));
}

void AccessibilityTest::aNameIsShortAndHasNoControlCharacters()
{
    m_shelf->store.addText(QStringLiteral("a\u202e\x07") + QString(50'000'000, QLatin1Char('b')));
    const QString name = tile(0).text(QAccessible::Name);
    QCOMPARE(name.size(), 300);
    QVERIFY(name.startsWith(QStringLiteral("abb")));
    (void)m_shelf->addFile("a\xe2\x80\xaetxt.exe");
    QCOMPARE(tile(0).text(QAccessible::Name), QStringLiteral("atxt.exe"));
}

void AccessibilityTest::theDescriptionSaysPinnedAndUnavailable()
{
    m_shelf->store.togglePinned(m_shelf->top().id);
    QCOMPARE(tile(0).text(QAccessible::Description), QStringLiteral("File, pinned"));
    m_shelf->references.removeFile(fileUrl("/somewhere/a.txt"));
    m_shelf->store.refreshFiles();
    QCOMPARE(tile(0).text(QAccessible::Description), QStringLiteral("File, pinned, unavailable"));
}

void AccessibilityTest::theActionsAreThoseOfTheMenu()
{
    const QStringList expected{ QAccessibleActionInterface::showMenuAction(),
                                QStringLiteral("Open"),
                                QStringLiteral("Show in Finder"),
                                QStringLiteral("Copy"),
                                QStringLiteral("Pin"),
                                QStringLiteral("Remove") };
    QCOMPARE(tile(0).actionInterface()->actionNames(), expected);
    QCOMPARE(tile(0).actionInterface()->localizedActionName(expected[0]), QStringLiteral("Show Menu"));
    QCOMPARE(tile(0).actionInterface()->localizedActionName(expected[1]), QStringLiteral("Open"));
    m_shelf->references.removeFile(fileUrl("/somewhere/a.txt"));
    m_shelf->store.refreshFiles();
    QVERIFY(!tile(0).actionInterface()->actionNames().contains(QStringLiteral("Copy")));
}

void AccessibilityTest::anActionDoesWhatItSays()
{
    tile(0).actionInterface()->doAction(QStringLiteral("Open"));
    QCOMPARE(m_shelf->workspace.opened.size(), 1);
    tile(0).actionInterface()->doAction(QStringLiteral("Remove"));
    QCOMPARE(accessibleList().childCount(), 3);
}

void AccessibilityTest::theMenuCanBeOpened()
{
    tile(0).actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    menu->close();
}

void AccessibilityTest::theCurrentTileHasTheFocus()
{
    QVERIFY(!tile(0).state().focused);
    m_shelf->view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&m_shelf->view));
    list().setFocus();
    // The first arrow chooses the first tile.
    QTest::keyClick(&list(), Qt::Key_Down);
    QVERIFY(tile(0).state().focused);
    QTest::keyClick(&list(), Qt::Key_Down);
    QVERIFY(tile(1).state().focused);
    QVERIFY(tile(1).state().selected);
    QVERIFY(!tile(0).state().focused);
    QCOMPARE(accessibleList().focusChild(), &tile(1));
}

void AccessibilityTest::severalTilesMayBeSelected()
{
    QVERIFY(accessibleList().state().multiSelectable);
    list().choose(m_shelf->store.items().at(1).id, Qt::ControlModifier);
    list().choose(m_shelf->store.items().at(3).id, Qt::ControlModifier);
    QCOMPARE(selectedTiles(), QByteArray("0101"));
    QVERIFY(tile(1).actionInterface()->actionNames().contains(QStringLiteral("Remove 2 Item(s)")));
    QVERIFY(tile(0).actionInterface()->actionNames().contains(QStringLiteral("Remove")));
}

void AccessibilityTest::aTileAndItsListKnowEachOther()
{
    QCOMPARE(tile(2).parent(), &accessibleList());
    QCOMPARE(accessibleList().indexOfChild(&tile(2)), 2);
    QCOMPARE(tile(2).childCount(), 0);
    QVERIFY(!accessibleList().child(99));
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)

void AccessibilityTest::assistiveProgramsSelectTiles()
{
    QAccessibleSelectionInterface* selection = accessibleList().selectionInterface();
    QVERIFY(selection);
    QCOMPARE(selection->selectedItemCount(), 0);
    QVERIFY(selection->select(&tile(3)));
    QVERIFY(selection->select(&tile(1)));
    QCOMPARE(selectedTiles(), QByteArray("0101"));
    QCOMPARE(selection->selectedItems(), QList<QAccessibleInterface*>({ &tile(1), &tile(3) }));
    QVERIFY(selection->isSelected(&tile(1)));
    QVERIFY(!selection->isSelected(&tile(0)));
    QVERIFY(selection->unselect(&tile(3)));
    QCOMPARE(selectedTiles(), QByteArray("0100"));
    QVERIFY(!selection->select(&accessibleList()));
    QVERIFY(selection->selectAll());
    QCOMPARE(selectedTiles(), QByteArray("1111"));
    QVERIFY(selection->clear());
    QCOMPARE(selectedTiles(), QByteArray("0000"));
}

void AccessibilityTest::theCurrentTileStaysSelectedWhenAnotherIsAdded()
{
    QTest::keyClick(&list(), Qt::Key_Down);
    QCOMPARE(selectedTiles(), QByteArray("1000"));
    QAccessibleSelectionInterface& selection = *accessibleList().selectionInterface();
    QVERIFY(selection.select(&tile(2)));
    QCOMPARE(selectedTiles(), QByteArray("1010"));
    QVERIFY(selection.clear());
    QCOMPARE(selectedTiles(), QByteArray("0000"));
}

void AccessibilityTest::whatIsOutOfViewIsClearedToo()
{
    for (int number = 0; number < 60; ++number)
        m_shelf->store.addText(QString::number(number));
    QTest::keyClick(&list(), Qt::Key_End);
    list().verticalScrollBar()->setValue(0);
    QVERIFY(!list().tile(m_shelf->store.items().constLast().id));
    QAccessibleSelectionInterface& selection = *accessibleList().selectionInterface();
    // The current tile alone, and one that was selected before.
    QCOMPARE(list().selection().targets().size(), std::size_t{ 1 });
    QVERIFY(selection.clear());
    QVERIFY(list().selection().targets().empty());
    list().selectAll();
    QVERIFY(selection.clear());
    QVERIFY(list().selection().targets().empty());
}

#endif

QTEST_MAIN(AccessibilityTest)
#include "AccessibilityTest.moc"
