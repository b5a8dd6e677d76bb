#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

namespace nookle {

/// What decides where the tools of the desktops save screenshots. Paths are bytes.
struct ScreenshotEnvironment {
    QByteArray home;
    QByteArray configFolder;
    QByteArray picturesFolder;
    /// As XDG_CURRENT_DESKTOP names them.
    QStringList desktops;
    /// The values of GRIM_DEFAULT_DIR and XDG_SCREENSHOTS_DIR; empty when they are not set.
    QByteArray grimFolder;
    QByteArray screenshotsFolder;

    /// Those of the running session.
    [[nodiscard]] static ScreenshotEnvironment present();
};

/// The path that a setting means: a path, perhaps below "~" or "$HOME", or a file URL. Empty when it is none.
[[nodiscard]] QByteArray expandedPath(const QByteArray& setting, const QByteArray& home);

/// The folders that the tools of the session save screenshots in, the likeliest first. They need not exist.
[[nodiscard]] QList<QByteArray> screenshotLocations(const ScreenshotEnvironment& environment);

} // namespace nookle
