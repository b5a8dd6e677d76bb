#include "Favicon.h"

#include "FileUrl.h"

#include <QFile>
#include <QImageReader>

namespace nookle {

namespace {

inline constexpr qint64 largestFile = qint64{ 16 } * 1024 * 1024;
inline constexpr int longestSide = 2048;

} // namespace

QPixmap loadFavicon(const QUrl& url)
{
    QFile file(QFile::decodeName(filePath(url)));
    if (!file.open(QIODevice::ReadOnly) || file.size() > largestFile)
        return {};
    QImageReader reader(&file, "png");
    const QSize size = reader.size();
    if (size.width() > longestSide || size.height() > longestSide)
        return {};
    return QPixmap::fromImage(reader.read());
}

} // namespace nookle
