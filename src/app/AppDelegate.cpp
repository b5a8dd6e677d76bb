#include "AppDelegate.h"

#include "Accessibility.h"
#include "DesktopBackend.h"
#include "FileReferences.h"
#include "LeftImageCopies.h"
#include "Log.h"
#include "Notifier.h"
#include "PanelBackground.h"
#include "Pasteboard.h"
#include "ProgramRequests.h"
#include "SelectionReading.h"
#include "Trash.h"
#include "UserDefaults.h"
#include "Workspace.h"

#include <QApplication>
#include <QDateTime>
#include <QPointer>

#include <utility>

namespace nookle {

namespace {

inline constexpr double momentOfShowing = 1.5;
inline constexpr double timeOfIntroduction = 10;

void closeMenus()
{
    while (QWidget* popup = QApplication::activePopupWidget()) {
        if (!popup->close())
            return;
    }
}

/// In seconds. Gives the other programs that start with the session time to finish their start.
inline constexpr double preparationDelay = 1;

// Not quit(), which asks every window first: the panel refuses to be closed.
void quit()
{
    QCoreApplication::exit();
}

} // namespace

AppDelegate::AppDelegate(const Platform& platform, const QUrl& dataFolder,
                         std::function<std::optional<Failure>()> claimFolder, Introduction introduction)
    : m_platform(platform)
    , m_dataFolder(dataFolder)
    , m_claimFolder(std::move(claimFolder))
    , m_introduction(introduction)
    , m_settings(platform.defaults)
    , m_selection([this] { return m_platform.pasteboard.selection(); },
                  [](const DropPayload& payload) { static_cast<void>(readSelection(payload)); },
                  [this](const DropPayload& payload) { addToShelf(readSelection(payload)); })
    , m_dragEdgeMonitor(platform.desktop.inputMonitor(), platform.desktop.pointer(), platform.desktop.displays())
    , m_screenshotWatcher(platform.folders, platform.screenshotSettings, platform.queue)
{
}

AppDelegate::~AppDelegate()
{
    // The window outlives the controller, and loses the focus with its end; what was in use in it is so no more.
    if (m_panelContent)
        m_panelContent->onFocusChanged = [](bool) {};
    if (m_shelfView)
        m_shelfView->onMenuOpenChanged = nullptr;
}

void AppDelegate::applicationDidFinishLaunching()
{
    createPanel();
    m_settingsWindow = std::make_unique<SettingsWindowController>(
        m_settings, m_platform.loginItem, m_platform.desktop.globalShortcuts(),
        SettingsView::Abilities{ .canReserveSpace = m_platform.desktop.canReserveSpace() },
        [this] { return m_screenshotWatcher.screenshotDirectory(); },
        DataFolderRow::Folder{ m_dataFolder, [this](const QUrl& folder) { m_platform.workspace.open(folder); },
                               m_platform.folders },
        [this] { m_platform.pasteboard.writeText(m_platform.diagnostics()); });
    setUpStatusItem();
    startEdgeMonitor();
    startScreenshotCollection();
    m_expirySweep = std::make_unique<ExpirySweep>(m_settings, *m_store, m_platform.queue);
    provideServices();
    createShortcuts();
    m_store->removeOrphans();
    removeLeftImageCopies(QDateTime::currentDateTimeUtc().addDays(-1));
    if (m_panelController->pinning().isPinned())
        m_panelController->show();
}

void AppDelegate::createPanel()
{
    ShelfStore::Environment environment;
    environment.now = [] { return QDateTime::currentDateTimeUtc(); };
    environment.moveToTrash = [this](const QUrl& file) { return m_platform.trash.moveToTrash(file); };
    environment.putBack = [this](const QUrl& file) { return m_platform.trash.putBack(file); };
    environment.fetchesLinkMetadata = true;
    environment.claimFolder = m_claimFolder;
    m_store = std::make_unique<ShelfStore>(m_dataFolder, std::move(environment), m_platform.fileReferences,
                                           m_platform.trash, m_platform.linkMetadata, m_platform.queue);
    connect(m_store.get(), &ShelfStore::additionFailed, this, &AppDelegate::additionFailed);
    // Who has added something knows how.
    connect(m_store.get(), &ShelfStore::itemsChanged, this, [this] { m_introduction = Introduction::none; });
    m_platform.fileReferences.onFilesFound = [this] { m_store->refreshFiles(); };

    installAccessibility();
    m_panelContent = std::make_unique<PanelContentView>();
    m_panelWindow = m_platform.desktop.makePanelWindow(m_panelContent->panelWindow(), panelCornerRadius);
    m_panelWindow->onContentMoved = [this](double offset) { m_panelContent->setContentOffset(offset); };
    m_panelController =
        std::make_unique<PanelController>(*m_store, m_platform.defaults, *m_panelWindow, m_platform.desktop.pointer(),
                                          m_platform.desktop.displays(), m_platform.queue);
    m_panelController->onTakeFocus = [this] {
        m_shelfView->beginKeys();
        m_panelWindow->takeFocus();
    };
    m_panelController->onShownChanged = [this](bool isShown) { m_panelContent->setTakesKeys(isShown); };
    m_panelContent->onFocusChanged = [this](bool hasFocus) { m_panelController->focusChanged(hasFocus); };
    const auto followReservation = [this] { m_panelController->setReservesSpace(m_settings.reservesSpace()); };
    connect(&m_settings, &AppSettings::reservesSpaceChanged, this, followReservation);
    followReservation();
    m_platform.desktop.onDisplaysChanged = [this] { m_panelController->displaysChanged(); };
    m_platform.desktop.onServerGone = [this] {
        logLine(QStringLiteral("the compositor is gone, and the program ends with it"));
        applicationWillTerminate();
    };
    m_platform.pasteboard.onFailed = [this](const QString& reason) { m_platform.notifier.notify(reason); };
    createShelfView();
}

void AppDelegate::createShelfView()
{
    auto view = std::make_unique<ShelfView>(ShelfView::Services{
        .store = *m_store,
        .pinning = m_panelController->pinning(),
        .workspace = m_platform.workspace,
        .pasteboard = m_platform.pasteboard,
        .trash = m_platform.trash,
        .references = m_platform.fileReferences,
        .transfers = m_platform.fileTransfers,
        .thumbnails = m_platform.thumbnails,
        .compositing = m_platform.desktop.compositing(),
        .queue = m_platform.queue,
        .readDrop = [this](const QMimeData& data) { return m_platform.desktop.dropPayload(data); },
        .runDrag =
            [this](QWidget& source, const DragItem& item) {
                m_platform.desktop.offerDrag(item.payload);
                const DragOperation outcome = runDragSession(source, item);
                m_platform.desktop.dragHasEnded();
                return outcome;
            },
    });
    view->onTogglePin = [this] { m_panelController->togglePinned(); };
    view->onDropTargetChanged = [this](bool isDropTarget) { m_panelController->dropTargetChanged(isDropTarget); };
    view->onMenuOpenChanged = [this](bool isOpen) { m_panelController->menuOpenChanged(isOpen); };
    view->onDragOutBegan = [this] { m_panelController->beginDragOut(); };
    view->onDragOutEnded = [this] { m_panelController->endDragOut(); };
    view->onShowSettings = [this] { m_settingsWindow->show(); };
    view->onQuit = quit;
    view->onHide = [this] { m_panelController->hide(); };
    m_panelController->onCloseMenus = &closeMenus;
    m_preparation = m_platform.queue.after(preparationDelay, [this] {
        if (m_shelfView)
            m_shelfView->prepare();
    });
    m_shelfView = view.get();
    m_panelContent->setContent(view.release());
}

void AppDelegate::setUpStatusItem()
{
    m_statusMenu = std::make_unique<StatusMenu>(m_panelController->pinning());
    m_statusMenu->onTogglePanel = [this] { togglePanel(); };
    m_statusMenu->onTogglePinned = [this] { togglePinned(); };
    m_statusMenu->onShowSettings = [this] { m_settingsWindow->show(); };
    m_statusMenu->onQuit = quit;
    m_statusItem = std::make_unique<StatusItem>(*m_statusMenu, m_platform.notifierTray,
                                                m_platform.desktop.embeddingTray(), m_platform.queue);
}

void AppDelegate::startEdgeMonitor()
{
    m_dragEdgeMonitor.onEdgeReached = [this] {
        if (m_settings.autoExpandOnDrag())
            m_panelController->showForIncomingDrag();
    };
    connect(&m_settings, &AppSettings::autoExpandOnDragChanged, this, &AppDelegate::watchTheEdge);
    watchTheEdge();
}

// Where the watch is a window at the edge, there is none without need.
void AppDelegate::watchTheEdge()
{
    if (m_settings.autoExpandOnDrag())
        m_dragEdgeMonitor.start();
    else
        m_dragEdgeMonitor.stop();
}

void AppDelegate::startScreenshotCollection()
{
    m_screenshotCollector = std::make_unique<ScreenshotCollector>(m_settings, *m_store, m_platform.queue);
    m_screenshotCollector->onCollected = [this] { showForAMoment(); };
    m_screenshotWatcher.onScreenshot = [this](const QUrl& screenshot) { m_screenshotCollector->collect(screenshot); };
    m_screenshotSwitch = std::make_unique<ScreenshotSwitch>(m_settings, m_screenshotWatcher, m_platform.queue);
}

void AppDelegate::provideServices()
{
    m_serviceProvider = std::make_unique<ServiceProvider>(*m_store, [this] {
        if (!m_lastRefusal)
            showForAMomentSoon();
    });
    m_platform.requests.onAdd = [this](const ServicePasteboard& pasteboard) { return addToShelf(pasteboard); };
    m_platform.requests.onOpen = [this](const QStringList& uris) { open(uris); };
    m_platform.requests.onActivate = [this] { showShelf(); };
    m_platform.requests.onToggle = [this] { togglePanel(); };
    m_platform.requests.onFocus = [this] { m_panelController->showForKeys(); };
    m_platform.requests.onAddSelection = [this] { addSelection(); };
    m_platform.requests.start();
}

void AppDelegate::addSelection()
{
    const QString obstacle = m_platform.pasteboard.selectionObstacle();
    if (obstacle.isEmpty())
        m_selection.read();
    else
        m_platform.notifier.notify(obstacle);
}

std::optional<Failure> AppDelegate::addToShelf(const ServicePasteboard& pasteboard)
{
    m_lastRefusal.reset();
    return toldToUser(m_serviceProvider->addToShelf(pasteboard));
}

std::optional<Failure> AppDelegate::toldToUser(const std::optional<Failure>& failure)
{
    if (failure) {
        m_platform.notifier.notify(failure->description);
        return failure;
    }
    return m_lastRefusal;
}

void AppDelegate::additionFailed(const QString& reason)
{
    m_lastRefusal = Failure{ reason };
    m_platform.notifier.notify(reason);
}

void AppDelegate::createShortcuts()
{
    GlobalShortcuts& shortcuts = m_platform.desktop.globalShortcuts();
    m_shortcuts = std::make_unique<ShelfShortcuts>(shortcuts, m_platform.defaults,
                                                   ShelfShortcuts::Actions{
                                                       .toggle = [this] { togglePanel(); },
                                                       .focus = [this] { m_panelController->showForKeys(); },
                                                   });
    // The open menu takes its keys itself, whatever is bound.
    const auto showKeys = [this, &shortcuts] {
        m_statusMenu->setToggleKeys(shortcuts.boundCombination().value_or(m_shortcuts->keys()));
    };
    connect(&shortcuts, &GlobalShortcuts::changed, this, showKeys);
    showKeys();
}

void AppDelegate::togglePanel()
{
    if (m_panelController->isShown() || m_panelController->isComing())
        m_panelController->hide();
    else
        m_panelController->show();
}

void AppDelegate::togglePinned()
{
    m_panelController->togglePinned();
    if (m_panelController->pinning().isPinned())
        m_panelController->show();
}

void AppDelegate::showForAMoment()
{
    m_panelController->show();
    m_panelController->scheduleHide(momentOfShowing);
}

// Called later, not within the call that added to the shelf: for thousands of files both take a while.
void AppDelegate::showForAMomentSoon()
{
    m_showing = m_platform.queue.after(0, [this] { showForAMoment(); });
}

void AppDelegate::applicationWillTerminate()
{
    if (m_shelfView)
        m_shelfView->saveDraggedImages();
    m_store->saveNow();
}

void AppDelegate::showShelf()
{
    if (std::exchange(m_introduction, Introduction::none) == Introduction::wanted)
        introduceShelf();
    else
        m_panelController->show();
}

void AppDelegate::introduceShelf()
{
    // From now on there are settings, so no later start is the first one.
    m_platform.defaults.set(true, QStringLiteral("introduced"));
    m_shelfView->introduce();
    m_panelController->show();
    m_panelController->scheduleHide(timeOfIntroduction);
}

std::optional<Failure> AppDelegate::open(const QStringList& uris)
{
    m_lastRefusal.reset();
    return toldToUser(m_serviceProvider->open(addressList(uris)));
}

} // namespace nookle
