#include "LinuxScreenshotSettings.h"

#include "FilePlaces.h"
#include "FileUrl.h"
#include "Mounts.h"
#include "ScreenshotLocations.h"
#include "ScreenshotMark.h"
#include "UserDefaults.h"

#include <QFile>
#include <QStandardPaths>

#include <utility>

namespace nookle {

LinuxScreenshotSettings::LinuxScreenshotSettings(const UserDefaults& defaults, std::shared_ptr<Mounts> mounts)
    : m_defaults(defaults)
    , m_mounts(std::move(mounts))
{
}

QList<QUrl> LinuxScreenshotSettings::locations() const
{
    const ScreenshotEnvironment environment = ScreenshotEnvironment::present();
    const auto chosen = m_defaults.string(QStringLiteral("screenshots"), QStringLiteral("location"));
    QList<QUrl> folders;
    const QByteArray own = expandedPath(QFile::encodeName(chosen.value_or(QString())), environment.home);
    if (!own.isEmpty())
        folders.append(fileUrl(own));
    for (const QByteArray& path : screenshotLocations(environment))
        folders.append(fileUrl(path));
    return folders;
}

QUrl LinuxScreenshotSettings::desktopDirectory() const
{
    return fileUrl(QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::DesktopLocation)));
}

bool LinuxScreenshotSettings::isScreenCapture(const QUrl& file) const
{
    const QByteArray path = filePath(file);
    return !path.isEmpty() && FilePlaces(m_mounts->table()).mayLookAt(path, FilePlaces::Links::follow)
        && hasScreenshotMark(path);
}

} // namespace nookle
