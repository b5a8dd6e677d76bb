#pragma once

#include "AppSettings.h"
#include "ContentReader.h"
#include "DragEdgeMonitor.h"
#include "ExpirySweep.h"
#include "Failure.h"
#include "MainQueue.h"
#include "PanelContentView.h"
#include "PanelController.h"
#include "ScreenshotCollector.h"
#include "ScreenshotSwitch.h"
#include "ScreenshotWatcher.h"
#include "ServicePasteboard.h"
#include "ServiceProvider.h"
#include "SettingsWindowController.h"
#include "ShelfShortcuts.h"
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

/// Creates all long-lived components in the right order and connects them. One for the life of the program.
class AppDelegate final : public QObject {
    Q_OBJECT

public:
    /// The services that the components depend on.
    struct Platform {
        DesktopBackend& desktop;
        MainQueue& queue;
        UserDefaults& defaults;
        Trash& trash;
        FileReferences& fileReferences;
        ThumbnailGenerator& thumbnails;
        LinkMetadataService& linkMetadata;
        Pasteboard& pasteboard;
        Workspace& workspace;
        FileTransfers& fileTransfers;
        /// The kind of tray that draws icons and menus itself.
        TrayHost& notifierTray;
        Notifier& notifier;
        ProgramRequests& requests;
        LoginItem& loginItem;
        FolderWatch& folders;
        ScreenshotSettings& screenshotSettings;
        /// Makes a report of the system for whoever looks into a problem.
        std::function<QString()> diagnostics;
    };

    /// Whether the user has yet to be told how the shelf is opened.
    enum class Introduction { none, wanted };

    /// All of `platform` must outlive the delegate. Only this program may use `dataFolder`; `claimFolder` ensures that
    /// (see `ShelfStore::Environment`).
    AppDelegate(const Platform& platform, const QUrl& dataFolder, std::function<std::optional<Failure>()> claimFolder,
                Introduction introduction = Introduction::none);
    ~AppDelegate() override;

    /// Starts everything. Call it right before the application's event loop.
    void applicationDidFinishLaunching();

    /// Saves all unsaved changes. Call it when the event loop has ended, and when the session is about to end.
    void applicationWillTerminate();

    /// Shows the shelf, because the user has started the program, perhaps once more. Where an introduction is wanted,
    /// and nothing has been added meanwhile, the first call shows it for ten seconds, and says how it is opened.
    void showShelf();

    /// Adds the files and pages on a command line, of this start or of a later one. Returns the failure that the user
    /// was told.
    std::optional<Failure> open(const QStringList& uris);

private:
    void createPanel();
    void createShelfView();
    void introduceShelf();
    void setUpStatusItem();
    void startEdgeMonitor();
    void watchTheEdge();
    void startScreenshotCollection();
    void provideServices();
    void addSelection();
    std::optional<Failure> addToShelf(const ServicePasteboard& pasteboard);
    void additionFailed(const QString& reason);
    /// Shows a failure to the user and returns it. Without one, returns the store's refusal (if any), which was shown
    /// already.
    std::optional<Failure> toldToUser(const std::optional<Failure>& failure);
    void createShortcuts();
    void togglePanel();
    void togglePinned();
    void showForAMoment();
    void showForAMomentSoon();

    Platform m_platform;
    QUrl m_dataFolder;
    std::function<std::optional<Failure>()> m_claimFolder;
    Introduction m_introduction;
    /// The store's last refusal since the present request began.
    std::optional<Failure> m_lastRefusal;
    AppSettings m_settings;
    ContentReader m_selection;
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
    std::unique_ptr<ShelfShortcuts> m_shortcuts;
    std::unique_ptr<Cancellable> m_showing;
    std::unique_ptr<Cancellable> m_preparation;
};

} // namespace nookle
