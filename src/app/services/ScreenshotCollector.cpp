#include "ScreenshotCollector.h"

#include "AppSettings.h"
#include "FileUrl.h"
#include "MainQueue.h"
#include "ShelfStore.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace nookle {

namespace {

/// Moving so many files takes no noticeable time.
inline constexpr qsizetype filesTakenOverAtOnce = 10;

[[nodiscard]] bool isLink(const QUrl& file)
{
    std::error_code ignored;
    return std::filesystem::is_symlink(filePath(file).toStdString(), ignored);
}

} // namespace

ScreenshotCollector::ScreenshotCollector(const AppSettings& settings, ShelfStore& store, MainQueue& queue)
    : m_settings(settings)
    , m_store(store)
    , m_queue(queue)
{
}

void ScreenshotCollector::collect(const QUrl& screenshot)
{
    if (!m_settings.collectScreenshots())
        return;
    const bool isTakenOver = m_settings.moveScreenshots() && !isLink(screenshot);
    (isTakenOver ? m_filesToTakeOver : m_filesToAdd).append(screenshot);
    schedule();
}

void ScreenshotCollector::schedule()
{
    if (!std::exchange(m_isScheduled, true))
        m_queue.post(m_lifetime.guarded([this] { addWaiting(); }));
}

void ScreenshotCollector::addWaiting()
{
    m_isScheduled = false;
    addFiles();
    takeOverSome();
    onCollected();
    if (!m_filesToTakeOver.isEmpty())
        schedule();
}

// Reverses the order: the store puts the first file on top, but the newest screenshot is the last one.
void ScreenshotCollector::addFiles()
{
    QList<QUrl> files = std::exchange(m_filesToAdd, {});
    std::reverse(files.begin(), files.end());
    if (!files.isEmpty())
        m_store.addFiles(files);
}

void ScreenshotCollector::takeOverSome()
{
    const QList<QUrl> files = m_filesToTakeOver.mid(0, filesTakenOverAtOnce);
    m_filesToTakeOver = m_filesToTakeOver.mid(files.size());
    m_store.changeTogether([&] {
        for (const QUrl& file : files)
            m_store.addImage(file);
    });
}

} // namespace nookle
