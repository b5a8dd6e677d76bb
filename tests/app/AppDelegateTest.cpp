#include "AppFixture.h"
#include "ImageCopy.h"
#include "ShelfView.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <chrono>
#include <filesystem>

using namespace nookle;

class AppDelegateTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_app.reset(); }

    void everythingStartsInItsOrder();
    void anUnpinnedShelfStaysHiddenAtTheStart();
    void nothingExpiresWhileTheUserWantsItNotTo();
    void theEndSavesWhatWasStillWaiting();
    void theEndCopiesBackWhatAReceiverHasMoved();
    void whatACrashLeftIsClearedAwayAtTheStart();

    void whatAProgramAddsShowsTheShelfForAMoment();
    void aProgramThatAddsNothingIsToldAndNothingShows();
    void aScreenshotShowsTheShelfForAMoment_data();
    void aScreenshotShowsTheShelfForAMoment();
    void aScreenshotIsIgnoredOnceTheUserWantsNone();
    void theFolderOfScreenshotsIsWatchedWhileTheUserWantsIt();
    void aPinnedShelfStaysAfterItsMoment();
    void aDragAtTheEdgeShowsTheShelf_data();
    void aDragAtTheEdgeShowsTheShelf();
    void theShortcutShowsAndHides();
    void theSettingsNameTheKeysOfTheShortcut();
    void theMenuShowsTheKeysThatAreBoundOrElseThoseWanted();
    void keysThatAreBoundAtOnceAreInTheMenu();
    void theShortcutWithShiftTakesTheFocus();
    void theActionOnTheBusShowsAndHides();
    void aSecondStartShowsTheShelf();

    void aSecondStartGetsNoIntroduction();
    void whatIsAddedAtTheFirstStartNeedsNoIntroduction_data();
    void whatIsAddedAtTheFirstStartNeedsNoIntroduction();
    void theFirstStartFromTheDesktopIntroducesTheShelfOnce();
    void theIntroductionIsOverAfterTenSeconds();
    void theIntroductionIsOverWhenThePointerHasBeenThere();
    void aRequestForTheFocusShowsTheShelf();
    void theShelfsOwnMenuOpensTheSettings();
    void showShelfInTheTrayShowsAndHides();
    void pinningFromTheTrayShowsTheShelf();
    void unpinningFromTheTrayLeavesTheShelfWhereItIs();
    void unpinningFromTheTrayLeavesAHiddenShelfHidden();
    void theDiagnosticsGoToTheClipboard();
    void whatIsSelectedIsAddedOnceItsOwnerHasAnswered();
    void anEmptySelectionIsToldOf();
    void aSelectionThatCannotBeReadIsToldOf();
    void aCopyThatFailedIsToldOf();

private:
    /// A shelf of two days ago: an image below a file that is pinned.
    void makeOldShelf() const;
    /// Adds a screenshot, and lets the program find it.
    void takeScreenshot(const QString& name) const;
    /// Chooses an entry of the tray's menu.
    static void choose(const QString& title);
    static void clickSetting(const QString& title);
    [[nodiscard]] QString itemFolder(const QUuid& id) const
    {
        return m_app->directory.filePath(
            QStringLiteral("data/Files/%1").arg(id.toString(QUuid::WithoutBraces).toUpper()));
    }

    std::unique_ptr<AppFixture> m_app;
};

namespace {

template <typename Widget> [[nodiscard]] Widget* topLevel()
{
    Widget* found = nullptr;
    for (QWidget* each : QApplication::topLevelWidgets()) {
        if (auto* widget = qobject_cast<Widget*>(each))
            found = widget;
    }
    return found;
}

} // namespace

void AppDelegateTest::init()
{
    m_app = std::make_unique<AppFixture>();
    m_app->folders.addFolder(m_app->screenshotFolder());
}

void AppDelegateTest::makeOldShelf() const
{
    ShelfStore::Environment environment;
    environment.now = [] { return QDateTime::currentDateTimeUtc().addDays(-2); };
    AppFixture& app = *m_app;
    ShelfStore store(app.dataFolder(), environment, app.references, app.trash, app.linkMetadata, app.queue);
    store.addImage(app.makeFile(QStringLiteral("old.png")));
    store.addFiles({ fileUrl("/somewhere/notes.txt") });
    store.togglePinned(store.items().constFirst().id);
    store.saveNow();
}

