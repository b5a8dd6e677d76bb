#include "ItemInteractionView.h"
#include "PinButton.h"
#include "ShelfFixture.h"
#include "TileList.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>

using namespace nookle;

class PanelMenuTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_shelf = std::make_unique<ShelfFixture>(); }
    void cleanup() { m_shelf.reset(); }

    void theEntriesStandInTheirOrder();
    void entriesThatCanDoNothingAreDisabled();
    void undoRemoveBringsBackWhatWasRemoved();
    void removeUnpinnedItemsSparesPinnedOnes();
    void pasteAddsTheClipboard();
    void selectAllSelectsAll();
    void theOwnerHearsOfTheOtherEntries();
    void theCheckMarkFollowsThePin();
    void aRightClickOutsideOfTheTilesOpensIt_data();
    void aRightClickOutsideOfTheTilesOpensIt();
    void aRightClickOnATileOpensTheMenuOfTheTile();
    void theMenuKeyOpensItWithoutATile();
    void theOwnerHearsThatItIsOpen();
    void aMenuMayOutliveTheShelf();

private:
    /// The entries in one line: "-" is a separator, brackets are a disabled entry, a star a check mark.
    [[nodiscard]] QString entries() const
    {
        QStringList entries;
        const auto menu = m_shelf->view.makeMenu();
        for (const QAction* each : menu->actions()) {
            if (each->isSeparator())
                entries.append(QStringLiteral("-"));
            else if (!each->isEnabled())
                entries.append(QStringLiteral("[%1]").arg(each->text()));
            else
                entries.append(each->isChecked() ? each->text() + QLatin1Char('*') : each->text());
        }
        return entries.join(QLatin1Char('|'));
    }
    void choose(const char* title) const
    {
        const auto menu = m_shelf->view.makeMenu();
        for (QAction* each : menu->actions()) {
            if (each->text() == QString::fromUtf8(title)) {
                each->trigger();
                return;
            }
        }
        QFAIL("no such entry");
    }
    static void rightClick(QWidget& widget)
    {
        const QPoint centre = widget.rect().center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, centre, widget.mapToGlobal(centre));
        QApplication::sendEvent(&widget, &event);
    }
    /// The titles of the menu that is open, which is closed.
    [[nodiscard]] static QString takeOpenMenu()
    {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        const QString last = menu ? menu->actions().constLast()->text() : QString();
        if (menu)
            menu->close();
        return last;
    }

    std::unique_ptr<ShelfFixture> m_shelf;
};

void PanelMenuTest::theEntriesStandInTheirOrder()
{
    m_shelf->store.addText(QStringLiteral("a"));
    m_shelf->store.addText(QStringLiteral("b"));
    m_shelf->store.remove(m_shelf->top().id);
    QCOMPARE(entries(),
             QStringLiteral("Undo Remove|Paste|Select All|-|Remove Unpinned Items|-|Keep Shelf Open|Settings…|-|"
                            "Quit Nookle"));
}

void PanelMenuTest::entriesThatCanDoNothingAreDisabled()
{
    QVERIFY(entries().startsWith(QStringLiteral("[Undo Remove]|Paste|[Select All]|-|[Remove Unpinned Items]|")));
    m_shelf->store.addText(QStringLiteral("a"));
    m_shelf->store.togglePinned(m_shelf->top().id);
    QVERIFY(entries().startsWith(QStringLiteral("[Undo Remove]|Paste|Select All|-|[Remove Unpinned Items]|")));
}

void PanelMenuTest::undoRemoveBringsBackWhatWasRemoved()
{
    m_shelf->store.addText(QStringLiteral("a"));
    m_shelf->store.remove(m_shelf->top().id);
    choose("Undo Remove");
    QCOMPARE(m_shelf->store.items().size(), 1);
}

void PanelMenuTest::removeUnpinnedItemsSparesPinnedOnes()
{
    for (const char* each : { "a", "b", "c" })
        m_shelf->store.addText(QString::fromLatin1(each));
    m_shelf->store.togglePinned(m_shelf->store.items().at(1).id);
    choose("Remove Unpinned Items");
    QCOMPARE(m_shelf->store.items().size(), 1);
    QCOMPARE(m_shelf->top().displayName(), QStringLiteral("b"));
    choose("Undo Remove");
    QCOMPARE(m_shelf->store.items().size(), 3);
}

