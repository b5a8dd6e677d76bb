#pragma once

#include <QList>
#include <QUrl>

namespace nookle {

/// The folders in which the desktop saves screenshots, and the mark by which it identifies them. Main thread only.
class ScreenshotSettings {
public:
    virtual ~ScreenshotSettings() = default;

    /// The folders that are set up for screenshots, the user's own choice first. They need not exist.
    [[nodiscard]] virtual QList<QUrl> locations() const = 0;

    /// The folder to use when none of `locations` exists.
    [[nodiscard]] virtual QUrl desktopDirectory() const = 0;

    /// Whether the file is marked as a screenshot. A file that is still being written may not be marked yet.
    [[nodiscard]] virtual bool isScreenCapture(const QUrl& file) const = 0;
};

} // namespace nookle
