#include "PictureServices.h"

#include "HelperProgram.h"
#include "ProgramThumbnailMaker.h"
#include "ServiceThumbnailMaker.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <utility>

namespace nookle {

namespace {

[[nodiscard]] ThumbnailCache sharedThumbnails()
{
    const QDir caches(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation));
    return { QFile::encodeName(caches.filePath(QStringLiteral("thumbnails"))), QFile::encodeName(QDir::tempPath()) };
}

[[nodiscard]] QStringList thumbnailerFolders()
{
    QStringList folders;
    const QStringList dataFolders = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    for (const QString& folder : dataFolders)
        folders.append(QDir(folder).filePath(QStringLiteral("thumbnailers")));
    return folders;
}

[[nodiscard]] std::vector<std::unique_ptr<ThumbnailMaker>> thumbnailMakers(MainQueue& queue)
{
    std::vector<std::unique_ptr<ThumbnailMaker>> makers;
    makers.push_back(std::make_unique<ServiceThumbnailMaker>(queue, QDBusConnection::sessionBus()));
    makers.push_back(std::make_unique<ProgramThumbnailMaker>(queue, thumbnailerFolders()));
    return makers;
}

} // namespace

PictureServices::PictureServices(std::shared_ptr<Mounts> mounts, MainQueue& queue)
    : m_decoder(queue, helperProgram(QCoreApplication::applicationDirPath(), QStringLiteral("nookle-decode")))
    , m_converter(m_decoder)
    , m_thumbnails(queue, m_decoder, sharedThumbnails(), thumbnailMakers(queue))
    , m_localThumbnails(m_thumbnails, std::move(mounts), queue)
{
}

} // namespace nookle
