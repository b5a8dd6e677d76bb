#pragma once

#include "ScreenshotSettings.h"

#include <memory>

namespace nookle {

class Mounts;
class UserDefaults;

/// The folders for screenshots: first the one in the user's settings, then those of the session's screenshot tools.
/// They are read anew at each call. A file on a file system that may never answer does not count as a screenshot. Main
/// thread only.
class LinuxScreenshotSettings final : public ScreenshotSettings {
public:
    /// `defaults` must outlive this object.
    LinuxScreenshotSettings(const UserDefaults& defaults, std::shared_ptr<Mounts> mounts);

    [[nodiscard]] QList<QUrl> locations() const override;
    [[nodiscard]] QUrl desktopDirectory() const override;
    [[nodiscard]] bool isScreenCapture(const QUrl& file) const override;

private:
    const UserDefaults& m_defaults;
    std::shared_ptr<Mounts> m_mounts;
};

} // namespace nookle
