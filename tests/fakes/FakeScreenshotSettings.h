#pragma once

#include "ScreenshotSettings.h"

#include <QSet>

namespace nookle {

/// A desktop that saves and marks screenshots as a test says.
class FakeScreenshotSettings final : public ScreenshotSettings {
public:
    QList<QUrl> locations() const override { return folders; }
    QUrl desktopDirectory() const override { return QUrl(QStringLiteral("file:///home/me/Desktop")); }

    bool isScreenCapture(const QUrl& file) const override
    {
        asked.append(file);
        return marked.contains(file);
    }

    QList<QUrl> folders;
    QSet<QUrl> marked;
    /// Every file that was asked about, in order.
    mutable QList<QUrl> asked;
};

} // namespace nookle
