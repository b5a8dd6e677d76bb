#pragma once

#include "AppSettings.h"
#include "DragEdgeMonitor.h"
#include "ExpirySweep.h"
#include "Failure.h"
#include "HotKey.h"
#include "MainQueue.h"
#include "PanelContentView.h"
#include "PanelController.h"
#include "ScreenshotCollector.h"
#include "ScreenshotSwitch.h"
#include "ScreenshotWatcher.h"
#include "ServicePasteboard.h"
#include "ServiceProvider.h"
#include "SettingsWindowController.h"
#include "ShelfStore.h"
#include "ShelfView.h"
#include "StatusItem.h"
#include "StatusMenu.h"

#include <QPointer>
#include <QObject>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace nookle {

class DesktopBackend;
class Notifier;
class ProgramRequests;

/// Creates every long-lived component in its order and connects them. One for the life of the program.
class AppDelegate final : public QObject {
    Q_OBJECT

public:
    /// What the components work with.
    struct Platform {
        DesktopBackend& desktop;
        MainQueue& queue;
        UserDefaults& defaults;
        Trash& trash;
        FileReferences& fileReferences;
        Thumbnails& thumbnails;
        LinkMetadataService& linkMetadata;
        Pasteboard& pasteboard;
        Workspace& workspace;
        FileTransfers& fileTransfers;
        /// The tray that draws icons and menus itself.
        TrayHost& notifierTray;
        Notifier& notifier;
        ProgramRequests& requests;
        LoginItem& loginItem;
        FolderWatch& folders;
        ScreenshotSettings& screenshotSettings;
    };

    /// All of `platform` must outlive the delegate. `dataFolder` is this program's alone, which `claimFolder` makes
    /// sure of (see `ShelfStore::Environment`).
    AppDelegate(const Platform& platform, const QUrl& dataFolder, std::function<std::optional<Failure>()> claimFolder);
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

    Platform m_platform;
    QUrl m_dataFolder;
    std::function<std::optional<Failure>()> m_claimFolder;
    /// Why the store refused something last.
    std::optional<Failure> m_lastRefusal;
    AppSettings m_settings;
    DragEdgeMonitor m_dragEdgeMonitor;
    ScreenshotWatcher m_screenshotWatcher;

    std::unique_ptr<ShelfStore> m_store;
    std::unique_ptr<PanelContentView> m_panelContent;
    QPointer<ShelfView> m_shelfView;
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
    std::unique_ptr<Cancellable> m_showing;
    std::unique_ptr<Cancellable> m_preparation;
};

} // namespace nookle
