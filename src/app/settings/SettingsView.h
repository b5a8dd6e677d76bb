#pragma once

#include "AppSettings.h"
#include "DataFolderRow.h"

#include <QUrl>
#include <QWidget>

#include <functional>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QVBoxLayout;

namespace nookle {

class DescriptionLabel;
class GlobalShortcuts;
class LoginItem;

/// The form that edits the settings. Each control writes its setting at once, and shows changes that are made
/// elsewhere. Main thread only.
class SettingsView final : public QWidget {
    Q_OBJECT

public:
    /// Returns the folder of new screenshots. Called each time the form is shown.
    using ScreenshotDirectory = std::function<QUrl()>;

    /// What the desktop can do. A setting that would change nothing is not shown.
    struct Abilities {
        bool canReserveSpace = true;
    };

    /// `settings`, `loginItem` and `shortcuts` must outlive this object.
    SettingsView(AppSettings& settings, LoginItem& loginItem, GlobalShortcuts& shortcuts, const Abilities& abilities,
                 ScreenshotDirectory screenshotDirectory, DataFolderRow::Folder dataFolder);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    using Getter = std::function<bool()>;
    using Setter = std::function<void(bool)>;
    using Signal = void (AppSettings::*)();

    void showScreenshotFolder();
    [[nodiscard]] QGroupBox* makeShelfSection(const Abilities& abilities, const DataFolderRow::Folder& dataFolder);
    void addReservation(QVBoxLayout& column);
    [[nodiscard]] QGroupBox* makeScreenshotSection();
    [[nodiscard]] QCheckBox* makeToggle(const QString& title, const Getter& value, const Setter& setValue,
                                        Signal changed);
    [[nodiscard]] QComboBox* makeExpiryPicker();

    AppSettings& m_settings;
    GlobalShortcuts& m_shortcuts;
    ScreenshotDirectory m_screenshotDirectory;
    DescriptionLabel* m_screenshotFolder = nullptr;
};

} // namespace nookle