void AppDelegateTest::takeScreenshot(const QString& name) const
{
    m_app->screenshotSettings.marked.insert(m_app->makeFile(name));
    m_app->folders.addEntry(m_app->screenshotFolder(), name.toUtf8());
    m_app->queue.advance(0.3);
}

void AppDelegateTest::choose(const QString& title)
{
    const auto* menu = topLevel<StatusMenu>();
    QVERIFY(menu);
    const QList<QAction*> entries = menu->actions();
    const auto entry =
        std::find_if(entries.begin(), entries.end(), [&](const QAction* each) { return each->text() == title; });
    QVERIFY(entry != entries.end());
    (*entry)->trigger();
}

void AppDelegateTest::clickSetting(const QString& title)
{
    choose(QStringLiteral("Settings…"));
    const auto* window = topLevel<QDialog>();
    QVERIFY(window);
    const auto toggles = window->findChildren<QCheckBox*>();
    const auto toggle =
        std::find_if(toggles.begin(), toggles.end(), [&](const QCheckBox* each) { return each->text() == title; });
    QVERIFY(toggle != toggles.end());
    (*toggle)->click();
}

void AppDelegateTest::everythingStartsInItsOrder()
{
    makeOldShelf();
    m_app->defaults.stored.insert(QStringLiteral("panelPinned"), true);
    m_app->defaults.stored.insert(QStringLiteral("collectScreenshots"), true);
    m_app->start();
    const QStringList expected{
        QStringLiteral("resolve files"),
        QStringLiteral("make the panel"),
        QStringLiteral("read panelPinned"),
        QStringLiteral("look for a tray"),
        QStringLiteral("watch the mouse"),
        QStringLiteral("watch the folder of screenshots"),
        // The watch looks whether its folder is in place.
        QStringLiteral("run every 60 s"),
        // The sweep comes before its timer.
        QStringLiteral("trash old.png"),
        QStringLiteral("run every 60 s"),
        QStringLiteral("take requests"),
        QStringLiteral("register a shortcut"),
        QStringLiteral("register a shortcut"),
        QStringLiteral("resolve files"),
        QStringLiteral("show the panel"),
    };
    QCOMPARE(m_app->journal.join(QLatin1Char('\n')), expected.join(QLatin1Char('\n')));
    // The window of the settings is made when it is asked for.
    QVERIFY(!topLevel<QDialog>());
}

void AppDelegateTest::anUnpinnedShelfStaysHiddenAtTheStart()
{
    m_app->start();
    m_app->queue.advance(1);
    QVERIFY(!m_app->journal.contains(QStringLiteral("show the panel")));
    QVERIFY(m_app->journal.contains(QStringLiteral("register a shortcut")));
}

void AppDelegateTest::nothingExpiresWhileTheUserWantsItNotTo()
{
    makeOldShelf();
    m_app->defaults.stored.insert(QStringLiteral("expiry"), qint64{ 0 });
    m_app->start();
    m_app->queue.advance(120);
    m_app->delegate->applicationWillTerminate();
    QCOMPARE(m_app->saved().size(), 2);
}

void AppDelegateTest::theEndSavesWhatWasStillWaiting()
{
    m_app->start();
    QVERIFY(!m_app->requests.onAdd({ {}, { QStringLiteral("milk") } }));
    QVERIFY(m_app->saved().isEmpty());
    m_app->delegate->applicationWillTerminate();
    QCOMPARE(m_app->saved().size(), 1);
}

void AppDelegateTest::theEndCopiesBackWhatAReceiverHasMoved()
{
    m_app->defaults.stored.insert(QStringLiteral("collectScreenshots"), true);
    m_app->defaults.stored.insert(QStringLiteral("moveScreenshots"), true);
    m_app->start();
    takeScreenshot(QStringLiteral("shot.png"));
    m_app->queue.advance(2);
    const ShelfItem item = m_app->saved().constFirst();
    const QString image = itemFolder(item.id) + QStringLiteral("/shot.png");
    const auto widgets = QApplication::allWidgets();
    const auto view =
        std::find_if(widgets.begin(), widgets.end(), [](QWidget* each) { return qobject_cast<ShelfView*>(each); });
    QVERIFY(view != widgets.end());
    const ItemInteraction tile = qobject_cast<ShelfView*>(*view)->interaction(item);
    QVERIFY(tile.dragItem());
    tile.onDragEnded(DragOperation::copy);
    QVERIFY(QFile::rename(image, m_app->directory.filePath(QStringLiteral("moved.png"))));
    m_app->delegate->applicationWillTerminate();
    QVERIFY(QFile::exists(image));
}

