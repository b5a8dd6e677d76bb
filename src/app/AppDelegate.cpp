#include "AppDelegate.h"

#include "Accessibility.h"
#include "HelperProgram.h"
#include "LeftImageCopies.h"
#include "PrimarySelection.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QPointer>

#include <chrono>
#include <utility>

namespace nookle {

namespace {

inline constexpr double momentOfShowing = 1.5;

/// After the start, when everything that starts along with the session has had its turn.
inline constexpr double preparationDelay = 1;

// The shortcut, in the numbers of `Shortcut`.
inline constexpr std::uint32_t keyD = 2;
inline constexpr std::uint32_t controlAltSuper = 4096 + 2048 + 256;

} // namespace

AppDelegate::AppDelegate(const QByteArray& dataHome, const QUrl& dataFolder, std::unique_ptr<DesktopBackend> desktop,
                         std::function<std::optional<Failure>()> claimFolder)
    : m_dataFolder(dataFolder)
    , m_claimFolder(std::move(claimFolder))
    , m_desktop(std::move(desktop))
    , m_trash(dataHome)
    , m_mounts(std::make_shared<Mounts>(QFile::encodeName(QDir::homePath())))
    , m_fileReferences(QFile::encodeName(QDir::homePath()), dataHome, m_queue, std::chrono::steady_clock::now, m_mounts)
    , m_pictures(m_mounts, m_queue)
    , m_linkMetadata(helperProgram(QCoreApplication::applicationDirPath(), QStringLiteral("nookle-lookup")),
                     m_pictures.converter(), m_queue)
    , m_pasteboard(m_pictures.converter())
    , m_fileTransfers(m_mounts)
    , m_loginItem(QCoreApplication::applicationFilePath())
    , m_folders(m_mounts)
    , m_screenshotSettings(m_defaults)
    , m_settings(m_defaults)
    , m_dragEdgeMonitor(m_desktop->inputMonitor(), m_desktop->pointer(), m_desktop->displays())
    , m_screenshotWatcher(m_folders, m_screenshotSettings, m_queue)
{
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching()
{
    createPanel();
    m_settingsWindow = std::make_unique<SettingsWindowController>(
        m_settings, m_loginItem, [this] { return m_screenshotWatcher.screenshotDirectory(); });
    setUpStatusItem();
    startEdgeMonitor();
    startScreenshotCollection();
    m_expirySweep = std::make_unique<ExpirySweep>(m_settings, *m_store, m_queue);
    provideServices();
    createHotKey();
    m_store->removeOrphans();
    removeLeftImageCopies(QDateTime::currentDateTimeUtc().addDays(-1));
    if (m_panelController->pinning().isPinned())
        m_panelController->show();
}

void AppDelegate::createPanel()
{
    ShelfStore::Environment environment;
    environment.now = [] { return QDateTime::currentDateTimeUtc(); };
    environment.moveToTrash = [this](const QUrl& file) { return m_trash.moveToTrash(file); };
    environment.fetchesLinkMetadata = true;
    environment.claimFolder = m_claimFolder;
    m_store = std::make_unique<ShelfStore>(m_dataFolder, std::move(environment), m_fileReferences, m_trash,
                                           m_linkMetadata, m_queue);
    connect(m_store.get(), &ShelfStore::additionFailed, this, &AppDelegate::additionFailed);
    m_fileReferences.onFilesFound = [this] { m_store->refreshFiles(); };

    installAccessibility();
    m_panelContent = std::make_unique<PanelContentView>();
    m_panelWindow = m_desktop->makePanelWindow(m_panelContent->panelWindow(), ShelfView::cornerRadius);
    m_panelController = std::make_unique<PanelController>(*m_store, m_defaults, *m_panelWindow, m_desktop->pointer(),
                                                          m_desktop->displays(), m_queue);
    m_desktop->onDisplaysChanged = [this] { m_panelController->displaysChanged(); };
    createShelfView();
}

void AppDelegate::createShelfView()
{
    auto view = std::make_unique<ShelfView>(ShelfView::Services{
        .store = *m_store,
        .pinning = m_panelController->pinning(),
        .workspace = m_workspace,
        .pasteboard = m_pasteboard,
        .trash = m_trash,
        .references = m_fileReferences,
        .transfers = m_fileTransfers,
        .thumbnails = m_pictures.thumbnails(),
        .compositing = m_desktop->compositing(),
        .queue = m_queue,
        .readDrop = [this](const QMimeData& data) { return m_desktop->dropPayload(data); },
        .runDrag =
            [this](QWidget& source, DragSession session) {
                m_desktop->offerDrag(session.item.payload);
                return runDragSession(source, std::move(session));
            },
    });
    view->onTogglePin = [this] { m_panelController->togglePinned(); };
    view->onDropTargetChanged = [this](bool isDropTarget) { m_panelController->dropTargetChanged(isDropTarget); };
    view->onMenuOpenChanged = [this](bool isOpen) { m_panelController->menuOpenChanged(isOpen); };
    view->onDragOutBegan = [this] { m_panelController->beginDragOut(); };
    view->onDragOutEnded = [this] { m_panelController->endDragOut(); };
    view->onHide = [this] { m_panelController->hide(); };
    m_preparation = m_queue.after(preparationDelay, [content = QPointer(view.get())] {
        if (content)
            content->prepare();
    });
    m_panelContent->setContent(view.release());
}

void AppDelegate::setUpStatusItem()
{
    m_statusMenu = std::make_unique<StatusMenu>(m_panelController->pinning());
    m_statusMenu->onTogglePanel = [this] { togglePanel(); };
    m_statusMenu->onTogglePinned = [this] { togglePinned(); };
    m_statusMenu->onShowSettings = [this] { m_settingsWindow->show(); };
    // Not quit(), which asks every window first: the panel refuses to be closed.
    m_statusMenu->onQuit = [] { QCoreApplication::exit(); };
    m_statusItem = std::make_unique<StatusItem>(*m_statusMenu, m_notifierTray, m_desktop->embeddingTray(), m_queue);
}

void AppDelegate::startEdgeMonitor()
{
    m_dragEdgeMonitor.onEdgeReached = [this] {
        if (m_settings.autoExpandOnDrag())
            m_panelController->showForIncomingDrag();
    };
    m_dragEdgeMonitor.start();
}

void AppDelegate::startScreenshotCollection()
{
    m_screenshotCollector = std::make_unique<ScreenshotCollector>(m_settings, *m_store, m_queue);
    m_screenshotCollector->onCollected = [this] { showForAMoment(); };
    m_screenshotWatcher.onScreenshot = [this](const QUrl& screenshot) { m_screenshotCollector->collect(screenshot); };
    m_screenshotSwitch = std::make_unique<ScreenshotSwitch>(m_settings, m_screenshotWatcher, m_queue);
}

void AppDelegate::provideServices()
{
    m_serviceProvider = std::make_unique<ServiceProvider>(*m_store, [this] {
        if (!m_lastRefusal)
            showForAMomentSoon();
    });
    m_busService.onAdd = [this](const ServicePasteboard& pasteboard) { return addToShelf(pasteboard); };
    m_busService.onOpen = [this](const QStringList& uris) { open(uris); };
    m_busService.onActivate = [this] { showShelf(); };
    m_busService.onAddSelection = [this] { addToShelf(readPrimarySelection()); };
    m_busService.start();
}

std::optional<Failure> AppDelegate::addToShelf(const ServicePasteboard& pasteboard)
{
    m_lastRefusal.reset();
    return toldToUser(m_serviceProvider->addToShelf(pasteboard));
}

std::optional<Failure> AppDelegate::toldToUser(const std::optional<Failure>& failure)
{
    if (failure) {
        m_notifier.notify(failure->description);
        return failure;
    }
    return m_lastRefusal;
}

void AppDelegate::additionFailed(const QString& reason)
{
    m_lastRefusal = Failure{ reason };
    m_notifier.notify(reason);
}

void AppDelegate::createHotKey()
{
    m_hotKey = std::make_unique<HotKey>(m_desktop->globalShortcuts(), keyD, controlAltSuper, [this] { togglePanel(); });
}

void AppDelegate::togglePanel()
{
    if (m_panelController->isShown())
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

// Not within the call that added to the shelf: for thousands of files both take a while.
void AppDelegate::showForAMomentSoon()
{
    m_showing = m_queue.after(0, [this] { showForAMoment(); });
}

void AppDelegate::applicationWillTerminate()
{
    m_store->saveNow();
}

void AppDelegate::showShelf()
{
    m_panelController->show();
}

void AppDelegate::open(const QStringList& uris)
{
    m_lastRefusal.reset();
    toldToUser(m_serviceProvider->open(addressList(uris)));
}

} // namespace nookle
