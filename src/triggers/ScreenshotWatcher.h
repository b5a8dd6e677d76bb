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

/// Detects new screenshots in the folder in which the desktop saves them. The constructor's arguments must outlive it.
/// Main thread only.
class ScreenshotWatcher final {
public:
    ScreenshotWatcher(FolderWatch& folders, const ScreenshotSettings& settings, MainQueue& queue);
    ~ScreenshotWatcher();
    ScreenshotWatcher(const ScreenshotWatcher&) = delete;
    ScreenshotWatcher& operator=(const ScreenshotWatcher&) = delete;

    /// The first configured screenshot folder that exists, else the desktop folder.
    [[nodiscard]] QUrl screenshotDirectory() const;

    /// Begins to watch `screenshotDirectory()`. The files that are there now count as old. Does nothing if the watch is
    /// running. If the folder cannot be opened, writes one log line and stays stopped. If the system's limit on watches
    /// is reached, tries again later. A folder that disappears later is watched again once it is back. If another
    /// folder has replaced it, all files in that folder count as new.
    void start();

    /// Ends the watch. A scan of the folder that is already scheduled still runs.
    void stop();

    /// Called once for each new screenshot. The files of one scan come in the order of their names, but a file that is
    /// marked as a screenshot later comes later. Set by the owner.
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
    /// Checks regularly whether the watched folder is still in place, because the watch does not report changes of the
    /// folders above it.
    std::unique_ptr<Cancellable> m_check;
    /// The next attempt to watch the folder, while a watch is wanted but there is none.
    std::unique_ptr<Cancellable> m_nextTry;
    bool m_hasToldNoWatchLeft = false;
    std::set<QByteArray> m_knownNames;
    std::unique_ptr<Cancellable> m_pendingScan;
    Retries m_retries;
};

} // namespace nookle