void AppDelegateTest::whatACrashLeftIsClearedAwayAtTheStart()
{
    makeOldShelf();
    const QString orphan = itemFolder(QUuid::createUuid());
    const QString copy = QDir::temp().filePath(QString::fromLatin1(imageCopyFolder(QUuid::createUuid())));
    for (const QString& folder : { orphan, copy }) {
        QVERIFY(QDir().mkpath(folder));
        QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        QFile file(folder + QStringLiteral("/lost.png"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        const std::filesystem::path path = folder.toStdString();
        std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) - std::chrono::hours(48));
    }
    m_app->start();
    QVERIFY(m_app->journal.contains(QStringLiteral("trash lost.png")));
    QVERIFY(!QFile::exists(copy));
    QDir(copy).removeRecursively();
}

void AppDelegateTest::whatAProgramAddsShowsTheShelfForAMoment()
{
    m_app->start();
    QVERIFY(!m_app->requests.onAdd({ {}, { QStringLiteral("milk") } }));
    m_app->queue.runPosted();
    QVERIFY(m_app->isShown());
    m_app->queue.advance(1.499);
    QVERIFY(m_app->isShown());
    m_app->queue.advance(0.001);
    QVERIFY(!m_app->isShown());
}

void AppDelegateTest::aProgramThatAddsNothingIsToldAndNothingShows()
{
    m_app->start();
    const auto failure = m_app->requests.onAdd({});
    QVERIFY(failure);
    QCOMPARE(failure->description, QStringLiteral("Nothing found that can be added to the shelf."));
    QCOMPARE(m_app->notifier.told, QStringList{ failure->description });
    m_app->queue.advance(1);
    QVERIFY(!m_app->isShown());
}

void AppDelegateTest::aScreenshotShowsTheShelfForAMoment_data()
{
    QTest::addColumn<bool>("isMoved");
    QTest::newRow("left where it is") << false;
    QTest::newRow("taken over") << true;
}

void AppDelegateTest::aScreenshotShowsTheShelfForAMoment()
{
    QFETCH(const bool, isMoved);
    m_app->defaults.stored.insert(QStringLiteral("collectScreenshots"), true);
    m_app->defaults.stored.insert(QStringLiteral("moveScreenshots"), isMoved);
    m_app->start();
    takeScreenshot(QStringLiteral("shot.png"));
    QVERIFY(m_app->isShown());
    m_app->queue.advance(1.499);
    QVERIFY(m_app->isShown());
    m_app->queue.advance(0.001);
    QVERIFY(!m_app->isShown());

    QCOMPARE(m_app->saved().size(), 1);
    QCOMPARE(std::holds_alternative<ImageContent>(m_app->saved().constFirst().content), isMoved);
    QCOMPARE(QFile::exists(m_app->directory.filePath(QStringLiteral("shot.png"))), !isMoved);
}

void AppDelegateTest::aScreenshotIsIgnoredOnceTheUserWantsNone()
{
    m_app->defaults.stored.insert(QStringLiteral("collectScreenshots"), true);
    m_app->start();
    const QUrl file = m_app->makeFile(QStringLiteral("shot.png"));
    m_app->screenshotSettings.marked.insert(file);
    m_app->folders.addEntry(m_app->screenshotFolder(), "shot.png");
    // The look at the folder is due already.
    clickSetting(QStringLiteral("Add new screenshots to the shelf"));
    m_app->queue.advance(1);
    QVERIFY(m_app->screenshotSettings.asked.contains(file));
    QVERIFY(!m_app->isShown());
    m_app->delegate->applicationWillTerminate();
    QVERIFY(m_app->saved().isEmpty());
}

