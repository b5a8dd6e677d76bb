#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

namespace nookle {

/// The parts of the environment that decide where screenshot tools save their files. Paths are bytes.
struct ScreenshotEnvironment {
    QByteArray home;
    QByteArray configFolder;
    QByteArray picturesFolder;
    /// The names in XDG_CURRENT_DESKTOP.
    QStringList desktops;
    /// The values of GRIM_DEFAULT_DIR and XDG_SCREENSHOTS_DIR; empty when they are not set.
    QByteArray grimFolder;
    QByteArray screenshotsFolder;

    /// The values of the running session.
    [[nodiscard]] static ScreenshotEnvironment present();
};

/// The absolute path for a setting, which may be a path (also one that begins with "~" or "$HOME") or a file URL. Empty
/// for anything else.
[[nodiscard]] QByteArray expandedPath(const QByteArray& setting, const QByteArray& home);

/// The folders in which the session's tools save screenshots, the likeliest first. They need not exist.
[[nodiscard]] QList<QByteArray> screenshotLocations(const ScreenshotEnvironment& environment);

} // namespace nookle
