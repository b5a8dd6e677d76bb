#pragma once

#include "ScreenshotSettings.h"

namespace nookle {

class UserDefaults;

/// The user's own folder for screenshots, from the settings file, before those of the session's tools. Read anew at
/// each question. Main thread only.
class LinuxScreenshotSettings final : public ScreenshotSettings {
public:
    /// `defaults` must outlive this.
    explicit LinuxScreenshotSettings(const UserDefaults& defaults);

    [[nodiscard]] QList<QUrl> locations() const override;
    [[nodiscard]] QUrl desktopDirectory() const override;
    [[nodiscard]] bool isScreenCapture(const QUrl& file) const override;

private:
    const UserDefaults& m_defaults;
};

} // namespace nookle
