#pragma once

#include "AppSettings.h"
#include "AutostartLoginItem.h"
#include "BusService.h"
#include "ClipboardPasteboard.h"
#include "DesktopAppearance.h"
#include "DesktopBackend.h"
#include "DesktopNotifier.h"
#include "DesktopWorkspace.h"
#include "DragEdgeMonitor.h"
#include "ExpirySweep.h"
#include "GioTrash.h"
#include "HotKey.h"
#include "InotifyFolderWatch.h"
#include "LinuxFileReferences.h"
#include "LinuxScreenshotSettings.h"
#include "Mounts.h"
#include "PanelContentView.h"
#include "PanelController.h"
#include "PictureServices.h"
#include "PortalFileTransfers.h"
#include "QtMainQueue.h"
#include "ScreenshotCollector.h"
#include "ScreenshotSwitch.h"
#include "ScreenshotWatcher.h"
#include "ServiceProvider.h"
#include "SettingsUserDefaults.h"
#include "SettingsWindowController.h"
#include "ShelfStore.h"
#include "ShelfView.h"
#include "StatusItem.h"
#include "StatusMenu.h"
#include "StatusNotifierTrayHost.h"
#include "WebLinkMetadata.h"

#include <QObject>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace nookle {

/// Creates every long-lived component in its order and connects them. One for the life of the program.
class AppDelegate final : public QObject {
    Q_OBJECT

public:
    /// `dataFolder` is this program's alone, which `claimFolder` makes sure of (see `ShelfStore::Environment`);
    /// `dataHome` is the folder of all programs' data, which holds the Trash.
    AppDelegate(const QByteArray& dataHome, const QUrl& dataFolder, std::unique_ptr<DesktopBackend> desktop,
                std::function<std::optional<Failure>()> claimFolder);
    ~AppDelegate() override;

    /// Starts everything, once the application's event loop is about to run.
    void applicationDidFinishLaunching();

    /// Saves what is not saved yet. Call it when the event loop has ended.
    void applicationWillTerminate();

    /// What a second start of the program asks for.
    void showShelf();

    /// Adds files and pages that the program was started with.
    void open(const QStringList& uris);

private:
    void createPanel();
    void createShelfView();
    void setUpStatusItem();
    void startEdgeMonitor();
    void startScreenshotCollection();
    void provideServices();
    std::optional<Failure> addToShelf(const ServicePasteboard& pasteboard);
    void additionFailed(const QString& reason);
    /// Tells the user of a failure. Returns it, or the refusal that the user has been told of already.
    std::optional<Failure> toldToUser(const std::optional<Failure>& failure);
    void createHotKey();
    void togglePanel();
    void togglePinned();
    void showForAMoment();
    void showForAMomentSoon();

    QUrl m_dataFolder;
    std::function<std::optional<Failure>()> m_claimFolder;
    /// Why the store refused something last.
    std::optional<Failure> m_lastRefusal;
    std::unique_ptr<DesktopBackend> m_desktop;
    DesktopAppearance m_appearance;
    QtMainQueue m_queue;
    SettingsUserDefaults m_defaults;
    GioTrash m_trash;
    std::shared_ptr<Mounts> m_mounts;
    LinuxFileReferences m_fileReferences;
    PictureServices m_pictures;
    WebLinkMetadata m_linkMetadata;
    ClipboardPasteboard m_pasteboard;
    DesktopWorkspace m_workspace;
    PortalFileTransfers m_fileTransfers;
    StatusNotifierTrayHost m_notifierTray;
    DesktopNotifier m_notifier;
    BusService m_busService;
    AutostartLoginItem m_loginItem;
    InotifyFolderWatch m_folders;
    LinuxScreenshotSettings m_screenshotSettings;
    AppSettings m_settings;
    DragEdgeMonitor m_dragEdgeMonitor;
    ScreenshotWatcher m_screenshotWatcher;

    std::unique_ptr<ShelfStore> m_store;
    std::unique_ptr<PanelContentView> m_panelContent;
    std::unique_ptr<PanelWindow> m_panelWindow;
    std::unique_ptr<PanelController> m_panelController;
    std::unique_ptr<SettingsWindowController> m_settingsWindow;
    std::unique_ptr<StatusMenu> m_statusMenu;
    std::unique_ptr<StatusItem> m_statusItem;
    std::unique_ptr<ScreenshotCollector> m_screenshotCollector;
    std::unique_ptr<ScreenshotSwitch> m_screenshotSwitch;
    std::unique_ptr<ExpirySweep> m_expirySweep;
    std::unique_ptr<ServiceProvider> m_serviceProvider;
    std::unique_ptr<HotKey> m_hotKey;
    std::unique_ptr<DelayedTask> m_showing;
    std::unique_ptr<DelayedTask> m_preparation;
};

} // namespace nookle
