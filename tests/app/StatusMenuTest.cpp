#include "StatusMenu.h"

#include "FakeUserDefaults.h"
#include "PanelPinning.h"

#include <QAction>
#include <QKeySequence>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace nookle;

class StatusMenuTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theMenuHasItsEntriesInTheirOrder();
    void theEntriesShowTheirKeys();
    void eachEntryDoesItsOwn_data();
    void eachEntryDoesItsOwn();
    void thePinnedShelfIsCheckedAndTheUnpinnedOneIsNot();
    void theMarkFollowsAtOnceForTraysThatNeverAsk();
    void theMarkStaysRightWhenAClickChangesNothing();
    void theKeysWorkWhileTheMenuIsOpen_data();
    void theKeysWorkWhileTheMenuIsOpen();
    void otherKeysMoveThroughTheMenu();

private:
    [[nodiscard]] QAction& entry(const QString& title) const;

    FakeUserDefaults m_defaults;
    std::unique_ptr<PanelPinning> m_pinning;
    std::unique_ptr<StatusMenu> m_menu;
    QStringList m_done;
};

void StatusMenuTest::init()
{
    m_done.clear();
    m_pinning = std::make_unique<PanelPinning>(m_defaults);
    m_pinning->setPinned(false);
    m_menu = std::make_unique<StatusMenu>(*m_pinning);
    m_menu->onTogglePanel = [this] { m_done.append(QStringLiteral("panel")); };
    m_menu->onTogglePinned = [this] {
        m_done.append(QStringLiteral("pinned"));
        m_pinning->setPinned(!m_pinning->isPinned());
    };
    m_menu->onShowSettings = [this] { m_done.append(QStringLiteral("settings")); };
    m_menu->onQuit = [this] { m_done.append(QStringLiteral("quit")); };
}

void StatusMenuTest::cleanup()
{
    m_menu.reset();
    m_pinning.reset();
}

QAction& StatusMenuTest::entry(const QString& title) const
{
    const QList<QAction*> actions = m_menu->actions();
    return **std::find_if(actions.begin(), actions.end(),
                          [&title](const QAction* action) { return action->text() == title; });
}

void StatusMenuTest::theMenuHasItsEntriesInTheirOrder()
{
    QStringList titles;
    for (const QAction* action : m_menu->actions())
        titles.append(action->isSeparator() ? QStringLiteral("-") : action->text());
    const QStringList expected{ QStringLiteral("Show Shelf"), QStringLiteral("Keep Shelf Open"),
                                QStringLiteral("-"),          QStringLiteral("Settings…"),
                                QStringLiteral("-"),          QStringLiteral("Quit Nookle") };
    QCOMPARE(titles, expected);
}

void StatusMenuTest::theEntriesShowTheirKeys()
{
    QCOMPARE(entry(QStringLiteral("Show Shelf")).shortcut(), QKeySequence(QStringLiteral("Ctrl+Alt+Meta+D")));
    QVERIFY(entry(QStringLiteral("Keep Shelf Open")).shortcut().isEmpty());
    QCOMPARE(entry(QStringLiteral("Settings…")).shortcut(), QKeySequence(QStringLiteral("Ctrl+,")));
    QCOMPARE(entry(QStringLiteral("Quit Nookle")).shortcut(), QKeySequence(QStringLiteral("Ctrl+Q")));
}

void StatusMenuTest::eachEntryDoesItsOwn_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("done");
    QTest::newRow("show") << QStringLiteral("Show Shelf") << QStringLiteral("panel");
    QTest::newRow("keep") << QStringLiteral("Keep Shelf Open") << QStringLiteral("pinned");
    QTest::newRow("settings") << QStringLiteral("Settings…") << QStringLiteral("settings");
    QTest::newRow("quit") << QStringLiteral("Quit Nookle") << QStringLiteral("quit");
}

void StatusMenuTest::eachEntryDoesItsOwn()
{
    QFETCH(const QString, title);
    QFETCH(const QString, done);
    entry(title).trigger();
    QCOMPARE(m_done, QStringList{ done });
}

void StatusMenuTest::thePinnedShelfIsCheckedAndTheUnpinnedOneIsNot()
{
    m_pinning->setPinned(true);
    m_menu->popup({});
    QVERIFY(entry(QStringLiteral("Keep Shelf Open")).isChecked());
    m_menu->close();
    m_pinning->setPinned(false);
    m_menu->popup({});
    QVERIFY(!entry(QStringLiteral("Keep Shelf Open")).isChecked());
}

void StatusMenuTest::theMarkFollowsAtOnceForTraysThatNeverAsk()
{
    m_pinning->setPinned(true);
    QVERIFY(entry(QStringLiteral("Keep Shelf Open")).isChecked());
    m_pinning->setPinned(false);
    QVERIFY(!entry(QStringLiteral("Keep Shelf Open")).isChecked());
    entry(QStringLiteral("Keep Shelf Open")).trigger();
    QVERIFY(entry(QStringLiteral("Keep Shelf Open")).isChecked());
}

void StatusMenuTest::theMarkStaysRightWhenAClickChangesNothing()
{
    m_menu->onTogglePinned = [] {};
    entry(QStringLiteral("Keep Shelf Open")).trigger();
    QVERIFY(!entry(QStringLiteral("Keep Shelf Open")).isChecked());
}

void StatusMenuTest::theKeysWorkWhileTheMenuIsOpen_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("done");
    const int shelf = int(Qt::ControlModifier) | int(Qt::AltModifier) | int(Qt::MetaModifier);
    QTest::newRow("shelf") << int(Qt::Key_D) << shelf << QStringLiteral("panel");
    QTest::newRow("settings") << int(Qt::Key_Comma) << int(Qt::ControlModifier) << QStringLiteral("settings");
    QTest::newRow("quit") << int(Qt::Key_Q) << int(Qt::ControlModifier) << QStringLiteral("quit");
}

void StatusMenuTest::theKeysWorkWhileTheMenuIsOpen()
{
    QFETCH(const int, key);
    QFETCH(const int, modifiers);
    QFETCH(const QString, done);
    m_menu->popup({});
    QTest::keyClick(m_menu.get(), static_cast<Qt::Key>(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(m_done, QStringList{ done });
    QVERIFY(!m_menu->isVisible());
}

void StatusMenuTest::otherKeysMoveThroughTheMenu()
{
    m_menu->popup({});
    QTest::keyClick(m_menu.get(), Qt::Key_D);
    QTest::keyClick(m_menu.get(), Qt::Key_Down);
    QVERIFY(m_done.isEmpty());
    QCOMPARE(m_menu->activeAction(), &entry(QStringLiteral("Show Shelf")));
    QTest::keyClick(m_menu.get(), Qt::Key_Return);
    QCOMPARE(m_done, QStringList{ QStringLiteral("panel") });
}

QTEST_MAIN(StatusMenuTest)
#include "StatusMenuTest.moc"