void AppDelegateTest::theFolderOfScreenshotsIsWatchedWhileTheUserWantsIt()
{
    // Otherwise the open settings wait for it.
    QVERIFY(QDir().mkpath(QFile::decodeName(filePath(m_app->dataFolder()))));
    m_app->start();
    QCOMPARE(m_app->folders.subscriptions(), std::size_t{ 0 });
    for (int round = 0; round < 3; ++round) {
        clickSetting(QStringLiteral("Add new screenshots to the shelf"));
        m_app->queue.runPosted();
        QCOMPARE(m_app->folders.subscriptions(), std::size_t{ 1 });
        clickSetting(QStringLiteral("Add new screenshots to the shelf"));
        m_app->queue.runPosted();
        QCOMPARE(m_app->folders.subscriptions(), std::size_t{ 0 });
    }
}

void AppDelegateTest::aPinnedShelfStaysAfterItsMoment()
{
    m_app->defaults.stored.insert(QStringLiteral("panelPinned"), true);
    m_app->start();
    QVERIFY(!m_app->requests.onAdd({ {}, { QStringLiteral("milk") } }));
    m_app->queue.advance(4);
    QVERIFY(m_app->isShown());
}

void AppDelegateTest::aDragAtTheEdgeShowsTheShelf_data()
{
    QTest::addColumn<bool>("isWanted");
    QTest::newRow("wanted") << true;
    QTest::newRow("not wanted") << false;
}

void AppDelegateTest::aDragAtTheEdgeShowsTheShelf()
{
    QFETCH(const bool, isWanted);
    m_app->defaults.stored.insert(QStringLiteral("autoExpandOnDrag"), isWanted);
    m_app->start();
    QCOMPARE(m_app->desktop.input.isWatched(), isWanted);
    m_app->desktop.mouse.leftButtonDown = true;
    m_app->desktop.input.press();
    ++m_app->desktop.input.changeCount;
    m_app->desktop.mouse.at = { 1279, 400 };
    m_app->desktop.input.drag();
    QCOMPARE(m_app->isShown(), isWanted);
    m_app->desktop.mouse.at = { 100, 100 };
    m_app->queue.advance(4);
    QCOMPARE(m_app->isShown(), isWanted);
}

void AppDelegateTest::theShortcutShowsAndHides()
{
    m_app->start();
    QCOMPARE(m_app->desktop.shortcuts.registered.size(), std::size_t{ 2 });
    const auto& shortcut = m_app->desktop.shortcuts.registered.at(1);
    QCOMPARE(shortcut.keys, Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier | Qt::Key_D);
    shortcut.pressed();
    QVERIFY(m_app->isShown());
    m_app->queue.advance(4);
    QVERIFY(m_app->isShown());
    shortcut.pressed();
    QVERIFY(!m_app->isShown());
}

void AppDelegateTest::theSettingsNameTheKeysOfTheShortcut()
{
    m_app->defaults.stored.insert(QStringLiteral("shortcut"), QStringLiteral("Super+F5"));
    m_app->start();
    QCOMPARE(m_app->desktop.shortcuts.registered.at(1).keys, QKeyCombination(Qt::MetaModifier, Qt::Key_F5));
}

void AppDelegateTest::theMenuShowsTheKeysThatAreBoundOrElseThoseWanted()
{
    FakeGlobalShortcuts& shortcuts = m_app->desktop.shortcuts;
    m_app->start();
    const auto* menu = topLevel<StatusMenu>();
    QVERIFY(menu);
    const QAction* entry = menu->actions().constFirst();
    const QKeySequence wanted(Qt::CTRL | Qt::ALT | Qt::META | Qt::Key_D);
    QCOMPARE(entry->shortcut(), wanted);
    for (const auto key : { Qt::Key_F5, Qt::Key_F6 }) {
        shortcuts.combination = QKeyCombination(Qt::MetaModifier, key);
        Q_EMIT shortcuts.changed();
        QCOMPARE(entry->shortcut(), QKeySequence(QKeyCombination(Qt::MetaModifier, key)));
    }
    shortcuts.combination.reset();
    Q_EMIT shortcuts.changed();
    QCOMPARE(entry->shortcut(), wanted);
}

