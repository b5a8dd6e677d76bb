#include "ScreenshotSwitch.h"

#include "AppSettings.h"
#include "MainQueue.h"
#include "ScreenshotWatcher.h"

#include <QPointer>

namespace nookle {

ScreenshotSwitch::ScreenshotSwitch(const AppSettings& settings, ScreenshotWatcher& watcher, MainQueue& queue)
    : m_settings(settings)
    , m_watcher(watcher)
    , m_queue(queue)
{
    updateScreenshotWatcher();
    observeScreenshotSetting();
}

void ScreenshotSwitch::updateScreenshotWatcher()
{
    if (m_settings.collectScreenshots())
        m_watcher.start();
    else
        m_watcher.stop();
}

// Listens to one change and handles it later, so several changes in a row count as one.
void ScreenshotSwitch::observeScreenshotSetting()
{
    const auto actLater = [this] {
        m_queue.post([self = QPointer(this)] {
            if (!self)
                return;
            self->updateScreenshotWatcher();
            self->observeScreenshotSetting();
        });
    };
    connect(&m_settings, &AppSettings::collectScreenshotsChanged, this, actLater, Qt::SingleShotConnection);
}

} // namespace nookle
