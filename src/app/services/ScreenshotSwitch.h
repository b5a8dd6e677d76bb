#pragma once

#include <QObject>

namespace nookle {

class AppSettings;
class MainQueue;
class ScreenshotWatcher;

/// Runs the screenshot watcher while the setting to collect screenshots is on. The constructor's arguments must outlive
/// it. Main thread only.
class ScreenshotSwitch final : public QObject {
    Q_OBJECT

public:
    /// Starts or stops the watcher at once, and at each later change of the setting.
    ScreenshotSwitch(const AppSettings& settings, ScreenshotWatcher& watcher, MainQueue& queue);

private:
    void updateScreenshotWatcher();
    void observeScreenshotSetting();

    const AppSettings& m_settings;
    ScreenshotWatcher& m_watcher;
    MainQueue& m_queue;
};

} // namespace nookle