void AppDelegateTest::keysThatAreBoundAtOnceAreInTheMenu()
{
    m_app->desktop.shortcuts.combination = QKeyCombination(Qt::MetaModifier, Qt::Key_F5);
    m_app->start();
    const auto* menu = topLevel<StatusMenu>();
    QVERIFY(menu);
    QCOMPARE(menu->actions().constFirst()->shortcut(), QKeySequence(Qt::META | Qt::Key_F5));
}

void AppDelegateTest::theShortcutWithShiftTakesTheFocus()
{
    m_app->start();
    m_app->desktop.shortcuts.registered.at(2).pressed();
    QVERIFY(m_app->isShown());
    QCOMPARE(m_app->desktop.window->focusRequests, 1);
}

void AppDelegateTest::theActionOnTheBusShowsAndHides()
{
    m_app->start();
    m_app->requests.onToggle();
    QVERIFY(m_app->isShown());
    m_app->queue.advance(4);
    QVERIFY(m_app->isShown());
    m_app->requests.onToggle();
    QVERIFY(!m_app->isShown());
}

void AppDelegateTest::aSecondStartShowsTheShelf()
{
    m_app->start();
    m_app->requests.onActivate();
    QVERIFY(m_app->isShown());
}

void AppDelegateTest::aSecondStartGetsNoIntroduction()
{
    m_app->start();
    m_app->requests.onActivate();
    m_app->queue.advance(60);
    QVERIFY(m_app->isShown());
    QVERIFY(!m_app->defaults.stored.contains(QStringLiteral("introduced")));
}

void AppDelegateTest::whatIsAddedAtTheFirstStartNeedsNoIntroduction_data()
{
    QTest::addColumn<bool>("isActivatedAfterwards");
    QTest::newRow("added") << false;
    QTest::newRow("added, then shown") << true;
}

void AppDelegateTest::whatIsAddedAtTheFirstStartNeedsNoIntroduction()
{
    QFETCH(const bool, isActivatedAfterwards);
    m_app->start(AppDelegate::Introduction::wanted);
    m_app->requests.onOpen({ QStringLiteral("https://example.org/") });
    if (isActivatedAfterwards)
        m_app->requests.onActivate();
    m_app->queue.runPosted();
    QVERIFY(m_app->isShown());
    QVERIFY(!m_app->defaults.stored.contains(QStringLiteral("introduced")));
}

void AppDelegateTest::theFirstStartFromTheDesktopIntroducesTheShelfOnce()
{
    m_app->start(AppDelegate::Introduction::wanted);
    QVERIFY(!m_app->isShown());
    m_app->requests.onActivate();
    QVERIFY(m_app->isShown());
    QCOMPARE(m_app->defaults.stored.value(QStringLiteral("introduced")), QVariant(true));
    m_app->queue.advance(10);
    QVERIFY(!m_app->isShown());
    m_app->requests.onActivate();
    m_app->queue.advance(60);
    QVERIFY(m_app->isShown());
}

void AppDelegateTest::theIntroductionIsOverAfterTenSeconds()
{
    m_app->start(AppDelegate::Introduction::wanted);
    m_app->delegate->showShelf();
    QVERIFY(m_app->isShown());
    m_app->queue.advance(9.9);
    QVERIFY(m_app->isShown());
    m_app->queue.advance(0.1);
    QVERIFY(!m_app->isShown());
    QVERIFY(m_app->defaults.stored.contains(QStringLiteral("introduced")));
}

void AppDelegateTest::theIntroductionIsOverWhenThePointerHasBeenThere()
{
    m_app->start(AppDelegate::Introduction::wanted);
    m_app->delegate->showShelf();
    m_app->queue.advance(1);
    m_app->desktop.window->onMouseEntered();
    m_app->queue.advance(60);
    QVERIFY(m_app->isShown());
    m_app->desktop.window->onMouseExited();
    m_app->queue.advance(0.5);
    QVERIFY(!m_app->isShown());
}

void AppDelegateTest::aRequestForTheFocusShowsTheShelf()
{
    m_app->start();
    m_app->requests.onFocus();
    QVERIFY(m_app->isShown());
    QCOMPARE(m_app->desktop.window->focusRequests, 1);
    m_app->queue.advance(20);
    QVERIFY(m_app->isShown());
}

