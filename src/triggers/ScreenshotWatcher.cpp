#include "ScreenshotWatcher.h"

#include "FileUrl.h"
#include "Log.h"
#include "MainQueue.h"
#include "ScreenshotSettings.h"

#include <QFile>

#include <algorithm>
#include <iterator>
#include <utility>

namespace nookle {

namespace {

inline constexpr double scanDelay = 0.3;
inline constexpr double retryDelay = 1.5;

/// In seconds. The screenshot tool or the user may make the folder again.
inline constexpr double pauseWithoutFolder = 5;

/// In seconds. Checking a path costs very little.
inline constexpr double checkInterval = 60;

/// In seconds. Another program must free a watch first.
inline constexpr double pauseWithoutWatch = 60;

[[nodiscard]] QUrl entryUrl(const QUrl& folder, const QByteArray& name)
{
    return standardized(fileUrl(filePath(folder) + '/' + name));
}

} // namespace

ScreenshotWatcher::ScreenshotWatcher(FolderWatch& folders, const ScreenshotSettings& settings, MainQueue& queue)
    : m_folders(folders)
    , m_settings(settings)
    , m_queue(queue)
    , m_directory(screenshotDirectory())
{
}

ScreenshotWatcher::~ScreenshotWatcher() = default;

QUrl ScreenshotWatcher::screenshotDirectory() const
{
    const QList<QUrl> locations = m_settings.locations();
    const auto existing = std::find_if(locations.begin(), locations.end(),
                                       [this](const QUrl& location) { return m_folders.isFolder(location); });
    return existing == locations.end() ? m_settings.desktopDirectory() : *existing;
}

void ScreenshotWatcher::start()
{
    if (m_source || m_nextTry)
        return;
    m_directory = screenshotDirectory();
    // The watch begins before the folder is listed, so that no file in between is missed.
    switch (watchDirectory()) {
    case WatchedFolder::Result::watched:
        break;
    case WatchedFolder::Result::unreadable:
        logLine(QStringLiteral("screenshot folder not readable: %1").arg(QFile::decodeName(filePath(m_directory))));
        return;
    case WatchedFolder::Result::noWatchLeft:
        tellNoWatchLeft();
        watchAgainAfter(pauseWithoutWatch);
        break;
    }
    m_knownNames = currentNames();
}

void ScreenshotWatcher::stop()
{
    m_source.reset();
    m_check.reset();
    m_nextTry.reset();
}

WatchedFolder::Result ScreenshotWatcher::watchDirectory()
{
    WatchedFolder watched = m_folders.watch(m_directory, [this] { scheduleScan(); });
    m_source = std::move(watched.subscription);
    m_check = m_source ? m_queue.every(checkInterval, [this] { lookWhetherInPlace(); }) : nullptr;
    return watched.result;
}

void ScreenshotWatcher::watchAgainAfter(double seconds)
{
    m_nextTry = m_queue.after(seconds, [this] {
        m_nextTry.reset();
        watchAgain();
    });
}

// A scan finds the files that have arrived meanwhile.
void ScreenshotWatcher::watchAgain()
{
    switch (watchDirectory()) {
    case WatchedFolder::Result::watched:
        m_hasToldNoWatchLeft = false;
        scheduleScan();
        break;
    case WatchedFolder::Result::unreadable:
        watchAgainAfter(pauseWithoutFolder);
        break;
    case WatchedFolder::Result::noWatchLeft:
        tellNoWatchLeft();
        watchAgainAfter(pauseWithoutWatch);
        break;
    }
}

void ScreenshotWatcher::tellNoWatchLeft()
{
    if (!std::exchange(m_hasToldNoWatchLeft, true))
        logLine(QStringLiteral("no watch left for the screenshot folder, other programs have them all: %1")
                    .arg(QFile::decodeName(filePath(m_directory))));
}

void ScreenshotWatcher::lookWhetherInPlace()
{
    if (!m_source->isInPlace())
        scheduleScan();
}

std::set<QByteArray> ScreenshotWatcher::currentNames() const
{
    std::set<QByteArray> names = m_folders.entryNames(m_directory);
    std::erase_if(names, [](const QByteArray& name) { return name.startsWith('.'); });
    return names;
}

void ScreenshotWatcher::scheduleScan()
{
    m_pendingScan = m_queue.after(scanDelay, [this] { scan(); });
}

void ScreenshotWatcher::scan()
{
    if (m_source && !m_source->isInPlace()) {
        // In another folder, the same names are other files.
        m_knownNames.clear();
        watchAgain();
    }
    std::set<QByteArray> current = currentNames();
    std::vector<QByteArray> added;
    std::set_difference(current.begin(), current.end(), m_knownNames.begin(), m_knownNames.end(),
                        std::back_inserter(added));
    m_knownNames = std::move(current);

    std::vector<QUrl> unmarked;
    for (const QByteArray& name : added) {
        const QUrl file = entryUrl(m_directory, name);
        if (m_settings.isScreenCapture(file))
            onScreenshot(file);
        else
            unmarked.push_back(file);
    }
    if (!unmarked.empty())
        scheduleRetry(std::move(unmarked));
}

// A tool may mark a file a moment after the file appears.
void ScreenshotWatcher::scheduleRetry(std::vector<QUrl> files)
{
    const auto place = m_retries.emplace(m_retries.end());
    *place = m_queue.after(retryDelay, [this, place, files = std::move(files)] {
        m_retries.erase(place);
        retry(files);
    });
}

void ScreenshotWatcher::retry(const std::vector<QUrl>& files)
{
    for (const QUrl& file : files) {
        if (m_settings.isScreenCapture(file))
            onScreenshot(file);
    }
}

} // namespace nookle
