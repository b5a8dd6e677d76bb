#pragma once

#include "AppDelegate.h"
#include "AutostartLoginItem.h"
#include "BusService.h"
#include "ClipboardPasteboard.h"
#include "DesktopAppearance.h"
#include "DesktopBackend.h"
#include "DesktopNotifier.h"
#include "DesktopWorkspace.h"
#include "GioTrash.h"
#include "InotifyFolderWatch.h"
#include "LinuxFileReferences.h"
#include "LinuxScreenshotSettings.h"
#include "Mounts.h"
#include "PictureServices.h"
#include "PortalFileTransfers.h"
#include "QtMainQueue.h"
#include "SettingsUserDefaults.h"
#include "StatusNotifierTrayHost.h"
#include "ToolkitClipboard.h"
#include "WebLinkMetadata.h"

#include <QByteArray>

#include <memory>

namespace nookle {

/// Owns the services of the user's desktop that the program uses. One for the life of the program. Main thread only.
class LinuxPlatform final {
public:
    /// The application object must exist. `dataHome` is the data folder of all programs of the user, which contains the
    /// Trash.
    LinuxPlatform(const QByteArray& dataHome, std::unique_ptr<DesktopBackend> desktop);
    ~LinuxPlatform();
    LinuxPlatform(const LinuxPlatform&) = delete;
    LinuxPlatform& operator=(const LinuxPlatform&) = delete;

    [[nodiscard]] AppDelegate::Platform parts();

private:
    /// Brings the widgets to the look that the desktop asks for.
    void showLook();

    std::unique_ptr<DesktopBackend> m_desktop;
    DesktopAppearance m_appearance;
    QtMainQueue m_queue;
    SettingsUserDefaults m_defaults;
    GioTrash m_trash;
    std::shared_ptr<Mounts> m_mounts;
    LinuxFileReferences m_fileReferences;
    PictureServices m_pictures;
    WebLinkMetadata m_linkMetadata;
    ToolkitClipboard m_toolkitClipboard;
    ClipboardPasteboard m_pasteboard;
    DesktopWorkspace m_workspace;
    PortalFileTransfers m_fileTransfers;
    StatusNotifierTrayHost m_notifierTray;
    DesktopNotifier m_notifier;
    BusService m_requests;
    AutostartLoginItem m_loginItem;
    InotifyFolderWatch m_folders;
    LinuxScreenshotSettings m_screenshotSettings;
};

} // namespace nookle
