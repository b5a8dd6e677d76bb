#pragma once

#include "FolderWatch.h"

#include <QByteArray>
#include <QUrl>

#include <functional>
#include <list>
#include <memory>
#include <set>
#include <vector>

namespace nookle {

class Cancellable;
class MainQueue;
class ScreenshotSettings;

/// Notices new screenshots in the folder that the desktop saves them in. What it is given must outlive it. Main thread
/// only.
class ScreenshotWatcher final {
public:
    ScreenshotWatcher(FolderWatch& folders, const ScreenshotSettings& settings, MainQueue& queue);
    ~ScreenshotWatcher();
    ScreenshotWatcher(const ScreenshotWatcher&) = delete;
    ScreenshotWatcher& operator=(const ScreenshotWatcher&) = delete;

    /// The folder that is set up for screenshots and exists, else the desktop folder.
    [[nodiscard]] QUrl screenshotDirectory() const;

    /// Begins to watch that folder, all of whose present files count as old. Does nothing while it watches already;
    /// when the folder cannot be opened it stays stopped and says so in one log line. A folder that goes later is
    /// watched again once it is back, and one for which there was no watch left once there is. All that is in a folder
    /// that has taken the place of another counts as new.
    void start();

    /// Ends the watch. A look at the folder that is already due still happens.
    void stop();

    /// A new screenshot is there; called once for each, in the order of their names. Set by the owner.
    std::function<void(const QUrl&)> onScreenshot = [](const QUrl&) {};

private:
    using Retries = std::list<std::unique_ptr<Cancellable>>;

    [[nodiscard]] std::set<QByteArray> currentNames() const;
    [[nodiscard]] WatchedFolder::Result watchDirectory();
    void watchAgainAfter(double seconds);
    void watchAgain();
    void tellNoWatchLeft();
    void lookWhetherInPlace();
    void scheduleScan();
    void scan();
    void scheduleRetry(std::vector<QUrl> files);
    void retry(const std::vector<QUrl>& files);

    FolderWatch& m_folders;
    const ScreenshotSettings& m_settings;
    MainQueue& m_queue;
    QUrl m_directory;
    std::unique_ptr<FolderSubscription> m_source;
    /// Runs while there is a watch: of what happens to the folders above it tells nothing.
    std::unique_ptr<Cancellable> m_check;
    /// Waits while there is no watch but should be one.
    std::unique_ptr<Cancellable> m_nextTry;
    bool m_hasToldNoWatchLeft = false;
    std::set<QByteArray> m_knownNames;
    std::unique_ptr<Cancellable> m_pendingScan;
    Retries m_retries;
};

} // namespace nookle
