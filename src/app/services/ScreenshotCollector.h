#pragma once

#include "Lifetime.h"

#include <QList>
#include <QUrl>

#include <functional>

namespace nookle {

class AppSettings;
class MainQueue;
class ShelfStore;

/// Puts new screenshots on the shelf, as the settings say. The program stays responsive even with thousands at once.
/// The constructor's arguments must outlive it. Main thread only.
class ScreenshotCollector final {
public:
    ScreenshotCollector(const AppSettings& settings, ShelfStore& store, MainQueue& queue);

    /// Adds the screenshot soon, as the newest item; ignores it while the setting is off. A link is never moved,
    /// because its target would stay behind.
    void collect(const QUrl& screenshot);

    /// Called after each batch of screenshots was processed. Set by the owner.
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
