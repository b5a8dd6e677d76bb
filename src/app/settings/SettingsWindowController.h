#pragma once

#include "SettingsView.h"

#include <QDialog>

#include <functional>
#include <memory>

namespace nookle {

/// Owns the settings window. The window is made once, and kept when it is closed. Main thread only.
class SettingsWindowController final {
public:
    /// `settings`, `loginItem` and `shortcuts` must outlive this object. `copyDiagnostics` puts a report of the system
    /// on the clipboard.
    SettingsWindowController(AppSettings& settings, LoginItem& loginItem, GlobalShortcuts& shortcuts,
                             SettingsView::ScreenshotDirectory screenshotDirectory, DataFolderRow::Folder dataFolder,
                             std::function<void()> copyDiagnostics);
    ~SettingsWindowController();
    SettingsWindowController(const SettingsWindowController&) = delete;
    SettingsWindowController& operator=(const SettingsWindowController&) = delete;

    /// Brings the window to the front. Makes it at the first call.
    void show();

private:
    [[nodiscard]] std::unique_ptr<QDialog> makeWindow() const;

    AppSettings& m_settings;
    LoginItem& m_loginItem;
    GlobalShortcuts& m_shortcuts;
    SettingsView::ScreenshotDirectory m_screenshotDirectory;
    DataFolderRow::Folder m_dataFolder;
    std::function<void()> m_copyDiagnostics;
    std::unique_ptr<QDialog> m_window;
};

} // namespace nookle