void AppDelegateTest::theShelfsOwnMenuOpensTheSettings()
{
    m_app->start();
    auto* view = topLevel<PanelContentView>()->findChild<ShelfView*>();
    view->onShowSettings();
    QVERIFY(topLevel<QDialog>());
    QVERIFY(topLevel<QDialog>()->isVisible());
}

void AppDelegateTest::showShelfInTheTrayShowsAndHides()
{
    m_app->start();
    choose(QStringLiteral("Show Shelf"));
    QVERIFY(m_app->isShown());
    choose(QStringLiteral("Show Shelf"));
    QVERIFY(!m_app->isShown());
}

void AppDelegateTest::pinningFromTheTrayShowsTheShelf()
{
    m_app->start();
    choose(QStringLiteral("Keep Shelf Open"));
    QVERIFY(m_app->isShown());
    QCOMPARE(m_app->defaults.stored.value(QStringLiteral("panelPinned")), QVariant(true));
    m_app->queue.advance(4);
    QVERIFY(m_app->isShown());
}

void AppDelegateTest::unpinningFromTheTrayLeavesTheShelfWhereItIs()
{
    m_app->defaults.stored.insert(QStringLiteral("panelPinned"), true);
    m_app->start();
    m_app->queue.advance(1);
    choose(QStringLiteral("Keep Shelf Open"));
    QCOMPARE(m_app->defaults.stored.value(QStringLiteral("panelPinned")), QVariant(false));
    QVERIFY(m_app->isShown());
    // It goes as it would without the menu.
    m_app->queue.advance(0.499);
    QVERIFY(m_app->isShown());
    m_app->queue.advance(0.001);
    QVERIFY(!m_app->isShown());
}

void AppDelegateTest::unpinningFromTheTrayLeavesAHiddenShelfHidden()
{
    m_app->defaults.stored.insert(QStringLiteral("panelPinned"), true);
    m_app->start();
    choose(QStringLiteral("Show Shelf"));
    QVERIFY(!m_app->isShown());
    choose(QStringLiteral("Keep Shelf Open"));
    m_app->queue.advance(1);
    QVERIFY(!m_app->isShown());
    QCOMPARE(m_app->desktop.window->animations.size(), 2);
}

void AppDelegateTest::theDiagnosticsGoToTheClipboard()
{
    m_app->start();
    choose(QStringLiteral("Settings…"));
    topLevel<QDialog>()->findChildren<QPushButton*>().last()->click();
    QCOMPARE(m_app->pasteboard.operations, QStringList{ QStringLiteral("text all there is to know") });
}

void AppDelegateTest::whatIsSelectedIsAddedOnceItsOwnerHasAnswered()
{
    m_app->start();
    m_app->pasteboard.delay = 2;
    m_app->pasteboard.selected.offer("text/plain", "selected");
    m_app->requests.onAddSelection();
    m_app->queue.advance(3.9);
    QVERIFY(!m_app->isShown());
    m_app->queue.advance(0.6);
    QVERIFY(m_app->isShown());
    QCOMPARE(m_app->saved().size(), 1);
    QCOMPARE(m_app->saved().first().displayName(), QStringLiteral("selected"));
}

void AppDelegateTest::anEmptySelectionIsToldOf()
{
    m_app->start();
    m_app->requests.onAddSelection();
    m_app->queue.advance(1);
    QVERIFY(!m_app->isShown());
    QCOMPARE(m_app->notifier.told, QStringList{ QStringLiteral("Nothing found that can be added to the shelf.") });
}

void AppDelegateTest::aSelectionThatCannotBeReadIsToldOf()
{
    m_app->start();
    m_app->pasteboard.selected.offer("text/plain", "selected");
    m_app->pasteboard.obstacle = QStringLiteral("Forbidden.");
    m_app->requests.onAddSelection();
    m_app->queue.advance(1);
    QVERIFY(!m_app->isShown());
    QCOMPARE(m_app->notifier.told, QStringList{ QStringLiteral("Forbidden.") });
}

void AppDelegateTest::aCopyThatFailedIsToldOf()
{
    m_app->start();
    m_app->pasteboard.onFailed(QStringLiteral("Not copied."));
    QCOMPARE(m_app->notifier.told, QStringList{ QStringLiteral("Not copied.") });
}

QTEST_MAIN(AppDelegateTest)
#include "AppDelegateTest.moc"
