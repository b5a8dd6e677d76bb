#pragma once

#include "ScreenshotSettings.h"

#include <memory>

namespace nookle {

class Mounts;
class UserDefaults;

/// The user's own folder for screenshots, from the settings file, before those of the session's tools. Read anew at
/// each question. A file that may never answer counts as no screenshot. Main thread only.
class LinuxScreenshotSettings final : public ScreenshotSettings {
public:
    /// `defaults` must outlive this.
    LinuxScreenshotSettings(const UserDefaults& defaults, std::shared_ptr<Mounts> mounts);

    [[nodiscard]] QList<QUrl> locations() const override;
    [[nodiscard]] QUrl desktopDirectory() const override;
    [[nodiscard]] bool isScreenCapture(const QUrl& file) const override;

private:
    const UserDefaults& m_defaults;
    std::shared_ptr<Mounts> m_mounts;
};

} // namespace nookle
