#pragma once

#include <QList>
#include <QUrl>

namespace nookle {

/// Where the desktop puts screenshots, and how it marks them. Main thread only.
class ScreenshotSettings {
public:
    virtual ~ScreenshotSettings() = default;

    /// The folders that are set up for screenshots, the user's own choice first. They need not exist.
    [[nodiscard]] virtual QList<QUrl> locations() const = 0;

    /// The folder for when none of them is there.
    [[nodiscard]] virtual QUrl desktopDirectory() const = 0;

    /// Whether the file is marked as a screenshot. A file that is still being written may not be marked yet.
    [[nodiscard]] virtual bool isScreenCapture(const QUrl& file) const = 0;
};

} // namespace nookle
