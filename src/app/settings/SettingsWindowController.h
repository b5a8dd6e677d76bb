#pragma once

#include "SettingsView.h"

#include <QDialog>

#include <functional>
#include <memory>

class QScreen;

namespace nookle {

class FittingScrollArea;

/// Owns the settings window. The window is made once, and kept when it is closed. Main thread only.
class SettingsWindowController final {
public:
    /// `settings`, `loginItem` and `shortcuts` must outlive this object. `copyDiagnostics` puts a report of the system
    /// on the clipboard.
    SettingsWindowController(AppSettings& settings, LoginItem& loginItem, GlobalShortcuts& shortcuts,
                             const SettingsView::Abilities& abilities,
                             SettingsView::ScreenshotDirectory screenshotDirectory, DataFolderRow::Folder dataFolder,
                             std::function<void()> copyDiagnostics);
    ~SettingsWindowController();
    SettingsWindowController(const SettingsWindowController&) = delete;
    SettingsWindowController& operator=(const SettingsWindowController&) = delete;

    /// Brings the window to the front. Makes it at the first call.
    void show();

private:
    void makeWindow();
    /// Lets the window be no larger than that display.
    void fitWindow(const QScreen& screen);

    AppSettings& m_settings;
    LoginItem& m_loginItem;
    GlobalShortcuts& m_shortcuts;
    SettingsView::Abilities m_abilities;
    SettingsView::ScreenshotDirectory m_screenshotDirectory;
    DataFolderRow::Folder m_dataFolder;
    std::function<void()> m_copyDiagnostics;
    std::unique_ptr<QDialog> m_window;
    /// What the window shows, which owns it.
    FittingScrollArea* m_form = nullptr;
};

} // namespace nookle
