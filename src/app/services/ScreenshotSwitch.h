#pragma once

#include <QObject>

namespace nookle {

class AppSettings;
class MainQueue;
class ScreenshotWatcher;

/// Lets the watcher run exactly while the user wants screenshots collected. What it is given must outlive it. Main
/// thread only.
class ScreenshotSwitch final : public QObject {
    Q_OBJECT

public:
    /// Starts or stops the watcher at once, and follows the setting from then on.
    ScreenshotSwitch(const AppSettings& settings, ScreenshotWatcher& watcher, MainQueue& queue);

private:
    void updateScreenshotWatcher();
    void observeScreenshotSetting();

    const AppSettings& m_settings;
    ScreenshotWatcher& m_watcher;
    MainQueue& m_queue;
};

} // namespace nookle
