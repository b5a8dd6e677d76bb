#pragma once

#include "Lifetime.h"

#include <QList>
#include <QUrl>

#include <functional>

namespace nookle {

class AppSettings;
class MainQueue;
class ShelfStore;

/// Puts new screenshots on the shelf, as the settings say. Thousands at once leave the program responsive. What it is
/// given must outlive it. Main thread only.
class ScreenshotCollector final {
public:
    ScreenshotCollector(const AppSettings& settings, ShelfStore& store, MainQueue& queue);

    /// Adds the screenshot soon, as the newest item; ignores it while the settings say so. A link is never moved: what
    /// it leads to would stay behind.
    void collect(const QUrl& screenshot);

    /// Something was put on the shelf. Set by the owner.
    std::function<void()> onCollected = [] {};

private:
    void schedule();
    void addWaiting();
    void addFiles();
    void takeOverSome();

    const AppSettings& m_settings;
    ShelfStore& m_store;
    MainQueue& m_queue;
    QList<QUrl> m_filesToAdd;
    QList<QUrl> m_filesToTakeOver;
    bool m_isScheduled = false;
    Lifetime m_lifetime;
};

} // namespace nookle
