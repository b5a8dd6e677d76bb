#include "Pictures.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace nookle {

namespace {

/// The decoder stands beside the program where it was built, and in a folder of its own where it was installed.
[[nodiscard]] QString decoderProgram()
{
    const QDir folder(QCoreApplication::applicationDirPath());
    const QString beside = folder.filePath(QStringLiteral("nookle-decode"));
    return QFileInfo::exists(beside) ? beside : folder.filePath(QStringLiteral("../libexec/nookle/nookle-decode"));
}

[[nodiscard]] ThumbnailCache sharedCache()
{
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    return { QFile::encodeName(cache) + "/thumbnails", QFile::encodeName(QDir::tempPath()) };
}

} // namespace

Pictures::Pictures(MainQueue& queue)
    : m_decoder(queue, decoderProgram())
    , m_converter(m_decoder)
    , m_thumbnails(queue, m_decoder, sharedCache(), {})
{
}

} // namespace nookle