void PanelMenuTest::pasteAddsTheClipboard()
{
    m_shelf->pasteboard.payload.offer("text/uri-list", "file:///somewhere/a.txt\r\n").offer("text/plain", "a.txt");
    choose("Paste");
    m_shelf->queue.runPosted();
    QCOMPARE(m_shelf->store.items().size(), 1);
    QCOMPARE(m_shelf->store.fileURLs().value(m_shelf->top().id), fileUrl("/somewhere/a.txt"));
}

void PanelMenuTest::selectAllSelectsAll()
{
    for (const char* each : { "a", "b", "c" })
        m_shelf->store.addText(QString::fromLatin1(each));
    choose("Select All");
    QCOMPARE(m_shelf->view.itemsTakenWith(m_shelf->top()), m_shelf->store.items());
}

void PanelMenuTest::theOwnerHearsOfTheOtherEntries()
{
    QStringList heard;
    // Before the owner has set anything.
    choose("Settings…");
    m_shelf->view.onTogglePin = [&] { heard.append(QStringLiteral("pin")); };
    m_shelf->view.onShowSettings = [&] { heard.append(QStringLiteral("settings")); };
    m_shelf->view.onQuit = [&] { heard.append(QStringLiteral("quit")); };
    choose("Keep Shelf Open");
    choose("Settings…");
    choose("Quit Nookle");
    QCOMPARE(heard.join(QLatin1Char(' ')), QStringLiteral("pin settings quit"));
}

void PanelMenuTest::theCheckMarkFollowsThePin()
{
    m_shelf->pinning.setPinned(true);
    QVERIFY(entries().contains(QStringLiteral("Keep Shelf Open*")));
    m_shelf->pinning.setPinned(false);
    QVERIFY(!entries().contains(QStringLiteral("Keep Shelf Open*")));
}

void PanelMenuTest::aRightClickOutsideOfTheTilesOpensIt_data()
{
    QTest::addColumn<QString>("place");
    QTest::addColumn<bool>("isEmpty");
    QTest::newRow("the header") << QStringLiteral("nookle::ShelfView") << false;
    QTest::newRow("the pin") << QStringLiteral("nookle::PinButton") << false;
    QTest::newRow("below the tiles") << QStringLiteral("nookle::TileList") << false;
    QTest::newRow("the empty state") << QStringLiteral("nookle::EmptyShelfView") << true;
}

void PanelMenuTest::aRightClickOutsideOfTheTilesOpensIt()
{
    QFETCH(const QString, place);
    QFETCH(const bool, isEmpty);
    if (!isEmpty)
        m_shelf->store.addText(QStringLiteral("a"));
    QWidget* widget = &m_shelf->view;
    for (QWidget* each : m_shelf->view.findChildren<QWidget*>()) {
        if (QLatin1String(each->metaObject()->className()) == place)
            widget = each;
    }
    if (auto* list = qobject_cast<TileList*>(widget))
        widget = list->viewport();
    rightClick(*widget);
    QCOMPARE(takeOpenMenu(), QStringLiteral("Quit Nookle"));
}

void PanelMenuTest::aRightClickOnATileOpensTheMenuOfTheTile()
{
    m_shelf->store.addText(QStringLiteral("a"));
    rightClick(*m_shelf->view.findChild<ItemInteractionView*>());
    QCOMPARE(takeOpenMenu(), QStringLiteral("Remove"));
}

void PanelMenuTest::theMenuKeyOpensItWithoutATile()
{
    m_shelf->store.addText(QStringLiteral("a"));
    m_shelf->view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&m_shelf->view));
    m_shelf->view.beginKeys();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(QApplication::focusWidget(), &event);
    QCOMPARE(takeOpenMenu(), QStringLiteral("Quit Nookle"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QApplication::sendEvent(QApplication::focusWidget(), &event);
    QCOMPARE(takeOpenMenu(), QStringLiteral("Remove"));
}

void PanelMenuTest::theOwnerHearsThatItIsOpen()
{
    QList<bool> heard;
    m_shelf->view.onMenuOpenChanged = [&](bool isOpen) { heard.append(isOpen); };
    rightClick(m_shelf->view);
    QCOMPARE(heard, QList<bool>{ true });
    QCOMPARE(takeOpenMenu(), QStringLiteral("Quit Nookle"));
    QCOMPARE(heard, QList<bool>({ true, false }));
}

void PanelMenuTest::aMenuMayOutliveTheShelf()
{
    rightClick(m_shelf->view);
    m_shelf.reset();
    QCOMPARE(takeOpenMenu(), QStringLiteral("Quit Nookle"));
}

QTEST_MAIN(PanelMenuTest)
#include "PanelMenuTest.moc"
